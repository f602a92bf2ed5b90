#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

namespace tarragon {

// A real X server without a screen that anybody sees, for as long as the object lives.
class XkbServer {
public:
    XkbServer();
    ~XkbServer();
    XkbServer(const XkbServer&) = delete;
    XkbServer& operator=(const XkbServer&) = delete;

    // Empty when none could be started.
    const std::string& displayName() const { return _displayName; }
    // Runs a program on the server; true when it succeeded.
    bool run(const std::string& command) const;

private:
    pid_t _process = -1;
    std::string _displayName;
};

} // namespace tarragon
