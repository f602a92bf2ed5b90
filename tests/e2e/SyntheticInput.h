#pragma once

#include <cstdint>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon::e2e {

class XDisplay;

// Keys and pointer of a user, sent through the server as if by hardware.
class SyntheticInput {
public:
    explicit SyntheticInput(XDisplay& display);

    // Presses and releases a key by its symbol, while the modifier keys (symbols, too) are held.
    void tap(xcb_keysym_t symbol, const std::vector<xcb_keysym_t>& modifiers = {});
    void moveTo(int x, int y);
    // X button numbers: 1 left, 2 middle, 3 right, 8 and 9 back and forward.
    void click(std::uint8_t button = 1);
    void press(std::uint8_t button = 1);
    void release(std::uint8_t button = 1);
    // Holds a key by its symbol until releaseAll().
    void hold(xcb_keysym_t symbol);
    // Lets go of everything that could still be held.
    void releaseAll();

    // 0 when no key has the symbol.
    xcb_keycode_t keyCodeOf(xcb_keysym_t symbol) const;

private:
    void send(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    // Input counts as sent when the server has handled it.
    void synchronize();

    XDisplay& _display;
    std::vector<xcb_keysym_t> _symbols;
    int _symbolsPerKey = 0;
    xcb_keycode_t _firstKeyCode = 0;
};

} // namespace tarragon::e2e
