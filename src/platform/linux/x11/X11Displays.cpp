#include "platform/linux/x11/X11Displays.h"

#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Struts.h"

#include <utility>

namespace tarragon {

namespace {

// Between Cocoa space and screen space; the same both ways. top is the height of the primary screen.
Rect flipped(const Rect& rect, double top) {
    return {{rect.origin.x, top - (rect.origin.y + rect.size.height)}, rect.size};
}

Rect shifted(const Rect& rect, double x, double y) {
    return {{rect.origin.x + x, rect.origin.y + y}, rect.size};
}

} // namespace

X11Displays::X11Displays(Displays& displays, X11Connection& connection, const CurrentPixelScale* scale,
    X11RoomCache::CurrentLook currentLook)
    : _displays(displays)
    , _scale(scale)
    , _room(connection.connectAnother(), std::move(currentLook)) { }

std::vector<Screen> X11Displays::screens() {
    std::vector<Screen> screens = _displays.screens();
    if (screens.empty())
        return screens;
    const auto& [origin, struts] = _room.room();
    const double top = screens.front().frameNS.size.height;
    const PixelScale scale = _scale ? _scale->get() : PixelScale();
    for (Screen& screen : screens) {
        const Rect monitor = scale.pixelsFromPoints(shifted(flipped(screen.frameNS, top), origin.x, origin.y));
        const Rect visible = scale.pointsFromPixels(rectWithoutStruts(monitor, struts));
        screen.visibleFrameNS = flipped(shifted(visible, -origin.x, -origin.y), top);
    }
    return screens;
}

} // namespace tarragon
