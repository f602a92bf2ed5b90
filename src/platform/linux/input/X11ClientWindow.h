#pragma once

#include <cstdint>
#include <optional>
#include <vector>

struct xcb_connection_t;

namespace tarragon {

// The application's window that a child of the root window is, or is the frame of. Nothing when it holds none of the
// managed windows, as pop-up menus do not.
std::optional<std::uint32_t> clientWindowOf(
    xcb_connection_t* connection, std::uint32_t childOfRoot, const std::vector<std::uint32_t>& managedWindows);

} // namespace tarragon
