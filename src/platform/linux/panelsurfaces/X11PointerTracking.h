#pragma once

#include "platform/Geometry.h"
#include "platform/linux/input/X11RawInput.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace tarragon {

class RunLoop;
class X11Connection;

// Tells when the pointer enters rectangles of the root window, moves within them and leaves them, whichever windows lie
// there and whoever has grabbed the pointer. Nobody is woken by a moving pointer while there are none.
//
// Main thread only. Outlives the run loop; the connection outlives this object.
class X11PointerTracking {
public:
    // The position in pixels from the area's top-left corner; nothing when the pointer has left it.
    using Handler = std::function<void(const std::optional<Point>& position)>;

    X11PointerTracking(X11Connection& connection, RunLoop& runLoop);
    ~X11PointerTracking();
    X11PointerTracking(const X11PointerTracking&) = delete;
    X11PointerTracking& operator=(const X11PointerTracking&) = delete;

    // One area by window, whose handler is called from the run loop only. The pointer is outside of nothing.
    void track(std::uint32_t window, Handler handler);
    void stopTracking(std::uint32_t window);
    void setArea(std::uint32_t window, const std::optional<Rect>& area);

private:
    struct Area {
        std::optional<Rect> rect;
        std::optional<Point> toldPosition;
        Handler handler;
    };
    void lookLater();
    void look();
    std::optional<Point> pointer();
    void listen();

    X11Connection& _connection;
    RunLoop& _runLoop;
    std::unique_ptr<X11RawInput> _input; // made for the first area
    std::map<std::uint32_t, Area> _areas;
    bool _lookIsPending = false;
};

} // namespace tarragon
