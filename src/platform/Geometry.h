#pragma once

#include <cstdint>

namespace tarragon {

// Plain geometry, in points. Two coordinate spaces are in use, told apart by a suffix of the variable's name:
// "CG" is screen space (origin at the top-left corner of the primary screen, y grows downwards), "NS" is Cocoa space
// (origin at its bottom-left corner, y grows upwards).

struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

// The origin is the corner with the smallest coordinates: top-left in screen space, bottom-left in Cocoa space.
struct Rect {
    Point origin;
    Size size;
    bool operator==(const Rect&) const = default;
};

struct Range {
    std::int64_t location = 0;
    std::int64_t length = 0;
    bool operator==(const Range&) const = default;
};

// True when the point lies in the rectangle; the edges with the smallest coordinates belong to it, the opposite ones
// do not. An empty rectangle contains nothing.
constexpr bool contains(const Rect& rect, const Point& point) {
    return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y
        && point.y < rect.origin.y + rect.size.height;
}

} // namespace tarragon
