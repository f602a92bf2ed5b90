#pragma once

#include "XDisplay.h"

namespace tarragon::e2e {

// Notices whenever the window that has the keyboard focus loses it or gets it back, also for the time of a grab, as its
// application does.
class FocusWatch {
public:
    explicit FocusWatch(XDisplay& display);
    ~FocusWatch();
    FocusWatch(const FocusWatch&) = delete;
    FocusWatch& operator=(const FocusWatch&) = delete;

    // So far.
    int changes();
    // Those of them in which the focus really went to another window or came back, grabs left out.
    int moves();

private:
    XDisplay& _display;
    xcb_window_t _window;
    int _changes = 0;
    int _moves = 0;
};

} // namespace tarragon::e2e
