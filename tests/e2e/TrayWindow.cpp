#include "TrayWindow.h"

#include <cstdlib>
#include <memory>

namespace tarragon::e2e {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeMemory>;

} // namespace

TrayWindow::TrayWindow(const std::string& displayName)
    : _display(displayName)
    , _window(xcb_generate_id(_display.connection())) {
    xcb_connection_t* connection = _display.connection();
    const std::uint32_t withoutWindowManager = 1;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, _window, _display.root(), 0, 1100, 200, 24, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &withoutWindowManager);
    xcb_map_window(connection, _window);
    const xcb_atom_t tray = _display.atom("_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(connection, _window, tray, XCB_CURRENT_TIME);
    // Status items that wait for a tray hear of this one.
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = _display.root();
    message.type = _display.atom("MANAGER");
    message.data.data32[1] = tray;
    message.data.data32[2] = _window;
    xcb_send_event(
        connection, 0, _display.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY, reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

std::size_t TrayWindow::itemCount() {
    xcb_connection_t* connection = _display.connection();
    while (Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        constexpr std::uint32_t RequestDock = 0;
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE
            || message.type != _display.atom("_NET_SYSTEM_TRAY_OPCODE") || message.data.data32[1] != RequestDock)
            continue;
        const xcb_window_t item = message.data.data32[2];
        xcb_reparent_window(connection, item, _window, static_cast<std::int16_t>(24 * _items.size()), 0);
        xcb_map_window(connection, item);
        _items.push_back(item);
    }
    std::erase_if(_items, [&](xcb_window_t item) {
        return !Owned<xcb_get_geometry_reply_t>(
            xcb_get_geometry_reply(connection, xcb_get_geometry(connection, item), nullptr));
    });
    return _items.size();
}

PixelRect TrayWindow::frameOfItem(std::size_t index) {
    return _display.frameOf(_items.at(index));
}

} // namespace tarragon::e2e
