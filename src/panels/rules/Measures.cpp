#include "panels/rules/Measures.h"

#include <cmath>
#include <limits>

namespace tarragon {

double roundedToSinglePrecision(double value) {
    // GCC 12 leaves the rounding out where it does two at once, as for a point; it never does that to a volatile value.
    const volatile auto rounded = static_cast<float>(value);
    return rounded;
}

std::int32_t wholePoints(double length) {
    constexpr auto Lowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto Highest = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(length))
        return 0;
    if (length >= Highest)
        return Highest;
    return length <= Lowest ? Lowest : static_cast<std::int32_t>(length);
}

std::int8_t fontSizeForStoredValue(std::int64_t stored) {
    return static_cast<std::int8_t>(static_cast<std::uint64_t>(stored) & 0xFF);
}

} // namespace tarragon
