#pragma once

#include <cstdint>

namespace tarragon {

// Gives an open menu of ours the keyboard and the pointer in such a way that the application in front does not take it
// for a loss of focus: some applications disable their own menu items then, or ignore them. Main thread only.
class MenuInput {
public:
    virtual ~MenuInput() = default;

    // window is the window system's identifier of the open menu. May be called again and again while the menu is open,
    // in case that one of them was refused, or lost meanwhile. False when the keyboard cannot be had.
    virtual bool take(std::uint64_t window) = 0;
    virtual void release() = 0;
};

} // namespace tarragon
