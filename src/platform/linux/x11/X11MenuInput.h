#pragma once

#include "platform/MenuInput.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace tarragon {

// Grabs the keyboard with the focused window of the application in front as the grab's window: a grab makes the server
// report a change of focus to its window, and here nothing changes. The toolkit's own grab, on the menu's window, makes
// applications believe that they have lost the focus, and it would be taken anew whenever a submenu closes; so the
// toolkit is to be kept from grabbing anything, and the pointer is grabbed here as well.
//
// Key events of such a grab are reported for the other application's window. The toolkit knows nothing of that window,
// so they are given the menu's before the toolkit sees them. Nor is it to see that a grab with the menu's window, which
// is made where no window has the focus, gives way to one with a window that has got it: it would close the menu.
//
// The connection is the toolkit's own and outlives this object. Main thread only.
class X11MenuInput : public MenuInput {
public:
    explicit X11MenuInput(xcb_connection_t* connection)
        : _connection(connection) { }

    bool take(std::uint64_t window) override;
    void release() override;

    // To be called with every event of the connection before the toolkit sees it. True when the toolkit is not to see
    // it at all.
    bool redirect(xcb_generic_event_t* event) const;

private:
    bool takeKeyboard();
    void takePointers();
    void takeCorePointer();
    xcb_window_t focusedWindow() const;
    std::vector<std::uint16_t> pointers() const;

    xcb_connection_t* _connection;
    xcb_window_t _menuWindow = XCB_WINDOW_NONE;
    xcb_window_t _grabWindow = XCB_WINDOW_NONE; // of the keyboard
    std::vector<std::uint16_t> _grabbedPointers;
};

} // namespace tarragon
