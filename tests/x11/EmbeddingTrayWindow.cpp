#include "EmbeddingTrayWindow.h"

#include <array>
#include <cstdlib>
#include <string>

namespace tarragon {

EmbeddingTrayWindow::EmbeddingTrayWindow(std::uint32_t colour, std::uint16_t height)
    : _client(std::getenv("DISPLAY"))
    , _height(height) {
    _window = _client.makeWindow({.width = 200, .height = height, .overrideRedirect = true});
    xcb_change_window_attributes(_client.connection(), _window, XCB_CW_BACK_PIXEL, &colour);
    _client.map(_window);
    _client.raise(_window);
    xcb_clear_area(_client.connection(), 0, _window, 0, 0, 0, 0);
    xcb_set_selection_owner(_client.connection(), _window, _client.atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
    _client.synchronize();
}

std::size_t EmbeddingTrayWindow::itemCount() {
    _client.synchronize();
    while (xcb_generic_event_t* event = xcb_poll_for_event(_client.connection())) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE
            && message.type == _client.atom("_NET_SYSTEM_TRAY_OPCODE") && message.data.data32[1] == 0) {
            const xcb_window_t item = message.data.data32[2];
            xcb_reparent_window(_client.connection(), item, _window, 0, 0);
            const std::array<std::uint32_t, 2> size{_height, _height};
            xcb_configure_window(
                _client.connection(), item, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
            _client.map(item);
            _items.push_back(item);
        }
        std::free(event);
    }
    std::erase_if(_items, [this](xcb_window_t item) { return !_client.exists(item); });
    return _items.size();
}

void EmbeddingTrayWindow::resize(std::uint16_t height) {
    _height = height;
    const std::array<std::uint32_t, 2> size{height, height};
    const std::uint32_t barHeight = height;
    xcb_configure_window(_client.connection(), _window, XCB_CONFIG_WINDOW_HEIGHT, &barHeight);
    for (const xcb_window_t item : _items)
        xcb_configure_window(
            _client.connection(), item, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
    _client.synchronize();
}

std::uint32_t EmbeddingTrayWindow::pixel(int x, int y) {
    if (itemCount() == 0)
        return 0;
    xcb_get_image_reply_t* reply = xcb_get_image_reply(_client.connection(),
        xcb_get_image(_client.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, _items.back(), static_cast<std::int16_t>(x),
            static_cast<std::int16_t>(y), 1, 1, ~0U),
        nullptr);
    const std::uint32_t colour =
        reply != nullptr ? *reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply)) & 0xFFFFFFU : 0;
    std::free(reply);
    return colour;
}

void EmbeddingTrayWindow::click(std::uint8_t button) {
    _client.movePointer(_height / 2, _height / 2);
    _client.click(button);
}

} // namespace tarragon
