#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarragon {

// What a panel lies above.
enum class PanelLevel : std::uint8_t {
    // The window in front and nothing that lies above that one, whichever window is in front.
    FrontWindow,
    // Every ordinary window, whichever is in front, but no dock, nothing that the user keeps above other windows, and
    // no
    // open menu.
    OrdinaryWindows,
    // Every window that is no dock. Where the desktop does such a thing the room that the panel takes at the top of its
    // screen is kept free of windows, from the first time that it is shown there until another level is chosen or the
    // surface ends: a panel that is hidden for a while disturbs no window. To be chosen while the panel is hidden, and
    // left only then.
    Dock,
    // Everything, open menus included, until another level is chosen.
    PopUpMenu,
};

// What the desktop does with one panel, a window that the user-interface toolkit has made and moves, shows and hides.
// The panel never gets the keyboard, not even when it is clicked, and is on every workspace. Destroying the surface
// ends all that; the window has to be there until then. Main thread only.
class PanelSurface {
public:
    virtual ~PanelSurface() = default;

    virtual void setLevel(PanelLevel level) = 0;
    // 0 is invisible and lets clicks through, 1 is opaque, as at the start. Where the desktop cannot draw translucent
    // windows the panel is visible from 0.5 on.
    virtual void setAlpha(double alpha) = 0;
    // Whether the desktop shows what lies below where the panel paints translucent. Elsewhere that would be black: the
    // panel has to be opaque in all of its clickable region. May change at any time.
    [[nodiscard]] virtual bool isTranslucent() const = 0;
    // What the panel paints, in points from its top-left corner, y down. Clicks beside it reach the window below. All
    // of the panel at the start.
    virtual void setClickableRegion(const std::vector<Rect>& region) = 0;
    // Called from the run loop when the pointer enters the panel's frame, moves within it (several movements that came
    // together are one) or leaves it, whatever the alpha is, whoever has grabbed the pointer and whatever lies above
    // the panel. The location is in points from the panel's top-left corner, y down; nothing when the pointer has left.
    // A hidden panel is left.
    virtual void setPointerHandler(std::function<void(const std::optional<Point>& location)> handler) = 0;
};

// Turns windows of the toolkit into panels, and says where others are to be. Main thread only.
class PanelSurfaces {
public:
    virtual ~PanelSurfaces() = default;

    // window is the window system's identifier of a window that has not been shown yet. The surface must not outlive
    // this object. nullptr when there is no such window.
    [[nodiscard]] virtual std::unique_ptr<PanelSurface> makeSurface(std::uint64_t window) = 0;
    // Puts an ordinary window on every workspace until it is hidden; one that is not shown yet, once it is. Does
    // nothing for a window that is not there.
    virtual void joinAllSpaces(std::uint64_t window) = 0;
};

} // namespace tarragon
