#pragma once

#include <string>

#include <sys/types.h>

namespace tarragon {

// An X server without hardware, from construction to destruction. Its display number is one that nobody uses.
class VirtualServer {
public:
    VirtualServer();
    ~VirtualServer();
    VirtualServer(const VirtualServer&) = delete;
    VirtualServer& operator=(const VirtualServer&) = delete;

    // As in ":7"; empty when the server could not be started.
    const std::string& displayName() const { return _displayName; }

private:
    pid_t _process = -1;
    std::string _displayName;
};

} // namespace tarragon
