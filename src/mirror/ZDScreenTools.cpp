#include "mirror/ZDScreenTools.h"

#include <algorithm>

namespace tarragon {

namespace {

// In Cocoa space the pixel under the pointer is the one below its coordinates: the top edge belongs to the rectangle,
// the bottom edge does not.
bool containsPointer(const Rect& frameNS, const Point& pointerNS) {
    const double bottom = frameNS.origin.y;
    const double top = bottom + frameNS.size.height;
    return pointerNS.x >= frameNS.origin.x && pointerNS.x < frameNS.origin.x + frameNS.size.width
        && pointerNS.y > bottom && pointerNS.y <= top;
}

} // namespace

std::optional<Screen> ZDScreenTools::screenWithMousePointer(Displays& displays) {
    const Point pointer = displays.mouseLocationNS();
    const std::vector<Screen> screens = displays.screens();
    const auto found =
        std::ranges::find_if(screens, [&](const Screen& screen) { return containsPointer(screen.frameNS, pointer); });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

std::optional<Screen> ZDScreenTools::screenWithPoint(Displays& displays, const Point& pointNS) {
    const std::vector<Screen> screens = displays.screens();
    const auto found =
        std::ranges::find_if(screens, [&](const Screen& screen) { return contains(screen.frameNS, pointNS); });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

std::int32_t ZDScreenTools::numberOrderOfScreenWithPoint(Displays& displays, const Point& pointNS) {
    const std::vector<Screen> screens = displays.screens();
    const auto found =
        std::ranges::find_if(screens, [&](const Screen& screen) { return contains(screen.frameNS, pointNS); });
    return found == screens.end() ? 0 : static_cast<std::int32_t>(found - screens.begin());
}

Size ZDScreenTools::primaryScreenSize(Displays& displays) {
    const std::vector<Screen> screens = displays.screens();
    return screens.empty() ? Size() : screens.front().frameNS.size;
}

} // namespace tarragon
