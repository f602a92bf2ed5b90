#include "panels/widgets/PanelGeometry.h"

#include <algorithm>
#include <cmath>

namespace tarragon {

namespace {

// Window systems count in 16 bits.
constexpr double LargestCoordinate = 32000;

int nearestWhole(double coordinate) {
    if (std::isnan(coordinate))
        return 0;
    // Always upwards from the middle, on both sides of 0: what is moved by whole points keeps its size.
    return static_cast<int>(std::floor(std::clamp(coordinate, -LargestCoordinate, LargestCoordinate) + 0.5));
}

struct PrimaryScreen {
    double left = 0;
    double top = 0;
};

PrimaryScreen primaryScreen(const std::vector<Screen>& screens) {
    if (screens.empty())
        return {};
    const Rect& frame = screens.front().frameNS;
    return {frame.origin.x, frame.origin.y + frame.size.height};
}

} // namespace

QRect qtFrameFromNS(
    const Rect& frameNS, const std::vector<Screen>& screens, const QPoint& primaryOrigin, int largestSide) {
    const PrimaryScreen primary = primaryScreen(screens);
    const double x = frameNS.origin.x - primary.left;
    const double y = primary.top - frameNS.origin.y - frameNS.size.height;
    const int left = nearestWhole(x);
    const int top = nearestWhole(y);
    const int right = nearestWhole(std::min(x, LargestCoordinate) + std::min(frameNS.size.width, LargestCoordinate));
    const int bottom = nearestWhole(std::min(y, LargestCoordinate) + std::min(frameNS.size.height, LargestCoordinate));
    return QRect(left, top, std::clamp(right - left, 1, largestSide), std::clamp(bottom - top, 1, largestSide))
        .translated(primaryOrigin);
}

Point pointNSFromQt(const QPointF& point, const std::vector<Screen>& screens, const QPoint& primaryOrigin) {
    const PrimaryScreen primary = primaryScreen(screens);
    const QPointF onPrimary = point - primaryOrigin;
    return {primary.left + onPrimary.x(), primary.top - onPrimary.y()};
}

QRect frameInWidget(const Rect& frame, int widgetHeight) {
    const int left = nearestWhole(frame.origin.x);
    const int right = nearestWhole(frame.origin.x + frame.size.width);
    const int top = nearestWhole(widgetHeight - frame.origin.y - frame.size.height);
    const int bottom = nearestWhole(widgetHeight - frame.origin.y);
    return {left, top, std::max(right - left, 0), std::max(bottom - top, 0)};
}

} // namespace tarragon
