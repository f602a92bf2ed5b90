#pragma once

#include "XDisplay.h"

namespace tarragon::e2e {

// A panel along the top or the bottom of the display that keeps its place free of windows, as a task bar does.
class DockWindow {
public:
    DockWindow(XDisplay& display, const PixelRect& frame);
    ~DockWindow();
    DockWindow(const DockWindow&) = delete;
    DockWindow& operator=(const DockWindow&) = delete;

    xcb_window_t window() const { return _window; }

private:
    XDisplay& _display;
    xcb_window_t _window;
};

} // namespace tarragon::e2e
