#pragma once

#include <cstdint>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// What a server tells of its monitors. Beside these events the root window is configured anew when they change.
class X11MonitorEvents {
public:
    // Asks for the events on this connection. A server that knows no monitors tells of none.
    explicit X11MonitorEvents(X11Connection& connection);

    bool include(const xcb_generic_event_t& event) const;

private:
    std::uint8_t _first = 0; // 0 when the server does not tell of monitors
};

} // namespace tarragon
