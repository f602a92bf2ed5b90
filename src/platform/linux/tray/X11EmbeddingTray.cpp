#include "platform/linux/tray/X11EmbeddingTray.h"

#include "platform/RunLoop.h"
#include "platform/linux/tray/X11EmbeddedIcon.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <utility>

#include <xcb/xfixes.h>

namespace tarragon {

X11EmbeddingTray::X11EmbeddingTray(X11Connection& connection, RunLoop& runLoop)
    : _connection(connection)
    , _events(connection.connectAnother()) {
    if (!_events)
        return;
    // The server that a program runs on has one screen.
    _selection = _connection.atom("_NET_SYSTEM_TRAY_S0");
    watchSelection();
    _tray = selectionOwner();
    runLoop.watchDescriptor(_events->descriptor(), [this] { takeEvents(); });
    // What has come while the server was asked wakes nobody.
    runLoop.post([this] { takeEvents(); });
}

X11EmbeddingTray::~X11EmbeddingTray() = default;

std::unique_ptr<EmbeddedIcon> X11EmbeddingTray::addIcon(EmbeddedIconContent content) {
    return isThere() ? std::make_unique<X11EmbeddedIcon>(*this, _tray, std::move(content)) : nullptr;
}

void X11EmbeddingTray::watchSelection() {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(_events->get(), &xcb_xfixes_id);
    if (!extension || !extension->present)
        return;
    // The server does not take requests of the extension before it was asked for its version.
    const X11Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(_events->get(), xcb_xfixes_query_version(_events->get(), 1, 0), nullptr));
    _firstSelectionEvent = extension->first_event;
    // Waits for the server, so that whatever changes after this is told by an event.
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_events->get(),
        xcb_xfixes_select_selection_input_checked(_events->get(), _events->rootWindow(), _selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE)));
}

xcb_window_t X11EmbeddingTray::selectionOwner() {
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        _connection.get(), xcb_get_selection_owner(_connection.get(), _selection), nullptr));
    return owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void X11EmbeddingTray::takeEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_events->get())})
        takeEvent(*event);
}

void X11EmbeddingTray::takeEvent(const xcb_generic_event_t& event) {
    if (_firstSelectionEvent != 0
        && (event.response_type & 0x7F) == _firstSelectionEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        if (notify.selection == _selection)
            useTray(notify.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER ? notify.owner
                                                                                     : xcb_window_t{XCB_WINDOW_NONE});
        return;
    }
    // An icon may go away while it handles the event.
    const std::vector<X11EmbeddedIcon*> icons = _icons;
    for (X11EmbeddedIcon* icon : icons) {
        if (std::ranges::find(_icons, icon) != _icons.end())
            icon->takeEvent(event);
    }
}

void X11EmbeddingTray::useTray(xcb_window_t tray) {
    if (std::exchange(_tray, tray) != tray && _changed)
        _changed();
}

} // namespace tarragon
