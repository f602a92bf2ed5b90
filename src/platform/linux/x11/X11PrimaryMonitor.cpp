#include "platform/linux/x11/X11PrimaryMonitor.h"

#include "platform/linux/x11/X11Connection.h"

#include <utility>

namespace tarragon {

X11PrimaryMonitor::X11PrimaryMonitor(X11Connection& connection)
    : _connection(connection.get()) {
    if (!connection.knowsMonitors())
        return;
    constexpr std::uint8_t ActiveOnly = 1;
    _cookie = xcb_randr_get_monitors(_connection, connection.rootWindow(), ActiveOnly);
    _isPending = true;
}

X11PrimaryMonitor::~X11PrimaryMonitor() {
    if (_isPending)
        xcb_discard_reply(_connection, _cookie.sequence);
}

Point X11PrimaryMonitor::origin() {
    if (!std::exchange(_isPending, false))
        return _origin;
    const X11Reply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(_connection, _cookie, nullptr));
    if (!reply)
        return _origin;
    bool isFirst = true;
    for (auto monitors = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitors.rem > 0;
         xcb_randr_monitor_info_next(&monitors)) {
        // Without a primary monitor the first one stands in.
        if (std::exchange(isFirst, false) || monitors.data->primary != 0)
            _origin = {double(monitors.data->x), double(monitors.data->y)};
        if (monitors.data->primary != 0)
            break;
    }
    return _origin;
}

} // namespace tarragon
