#include "panels/rules/ScreenTopOverlap.h"

#include "panels/rules/Measures.h"
#include "panels/rules/ScreenTopBarRules.h"

namespace tarragon {

namespace {

bool isUnderBar(const ScreenTopOverlap& overlap) {
    return overlap.screenTopEnabled && overlap.barsExist && !overlap.firstBarAutoHides && !overlap.windowIsOnFirstScreen
        && overlap.screenRectCG.origin.y + ScreenTopBarHeight > overlap.windowFrameCG.origin.y;
}

} // namespace

WindowChange windowChangeBelowBar(const ScreenTopOverlap& overlap) {
    if (!isUnderBar(overlap))
        return {};

    WindowChange change;
    const double room = overlap.screenRectCG.size.height - ScreenTopBarHeight;
    if (overlap.windowFrameCG.size.height >= room) {
        change.size = Size{.width = roundedToSinglePrecision(overlap.windowFrameCG.size.width),
            .height = roundedToSinglePrecision(room)};
    }
    // The windows of this one stay where they are.
    if (overlap.focusedAppName != "Steam") {
        change.positionCG = Point{.x = roundedToSinglePrecision(overlap.windowFrameNS.origin.x),
            .y = roundedToSinglePrecision(overlap.screenRectCG.origin.y + ScreenTopBarHeight)};
    }
    return change;
}

} // namespace tarragon
