#pragma once

#include "platform/linux/panelsurfaces/TopStrut.h"

#include <optional>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// Room along the top of the desktop that the window manager keeps other windows out of.
//
// A window manager gives the room of a window back as soon as that window is hidden. So the room belongs to a window of
// its own, which nobody sees: a dock may be hidden for a while without every maximised window growing and shrinking.
//
// Main thread only; the connection outlives this object.
class X11ReservedRoom {
public:
    explicit X11ReservedRoom(X11Connection& connection);
    // Gives the room back.
    ~X11ReservedRoom();
    X11ReservedRoom(const X11ReservedRoom&) = delete;
    X11ReservedRoom& operator=(const X11ReservedRoom&) = delete;

    // Nothing gives the room back.
    void reserve(const std::optional<StrutNumbers>& strut);

private:
    void makeWindow(const StrutNumbers& strut);
    void setNumbers(const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& numbers);

    X11Connection& _connection;
    xcb_window_t _window = XCB_WINDOW_NONE;
    std::optional<StrutNumbers> _strut;
};

} // namespace tarragon
