#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// Keeps windows that no window manager manages directly above the frame of one managed window, whatever is restacked:
// so they lie below everything that lies above that window. While there is no such window they stay where they are.
//
// What is restacked is told by events alone; the server is asked only when another window may be the one, or has got
// another frame. Main thread only; the connection outlives this object.
class X11Stacking {
public:
    // The managed window that the windows are to lie above; none to leave them where they are. One of the windows is
    // passed in, and the managed window of before, if any.
    using FindWindow = std::function<xcb_window_t(X11Connection& connection, xcb_window_t kept, xcb_window_t former)>;

    // A change of the root window's property means that another window may be found, and so does a window that is shown
    // while the one found last is not. The windows of another object may be kept above the same window: those lie
    // beneath these then.
    //
    // The root window's property changes and substructure are to be selected already on the connection whose events
    // handleEvent gets.
    X11Stacking(X11Connection& connection, const std::string& property, FindWindow findWindow,
        const X11Stacking* beneath = nullptr);

    void add(xcb_window_t window);
    void remove(xcb_window_t window);
    void handleEvent(const xcb_generic_event_t& event);
    // To be called when no further event waits; puts the windows back when one of the events calls for it.
    void restackIfNeeded();

private:
    void handleMapping(xcb_window_t window, bool isMapped);
    void handleConfigure(const xcb_configure_notify_event_t& event);
    bool isKept(xcb_window_t window) const;
    void findBaseFrame();
    xcb_window_t lowestNeighbour() const;
    xcb_window_t frameOf(xcb_window_t window) const;

    X11Connection& _connection;
    xcb_atom_t _property;
    FindWindow _findWindow;
    const X11Stacking* _beneath;
    std::vector<xcb_window_t> _windows; // bottom to top
    xcb_window_t _baseWindow = XCB_WINDOW_NONE; // that the windows lie above
    xcb_window_t _baseFrame = XCB_WINDOW_NONE;
    xcb_window_t _belowBaseFrame = XCB_WINDOW_NONE; // as the last event told; none when unknown
    bool _baseIsAway = false; // the base frame was taken off the screen, with its window or its workspace
    bool _needsFrame = true;
    bool _needsRestack = false;
};

} // namespace tarragon
