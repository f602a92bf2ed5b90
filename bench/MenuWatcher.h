#pragma once

#include "Wait.h"
#include "XDisplay.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>

namespace tarragon {

// Presses keys and the left mouse button and hears of every window that is mapped or unmapped below the root, on one
// connection.
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

    // The same with the left mouse button where the pointer is.
    double timeToMenuOfButton();
    void releaseButton() { send(XCB_BUTTON_RELEASE, LeftButton); }

    // Milliseconds from an action to the window, not one of the window manager's, that is mapped for it.
    template <typename Action>
    double timeToWindow(Action action) {
        drain();
        const auto start = e2e::Clock::now();
        action();
        return std::chrono::duration<double, std::milli>(waitForMenu() - start).count();
    }

private:
    static constexpr std::uint8_t LeftButton = 1;

    void send(std::uint8_t type, xcb_keycode_t code);
    // The time at which a window past the window manager was mapped.
    e2e::Clock::time_point waitForMenu();
    void drain();

    xcb_connection_t* _connection;
    xcb_window_t _root;
};

} // namespace tarragon
