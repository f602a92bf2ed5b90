#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarragon {

// A message that has arrived, as views of the bytes that it came in, and valid as long as these.
struct DBusIncoming {
    enum class Type : std::uint8_t { MethodCall = 1, Return = 2, Error = 3, Signal = 4 };

    // Whatever cannot be understood counts as a signal, which nobody here listens to.
    Type type = Type::Signal;
    bool expectsReply = false;
    std::uint32_t serial = 0;
    std::uint32_t replySerial = 0; // serial of the call that this replies to, 0 when it is no reply
    std::string_view sender; // empty without a bus in between
    std::string_view errorName;
    std::string_view signature; // of the body
    std::string_view body;
    std::string_view bytes; // all of it

    // The length of the message that begins here, 0 as long as too little of it is there to tell. Nothing when this is
    // not the beginning of a message that can be read here.
    static std::optional<std::uint64_t> lengthOf(std::string_view beginning);
    // The bytes are as many as that. Nothing when they are no message; the body is not looked at, nor anything in a
    // message of the other byte order.
    static std::optional<DBusIncoming> parse(std::string_view bytes);
};

} // namespace tarragon
