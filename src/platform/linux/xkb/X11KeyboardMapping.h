#pragma once

#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace tarragon {

// The core protocol's account of the keyboard.
struct X11KeyboardMapping {
    // The key codes of Shift, Lock, Control and Mod1 to Mod5, in this order; 0 stands for none.
    std::vector<std::uint8_t> modifierKeyCodes;
    std::uint8_t keyCodesPerModifier = 0;
    // The key symbols of every key code from the first one on.
    std::uint8_t firstKeyCode = 0;
    std::uint8_t symbolsPerKeyCode = 0;
    std::vector<std::uint32_t> symbols;
};

// Asks the server and waits for its answer; an empty mapping when there is none.
X11KeyboardMapping requestKeyboardMapping(xcb_connection_t* connection);

} // namespace tarragon
