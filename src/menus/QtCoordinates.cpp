#include "menus/QtCoordinates.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QGuiApplication>
#include <QScreen>

namespace tarragon {

namespace {

// Window systems count in 16 bits.
int coordinate(double value) {
    constexpr double Most = 32000;
    return std::isnan(value) ? 0 : static_cast<int>(std::lround(std::clamp(value, -Most, Most)));
}

} // namespace

QPoint qtPrimaryOrigin() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? primary->geometry().topLeft() : QPoint();
}

QPoint qtPointFromNS(const Point& pointNS, const std::vector<Screen>& screens, const QPoint& primaryOrigin) {
    if (screens.empty())
        return primaryOrigin;
    const Rect& primary = screens.front().frameNS;
    const double top = primary.origin.y + primary.size.height;
    return primaryOrigin + QPoint(coordinate(pointNS.x - primary.origin.x), coordinate(top - pointNS.y));
}

QPoint nearestPointInside(const QPoint& point, const std::vector<QRect>& rectangles) {
    std::optional<QPoint> nearest;
    for (const QRect& rectangle : rectangles) {
        const QPoint candidate(std::clamp(point.x(), rectangle.left(), rectangle.right()),
            std::clamp(point.y(), rectangle.top(), rectangle.bottom()));
        if (!nearest || (candidate - point).manhattanLength() < (*nearest - point).manhattanLength())
            nearest = candidate;
    }
    return nearest.value_or(point);
}

} // namespace tarragon
