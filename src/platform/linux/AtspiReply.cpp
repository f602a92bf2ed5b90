#include "platform/linux/AtspiReply.h"

#include <systemd/sd-bus.h>

namespace tarragon {

namespace {

// Cut between two characters, never within one.
std::string shortened(const char* text) {
    std::string result = text;
    if (result.size() <= AtspiReply::TextLimit)
        return result;
    std::size_t length = AtspiReply::TextLimit;
    while (length > 0 && (static_cast<unsigned char>(result[length]) & 0xC0U) == 0x80U)
        --length;
    result.resize(length);
    return result;
}

} // namespace

char AtspiReply::nextType() {
    char type = 0;
    const char* contents = nullptr;
    return sd_bus_message_peek_type(_message, &type, &contents) > 0 ? type : '\0';
}

std::optional<std::string> AtspiReply::readString() {
    const char type = nextType();
    const char* text = nullptr;
    if (type != SD_BUS_TYPE_STRING && type != SD_BUS_TYPE_OBJECT_PATH)
        return {};
    if (sd_bus_message_read_basic(_message, type, &text) <= 0 || text == nullptr)
        return {};
    return shortened(text);
}

std::optional<std::int64_t> AtspiReply::readInteger() {
    const char type = nextType();
    union {
        std::uint8_t byte;
        std::int16_t int16;
        std::uint16_t uint16;
        std::int32_t int32;
        std::uint32_t uint32;
        std::int64_t int64;
        std::uint64_t uint64;
    } value = {};
    switch (type) {
    case SD_BUS_TYPE_BYTE:
    case SD_BUS_TYPE_INT16:
    case SD_BUS_TYPE_UINT16:
    case SD_BUS_TYPE_INT32:
    case SD_BUS_TYPE_UINT32:
    case SD_BUS_TYPE_INT64:
    case SD_BUS_TYPE_UINT64:
        break;
    default:
        return {};
    }
    if (sd_bus_message_read_basic(_message, type, &value) <= 0)
        return {};
    switch (type) {
    case SD_BUS_TYPE_BYTE:
        return value.byte;
    case SD_BUS_TYPE_INT16:
        return value.int16;
    case SD_BUS_TYPE_UINT16:
        return value.uint16;
    case SD_BUS_TYPE_INT32:
        return value.int32;
    case SD_BUS_TYPE_UINT32:
        return value.uint32;
    case SD_BUS_TYPE_INT64:
        return value.int64;
    default:
        return static_cast<std::int64_t>(value.uint64);
    }
}

std::optional<double> AtspiReply::readNumber() {
    if (nextType() != SD_BUS_TYPE_DOUBLE) {
        if (const auto integer = readInteger())
            return static_cast<double>(*integer);
        return {};
    }
    double value = 0;
    if (sd_bus_message_read_basic(_message, SD_BUS_TYPE_DOUBLE, &value) <= 0)
        return {};
    return value;
}

std::optional<bool> AtspiReply::readBoolean() {
    int value = 0;
    if (nextType() != SD_BUS_TYPE_BOOLEAN || sd_bus_message_read_basic(_message, SD_BUS_TYPE_BOOLEAN, &value) <= 0)
        return {};
    return value != 0;
}

std::optional<AtspiReference> AtspiReply::readReference() {
    const char* busName = nullptr;
    const char* path = nullptr;
    if (sd_bus_message_read(_message, "(so)", &busName, &path) <= 0)
        return {};
    return AtspiReference{busName, path};
}

std::optional<std::vector<AtspiReference>> AtspiReply::readReferences() {
    if (sd_bus_message_enter_container(_message, SD_BUS_TYPE_ARRAY, "(so)") <= 0)
        return {};
    std::vector<AtspiReference> references;
    while (references.size() < ChildrenLimit) {
        auto reference = readReference();
        if (!reference)
            break;
        if (!reference->isNull())
            references.push_back(std::move(*reference));
    }
    sd_bus_message_exit_container(_message);
    return references;
}

std::optional<std::uint64_t> AtspiReply::readStates() {
    const void* data = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(_message, SD_BUS_TYPE_UINT32, &data, &size) < 0)
        return {};
    const auto* words = static_cast<const std::uint32_t*>(data);
    const std::size_t count = size / sizeof(std::uint32_t);
    std::uint64_t states = 0;
    if (count > 0)
        states = words[0];
    if (count > 1)
        states |= static_cast<std::uint64_t>(words[1]) << 32U;
    return states;
}

std::optional<Rect> AtspiReply::readRect() {
    const bool inStructure = nextType() == SD_BUS_TYPE_STRUCT;
    if (inStructure && sd_bus_message_enter_container(_message, SD_BUS_TYPE_STRUCT, "iiii") <= 0)
        return {};
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
    char type = 0;
    const char* contents = nullptr;
    if (sd_bus_message_peek_type(_message, &type, &contents) <= 0 || type != SD_BUS_TYPE_VARIANT)
        return false;
    return sd_bus_message_enter_container(_message, SD_BUS_TYPE_VARIANT, contents) > 0;
}

} // namespace tarragon
