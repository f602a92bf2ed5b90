#include "platform/linux/dbus/DBusIncoming.h"

#include "platform/linux/dbus/DBusReader.h"
#include "platform/linux/dbus/DBusWriter.h"

namespace tarragon {

namespace {

// What every message begins with: byte order, type, flags, version, length of the body, serial, length of the header
// fields that follow.
constexpr std::size_t FixedSize = 16;
constexpr std::size_t Alignment = 8;

struct Head {
    explicit Head(DBusReader& reader)
        : order(static_cast<char>(reader.readNumber<std::uint8_t>()))
        , type(reader.readNumber<std::uint8_t>())
        , flags(reader.readNumber<std::uint8_t>())
        , version(reader.readNumber<std::uint8_t>())
        , lengthOfBody(reader.readNumber<std::uint32_t>())
        , serial(reader.readNumber<std::uint32_t>())
        , lengthOfFields(reader.readNumber<std::uint32_t>()) { }

    std::uint64_t beginOfBody() const {
        return (FixedSize + std::uint64_t{lengthOfFields} + Alignment - 1) / Alignment * Alignment;
    }

    char order;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint8_t version;
    std::uint32_t lengthOfBody;
    std::uint32_t serial;
    std::uint32_t lengthOfFields;
};

bool isOfOtherOrder(char order) {
    return (order == 'l' || order == 'B') && order != DBusWriter::ByteOrder;
}

// As the other byte order has it.
std::uint32_t swapped(std::uint32_t number) {
    return number >> 24U | (number >> 8U & 0xFF00U) | (number << 8U & 0xFF0000U) | number << 24U;
}

enum Field : std::uint8_t { FieldErrorName = 4, FieldReplySerial = 5, FieldSender = 7, FieldSignature = 8 };

// False for a field of a kind that is not known, behind which nothing can be read.
bool readField(DBusReader& reader, DBusIncoming& message) {
    reader.align(Alignment);
    const auto field = reader.readNumber<std::uint8_t>();
    const std::string_view type = reader.readSignature();
    std::string_view text;
    std::uint32_t number = 0;
    if (type == "s" || type == "o")
        text = reader.readText();
    else if (type == "g")
        text = reader.readSignature();
    else if (type == "u")
        number = reader.readNumber<std::uint32_t>();
    else
        return false;
    switch (field) {
    case FieldErrorName:
        message.errorName = text;
        break;
    case FieldReplySerial:
        message.replySerial = number;
        break;
    case FieldSender:
        message.sender = text;
        break;
    case FieldSignature:
        message.signature = text;
        break;
    default:
        break;
    }
    return true;
}

} // namespace

std::optional<std::uint64_t> DBusIncoming::lengthOf(std::string_view beginning) {
    const char order = beginning.empty() ? DBusWriter::ByteOrder : beginning.front();
    if (order != DBusWriter::ByteOrder && !isOfOtherOrder(order))
        return {};
    if (beginning.size() < FixedSize)
        return 0;
    DBusReader reader(beginning);
    Head head(reader);
    if (isOfOtherOrder(order)) {
        head.lengthOfFields = swapped(head.lengthOfFields);
        head.lengthOfBody = swapped(head.lengthOfBody);
    }
    return head.beginOfBody() + head.lengthOfBody;
}

std::optional<DBusIncoming> DBusIncoming::parse(std::string_view bytes) {
    constexpr std::uint8_t version = 1;
    constexpr std::uint8_t noReplyExpected = 1;
    DBusIncoming message;
    message.bytes = bytes;
    DBusReader reader(bytes);
    const Head head(reader);
    // Programs of one machine usually write in one byte order; nobody else has to be understood.
    if (isOfOtherOrder(head.order))
        return message;
    const bool isWhole = head.beginOfBody() + head.lengthOfBody == bytes.size();
    if (reader.hasFailed() || head.order != DBusWriter::ByteOrder || head.version != version || !isWhole)
        return {};
    if (head.type >= static_cast<std::uint8_t>(Type::MethodCall) && head.type < static_cast<std::uint8_t>(Type::Signal))
        message.type = static_cast<Type>(head.type);
    message.expectsReply = (head.flags & noReplyExpected) == 0;
    message.serial = head.serial;
    message.body = bytes.substr(head.beginOfBody());
    const std::uint64_t endOfFields = FixedSize + std::uint64_t{head.lengthOfFields};
    while (reader.position() < endOfFields) {
        if (!readField(reader, message)) {
            message.type = Type::Signal;
            break;
        }
        if (reader.hasFailed() || reader.position() > endOfFields)
            return {};
    }
    return reader.hasFailed() ? std::nullopt : std::optional(message);
}

} // namespace tarragon
