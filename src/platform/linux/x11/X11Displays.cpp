#include "platform/linux/x11/X11Displays.h"

#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11PrimaryMonitor.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/x11/X11Struts.h"

#include <cstddef>
#include <optional>
#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

std::optional<Rect> frameOfWindow(X11Connection& connection, xcb_window_t window) {
    const auto geometryCookie = xcb_get_geometry(connection.get(), window);
    const auto originCookie = xcb_translate_coordinates(connection.get(), window, connection.rootWindow(), 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection.get(), geometryCookie, nullptr));
    const X11Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection.get(), originCookie, nullptr));
    if (!geometry || !origin)
        return std::nullopt;
    return Rect{{double(origin->dst_x), double(origin->dst_y)}, {double(geometry->width), double(geometry->height)}};
}

std::vector<X11Strut> strutsOfDesktop(X11Connection& connection) {
    // The size of the root window changes with the monitors.
    const xcb_get_geometry_cookie_t rootCookie = xcb_get_geometry(connection.get(), connection.rootWindow());
    X11Property managed(connection.get(), connection.rootWindow(), connection.atom("_NET_CLIENT_LIST"));
    std::vector<std::pair<X11Property, X11Property>> properties;
    const std::vector<std::uint32_t> windows = managed.numbers();
    properties.reserve(windows.size());
    for (const std::uint32_t window : windows) {
        properties.emplace_back(X11Property(connection.get(), window, connection.atom("_NET_WM_STRUT_PARTIAL")),
            X11Property(connection.get(), window, connection.atom("_NET_WM_STRUT")));
    }
    const X11Reply<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(connection.get(), rootCookie, nullptr));
    if (!root)
        return {};
    const Size rootSize{double(root->width), double(root->height)};
    std::vector<X11Strut> struts;
    for (std::size_t index = 0; index < windows.size(); ++index) {
        auto& [partial, plain] = properties[index];
        std::vector<X11Strut> found = strutsOfProperty(partial.numbers(), rootSize);
        if (found.empty()) {
            found = strutsOfProperty(plain.numbers(), rootSize);
            // It does not say where along the edge it is meant, which is where the panel lies.
            if (const auto frame = found.empty() ? std::nullopt : frameOfWindow(connection, windows[index]))
                found = strutsAlongside(found, *frame);
        }
        struts.insert(struts.end(), found.begin(), found.end());
    }
    return struts;
}

// Between Cocoa space and screen space; the same both ways. top is the height of the primary screen.
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
    const PixelScale scale = _scale ? _scale->get() : PixelScale();
    for (Screen& screen : screens) {
        const Rect monitor = scale.pixelsFromPoints(shifted(flipped(screen.frameNS, top), origin.x, origin.y));
        const Rect visible = scale.pointsFromPixels(rectWithoutStruts(monitor, struts));
        screen.visibleFrameNS = flipped(shifted(visible, -origin.x, -origin.y), top);
    }
    return screens;
}

} // namespace tarragon
