#include "mirror/elements/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace tarragon {

namespace {

// Sixteen digits and a sign, a point and leading zeros, or an exponent, all fit.
using Buffer = std::array<char, 32>;

std::string textOf(double number, std::chars_format format) {
    Buffer buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format);
    return {buffer.data(), result.ptr};
}

int exponentOf(std::string_view scientific) {
    std::string_view digits = scientific.substr(scientific.find('e') + 1);
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    int exponent = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    return exponent;
}

} // namespace

std::string shortNumberText(double number) {
    Buffer buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::general, 6);
    return {buffer.data(), result.ptr};
}

std::string exactNumberText(double number) {
    std::string scientific = textOf(number, std::chars_format::scientific);
    if (!std::isfinite(number))
        return scientific;
    // The bounds of the plain notation for numbers of up to sixteen digits.
    const int exponent = exponentOf(scientific);
    return exponent < -4 || exponent >= 16 ? scientific : textOf(number, std::chars_format::fixed);
}

} // namespace tarragon
