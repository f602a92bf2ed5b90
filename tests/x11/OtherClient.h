#pragma once

#include <cstdint>

#include <xcb/xcb.h>

namespace tarragon {

// Another program on the same X server, with a window that has the keyboard focus. It also plays the user.
class OtherClient {
public:
    OtherClient();
    ~OtherClient();
    OtherClient(const OtherClient&) = delete;
    OtherClient& operator=(const OtherClient&) = delete;

    // A window that lies over all others.
    void cover(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height);
    void uncover();

    bool grabKeyboard();
    bool grabPointer();
    void releaseGrabs();
    // Nobody else holds either; leaves both free.
    bool grabsAreFree();

    // Gives the focus to its window, or to none at all.
    void takeFocus();
    void focusNothing();
    bool hasFocus();
    // What its window has been told.
    struct Told {
        // Since the last call:
        int keyPresses = 0;
        int buttonPresses = 0;
        int focusLosses = 0;
        bool believesToHaveFocus = false; // the last that it has heard of the focus is that it came
    };
    Told told();
    bool isMapped(xcb_window_t window);

    // The colour of a pixel of the screen, as 0xRRGGBB.
    std::uint32_t pixel(std::int16_t x, std::int16_t y);

    void movePointer(int x, int y);
    void press(std::uint8_t button);
    void release(std::uint8_t button);
    void click(std::uint8_t button = 1);
    // An X keysym of the first or second level.
    void type(std::uint32_t keysym);
    void pressKey(std::uint32_t keysym);
    void releaseKey(std::uint32_t keysym);

    // Sends a message to a window, which gets it after everything that was done before.
    void sendMessage(xcb_window_t window, std::uint32_t number);

private:
    void synchronize();
    xcb_window_t makeWindow(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, bool managed);
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    std::uint8_t keycodeOf(std::uint32_t keysym);

    xcb_connection_t* _connection;
    const xcb_screen_t* _screen;
    xcb_window_t _window;
    xcb_window_t _cover = 0;
    bool _believesToHaveFocus = false;
};

} // namespace tarragon
