#include "platform/linux/AtspiReply.h"

#include <cstring>

namespace tarragon {

namespace {

// Cut between two characters, never within one.
std::string shortened(const char* text) {
    std::size_t length = ::strnlen(text, AtspiReply::TextLimit + 1);
    if (length > AtspiReply::TextLimit) {
        length = AtspiReply::TextLimit;
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
            --length;
    }
    return {text, length};
}

// The next value of an iterator, which then stands at the one after it.
const char* readText(DBusMessageIter& next) {
    const char* text = nullptr;
    dbus_message_iter_get_basic(&next, &text);
    dbus_message_iter_next(&next);
    return text;
}

std::optional<AtspiReference> readReferenceAt(DBusMessageIter& next) {
    if (dbus_message_iter_get_arg_type(&next) != DBUS_TYPE_STRUCT)
        return {};
    DBusMessageIter fields;
    dbus_message_iter_recurse(&next, &fields);
    if (dbus_message_iter_get_arg_type(&fields) != DBUS_TYPE_STRING)
        return {};
    const char* busName = readText(fields);
    if (dbus_message_iter_get_arg_type(&fields) != DBUS_TYPE_OBJECT_PATH)
        return {};
    const char* path = readText(fields);
    dbus_message_iter_next(&next);
    return AtspiReference{busName, path};
}

} // namespace

AtspiReply::AtspiReply(DBusMessage* message) {
    dbus_message_iter_init(message, &_next);
}

template <typename T>
T AtspiReply::read() {
    T value{};
    dbus_message_iter_get_basic(&_next, &value);
    dbus_message_iter_next(&_next);
    return value;
}

std::optional<std::string> AtspiReply::readString() {
    if (nextType() != DBUS_TYPE_STRING && nextType() != DBUS_TYPE_OBJECT_PATH)
        return {};
    return shortened(readText(_next));
}

std::optional<std::int64_t> AtspiReply::readInteger() {
    switch (nextType()) {
    case DBUS_TYPE_BYTE:
        return read<std::uint8_t>();
    case DBUS_TYPE_INT16:
        return read<std::int16_t>();
    case DBUS_TYPE_UINT16:
        return read<std::uint16_t>();
    case DBUS_TYPE_INT32:
        return read<std::int32_t>();
    case DBUS_TYPE_UINT32:
        return read<std::uint32_t>();
    case DBUS_TYPE_INT64:
        return read<std::int64_t>();
    case DBUS_TYPE_UINT64:
        return static_cast<std::int64_t>(read<std::uint64_t>());
    default:
        return {};
    }
}

std::optional<double> AtspiReply::readNumber() {
    if (nextType() == DBUS_TYPE_DOUBLE)
        return read<double>();
    if (const auto integer = readInteger())
        return static_cast<double>(*integer);
    return {};
}

std::optional<bool> AtspiReply::readBoolean() {
    if (nextType() != DBUS_TYPE_BOOLEAN)
        return {};
    return read<dbus_bool_t>() != FALSE;
}

std::optional<AtspiReference> AtspiReply::readReference() {
    return readReferenceAt(_next);
}

std::optional<std::vector<AtspiReference>> AtspiReply::readReferences() {
    if (nextType() != DBUS_TYPE_ARRAY || dbus_message_iter_get_element_type(&_next) != DBUS_TYPE_STRUCT)
        return {};
    DBusMessageIter elements;
    dbus_message_iter_recurse(&_next, &elements);
    dbus_message_iter_next(&_next);
    std::vector<AtspiReference> references;
    while (references.size() < ChildrenLimit) {
        auto reference = readReferenceAt(elements);
        if (!reference)
            break;
        if (!reference->isNull())
            references.push_back(std::move(*reference));
    }
    return references;
}

std::optional<std::uint64_t> AtspiReply::readStates() {
    if (nextType() != DBUS_TYPE_ARRAY || dbus_message_iter_get_element_type(&_next) != DBUS_TYPE_UINT32)
        return {};
    DBusMessageIter elements;
    dbus_message_iter_recurse(&_next, &elements);
    dbus_message_iter_next(&_next);
    std::uint64_t states = 0;
    for (unsigned shift = 0; shift < 64 && dbus_message_iter_get_arg_type(&elements) == DBUS_TYPE_UINT32; shift += 32) {
        std::uint32_t word = 0;
        dbus_message_iter_get_basic(&elements, &word);
        dbus_message_iter_next(&elements);
        states |= static_cast<std::uint64_t>(word) << shift;
    }
    return states;
}

std::optional<Rect> AtspiReply::readRect() {
    if (nextType() == DBUS_TYPE_STRUCT) {
        DBusMessageIter fields;
        dbus_message_iter_recurse(&_next, &fields);
        _next = fields;
    }
    const auto x = readInteger();
    const auto y = readInteger();
    const auto width = readInteger();
    const auto height = readInteger();
    if (!x || !y || !width || !height)
        return {};
    return Rect{{static_cast<double>(*x), static_cast<double>(*y)},
        {static_cast<double>(*width), static_cast<double>(*height)}};
}

bool AtspiReply::enterVariant() {
    if (nextType() != DBUS_TYPE_VARIANT)
        return false;
    DBusMessageIter value;
    dbus_message_iter_recurse(&_next, &value);
    _next = value;
    return true;
}

} // namespace tarragon
