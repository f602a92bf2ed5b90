#include "RelayedConnection.h"

#include <cstring>
#include <string_view>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarragon {

namespace {

constexpr std::string_view Extension = "XInputExtension";
constexpr std::string_view Unknown = "XOutputXtension";
static_assert(Extension.size() == Unknown.size());

int connectToServer(const std::string& displayName) {
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/tmp/.X11-unix/X" + displayName.substr(1);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

void rename(std::vector<char>& bytes) {
    const std::string_view text(bytes.data(), bytes.size());
    const std::size_t position = text.find(Extension);
    if (position != std::string_view::npos)
        std::memcpy(bytes.data() + position, Unknown.data(), Unknown.size());
}

bool writeAll(int descriptor, const std::vector<char>& bytes) {
    for (std::size_t written = 0; written < bytes.size();) {
        const ssize_t count = send(descriptor, bytes.data() + written, bytes.size() - written, MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

// Empty at the end.
std::vector<char> readSome(int descriptor) {
    std::vector<char> bytes(65536);
    const ssize_t count = read(descriptor, bytes.data(), bytes.size());
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

} // namespace

RelayedConnection::RelayedConnection(const std::string& displayName)
    : _server(connectToServer(displayName)) {
    if (_server < 0 || socketpair(AF_UNIX, SOCK_STREAM, 0, _clientEnds.data()) != 0)
        return;
    _thread = std::thread([this] { relay(); });
    _connection = xcb_connect_to_fd(_clientEnds[0], nullptr);
}

RelayedConnection::~RelayedConnection() {
    if (_connection)
        xcb_disconnect(_connection); // closes the client's end, which ends the thread
    if (_thread.joinable())
        _thread.join();
    for (const int descriptor : {_clientEnds[1], _server}) {
        if (descriptor >= 0)
            close(descriptor);
    }
}

void RelayedConnection::relay() const {
    std::array<pollfd, 2> ends{pollfd{_clientEnds[1], POLLIN, 0}, pollfd{_server, POLLIN, 0}};
    while (poll(ends.data(), ends.size(), -1) > 0) {
        for (std::size_t from = 0; from < ends.size(); ++from) {
            if (ends[from].revents == 0)
                continue;
            std::vector<char> bytes = readSome(ends[from].fd);
            if (from == 0)
                rename(bytes);
            if (bytes.empty() || !writeAll(ends[1 - from].fd, bytes))
                return;
        }
    }
}

} // namespace tarragon
