#pragma once

#include <cstdint>

namespace tarragon {

// Gives an open pop-up of ours the keyboard and the pointer, so that it hears of keys and of clicks beside it, in such
// a way that the application in front does not take it for a loss of focus: some applications disable their own menu
// items then, or ignore them. A desktop that gives its pop-ups both by itself always answers that they have them.
//
// One window has them at a time, the one that they were last taken for. Main thread only.
class MenuInput {
public:
    virtual ~MenuInput() = default;

    // window is the window system's identifier of a pop-up that is on the screen. May be called again and again while
    // it is open, in case that one of them was refused, or lost meanwhile. False when the keyboard cannot be had.
    [[nodiscard]] virtual bool take(std::uint64_t window) = 0;
    // Gives both back, whichever window has them. Nothing happens when none has.
    virtual void release() = 0;
};

} // namespace tarragon
