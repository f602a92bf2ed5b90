#include "fuzz/ScriptedBus.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarragon {

namespace {

constexpr std::uint32_t Roles[] = {33, 34, 35, 50, 8, 45, 41, 59, 43, 23, 69, 0, 4'000'000'000};

void appendBasic(DBusMessage* message, int type, const void* value) {
    dbus_message_append_args(message, type, value, DBUS_TYPE_INVALID);
}

void appendVariant(DBusMessageIter& parent, const char* signature, int type, const void* value) {
    DBusMessageIter variant;
    dbus_message_iter_open_container(&parent, DBUS_TYPE_VARIANT, signature, &variant);
    dbus_message_iter_append_basic(&variant, type, value);
    dbus_message_iter_close_container(&parent, &variant);
}

// Variants within variants.
void appendNested(DBusMessageIter& parent, int depth) {
    DBusMessageIter variant;
    dbus_message_iter_open_container(&parent, DBUS_TYPE_VARIANT, depth > 0 ? "v" : "i", &variant);
    const std::int32_t number = 5;
    if (depth > 0)
        appendNested(variant, depth - 1);
    else
        dbus_message_iter_append_basic(&variant, DBUS_TYPE_INT32, &number);
    dbus_message_iter_close_container(&parent, &variant);
}

} // namespace

ScriptedBus::ScriptedBus(std::vector<std::uint8_t> script)
    : _script(std::move(script)) {
    char folder[] = "/tmp/scripted-bus-XXXXXX";
    _folder = ::mkdtemp(folder);
    _path = _folder + "/socket";
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    _path.copy(address.sun_path, sizeof address.sun_path - 1);
    _listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::bind(_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || ::listen(_listener, 4) != 0 || ::pipe(_stop) != 0)
        std::abort();
    _thread = std::thread([this] { serve(); });
}

ScriptedBus::~ScriptedBus() {
    ::close(_stop[1]);
    _thread.join();
    ::close(_stop[0]);
    ::close(_listener);
    if (_connection >= 0)
        ::close(_connection);
    ::unlink(_path.c_str());
    ::rmdir(_folder.c_str());
}

std::string ScriptedBus::objectPath(int number) {
    return "/o/" + std::to_string(number);
}

std::uint8_t ScriptedBus::next() {
    return _position < _script.size() ? _script[_position++] : 0;
}

std::string ScriptedBus::nextText() {
    const std::uint8_t length = next();
    if (length >= 250)
        return std::string(std::size_t{1} << (length - 236U), 'x');
    std::string text;
    for (int count = 0; count < length % 24; ++count)
        text += static_cast<char>(' ' + next() % 95);
    return text;
}

void ScriptedBus::serve() {
    while (true) {
        pollfd descriptors[] = {{_stop[0], POLLIN, 0}, {_connection >= 0 ? _connection : _listener, POLLIN, 0}};
        if (::poll(descriptors, 2, -1) < 0 || descriptors[0].revents != 0)
            return;
        if (_connection < 0) {
            _connection = ::accept(_listener, nullptr, nullptr);
            _greeted = false;
            _heard.clear();
            continue;
        }
        std::vector<char> bytes(65536);
        const ssize_t count = ::recv(_connection, bytes.data(), bytes.size(), 0);
        bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count <= 0 || !hear(bytes)) {
            ::close(_connection);
            _connection = -1;
        }
    }
}

bool ScriptedBus::hear(const std::vector<char>& bytes) {
    _heard.insert(_heard.end(), bytes.begin(), bytes.end());
    if (!_greeted) {
        constexpr std::string_view end = "BEGIN\r\n";
        const auto found = std::search(_heard.begin(), _heard.end(), end.begin(), end.end());
        if (found == _heard.end())
            return true;
        _heard.erase(_heard.begin(), found + static_cast<std::ptrdiff_t>(end.size()));
        _greeted = true;
        say("OK 0123456789abcdef\r\n");
    }
    while (_heard.size() >= DBUS_MINIMUM_HEADER_SIZE) {
        const int needed = dbus_message_demarshal_bytes_needed(_heard.data(), static_cast<int>(_heard.size()));
        if (needed <= 0 || static_cast<std::size_t>(needed) > _heard.size())
            return needed >= 0;
        const DBusMessagePointer call(dbus_message_demarshal(_heard.data(), needed, nullptr));
        _heard.erase(_heard.begin(), _heard.begin() + needed);
        if (call && !dbus_message_get_no_reply(call.get()) && !answer(call.get()))
            return false;
    }
    return true;
}

bool ScriptedBus::answer(DBusMessage* call) {
    if (dbus_message_is_method_call(call, DBUS_INTERFACE_DBUS, "Hello")) {
        const DBusMessagePointer reply(dbus_message_new_method_return(call));
        const char* name = ":1.1";
        appendBasic(reply.get(), DBUS_TYPE_STRING, &name);
        say(reply.get());
        return true;
    }
    const bool hasEnded = _position >= _script.size();
    const std::uint8_t way = next();
    if (hasEnded || (way >= 200 && way < 220)) {
        const bool isGone = way == 219;
        say(DBusMessagePointer(
            dbus_message_new_error(call, isGone ? DBUS_ERROR_SERVICE_UNKNOWN : DBUS_ERROR_UNKNOWN_METHOD, "no"))
                .get());
    } else if (way >= 160 && way < 200) {
        say(strangeAnswer(call).get());
    } else if (way >= 220 && way < 230) {
        say(honestAnswer(call).get());
        say(honestAnswer(call).get());
    } else if (way >= 230 && way < 235) {
        const DBusMessagePointer reply = honestAnswer(call);
        dbus_message_set_reply_serial(reply.get(), next() + 1000U);
        say(reply.get());
        say(honestAnswer(call).get());
    } else if (way >= 235 && way < 240) {
        std::string bytes;
        for (int count = next(); count >= 0; --count)
            bytes += static_cast<char>(next());
        say(bytes);
        return way != 239;
    } else if (way >= 240 && way < 245) {
        say(honestAnswer(call).get(), next());
    } else if (way >= 245 && way < 248) {
        return false;
    } else {
        say(honestAnswer(call).get());
    }
    return true;
}

void ScriptedBus::appendObjects(DBusMessageIter& arguments) {
    DBusMessageIter array;
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "(so)", &array);
    const std::uint8_t wanted = next();
    const int count = wanted >= 252 ? 5000 : wanted % 8;
    for (int index = 0; index < count; ++index) {
        DBusMessageIter structure;
        dbus_message_iter_open_container(&array, DBUS_TYPE_STRUCT, nullptr, &structure);
        const char* name = BusName;
        const std::string path = objectPath(wanted >= 252 ? index : next() % 12);
        const char* characters = path.c_str();
        dbus_message_iter_append_basic(&structure, DBUS_TYPE_STRING, &name);
        dbus_message_iter_append_basic(&structure, DBUS_TYPE_OBJECT_PATH, &characters);
        dbus_message_iter_close_container(&array, &structure);
    }
    dbus_message_iter_close_container(&arguments, &array);
}

DBusMessagePointer ScriptedBus::honestAnswer(DBusMessage* call) {
    DBusMessagePointer reply(dbus_message_new_method_return(call));
    DBusMessageIter arguments;
    dbus_message_iter_init_append(reply.get(), &arguments);
    const std::string_view member = dbus_message_get_member(call);
    if (member == "GetRole") {
        const std::uint32_t role = Roles[next() % std::size(Roles)];
        appendBasic(reply.get(), DBUS_TYPE_UINT32, &role);
    } else if (member == "GetState") {
        DBusMessageIter array;
        dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "u", &array);
        for (int count = next() % 4; count > 0; --count) {
            const std::uint32_t word = next() * 0x01010101U;
            dbus_message_iter_append_basic(&array, DBUS_TYPE_UINT32, &word);
        }
        dbus_message_iter_close_container(&arguments, &array);
    } else if (member == "GetChildren" || member == "GetMatches") {
        appendObjects(arguments);
    } else if (member == "GetExtents") {
        DBusMessageIter structure;
        dbus_message_iter_open_container(&arguments, DBUS_TYPE_STRUCT, nullptr, &structure);
        for (int count = 0; count < 4; ++count) {
            const std::int32_t number = (next() - 8) * 1'000'003;
            dbus_message_iter_append_basic(&structure, DBUS_TYPE_INT32, &number);
        }
        dbus_message_iter_close_container(&arguments, &structure);
    } else if (member == "Get") {
        const std::string text = nextText();
        const char* characters = text.c_str();
        const std::int32_t number = next() - 100;
        if (next() % 4 == 0)
            appendVariant(arguments, "i", DBUS_TYPE_INT32, &number);
        else
            appendVariant(arguments, "s", DBUS_TYPE_STRING, &characters);
    } else {
        const std::string text = nextText();
        const char* characters = text.c_str();
        appendBasic(reply.get(), DBUS_TYPE_STRING, &characters);
    }
    return reply;
}

DBusMessagePointer ScriptedBus::strangeAnswer(DBusMessage* call) {
    DBusMessagePointer reply(dbus_message_new_method_return(call));
    DBusMessageIter arguments;
    dbus_message_iter_init_append(reply.get(), &arguments);
    const std::string text = nextText();
    const char* characters = text.c_str();
    const double number = next() / 3.0;
    const dbus_bool_t truth = TRUE;
    switch (next() % 6) {
    case 0:
        appendBasic(reply.get(), DBUS_TYPE_DOUBLE, &number);
        break;
    case 1:
        appendBasic(reply.get(), DBUS_TYPE_STRING, &characters);
        break;
    case 2:
        appendNested(arguments, next() % 25);
        break;
    case 3:
        appendVariant(arguments, "b", DBUS_TYPE_BOOLEAN, &truth);
        break;
    case 4:
        appendObjects(arguments);
        break;
    default:
        break;
    }
    return reply;
}

void ScriptedBus::say(DBusMessage* message, std::size_t flippedByte) {
    dbus_message_set_serial(message, ++_serial);
    char* data = nullptr;
    int length = 0;
    if (!dbus_message_marshal(message, &data, &length))
        return;
    std::string bytes(data, static_cast<std::size_t>(length));
    dbus_free(data);
    if (flippedByte != SIZE_MAX)
        bytes[flippedByte % bytes.size()] = static_cast<char>(bytes[flippedByte % bytes.size()] ^ 0x15);
    say(bytes);
}

void ScriptedBus::say(const std::string& bytes) const {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = ::send(_connection, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0)
            return;
        sent += static_cast<std::size_t>(count);
    }
}

} // namespace tarragon
