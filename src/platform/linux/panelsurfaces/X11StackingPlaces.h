#pragma once

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// Managed windows that X11Stacking may keep others above.

// The window in front; none while it is one of the same program as the kept window, or there is none.
xcb_window_t frontWindow(X11Connection& connection, xcb_window_t kept);

// The highest window that is neither a dock nor another window that the desktop keeps above ordinary ones; none when
// the window manager does not tell.
xcb_window_t topmostOrdinaryWindow(X11Connection& connection, xcb_window_t kept);

} // namespace tarragon
