#pragma once

#include "platform/Displays.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace tarragon {

class CurrentPixelScale;
class X11Connection;

// Screens and pointer of another source, with the visible frames that the panels and docks of an X11 desktop leave. The
// window manager tells one work area for all monitors together, which says nothing of each.
//
// Main thread only. The objects passed in outlive it.
class X11Displays : public Displays {
public:
    // Without a scale every pixel is a point.
    X11Displays(Displays& displays, X11Connection& connection, const CurrentPixelScale* scale = nullptr)
        : _displays(displays)
        , _connection(connection)
        , _scale(scale) { }

    std::vector<Screen> screens() override;
    Rect mainDisplayBoundsCG() override { return _displays.mainDisplayBoundsCG(); }
    Point mouseLocationNS() override { return _displays.mouseLocationNS(); }
    void installReconfigurationHandler(std::function<void(std::uint32_t flags)> handler) override {
        _displays.installReconfigurationHandler(std::move(handler));
    }

private:
    Displays& _displays;
    X11Connection& _connection;
    const CurrentPixelScale* _scale;
};

} // namespace tarragon
