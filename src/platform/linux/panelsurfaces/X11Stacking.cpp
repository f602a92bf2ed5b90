#include "platform/linux/panelsurfaces/X11Stacking.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarragon {

X11Stacking::X11Stacking(
    X11Connection& connection, const std::string& property, FindWindow findWindow, const X11Stacking* beneath)
    : _connection(connection)
    , _property(connection.atom(property))
    , _findWindow(std::move(findWindow))
    , _beneath(beneath) { }

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
        _needsFrame |= reinterpret_cast<const xcb_property_notify_event_t&>(event).atom == _property;
        break;
    case XCB_CONFIGURE_NOTIFY:
        handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
        break;
    case XCB_MAP_NOTIFY:
        handleMapping(reinterpret_cast<const xcb_map_notify_event_t&>(event).window, true);
        break;
    case XCB_UNMAP_NOTIFY:
        handleMapping(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window, false);
        break;
    case XCB_REPARENT_NOTIFY:
        // A window manager that starts or ends gives every window another frame.
        _needsFrame |= reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window == _baseWindow;
        break;
    case XCB_DESTROY_NOTIFY:
        _needsFrame |= reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == _baseFrame;
        break;
    case XCB_CIRCULATE_NOTIFY:
        _belowBaseFrame = XCB_WINDOW_NONE;
        _needsRestack = true;
        break;
    default:
        break;
    }
}

void X11Stacking::handleMapping(xcb_window_t window, bool isMapped) {
    if (isKept(window)) {
        // The toolkit may have put a new window elsewhere meanwhile.
        _needsRestack |= isMapped;
        return;
    }
    if (window == _baseFrame)
        _baseIsAway = !isMapped;
    _needsFrame |= window == _baseFrame || (_baseIsAway && isMapped);
}

// An event tells which window lies directly below the one that it is about.
void X11Stacking::handleConfigure(const xcb_configure_notify_event_t& event) {
    const xcb_window_t below = event.above_sibling;
    if (event.window == _baseFrame) {
        _needsRestack |= std::exchange(_belowBaseFrame, below) != below;
        return;
    }
    // What lies below the base has changed without a word about the base itself, as when the base was raised above one
    // of ours and that has come back.
    if (_belowBaseFrame != XCB_WINDOW_NONE && (event.window == _belowBaseFrame || below == _belowBaseFrame))
        _belowBaseFrame = XCB_WINDOW_NONE;
    const auto kept = std::ranges::find(_windows, event.window);
    if (kept != _windows.end()) {
        const xcb_window_t expected = kept == _windows.begin() ? lowestNeighbour() : *std::prev(kept);
        _needsRestack |= below != expected;
        return;
    }
    // Something has come between the base and ours.
    _needsRestack |= below == _baseFrame || (isKept(below) && below != _windows.back());
}

void X11Stacking::restackIfNeeded() {
    if (_windows.empty())
        return;
    if (std::exchange(_needsFrame, false))
        findBaseFrame();
    if (!std::exchange(_needsRestack, false) || _baseFrame == XCB_WINDOW_NONE)
        return;
    xcb_window_t below = lowestNeighbour();
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

void X11Stacking::findBaseFrame() {
    const xcb_window_t window = _findWindow(_connection, _windows.front(), _baseWindow);
    if (window == XCB_WINDOW_NONE)
        return;
    const xcb_window_t frame = frameOf(window);
    if (frame == XCB_WINDOW_NONE)
        return;
    _baseWindow = window;
    if (std::exchange(_baseFrame, frame) != frame)
        _baseIsAway = false;
    _belowBaseFrame = XCB_WINDOW_NONE;
    _needsRestack = true;
}

// What the lowest of the windows lies directly above.
xcb_window_t X11Stacking::lowestNeighbour() const {
    const bool isShared = _beneath && !_beneath->_windows.empty() && _beneath->_baseFrame == _baseFrame;
    return isShared ? _beneath->_windows.back() : _baseFrame;
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
