#include "bus/SilentBus.h"

#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarragon {

SilentBus::SilentBus()
    : _listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    static std::atomic<int> count = 0;
    const std::string name = "silent-bus-" + std::to_string(::getpid()) + "-" + std::to_string(++count);
    _path = (std::filesystem::temp_directory_path() / name).string();
    _address = "unix:path=" + _path;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    _path.copy(address.sun_path, sizeof address.sun_path - 1);
    ::unlink(_path.c_str());
    constexpr int waiting = 50;
    if (::bind(_listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0
        || ::listen(_listener, waiting) != 0)
        throw std::runtime_error("cannot listen at " + _path);
}

SilentBus::~SilentBus() {
    for (const int connection : _connections)
        ::close(connection);
    ::close(_listener);
    ::unlink(_path.c_str());
}

std::size_t SilentBus::connections() {
    int connection = -1;
    while ((connection = ::accept4(_listener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0)
        _connections.push_back(connection);
    return _connections.size();
}

} // namespace tarragon
