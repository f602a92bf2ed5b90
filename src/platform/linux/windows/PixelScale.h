#pragma once

#include "platform/Geometry.h"

#include <mutex>
#include <vector>

namespace tarragon {

// A screen whose pixels are smaller than points.
struct ScaledScreen {
    Rect pixels; // of the root window, y down
    double scale = 1; // pixels per point
    bool operator==(const ScaledScreen&) const = default;
};

// Turns pixels of the window system into points and back. A screen has its top-left corner at the same numbers in both
// and is smaller in points, so that screens of a scale have gaps between them. y grows downwards in both.
//
// A place belongs to the screen that holds it, else to the nearest one; a rectangle to the screen that holds its
// middle.
class PixelScale {
public:
    // Every pixel is a point.
    PixelScale() = default;
    explicit PixelScale(std::vector<ScaledScreen> screens);

    // Nothing is to be converted.
    bool isOne() const { return _screens.empty(); }

    Point pointFromPixel(const Point& pixel) const;
    Point pixelFromPoint(const Point& point) const;
    Rect pointsFromPixels(const Rect& pixels) const;
    Rect pixelsFromPoints(const Rect& points) const;
    // Pixels per point of the screen that a rectangle in pixels belongs to.
    double scaleOfPixels(const Rect& pixels) const;

private:
    std::vector<ScaledScreen> _screens; // empty when every scale is 1
};

// The scales of the screens that are there now. May be used from any thread.
class CurrentPixelScale {
public:
    PixelScale get() const;
    void set(PixelScale scale);

private:
    mutable std::mutex _mutex; // guards _scale
    PixelScale _scale;
};

} // namespace tarragon
