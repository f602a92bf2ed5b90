#include "platform/linux/panelsurfaces/X11PanelWindow.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <cmath>

#include <xcb/shape.h>

namespace tarragon {

namespace {

// Every pixel that the rectangle touches.
xcb_rectangle_t pixels(const Rect& rect) {
    const double left = std::floor(rect.origin.x);
    const double top = std::floor(rect.origin.y);
    const double right = std::ceil(rect.origin.x + rect.size.width);
    const double bottom = std::ceil(rect.origin.y + rect.size.height);
    return {static_cast<std::int16_t>(left), static_cast<std::int16_t>(top), static_cast<std::uint16_t>(right - left),
        static_cast<std::uint16_t>(bottom - top)};
}

} // namespace

bool X11PanelWindow::exists() const {
    return X11Reply<xcb_get_window_attributes_reply_t>(xcb_get_window_attributes_reply(
               _connection.get(), xcb_get_window_attributes(_connection.get(), _window), nullptr))
        != nullptr;
}

std::optional<Rect> X11PanelWindow::frame() const {
    xcb_connection_t* connection = _connection.get();
    const auto geometryCookie = xcb_get_geometry(connection, _window);
    const auto originCookie = xcb_translate_coordinates(connection, _window, _connection.rootWindow(), 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const X11Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection, originCookie, nullptr));
    if (!geometry || !origin)
        return std::nullopt;
    return Rect{{double(origin->dst_x), double(origin->dst_y)}, {double(geometry->width), double(geometry->height)}};
}

std::optional<Rect> X11PanelWindow::visibleFrame() const {
    xcb_connection_t* connection = _connection.get();
    const auto attributesCookie = xcb_get_window_attributes(connection, _window);
    const std::optional<Rect> anyFrame = frame();
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, attributesCookie, nullptr));
    const bool isVisible = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    return isVisible ? anyFrame : std::nullopt;
}

void X11PanelWindow::refuseFocus() {
    constexpr std::size_t NumbersOfHints = 9;
    constexpr std::uint32_t InputHint = 1;
    X11Property hints(_connection.get(), _window, XCB_ATOM_WM_HINTS);
    std::vector<std::uint32_t> numbers = hints.numbers();
    numbers.resize(NumbersOfHints);
    numbers[0] |= InputHint;
    numbers[1] = 0;
    setNumbers("WM_HINTS", XCB_ATOM_WM_HINTS, numbers);

    // A window manager gives the focus through the application to windows that have this protocol.
    const std::uint32_t takeFocus = _connection.atom("WM_TAKE_FOCUS");
    X11Property property(_connection.get(), _window, _connection.atom("WM_PROTOCOLS"));
    std::vector<std::uint32_t> protocols = property.numbers();
    if (std::erase(protocols, takeFocus) > 0)
        setNumbers("WM_PROTOCOLS", XCB_ATOM_ATOM, protocols);
    send();
}

void X11PanelWindow::joinAllWorkspaces() {
    setNumbers("_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {0xFFFFFFFF});
    send();
}

void X11PanelWindow::stickToScreen() {
    const std::uint32_t sticky = _connection.atom("_NET_WM_STATE_STICKY");
    X11Property property(_connection.get(), _window, _connection.atom("_NET_WM_STATE"));
    std::vector<std::uint32_t> states = property.numbers();
    if (std::ranges::count(states, sticky) > 0)
        return;
    states.push_back(sticky);
    setNumbers("_NET_WM_STATE", XCB_ATOM_ATOM, states);
    send();
}

void X11PanelWindow::setManagedAsDock(bool isDock) {
    if (isDock) {
        setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {_connection.atom("_NET_WM_WINDOW_TYPE_DOCK")});
        setNumbers("_NET_WM_STATE", XCB_ATOM_ATOM, {_connection.atom("_NET_WM_STATE_STICKY")});
        joinAllWorkspaces();
    }
    const std::uint32_t overrideRedirect = isDock ? 0 : 1;
    const xcb_void_cookie_t cookie =
        xcb_change_window_attributes_checked(_connection.get(), _window, XCB_CW_OVERRIDE_REDIRECT, &overrideRedirect);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_connection.get(), cookie));
}

void X11PanelWindow::askForAllWorkspaces() {
    constexpr std::uint32_t AllWorkspaces = 0xFFFFFFFF;
    constexpr std::uint32_t FromApplication = 1;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = _window;
    message.type = _connection.atom("_NET_WM_DESKTOP");
    message.data.data32[0] = AllWorkspaces;
    message.data.data32[1] = FromApplication;
    xcb_send_event(_connection.get(), 0, _connection.rootWindow(),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    send();
}

void X11PanelWindow::raise() {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(_connection.get(), _window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    send();
}

void X11PanelWindow::show(const PanelAppearance& appearance, const std::optional<std::vector<Rect>>& paintedRegion) {
    setNumbers("_NET_WM_WINDOW_OPACITY", XCB_ATOM_CARDINAL, {appearance.opacity});
    setShape(XCB_SHAPE_SK_BOUNDING, appearance.drawn, paintedRegion);
    setShape(XCB_SHAPE_SK_INPUT, appearance.clickable, paintedRegion);
    send();
}

void X11PanelWindow::setShape(
    std::uint8_t kind, PanelAppearance::Area area, const std::optional<std::vector<Rect>>& paintedRegion) {
    using Area = PanelAppearance::Area;
    if (area == Area::WholeWindow || (area == Area::PaintedRegion && !paintedRegion)) {
        xcb_shape_mask(_connection.get(), XCB_SHAPE_SO_SET, kind, _window, 0, 0, XCB_PIXMAP_NONE);
        return;
    }
    std::vector<xcb_rectangle_t> rectangles;
    if (area == Area::PaintedRegion) {
        for (const Rect& rect : *paintedRegion)
            rectangles.push_back(pixels(rect));
    }
    xcb_shape_rectangles(_connection.get(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, _window, 0, 0,
        static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

void X11PanelWindow::setNumbers(
    const std::string& property, xcb_atom_t type, const std::vector<std::uint32_t>& numbers) {
    xcb_change_property(_connection.get(), XCB_PROP_MODE_REPLACE, _window, _connection.atom(property), type, 32,
        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

void X11PanelWindow::send() {
    // Errors about a window that is gone are taken with the connection's other events.
    xcb_flush(_connection.get());
}

} // namespace tarragon
