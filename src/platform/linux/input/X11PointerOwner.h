#pragma once

namespace tarragon {

class X11Connection;

// True when the pointer is over a window that the toolkit has made in this process, be it inside of a window manager's
// frame. toolkit is the toolkit's xcb_connection_t, or nullptr where it does not draw through X; the question is asked
// on the other connection.
[[nodiscard]] bool pointerIsOverOwnWindow(X11Connection& connection, void* toolkit);

} // namespace tarragon
