#pragma once

#include "platform/Displays.h"

#include <vector>

#include <QPoint>
#include <QPointF>
#include <QRect>

namespace tarragon {

// From Cocoa space to Qt's global coordinates and back, and from the places in a panel, which grow upwards, to those in
// a widget, which grow downwards. screens are those of Displays, the primary one first; primaryOrigin is its top-left
// corner in Qt's coordinates.

// Each edge at the nearest whole point. Never empty, and no side longer than largestSide.
QRect qtFrameFromNS(
    const Rect& frameNS, const std::vector<Screen>& screens, const QPoint& primaryOrigin, int largestSide);
Point pointNSFromQt(const QPointF& point, const std::vector<Screen>& screens, const QPoint& primaryOrigin);

// A button's frame in a widget of that height, each edge at the nearest whole point.
QRect frameInWidget(const Rect& frame, int widgetHeight);

} // namespace tarragon
