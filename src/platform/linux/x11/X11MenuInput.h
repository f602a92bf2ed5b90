#pragma once

#include "platform/MenuInput.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace tarragon {

// Grabs the keyboard with the focused window of the application in front as the grab's window. While a grab lasts the
// server reports its window as the focused one; with this window the application hears, at most, that the focus has
// left and come back at once. The toolkit's own grab, on the menu's window, makes applications believe that they have
// lost the focus, and it would be taken anew whenever a submenu closes; so the toolkit is to be kept from grabbing
// anything, and the pointer is grabbed here as well.
//
// Key events of such a grab are reported for the other application's window. The toolkit knows nothing of that window,
// so they are given the menu's before the toolkit sees them. Where no window has the focus, the grab's window is the
// menu's; once a window has got the focus, the grab moves there, and the toolkit is not told that the menu lost it: it
// would close the menu.
//
// The connection is the toolkit's own and outlives this object. Main thread only.
class X11MenuInput : public MenuInput {
public:
    explicit X11MenuInput(xcb_connection_t* connection)
        : _connection(connection) { }

    [[nodiscard]] bool take(std::uint64_t window) override;
    void release() override;
    // A menu has keyboard and pointer, or has asked for them.
    bool isTaken() const { return _menuWindow != XCB_WINDOW_NONE; }

    // To be called with every event of the connection before the toolkit sees it. True when the toolkit is not to see
    // it at all.
    [[nodiscard]] bool redirect(xcb_generic_event_t* event) const;

private:
    bool takeKeyboard();
    void takePointers();
    void takeCorePointer();
    std::vector<std::uint16_t> pointers() const;

    xcb_connection_t* _connection;
    xcb_window_t _menuWindow = XCB_WINDOW_NONE;
    xcb_window_t _grabWindow = XCB_WINDOW_NONE; // of the keyboard
    std::vector<std::uint16_t> _grabbedPointers;
};

} // namespace tarragon
