#include "platform/linux/panelsurfaces/X11StackingPlaces.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

bool areOfSameClient(xcb_connection_t* connection, xcb_window_t left, xcb_window_t right) {
    // The numbers that each client names its windows with differ beyond this mask.
    const std::uint32_t mask = ~xcb_get_setup(connection)->resource_id_mask;
    return (left & mask) == (right & mask);
}

bool haveCommon(const std::vector<std::uint32_t>& atoms, X11Connection& connection, const auto& names) {
    return std::ranges::any_of(atoms, [&](std::uint32_t atom) {
        return std::ranges::any_of(names, [&](const char* name) { return connection.atom(name) == atom; });
    });
}

bool isViewable(xcb_connection_t* connection, xcb_window_t window) {
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::vector<std::uint32_t> managedWindows(X11Connection& connection) {
    return X11Property(connection.get(), connection.rootWindow(), connection.atom("_NET_CLIENT_LIST_STACKING"))
        .numbers();
}

xcb_window_t topmostViewableWindowLike(X11Connection& connection, xcb_window_t sibling) {
    std::vector<std::uint32_t> topmostFirst = managedWindows(connection);
    std::ranges::reverse(topmostFirst);
    for (const xcb_window_t window : topmostFirst) {
        if (areOfSameClient(connection.get(), window, sibling) && isViewable(connection.get(), window))
            return window;
    }
    return XCB_WINDOW_NONE;
}

// Of the desktop's layers above that of ordinary windows.
constexpr std::array KindsAbove{"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_TOOLTIP", "_NET_WM_WINDOW_TYPE_POPUP_MENU", "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU"};
constexpr std::array StatesAbove{"_NET_WM_STATE_ABOVE"};

} // namespace

xcb_window_t frontWindow(X11Connection& connection, xcb_window_t kept, xcb_window_t former) {
    X11Property active(connection.get(), connection.rootWindow(), connection.atom("_NET_ACTIVE_WINDOW"));
    const xcb_window_t window = active.number().value_or(XCB_WINDOW_NONE);
    if (!areOfSameClient(connection.get(), window, kept))
        return window;
    if (former == XCB_WINDOW_NONE || isViewable(connection.get(), former))
        return former;
    return topmostViewableWindowLike(connection, former);
}

xcb_window_t topmostOrdinaryWindow(X11Connection& connection, xcb_window_t /*kept*/, xcb_window_t /*former*/) {
    const std::vector<std::uint32_t> windows = managedWindows(connection);
    std::vector<std::pair<X11Property, X11Property>> properties; // kind and state, bottom to top
    properties.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        properties.emplace_back(X11Property(connection.get(), window, connection.atom("_NET_WM_WINDOW_TYPE")),
            X11Property(connection.get(), window, connection.atom("_NET_WM_STATE")));
    }
    for (std::size_t index = windows.size(); index-- > 0;) {
        auto& [kinds, states] = properties[index];
        if (!haveCommon(kinds.numbers(), connection, KindsAbove)
            && !haveCommon(states.numbers(), connection, StatesAbove))
            return windows[index];
    }
    return XCB_WINDOW_NONE;
}

} // namespace tarragon
