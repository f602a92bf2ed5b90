#include "DockWindow.h"

namespace tarragon::e2e {

DockWindow::DockWindow(XDisplay& display, const PixelRect& frame)
    : _display(display)
    , _window(xcb_generate_id(display.connection())) {
    xcb_create_window(display.connection(), XCB_COPY_FROM_PARENT, _window, display.root(),
        static_cast<std::int16_t>(frame.x), static_cast<std::int16_t>(frame.y), static_cast<std::uint16_t>(frame.width),
        static_cast<std::uint16_t>(frame.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    auto first = static_cast<std::uint32_t>(frame.x);
    auto last = static_cast<std::uint32_t>(frame.x + frame.width - 1);
    display.setCardinals(_window, "_NET_WM_WINDOW_TYPE", "ATOM", {display.atom("_NET_WM_WINDOW_TYPE_DOCK")});
    if (frame.y == 0) {
        const auto thickness = static_cast<std::uint32_t>(frame.height);
        display.setCardinals(
            _window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, thickness, 0, 0, 0, 0, 0, first, last, 0, 0});
    } else {
        const auto thickness = static_cast<std::uint32_t>(display.bounds().height - frame.y);
        display.setCardinals(
            _window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, 0, thickness, 0, 0, 0, 0, 0, 0, first, last});
    }
    xcb_map_window(display.connection(), _window);
    xcb_flush(display.connection());
}

DockWindow::~DockWindow() {
    xcb_destroy_window(_display.connection(), _window);
    xcb_flush(_display.connection());
}

} // namespace tarragon::e2e
