#include "platform/linux/x11/X11Displays.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11PrimaryMonitor.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Struts.h"

#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

std::vector<X11Strut> strutsOfDesktop(X11Connection& connection) {
    // The size of the root window changes with the monitors.
    const xcb_get_geometry_cookie_t rootCookie = xcb_get_geometry(connection.get(), connection.rootWindow());
    X11Property managed(connection.get(), connection.rootWindow(), connection.atom("_NET_CLIENT_LIST"));
    std::vector<std::pair<X11Property, X11Property>> properties;
    for (const std::uint32_t window : managed.numbers()) {
        properties.emplace_back(X11Property(connection.get(), window, connection.atom("_NET_WM_STRUT_PARTIAL")),
            X11Property(connection.get(), window, connection.atom("_NET_WM_STRUT")));
    }
    const X11Reply<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(connection.get(), rootCookie, nullptr));
    if (!root)
        return {};
    const Size rootSize{double(root->width), double(root->height)};
    std::vector<X11Strut> struts;
    for (auto& [partial, plain] : properties) {
        std::vector<X11Strut> found = strutsOfProperty(partial.numbers(), rootSize);
        if (found.empty())
            found = strutsOfProperty(plain.numbers(), rootSize);
        struts.insert(struts.end(), found.begin(), found.end());
    }
    return struts;
}

// Between Cocoa space and the root window of a desktop; the same both ways.
Rect flipped(const Rect& rect, double top) {
    return {{rect.origin.x, top - (rect.origin.y + rect.size.height)}, rect.size};
}

Rect shifted(const Rect& rect, double x, double y) {
    return {{rect.origin.x + x, rect.origin.y + y}, rect.size};
}

} // namespace

std::vector<Screen> X11Displays::screens() {
    std::vector<Screen> screens = _displays.screens();
    if (screens.empty())
        return screens;
    X11PrimaryMonitor primary(_connection);
    const std::vector<X11Strut> struts = strutsOfDesktop(_connection);
    const Point origin = primary.origin();
    const double top = screens.front().frameNS.size.height;
    for (Screen& screen : screens) {
        const Rect monitor = shifted(flipped(screen.frameNS, top), origin.x, origin.y);
        screen.visibleFrameNS = flipped(shifted(rectWithoutStruts(monitor, struts), -origin.x, -origin.y), top);
    }
    return screens;
}

} // namespace tarragon
