#pragma once

#include "platform/Geometry.h"
#include "platform/linux/x11/X11Reply.h"

#include <xcb/randr.h>

namespace tarragon {

class X11Connection;

// Asks the server for its monitors. The constructor sends the request and does not wait, so that many can be in flight.
class X11PrimaryMonitor {
public:
    explicit X11PrimaryMonitor(X11Connection& connection);
    X11PrimaryMonitor(const X11PrimaryMonitor&) = delete;
    X11PrimaryMonitor& operator=(const X11PrimaryMonitor&) = delete;
    ~X11PrimaryMonitor();

    // The top-left corner of the primary monitor in the root window, which is the origin of screen space; the root
    // window's own corner when the server does not know monitors.
    Point origin();

private:
    xcb_connection_t* _connection;
    xcb_randr_get_monitors_cookie_t _cookie = {};
    bool _isPending = false;
    Point _origin;
};

} // namespace tarragon
