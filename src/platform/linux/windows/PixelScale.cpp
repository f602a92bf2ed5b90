#include "platform/linux/windows/PixelScale.h"

#include <algorithm>
#include <utility>

namespace tarragon {

namespace {

Rect pointsOf(const ScaledScreen& screen) {
    return {screen.pixels.origin, {screen.pixels.size.width / screen.scale, screen.pixels.size.height / screen.scale}};
}

Rect pixelsOf(const ScaledScreen& screen) {
    return screen.pixels;
}

Point middleOf(const Rect& rect) {
    return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

double squaredDistance(const Rect& rect, const Point& point) {
    const double x = point.x - std::clamp(point.x, rect.origin.x, rect.origin.x + rect.size.width);
    const double y = point.y - std::clamp(point.y, rect.origin.y, rect.origin.y + rect.size.height);
    return x * x + y * y;
}

template <typename FrameOf>
const ScaledScreen& screenAt(const std::vector<ScaledScreen>& screens, const Point& place, FrameOf frameOf) {
    const ScaledScreen* nearest = &screens.front();
    for (const ScaledScreen& screen : screens) {
        const Rect frame = frameOf(screen);
        if (contains(frame, place))
            return screen;
        if (squaredDistance(frame, place) < squaredDistance(frameOf(*nearest), place))
            nearest = &screen;
    }
    return *nearest;
}

Rect inPoints(const Rect& pixels, const ScaledScreen& screen) {
    const Point& corner = screen.pixels.origin;
    return {{corner.x + (pixels.origin.x - corner.x) / screen.scale,
                corner.y + (pixels.origin.y - corner.y) / screen.scale},
        {pixels.size.width / screen.scale, pixels.size.height / screen.scale}};
}

Rect inPixels(const Rect& points, const ScaledScreen& screen) {
    const Point& corner = screen.pixels.origin;
    return {{corner.x + (points.origin.x - corner.x) * screen.scale,
                corner.y + (points.origin.y - corner.y) * screen.scale},
        {points.size.width * screen.scale, points.size.height * screen.scale}};
}

} // namespace

PixelScale::PixelScale(std::vector<ScaledScreen> screens)
    : _screens(std::move(screens)) {
    std::erase_if(_screens, [](const ScaledScreen& screen) { return screen.scale <= 0; });
    if (std::ranges::all_of(_screens, [](const ScaledScreen& screen) { return screen.scale == 1; }))
        _screens.clear();
}

Point PixelScale::pointFromPixel(const Point& pixel) const {
    return pointsFromPixels({pixel, {}}).origin;
}

Point PixelScale::pixelFromPoint(const Point& point) const {
    return pixelsFromPoints({point, {}}).origin;
}

Rect PixelScale::pointsFromPixels(const Rect& pixels) const {
    return isOne() ? pixels : inPoints(pixels, screenAt(_screens, middleOf(pixels), pixelsOf));
}

Rect PixelScale::pixelsFromPoints(const Rect& points) const {
    return isOne() ? points : inPixels(points, screenAt(_screens, middleOf(points), pointsOf));
}

double PixelScale::scaleOfPixels(const Rect& pixels) const {
    return isOne() ? 1 : screenAt(_screens, middleOf(pixels), pixelsOf).scale;
}

PixelScale CurrentPixelScale::get() const {
    const std::lock_guard guard(_mutex);
    return _scale;
}

void CurrentPixelScale::set(PixelScale scale) {
    const std::lock_guard guard(_mutex);
    _scale = std::move(scale);
}

} // namespace tarragon
