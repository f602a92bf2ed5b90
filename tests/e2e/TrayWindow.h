#pragma once

#include "XDisplay.h"

#include <string>
#include <vector>

namespace tarragon::e2e {

// A tray that takes in the windows of status items. It does its work only while it is asked something, and is gone with
// its object.
class TrayWindow {
public:
    // The name of a display, as ":1".
    explicit TrayWindow(const std::string& displayName);

    // Takes in what asks for it; how many items there are.
    std::size_t itemCount();
    // Of an item that it has taken in, in pixels of the root window.
    PixelRect frameOfItem(std::size_t index);

private:
    XDisplay _display;
    xcb_window_t _window;
    std::vector<xcb_window_t> _items;
};

} // namespace tarragon::e2e
