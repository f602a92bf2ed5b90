#pragma once

#include <cstdint>

namespace tarragon {

// Gives an open menu of ours the keyboard in such a way that the application in front does not take it for a loss of
// focus: some applications disable their own menu items then, and the mirror would show them so. Main thread only.
class MenuKeyboard {
public:
    virtual ~MenuKeyboard() = default;

    // window is the window system's identifier of the open menu. May be called again and again while the menu is open,
    // in case that the keyboard was lost meanwhile. False when it cannot be had in this way.
    virtual bool take(std::uint64_t window) = 0;
    virtual void release() = 0;
};

} // namespace tarragon
