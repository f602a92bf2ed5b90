#pragma once

#include "platform/Keyboard.h"

#include <cstdint>
#include <optional>
#include <vector>

struct xcb_connection_t;

namespace tarragon {

struct X11Modifiers;

// The key combinations that other clients of the X server have grabbed on the root window, found out by trying to grab
// each. Nothing when the server has gone. The connection must hold no grabs of its own: they would be given up.
std::optional<std::vector<SymbolicHotKey>> keysGrabbedByOthers(
    xcb_connection_t* connection, std::uint32_t rootWindow, const X11Modifiers& modifiers);

} // namespace tarragon
