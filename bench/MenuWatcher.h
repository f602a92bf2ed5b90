#pragma once

#include "Wait.h"
#include "XDisplay.h"

#include <xcb/xcb.h>

#include <cstdint>

namespace tarragon {

// Presses keys and hears of every window that is mapped or unmapped below the root, on one connection.
class MenuWatcher {
public:
    explicit MenuWatcher(e2e::XDisplay& display);
    ~MenuWatcher();
    MenuWatcher(const MenuWatcher&) = delete;
    MenuWatcher& operator=(const MenuWatcher&) = delete;

    void press(xcb_keycode_t code) { send(XCB_KEY_PRESS, code); }
    void release(xcb_keycode_t code) { send(XCB_KEY_RELEASE, code); }
    // Presses the key and waits for a menu: milliseconds from the key to the window. Throws std::runtime_error when
    // none comes.
    double timeToMenu(xcb_keycode_t code);

private:
    void send(std::uint8_t type, xcb_keycode_t code);
    // The time at which a window past the window manager was mapped.
    e2e::Clock::time_point waitForMenu();
    void drain();

    xcb_connection_t* _connection;
    xcb_window_t _root;
};

} // namespace tarragon
