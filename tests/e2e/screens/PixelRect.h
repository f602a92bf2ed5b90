#pragma once

namespace tarragon::e2e {

// X pixels, y down from the top-left corner of the root window.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool contains(int pointX, int pointY) const {
        return pointX >= x && pointX < x + width && pointY >= y && pointY < y + height;
    }
    bool contains(const PixelRect& other) const {
        return other.x >= x && other.y >= y && other.x + other.width <= x + width
            && other.y + other.height <= y + height;
    }
    bool operator==(const PixelRect&) const = default;
};

} // namespace tarragon::e2e
