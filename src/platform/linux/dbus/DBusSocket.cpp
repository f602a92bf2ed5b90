#include "platform/linux/dbus/DBusSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarragon {

namespace {

// No honest reply about a menu comes near it.
constexpr std::size_t LongestMessage = 8UL * 1024 * 1024;
constexpr std::size_t ReadSize = 64UL * 1024;
constexpr std::size_t LongestGreeting = 4096;
// Within every message.
constexpr std::size_t FlagsOffset = 2;
constexpr std::size_t SerialOffset = 8;

// A connected socket, or -1.
int connectTo(std::string_view path, bool isAbstract) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::size_t offset = isAbstract ? 1 : 0;
    if (path.empty() || path.size() + offset >= sizeof address.sun_path)
        return -1;
    path.copy(address.sun_path + offset, path.size());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + offset + path.size());
    if (descriptor >= 0 && ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), length) != 0) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

int connectTo(DBusAddressEntry* entry) {
    if (std::string_view(dbus_address_entry_get_method(entry)) != "unix")
        return -1;
    if (const char* path = dbus_address_entry_get_value(entry, "path"))
        return connectTo(path, false);
    if (const char* name = dbus_address_entry_get_value(entry, "abstract"))
        return connectTo(name, true);
    return -1;
}

// We are who owns this process; the other side sees that for itself.
std::string greeting() {
    std::string text(1, '\0');
    text += "AUTH EXTERNAL ";
    for (const char digit : std::to_string(::getuid())) {
        constexpr std::string_view hexadecimal = "0123456789abcdef";
        text += hexadecimal[static_cast<unsigned char>(digit) >> 4U];
        text += hexadecimal[static_cast<unsigned char>(digit) & 0xFU];
    }
    return text + "\r\nBEGIN\r\n";
}

bool mayRetry(int error) {
    return error == EAGAIN || error == EINTR;
}

class ReplyKeeper final : public DBusReplyReceiver {
public:
    void receive(const DBusIncoming& message) override { reply = message.bytes; }
    std::string reply;
};

} // namespace

std::unique_ptr<DBusSocket> DBusSocket::connect(const std::string& addresses) {
    DBusAddressEntry** entries = nullptr;
    int count = 0;
    if (!dbus_parse_address(addresses.c_str(), &entries, &count, nullptr))
        return nullptr;
    int descriptor = -1;
    for (int index = 0; index < count && descriptor < 0; ++index)
        descriptor = connectTo(entries[index]);
    dbus_address_entries_free(entries);
    return descriptor >= 0 ? std::unique_ptr<DBusSocket>(new DBusSocket(descriptor)) : nullptr;
}

DBusSocket::DBusSocket(int descriptor)
    : _descriptor(descriptor)
    , _buffer(std::make_unique_for_overwrite<char[]>(ReadSize)) {
    // Fillings of menus send from threads of their own.
    dbus_threads_init_default();
    const std::string text = greeting();
    if (::send(_descriptor, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size()))
        close();
}

DBusSocket::~DBusSocket() {
    close();
}

void DBusSocket::close() {
    if (_descriptor >= 0)
        ::close(_descriptor);
    _descriptor = -1;
}

bool DBusSocket::registerWithBus(Clock::time_point deadline) {
    const DBusMessagePointer hello(
        dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "Hello"));
    const std::string reply = hello ? callAndWait(hello.get(), deadline) : std::string();
    const auto answer = DBusIncoming::parse(reply);
    return answer && answer->type == DBusIncoming::Type::Return;
}

bool DBusSocket::append(DBusMessage* message) {
    char* data = nullptr;
    int length = 0;
    // Only messages with a serial may be written.
    dbus_message_set_serial(message, 1);
    if (!dbus_message_marshal(message, &data, &length))
        return false;
    const bool isAppended = append({data, static_cast<std::size_t>(length)}, data[FlagsOffset]);
    dbus_free(data);
    return isAppended;
}

bool DBusSocket::append(std::string_view message, char flags) {
    if (!isOpen() || message.size() < DBUS_MINIMUM_HEADER_SIZE)
        return false;
    if (++_lastSerial == 0)
        ++_lastSerial;
    const std::size_t begin = _outgoing.size();
    _outgoing.insert(_outgoing.end(), message.begin(), message.end());
    _outgoing[begin + FlagsOffset] = flags;
    std::memcpy(_outgoing.data() + begin + SerialOffset, &_lastSerial, sizeof _lastSerial);
    return true;
}

bool DBusSocket::send(std::string_view call) {
    return append(call, DBUS_HEADER_FLAG_NO_REPLY_EXPECTED);
}

std::uint32_t DBusSocket::call(std::string_view call, DBusReplyReceiver& receiver) {
    constexpr char noFlags = 0;
    if (!append(call, noFlags))
        return 0;
    _receivers[_lastSerial] = &receiver;
    return _lastSerial;
}

bool DBusSocket::exchange() {
    if (!isOpen())
        return false;
    const bool isWritten = write();
    const bool isAlive = read() && isWritten;
    // What was said before the end counts.
    const bool isSound = (_letIn || takeGreeting()) && (!_letIn || takeMessages());
    if (!isAlive || !isSound || !write())
        close();
    return isOpen();
}

bool DBusSocket::write() {
    while (_letIn && hasUnwritten()) {
        const ssize_t count =
            ::send(_descriptor, _outgoing.data() + _written, _outgoing.size() - _written, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0)
            return mayRetry(errno);
        _written += static_cast<std::size_t>(count);
    }
    if (!hasUnwritten()) {
        _outgoing.clear();
        _written = 0;
    }
    return true;
}

bool DBusSocket::read() {
    // Bounded, so that somebody who never stops sending does not keep us here.
    constexpr int limit = 16;
    for (int round = 0; round < limit; ++round) {
        const ssize_t count = ::recv(_descriptor, _buffer.get(), ReadSize, MSG_DONTWAIT);
        if (count <= 0)
            return count < 0 && mayRetry(errno);
        _incoming.insert(_incoming.end(), _buffer.get(), _buffer.get() + count);
        if (static_cast<std::size_t>(count) < ReadSize)
            return true;
    }
    return true;
}

bool DBusSocket::takeGreeting() {
    constexpr std::string_view end = "\r\n";
    const auto found = std::search(_incoming.begin(), _incoming.end(), end.begin(), end.end());
    if (found == _incoming.end())
        return _incoming.size() < LongestGreeting;
    const std::string line(_incoming.begin(), found);
    if (!line.starts_with("OK"))
        return false;
    _identifier = line.size() > 3 ? line.substr(3) : std::string();
    _incoming.erase(_incoming.begin(), found + static_cast<std::ptrdiff_t>(end.size()));
    _letIn = true;
    return true;
}

bool DBusSocket::takeMessages() {
    std::size_t taken = 0;
    while (taken < _incoming.size()) {
        const std::size_t available = _incoming.size() - taken;
        if (_skipped > 0) {
            const std::size_t count = std::min(_skipped, available);
            _skipped -= count;
            taken += count;
            continue;
        }
        const std::string_view arrived(_incoming.data() + taken, available);
        const auto length = DBusIncoming::lengthOf(arrived);
        if (!length)
            return false;
        if (*length > LongestMessage) {
            _skipped = *length;
            continue;
        }
        if (*length == 0 || *length > available)
            break;
        const auto message = DBusIncoming::parse(arrived.substr(0, *length));
        if (!message)
            return false;
        taken += *length;
        handle(*message);
    }
    _incoming.erase(_incoming.begin(), _incoming.begin() + static_cast<std::ptrdiff_t>(taken));
    return true;
}

void DBusSocket::handle(const DBusIncoming& message) {
    switch (message.type) {
    case DBusIncoming::Type::Return:
    case DBusIncoming::Type::Error:
        if (const auto found = _receivers.find(message.replySerial); found != _receivers.end()) {
            DBusReplyReceiver& receiver = *found->second;
            _receivers.erase(found);
            receiver.receive(message);
        }
        break;
    case DBusIncoming::Type::MethodCall:
        // Who calls without reading the replies gets none.
        if (message.expectsReply && _outgoing.size() - _written < ReadSize)
            refuse(message);
        break;
    case DBusIncoming::Type::Signal:
        break;
    }
}

// We offer nothing.
void DBusSocket::refuse(const DBusIncoming& call) {
    const DBusMessagePointer refusal(dbus_message_new(DBUS_MESSAGE_TYPE_ERROR));
    if (!refusal || call.serial == 0)
        return;
    const std::string caller(call.sender);
    const bool isSound = caller.empty()
        || (dbus_validate_bus_name(caller.c_str(), nullptr)
            && dbus_message_set_destination(refusal.get(), caller.c_str()));
    if (isSound && dbus_message_set_error_name(refusal.get(), DBUS_ERROR_UNKNOWN_METHOD)
        && dbus_message_set_reply_serial(refusal.get(), call.serial))
        append(refusal.get());
}

short DBusSocket::eventsToWaitFor() const {
    return _letIn && hasUnwritten() ? POLLIN | POLLOUT : POLLIN;
}

bool DBusSocket::wait(Clock::time_point deadline) const {
    if (!isOpen())
        return false;
    const auto remaining = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd descriptor{_descriptor, eventsToWaitFor(), 0};
    return ::poll(&descriptor, 1, static_cast<int>(std::clamp<long>(remaining, 0, 60'000))) >= 0 || errno == EINTR;
}

bool DBusSocket::flush(Clock::time_point deadline) {
    while (exchange()) {
        if (!hasUnwritten())
            return true;
        if (Clock::now() >= deadline || !wait(deadline))
            return false;
    }
    return false;
}

std::string DBusSocket::callAndWait(DBusMessage* message, Clock::time_point deadline) {
    ReplyKeeper keeper;
    if (!append(message))
        return {};
    const std::uint32_t serial = _lastSerial;
    _receivers[serial] = &keeper;
    while (exchange() && keeper.reply.empty() && Clock::now() < deadline && wait(deadline)) { }
    forget(serial);
    return std::move(keeper.reply);
}

} // namespace tarragon
