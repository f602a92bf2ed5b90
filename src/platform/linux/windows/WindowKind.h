#pragma once

#include <cstdint>

namespace tarragon {

// The kind of a top-level window, from its window type and its relation to other windows.
enum class WindowKind : std::uint8_t { Normal, Dialog, Sheet, Floating, Desktop };

// The first entry of _NET_WM_WINDOW_TYPE that says something here. Floating stands for every type that is not a window
// of its own: utility windows, toolbars, docks, splash screens, notifications and menus.
enum class WindowType : std::uint8_t { Unspecified, Normal, Dialog, Floating, Desktop };

struct WindowRelations {
    WindowType type = WindowType::Unspecified;
    bool modal = false;
    // The window is a transient for another one, or for a whole group of windows.
    bool transient = false;
    // That other window is one of the application's own, so that a modal window hangs on it.
    bool transientForWindow = false;
};

// A modal window that hangs on another one is a sheet. A window without a type is a dialog when it is a transient, as
// the window managers have it.
WindowKind kindOfWindow(const WindowRelations& relations);

} // namespace tarragon
