#pragma once

#include "support/X11Client.h"

#include <cstdint>
#include <vector>

namespace tarragon {

// A tray of the older kind: whoever owns a certain selection gets the windows of the items. It does its work only while
// it is asked something. Gone with its object, as if its program had ended.
class EmbeddingTrayWindow {
public:
    // As a light or dark bar at the top of the screen, of this height.
    explicit EmbeddingTrayWindow(std::uint32_t colour = 0xF0F0F0, std::uint16_t height = 24);

    // Takes in what asks for it; how many items there are.
    std::size_t itemCount();
    // The tray is that high from now on, and so are its items.
    void resize(std::uint16_t height);
    // 0xRRGGBB, counted from the corner of the last item.
    std::uint32_t pixel(int x, int y);
    void click(std::uint8_t button = 1);

private:
    X11Client _client;
    std::uint16_t _height;
    xcb_window_t _window = 0;
    std::vector<xcb_window_t> _items;
};

} // namespace tarragon
