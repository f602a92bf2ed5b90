#pragma once

#include "platform/Displays.h"

#include <vector>

namespace tarragon {

// Qt's own space: y grows downwards, and the origin is that of the whole desktop, not of the primary screen.
struct QtScreenGeometry {
    Rect geometry;
    Rect availableGeometry;
};

// primary is the primary screen's rectangle in Qt's space.
Rect rectCGFromQt(const Rect& rect, const Rect& primary);
Rect rectNSFromQt(const Rect& rect, const Rect& primary);
// A point in the topmost row of the primary screen has its height as y.
Point pointNSFromQt(const Point& point, const Rect& primary);

// The first of the screens is the primary one. Of those with the same geometry the first alone counts.
std::vector<Screen> screensFromQt(const std::vector<QtScreenGeometry>& screens);

} // namespace tarragon
