#pragma once

#include "platform/Displays.h"

#include <vector>

#include <QPoint>
#include <QRect>

namespace tarragon {

// The primary screen's top-left corner in Qt's global coordinates.
QPoint qtPrimaryOrigin();

// A point in Qt's global coordinates, where y grows downwards. primaryOrigin is the primary screen's top-left corner
// there. screens are those of Displays, the primary one first; without any the point is the origin.
QPoint qtPointFromNS(const Point& pointNS, const std::vector<Screen>& screens, const QPoint& primaryOrigin);

// The point itself where it lies in one of the rectangles, else the nearest point that does. Without any the point.
QPoint nearestPointInside(const QPoint& point, const std::vector<QRect>& rectangles);

} // namespace tarragon
