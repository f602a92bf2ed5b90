#include "DisplayWithoutInput.h"

#include <array>
#include <cstring>
#include <stdexcept>
#include <string_view>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarragon::e2e {

namespace {

constexpr int FirstPort = 6000; // of display 0
constexpr std::size_t FirstConnection = 2;
constexpr std::string_view Extension = "XInputExtension";
constexpr std::string_view Unknown = "XOutputXtension";
static_assert(Extension.size() == Unknown.size());

int connectToServer(const std::string& path) {
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return descriptor;
    close(descriptor);
    return -1;
}

// On a port of the machine's own that nobody uses; its number, or 0.
int listenLocally(int descriptor) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* general = reinterpret_cast<sockaddr*>(&address);
    if (bind(descriptor, general, size) != 0 || listen(descriptor, SOMAXCONN) != 0
        || getsockname(descriptor, general, &size) != 0)
        return 0;
    return ntohs(address.sin_port);
}

} // namespace

DisplayWithoutInput::DisplayWithoutInput(const std::string& display)
    : _serverSocket("/tmp/.X11-unix/X" + display.substr(1)) {
    const int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int port = listenLocally(listening);
    std::array<int, 2> ends{-1, -1};
    if (port == 0 || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        close(listening);
        throw std::runtime_error("no display can be offered");
    }
    _name = "localhost:" + std::to_string(port - FirstPort);
    _wakeUp = ends[0];
    _descriptors = {{ends[1], POLLIN, 0}, {listening, POLLIN, 0}};
    _thread = std::thread([this] { serve(); });
}

DisplayWithoutInput::~DisplayWithoutInput() {
    close(_wakeUp);
    _thread.join();
    for (const pollfd& descriptor : _descriptors)
        close(descriptor.fd);
}

void DisplayWithoutInput::serve() {
    while (poll(_descriptors.data(), _descriptors.size(), -1) > 0) {
        if (_descriptors[0].revents != 0)
            return;
        for (std::size_t end = _descriptors.size() - 1; end >= FirstConnection; --end) {
            if (_descriptors[end].revents != 0 && !passOn(end)) {
                hangUp(end);
                break; // the numbers of the others have changed
            }
        }
        if (_descriptors[1].revents != 0)
            accept();
    }
}

void DisplayWithoutInput::accept() {
    const int client = ::accept4(_descriptors[1].fd, nullptr, nullptr, SOCK_CLOEXEC);
    const int server = client < 0 ? -1 : connectToServer(_serverSocket);
    if (server < 0) {
        close(client);
        return;
    }
    _descriptors.push_back({client, POLLIN, 0});
    _descriptors.push_back({server, POLLIN, 0});
}

// False at the end of the connection.
bool DisplayWithoutInput::passOn(std::size_t from) {
    const bool isClient = (from - FirstConnection) % 2 == 0;
    const int to = _descriptors[isClient ? from + 1 : from - 1].fd;
    std::array<char, 65536> bytes{};
    const ssize_t count = read(_descriptors[from].fd, bytes.data(), bytes.size());
    if (count <= 0)
        return false;
    const std::size_t size = static_cast<std::size_t>(count);
    const std::size_t name = isClient ? std::string_view(bytes.data(), size).find(Extension) : std::string_view::npos;
    if (name != std::string_view::npos)
        std::memcpy(bytes.data() + name, Unknown.data(), Unknown.size());
    for (std::size_t written = 0; written < size;) {
        const ssize_t sent = send(to, bytes.data() + written, size - written, MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        written += static_cast<std::size_t>(sent);
    }
    return true;
}

void DisplayWithoutInput::hangUp(std::size_t end) {
    const std::size_t client = end - (end - FirstConnection) % 2;
    close(_descriptors[client].fd);
    close(_descriptors[client + 1].fd);
    const auto first = _descriptors.begin() + static_cast<std::ptrdiff_t>(client);
    _descriptors.erase(first, first + 2);
}

} // namespace tarragon::e2e
