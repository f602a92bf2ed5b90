#pragma once

#include "platform/Geometry.h"
#include "platform/linux/panelsurfaces/PanelAppearance.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// The requests that make one window a panel. A window that is gone is passed over in silence. Main thread only; the
// connection outlives this object.
class X11PanelWindow {
public:
    X11PanelWindow(X11Connection& connection, xcb_window_t window)
        : _connection(connection)
        , _window(window) { }

    xcb_window_t identifier() const { return _window; }
    bool exists() const;
    // In pixels of the root window, y down; nothing when the window is gone.
    std::optional<Rect> frame() const;
    // Nothing either while the window is not shown.
    std::optional<Rect> visibleFrame() const;

    void refuseFocus();
    void joinAllWorkspaces();
    // For a window that is yet to be shown: some window managers take the workspace alone for a number that is out of
    // range, and show the window on their last one.
    void stickToScreen();
    // A dock is the window manager's business, another panel is kept from it. The server has heard of it on return:
    // the toolkit shows the window over a connection of its own.
    void setManagedAsDock(bool isDock);
    // A window manager forgets it when it has hidden a window of its own.
    void askForAllWorkspaces();
    void raise();
    // The region is in pixels from the window's corner; nothing stands for all of the window.
    void show(const PanelAppearance& appearance, const std::optional<std::vector<Rect>>& paintedRegion);

private:
    void setNumbers(const std::string& property, xcb_atom_t type, const std::vector<std::uint32_t>& numbers);
    void setShape(std::uint8_t kind, PanelAppearance::Area area, const std::optional<std::vector<Rect>>& paintedRegion);
    void send();

    X11Connection& _connection;
    xcb_window_t _window;
};

} // namespace tarragon
