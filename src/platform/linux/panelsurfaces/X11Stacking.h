#pragma once

#include <cstdint>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// Keeps windows that no window manager manages directly above the frame of the window in front, whatever is restacked:
// so they lie below everything that lies above that window. While no window is in front, or one of the windows' own
// program, they stay where they are.
//
// What is restacked is told by events alone; the server is asked only when another window comes to the front or gets
// another frame. Main thread only; the connection outlives this object.
class X11Stacking {
public:
    // The root window's property changes and substructure are to be selected already on the connection whose events
    // handleEvent gets.
    explicit X11Stacking(X11Connection& connection);

    void add(xcb_window_t window);
    void remove(xcb_window_t window);
    void handleEvent(const xcb_generic_event_t& event);
    // To be called when no further event waits; puts the windows back when one of the events calls for it.
    void restackIfNeeded();

private:
    void handleConfigure(const xcb_configure_notify_event_t& event);
    bool isKept(xcb_window_t window) const;
    void findFrontFrame();
    xcb_window_t frameOf(xcb_window_t window) const;

    X11Connection& _connection;
    xcb_atom_t _activeWindow;
    std::vector<xcb_window_t> _windows; // bottom to top
    xcb_window_t _frontWindow = XCB_WINDOW_NONE;
    xcb_window_t _frontFrame = XCB_WINDOW_NONE;
    xcb_window_t _belowFrontFrame = XCB_WINDOW_NONE; // as the last event told; none when unknown
    bool _needsFrame = true;
    bool _needsRestack = false;
};

} // namespace tarragon
