#include "platform/linux/x11/X11MonitorEvents.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/randr.h>

namespace tarragon {

X11MonitorEvents::X11MonitorEvents(X11Connection& connection) {
    if (!connection.knowsMonitors())
        return;
    _first = xcb_get_extension_data(connection.get(), &xcb_randr_id)->first_event;
    xcb_randr_select_input(connection.get(), connection.rootWindow(),
        XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
}

bool X11MonitorEvents::include(const xcb_generic_event_t& event) const {
    constexpr std::uint8_t SentEvent = 0x80;
    const int type = event.response_type & ~SentEvent;
    return _first != 0 && (type == _first + XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == _first + XCB_RANDR_NOTIFY);
}

} // namespace tarragon
