#pragma once

#include <cstdint>
#include <optional>

struct xcb_connection_t;

namespace tarragon {

// The window with the focus; 0 when the focus is nowhere or follows the pointer.
std::uint32_t focusedWindow(xcb_connection_t* connection);

// Gives the connection every key until it lets go of the keyboard. The grab is that of the focused window, so that the
// application in front does not believe that it lost the focus; where no window has it, that of the root window.
// Answers that window, or nothing when another client has the keyboard.
[[nodiscard]] std::optional<std::uint32_t> grabKeyboard(xcb_connection_t* connection, std::uint32_t rootWindow);

} // namespace tarragon
