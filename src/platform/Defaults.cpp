#include "platform/Defaults.h"

#include <cstdlib>

namespace tarragon {

namespace {

bool startsLikeTrue(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\n+-0");
    if (first == std::string::npos)
        return false;
    const char character = text[first];
    return (character >= '1' && character <= '9') || character == 'y' || character == 'Y' || character == 't'
        || character == 'T';
}

} // namespace

bool boolValue(const std::optional<DefaultsValue>& value) {
    if (!value)
        return false;
    if (const auto* boolean = std::get_if<bool>(&*value))
        return *boolean;
    if (const auto* integer = std::get_if<std::int64_t>(&*value))
        return *integer != 0;
    if (const auto* real = std::get_if<double>(&*value))
        return *real != 0;
    if (const auto* text = std::get_if<std::string>(&*value))
        return startsLikeTrue(*text);
    return false;
}

std::int64_t integerValue(const std::optional<DefaultsValue>& value) {
    if (!value)
        return 0;
    if (const auto* boolean = std::get_if<bool>(&*value))
        return *boolean ? 1 : 0;
    if (const auto* integer = std::get_if<std::int64_t>(&*value))
        return *integer;
    if (const auto* real = std::get_if<double>(&*value)) {
        // Outside this range, and for NaN, the conversion is undefined.
        constexpr double Limit = 9.2e18;
        return *real > -Limit && *real < Limit ? static_cast<std::int64_t>(*real) : 0;
    }
    if (const auto* text = std::get_if<std::string>(&*value))
        return std::strtoll(text->c_str(), nullptr, 10);
    return 0;
}

std::optional<std::string> stringValue(const std::optional<DefaultsValue>& value) {
    if (!value)
        return std::nullopt;
    const auto* text = std::get_if<std::string>(&*value);
    return text ? std::optional(*text) : std::nullopt;
}

} // namespace tarragon
