#include "platform/linux/panelsurfaces/X11PointerTracking.h"

#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

X11PointerTracking::X11PointerTracking(X11Connection& connection, RunLoop& runLoop)
    : _connection(connection)
    , _runLoop(runLoop) { }

X11PointerTracking::~X11PointerTracking() = default;

void X11PointerTracking::track(std::uint32_t window, Handler handler) {
    if (!_input)
        _input = X11RawInput::create(_connection, _runLoop, [this](const X11RawEvent&) { look(); });
    _areas[window].handler = std::move(handler);
    listen();
    lookLater();
}

void X11PointerTracking::stopTracking(std::uint32_t window) {
    _areas.erase(window);
    listen();
}

void X11PointerTracking::setArea(std::uint32_t window, const std::optional<Rect>& area) {
    const auto found = _areas.find(window);
    if (found == _areas.end() || std::exchange(found->second.rect, area) == area)
        return;
    listen();
    lookLater();
}

void X11PointerTracking::listen() {
    if (_input)
        _input->listen(
            false, std::ranges::any_of(_areas, [](const auto& entry) { return entry.second.rect.has_value(); }));
}

void X11PointerTracking::lookLater() {
    if (std::exchange(_lookIsPending, true))
        return;
    _runLoop.post([this] {
        _lookIsPending = false;
        look();
    });
}

// A handler may move areas and take them away, so each is looked up anew and called as a copy.
void X11PointerTracking::look() {
    const std::optional<Point> position = pointer();
    if (!position)
        return;
    std::vector<std::uint32_t> windows;
    for (const auto& [window, area] : _areas)
        windows.push_back(window);
    for (const std::uint32_t window : windows) {
        const auto found = _areas.find(window);
        if (found == _areas.end())
            continue;
        Area& area = found->second;
        std::optional<Point> inside;
        if (area.rect && contains(*area.rect, *position))
            inside = Point{position->x - area.rect->origin.x, position->y - area.rect->origin.y};
        if (std::exchange(area.toldPosition, inside) == inside)
            continue;
        const Handler handler = area.handler;
        handler(inside);
    }
}

std::optional<Point> X11PointerTracking::pointer() {
    const X11Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        _connection.get(), xcb_query_pointer(_connection.get(), _connection.rootWindow()), nullptr));
    return reply ? std::optional(Point{double(reply->root_x), double(reply->root_y)}) : std::nullopt;
}

} // namespace tarragon
