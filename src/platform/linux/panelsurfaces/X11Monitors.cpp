#include "platform/linux/panelsurfaces/X11Monitors.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <xcb/randr.h>

namespace tarragon {

std::vector<Rect> monitorFrames(X11Connection& connection) {
    if (!connection.knowsMonitors()) {
        const xcb_screen_t& screen = connection.screen();
        return {{{0, 0}, {double(screen.width_in_pixels), double(screen.height_in_pixels)}}};
    }
    constexpr std::uint8_t ActiveOnly = 1;
    const X11Reply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        connection.get(), xcb_randr_get_monitors(connection.get(), connection.rootWindow(), ActiveOnly), nullptr));
    std::vector<Rect> frames;
    if (!reply)
        return frames;
    for (auto monitors = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitors.rem > 0;
         xcb_randr_monitor_info_next(&monitors)) {
        const xcb_randr_monitor_info_t& monitor = *monitors.data;
        frames.push_back({{double(monitor.x), double(monitor.y)}, {double(monitor.width), double(monitor.height)}});
    }
    return frames;
}

} // namespace tarragon
