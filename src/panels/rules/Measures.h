#pragma once

#include "platform/Geometry.h"

#include <cstdint>

namespace tarragon {

// The upper edge of a rectangle in Cocoa space.
constexpr double topNS(const Rect& rectNS) {
    return rectNS.origin.y + rectNS.size.height;
}

// What is left of a value that goes through a single-precision one, as places and sizes of windows do that are set.
double roundedToSinglePrecision(double value);

// The whole points of a length, its fraction cut off towards 0. Lengths beyond the range give its end; what is not a
// number gives 0.
std::int32_t wholePoints(double length);

// The point size kept of a stored font size: its low byte, read as a signed number.
std::int8_t fontSizeForStoredValue(std::int64_t stored);

} // namespace tarragon
