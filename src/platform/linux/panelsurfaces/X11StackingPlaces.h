#pragma once

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// Managed windows that X11Stacking may keep others above.

// The window in front; none when there is none. One of the same program as the kept window does not count: behind it
// the former window stays, or, when that one is not to be seen, as on another workspace, the topmost of its application
// that is. None when all of them are away.
xcb_window_t frontWindow(X11Connection& connection, xcb_window_t kept, xcb_window_t former);

// The highest window that is neither a dock nor another window that the desktop keeps above ordinary ones; none when
// the window manager does not tell.
xcb_window_t topmostOrdinaryWindow(X11Connection& connection, xcb_window_t kept, xcb_window_t former);

} // namespace tarragon
