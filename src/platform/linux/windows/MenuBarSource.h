#pragma once

#include <cstdint>

namespace tarragon {

// Whose menu bar is shown while a window is in front. Main thread only; may wait for the application, as every question
// to the accessibility interface does.
class MenuBarSource {
public:
    virtual ~MenuBarSource() = default;

    // The window with the menu bar: the window itself, failing that the one that it is transient for, failing that the
    // application's window that was active last and has one. 0 when there is none, or none that tells.
    virtual std::uint32_t windowWithMenuBar(std::uint32_t window) = 0;
};

} // namespace tarragon
