#pragma once

#include <cstdint>
#include <optional>

namespace tarragon {

// Which events a look at the active window gives rise to.
struct X11FrontWindowChange {
    bool frontSwitched = false;
    bool systemUIModeChanged = false; // the front window went full screen, or the screen is shared again
    bool operator==(const X11FrontWindowChange&) const = default;
};

// Remembers the window in front, and decides from each look at the active window what has happened since.
//
// While no window is active nothing has come to the front: the last window stays the one in front. Window managers take
// the focus away for a moment between two windows, while they show their own menus and while a drag or a pop-up holds
// the keyboard; a switch is reported when the next window is there, and none when the old one comes back.
class X11FrontWindow {
public:
    // Nothing stands for no active window; fullScreen is that of the active window.
    X11FrontWindowChange update(std::optional<std::uint32_t> activeWindow, bool fullScreen);
    // The window in front is gone for good. Window identifiers are used again, so the next window is another one even
    // when it has the same.
    void forgetWindow();

private:
    std::optional<std::uint32_t> _window;
    bool _fullScreen = false;
};

} // namespace tarragon
