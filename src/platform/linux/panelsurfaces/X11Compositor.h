#pragma once

#include <cstdint>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// Whether a compositor draws the windows of a screen: by convention it owns a selection. Main thread only; the
// connections outlive this object.
class X11Compositor {
public:
    // Questions go to the one connection, events come on the other.
    X11Compositor(X11Connection& connection, X11Connection& events);

    bool isRunning() const { return _isRunning; }
    // True when the event has changed the answer.
    bool handleEvent(const xcb_generic_event_t& event);

private:
    X11Connection& _connection;
    xcb_atom_t _selection;
    std::uint8_t _firstEvent = 0; // of the extension that tells of selections; 0 without it
    bool _isRunning = false;
};

} // namespace tarragon
