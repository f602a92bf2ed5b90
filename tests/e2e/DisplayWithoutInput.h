#pragma once

#include <string>
#include <thread>
#include <vector>

#include <poll.h>

namespace tarragon::e2e {

// An X display without the input extension, which no server of today can be told to leave out: what clients send to
// another display passes through this object, which changes the name of the extension to one that no server knows.
class DisplayWithoutInput {
public:
    // display as in ":7". Throws std::runtime_error when it cannot be offered.
    explicit DisplayWithoutInput(const std::string& display);
    ~DisplayWithoutInput();
    DisplayWithoutInput(const DisplayWithoutInput&) = delete;
    DisplayWithoutInput& operator=(const DisplayWithoutInput&) = delete;

    // As clients find it.
    const std::string& name() const { return _name; }

private:
    void serve();
    void accept();
    bool passOn(std::size_t from);
    void hangUp(std::size_t end);

    std::string _serverSocket;
    std::string _name;
    // What ends the thread, what clients come to, and then the two ends of each connection: the client's and the
    // server's.
    std::vector<pollfd> _descriptors;
    int _wakeUp = -1;
    std::thread _thread;
};

} // namespace tarragon::e2e
