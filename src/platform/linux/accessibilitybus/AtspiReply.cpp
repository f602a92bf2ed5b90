#include "platform/linux/accessibilitybus/AtspiReply.h"

#include "platform/linux/dbus/DBusMessage.h"

#include <algorithm>

namespace tarragon {

namespace {

constexpr std::size_t AlignmentOfStructures = 8;

// Cut between two characters, never within one. Nothing when it is no text at all.
std::optional<std::string> shortened(std::string_view text) {
    std::size_t length = std::min(text.size(), AtspiReply::TextLimit);
    while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        --length;
    std::string result(text.substr(0, length));
    return dbus_validate_utf8(result.c_str(), nullptr) ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace

bool AtspiReply::takeTypes(std::string_view types) {
    if (_values.hasFailed() || !_types.starts_with(types))
        return false;
    _types.remove_prefix(types.size());
    return true;
}

std::optional<std::string> AtspiReply::readString() {
    if (!takeTypes("s") && !takeTypes("o"))
        return {};
    const std::string_view text = _values.readText();
    return _values.hasFailed() ? std::nullopt : shortened(text);
}

template <typename Number>
std::optional<std::int64_t> AtspiReply::readAs() {
    const auto number = static_cast<std::int64_t>(_values.readNumber<Number>());
    return _values.hasFailed() ? std::nullopt : std::optional(number);
}

std::optional<std::int64_t> AtspiReply::readInteger() {
    if (takeTypes("i"))
        return readAs<std::int32_t>();
    if (takeTypes("u"))
        return readAs<std::uint32_t>();
    if (takeTypes("x"))
        return readAs<std::int64_t>();
    if (takeTypes("t"))
        return readAs<std::uint64_t>();
    if (takeTypes("n"))
        return readAs<std::int16_t>();
    if (takeTypes("q"))
        return readAs<std::uint16_t>();
    if (takeTypes("y"))
        return readAs<std::uint8_t>();
    return {};
}

std::optional<double> AtspiReply::readNumber() {
    if (takeTypes("d")) {
        const auto number = _values.readNumber<double>();
        return _values.hasFailed() ? std::nullopt : std::optional(number);
    }
    if (const auto integer = readInteger())
        return static_cast<double>(*integer);
    return {};
}

std::optional<bool> AtspiReply::readBoolean() {
    if (!takeTypes("b"))
        return {};
    const auto number = readAs<std::uint32_t>();
    return number ? std::optional(*number != 0) : std::nullopt;
}

std::optional<AtspiReference> AtspiReply::readReferenceFields() {
    _values.align(AlignmentOfStructures);
    const std::string_view busName = _values.readText();
    const std::string_view path = _values.readText();
    if (_values.hasFailed())
        return {};
    return AtspiReference{std::string(busName), std::string(path)};
}

std::optional<AtspiReference> AtspiReply::readReference() {
    if (!takeTypes("(so)"))
        return {};
    return readReferenceFields();
}

std::optional<std::vector<AtspiReference>> AtspiReply::readReferences() {
    if (!takeTypes("a(so)"))
        return {};
    const auto length = _values.readNumber<std::uint32_t>();
    _values.align(AlignmentOfStructures);
    if (_values.hasFailed() || length > _values.remaining())
        return {};
    const std::size_t end = _values.position() + length;
    std::vector<AtspiReference> references;
    while (_values.position() < end && references.size() < ChildrenLimit) {
        auto reference = readReferenceFields();
        if (!reference)
            break;
        if (!reference->isNull())
            references.push_back(std::move(*reference));
    }
    if (_values.position() < end)
        _values.skipTo(end);
    return references;
}

std::optional<std::uint64_t> AtspiReply::readStates() {
    if (!takeTypes("au"))
        return {};
    const auto length = _values.readNumber<std::uint32_t>();
    if (_values.hasFailed() || length > _values.remaining())
        return {};
    const std::size_t end = _values.position() + length;
    std::uint64_t states = 0;
    for (unsigned shift = 0; shift < 64 && _values.position() < end; shift += 32)
        states |= std::uint64_t{_values.readNumber<std::uint32_t>()} << shift;
    if (_values.position() < end)
        _values.skipTo(end);
    return states;
}

std::optional<Rect> AtspiReply::readRect() {
    if (takeTypes("("))
        _values.align(AlignmentOfStructures);
    const auto x = readInteger();
    const auto y = readInteger();
    const auto width = readInteger();
    const auto height = readInteger();
    static_cast<void>(takeTypes(")"));
    if (!x || !y || !width || !height)
        return {};
    return Rect{{static_cast<double>(*x), static_cast<double>(*y)},
        {static_cast<double>(*width), static_cast<double>(*height)}};
}

bool AtspiReply::enterVariant() {
    if (!takeTypes("v"))
        return false;
    _types = _values.readSignature();
    return !_values.hasFailed();
}

} // namespace tarragon
