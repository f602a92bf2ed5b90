#pragma once

#include <string>

#include <sys/types.h>

namespace tarragon {

// A session bus that starts no services, from construction to destruction.
class PrivateSessionBus {
public:
    PrivateSessionBus();
    ~PrivateSessionBus();
    PrivateSessionBus(const PrivateSessionBus&) = delete;
    PrivateSessionBus& operator=(const PrivateSessionBus&) = delete;

    // Empty when the bus could not be started.
    const std::string& address() const { return _address; }

private:
    pid_t _process = -1;
    std::string _configuration; // the file
    std::string _address;
};

} // namespace tarragon
