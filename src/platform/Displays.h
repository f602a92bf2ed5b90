#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tarragon {

// What has changed about the screens; bits of one number.
namespace displayReconfiguration {
inline constexpr std::uint32_t Moved = 2;
inline constexpr std::uint32_t SetMain = 4; // another one is the primary screen
inline constexpr std::uint32_t SetMode = 8; // a screen has another size
inline constexpr std::uint32_t Added = 16;
inline constexpr std::uint32_t Removed = 32;
} // namespace displayReconfiguration

struct Screen {
    Rect frameNS;
    Rect visibleFrameNS; // the frame less what the bars and docks of other programs take
};

// Screens and the pointer. Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    // The first is the primary screen. Monitors that show the same, with the same frame, are one screen. Empty when no
    // screen is connected.
    virtual std::vector<Screen> screens() = 0;
    virtual Rect mainDisplayBoundsCG() = 0;
    virtual Point mouseLocationNS() = 0;

    // The handler is called on the run loop after the screens have changed, once for all that changed together, with
    // bits of displayReconfiguration; screens() answers the new ones then. A screen that has come and gone meanwhile is
    // told of as both. Handlers are never removed.
    virtual void installReconfigurationHandler(std::function<void(std::uint32_t flags)> handler) = 0;
};

} // namespace tarragon
