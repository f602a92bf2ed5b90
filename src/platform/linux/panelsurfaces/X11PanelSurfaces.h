#pragma once

#include "platform/PanelSurfaces.h"
#include "platform/linux/panelsurfaces/X11Compositor.h"
#include "platform/linux/panelsurfaces/X11PointerTracking.h"
#include "platform/linux/panelsurfaces/X11Stacking.h"
#include "platform/linux/windows/PixelScale.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>

namespace tarragon {

class RunLoop;
class X11Connection;
class X11PanelSurface;

// Panels on an X server, with what they have in common: the order of windows, the compositor, the pointer. Outlives the
// run loop; what is passed in outlives this object.
class X11PanelSurfaces : public PanelSurfaces {
public:
    // Without a scale every pixel is a point.
    X11PanelSurfaces(X11Connection& connection, RunLoop& runLoop, const CurrentPixelScale* scale = nullptr);
    ~X11PanelSurfaces() override;
    X11PanelSurfaces(const X11PanelSurfaces&) = delete;
    X11PanelSurfaces& operator=(const X11PanelSurfaces&) = delete;

    std::unique_ptr<PanelSurface> makeSurface(std::uint64_t window) override;
    void joinAllSpaces(std::uint64_t window) override;

    // The scale of a screen has changed.
    void scaleMayHaveChanged();

private:
    friend class X11PanelSurface;

    PixelScale scale() const;
    bool watch();
    void handleEvents();
    void handleEvent(const xcb_generic_event_t& event);

    X11Connection& _connection;
    RunLoop& _runLoop;
    const CurrentPixelScale* _scale;
    X11Stacking _aboveFrontWindow;
    X11Stacking _aboveOrdinaryWindows;
    X11PointerTracking _pointerTracking;
    std::unique_ptr<X11Connection> _events; // made for the first surface
    std::optional<X11Compositor> _compositor;
    std::set<X11PanelSurface*> _surfaces;
};

} // namespace tarragon
