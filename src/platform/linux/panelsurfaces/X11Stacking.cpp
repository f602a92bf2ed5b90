#include "platform/linux/panelsurfaces/X11Stacking.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarragon {

namespace {

bool areOfSameClient(xcb_connection_t* connection, xcb_window_t left, xcb_window_t right) {
    // The numbers that each client names its windows with differ beyond this mask.
    const std::uint32_t mask = ~xcb_get_setup(connection)->resource_id_mask;
    return (left & mask) == (right & mask);
}

} // namespace

X11Stacking::X11Stacking(X11Connection& connection)
    : _connection(connection)
    , _activeWindow(connection.atom("_NET_ACTIVE_WINDOW")) { }

void X11Stacking::add(xcb_window_t window) {
    if (isKept(window))
        return;
    _windows.push_back(window);
    _needsFrame = true;
    restackIfNeeded();
}

void X11Stacking::remove(xcb_window_t window) {
    std::erase(_windows, window);
}

bool X11Stacking::isKept(xcb_window_t window) const {
    return std::ranges::find(_windows, window) != _windows.end();
}

void X11Stacking::handleEvent(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7F) {
    case XCB_PROPERTY_NOTIFY:
        _needsFrame |= reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == _activeWindow;
        break;
    case XCB_CONFIGURE_NOTIFY:
        handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
        break;
    case XCB_MAP_NOTIFY:
        // The toolkit may have put a new window elsewhere meanwhile.
        _needsRestack |= isKept(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
        break;
    case XCB_REPARENT_NOTIFY:
        // A window manager that starts or ends gives every window another frame.
        _needsFrame |= reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window == _frontWindow;
        break;
    case XCB_DESTROY_NOTIFY:
        _needsFrame |= reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == _frontFrame;
        break;
    case XCB_CIRCULATE_NOTIFY:
        _needsRestack = true;
        break;
    default:
        break;
    }
}

// An event tells which window lies directly below the one that it is about.
void X11Stacking::handleConfigure(const xcb_configure_notify_event_t& event) {
    const xcb_window_t below = event.above_sibling;
    if (event.window == _frontFrame) {
        _needsRestack |= std::exchange(_belowFrontFrame, below) != below;
        return;
    }
    const auto kept = std::ranges::find(_windows, event.window);
    if (kept != _windows.end()) {
        const xcb_window_t expected = kept == _windows.begin() ? _frontFrame : *std::prev(kept);
        _needsRestack |= below != expected;
        return;
    }
    // What lies below the front window has changed without a word about the front window itself.
    if (_belowFrontFrame != XCB_WINDOW_NONE && (event.window == _belowFrontFrame || below == _belowFrontFrame))
        _belowFrontFrame = XCB_WINDOW_NONE;
    // Something has come between the front window and ours.
    _needsRestack |= below == _frontFrame || (isKept(below) && below != _windows.back());
}

void X11Stacking::restackIfNeeded() {
    if (_windows.empty())
        return;
    if (std::exchange(_needsFrame, false))
        findFrontFrame();
    if (!std::exchange(_needsRestack, false) || _frontFrame == XCB_WINDOW_NONE)
        return;
    xcb_window_t below = _frontFrame;
    for (const xcb_window_t window : _windows) {
        const std::array<std::uint32_t, 2> values = {below, XCB_STACK_MODE_ABOVE};
        const xcb_void_cookie_t cookie = xcb_configure_window_checked(
            _connection.get(), window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
        // Refused when the frame is gone; then the next one is on its way.
        xcb_discard_reply(_connection.get(), cookie.sequence);
        below = window;
    }
    xcb_flush(_connection.get());
}

void X11Stacking::findFrontFrame() {
    X11Property active(_connection.get(), _connection.rootWindow(), _activeWindow);
    const xcb_window_t window = active.number().value_or(XCB_WINDOW_NONE);
    if (window == XCB_WINDOW_NONE || areOfSameClient(_connection.get(), window, _windows.front()))
        return;
    const xcb_window_t frame = frameOf(window);
    if (frame == XCB_WINDOW_NONE)
        return;
    _frontWindow = window;
    _frontFrame = frame;
    _belowFrontFrame = XCB_WINDOW_NONE;
    _needsRestack = true;
}

// The child of the root window that the window is inside of, or is itself; none when the window is gone.
xcb_window_t X11Stacking::frameOf(xcb_window_t window) const {
    for (;;) {
        const X11Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(_connection.get(), xcb_query_tree(_connection.get(), window), nullptr));
        if (!tree || tree->parent == XCB_WINDOW_NONE)
            return XCB_WINDOW_NONE;
        if (tree->parent == tree->root)
            return window;
        window = tree->parent;
    }
}

} // namespace tarragon
