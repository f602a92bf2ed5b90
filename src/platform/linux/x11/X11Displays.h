#pragma once

#include "platform/Displays.h"
#include "platform/linux/x11/X11RoomCache.h"

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
// Main thread only. The displays and the scale outlive it; the connection tells which server is meant.
class X11Displays : public Displays {
public:
    // Without a scale every pixel is a point. Screens that are asked for again within one look are as they were then,
    // but for their frames.
    X11Displays(Displays& displays, X11Connection& connection, const CurrentPixelScale* scale = nullptr,
        X11RoomCache::CurrentLook currentLook = {});

    // Takes what the server tells also while nobody asks, lest it pile up. The run loop ends first.
    void takeEventsIn(RunLoop& runLoop) { _room.takeEventsIn(runLoop); }

    std::vector<Screen> screens() override;
    Rect mainDisplayBoundsCG() override { return _displays.mainDisplayBoundsCG(); }
    Point mouseLocationNS() override { return _displays.mouseLocationNS(); }
    void installReconfigurationHandler(std::function<void(std::uint32_t flags)> handler) override {
        _displays.installReconfigurationHandler(std::move(handler));
    }

private:
    Displays& _displays;
    const CurrentPixelScale* _scale;
    X11RoomCache _room;
};

} // namespace tarragon
