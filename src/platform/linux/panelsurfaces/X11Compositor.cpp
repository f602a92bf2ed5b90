#include "platform/linux/panelsurfaces/X11Compositor.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <string>
#include <utility>

#include <xcb/xfixes.h>

namespace tarragon {

namespace {

// The screens of a server are numbered, and every one has a compositor of its own.
std::string selectionOfScreen(X11Connection& connection) {
    int number = 0;
    for (auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get())); screens.rem > 0;
         xcb_screen_next(&screens), ++number) {
        if (screens.data->root == connection.rootWindow())
            break;
    }
    return "_NET_WM_CM_S" + std::to_string(number);
}

} // namespace

X11Compositor::X11Compositor(X11Connection& connection, X11Connection& events)
    : _connection(connection)
    , _selection(connection.atom(selectionOfScreen(connection))) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(events.get(), &xcb_xfixes_id);
    if (extension && extension->present) {
        // The server does not take requests of the extension before it was asked for its version.
        const X11Reply<xcb_xfixes_query_version_reply_t> version(
            xcb_xfixes_query_version_reply(events.get(), xcb_xfixes_query_version(events.get(), 1, 0), nullptr));
        _firstEvent = extension->first_event;
        const xcb_void_cookie_t selection =
            xcb_xfixes_select_selection_input_checked(events.get(), events.rootWindow(), _selection,
                XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                    | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                    | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
        // Waits for the server, so that whatever changes after the question below is told by an event.
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(events.get(), selection));
    }
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        _connection.get(), xcb_get_selection_owner(_connection.get(), _selection), nullptr));
    _isRunning = owner && owner->owner != XCB_WINDOW_NONE;
}

bool X11Compositor::handleEvent(const xcb_generic_event_t& event) {
    if (_firstEvent == 0 || (event.response_type & 0x7F) != _firstEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return false;
    const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (notify.selection != _selection)
        return false;
    const bool isRunning =
        notify.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER && notify.owner != XCB_WINDOW_NONE;
    return std::exchange(_isRunning, isRunning) != isRunning;
}

} // namespace tarragon
