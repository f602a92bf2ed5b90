#pragma once

#include "platform/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarragon {

// The row of menu titles of a horizontal panel: which of them fit beside each other in the width of the window.

inline constexpr double HorizontalPanelHeight = 24;

// The two settings that a layout takes and may leave changed: a window that is too narrow to keep the titles at the
// right of its buttons suspends that setting until the next layout.
struct RightOfButtons {
    bool tarragonAlwaysRight = false;
    bool tempAboveTrafficLights = false;
    bool operator==(const RightOfButtons&) const = default;
};

struct HorizontalLayout {
    // x at which each title is made, before the 5 points that its frame adds; only of those that fit, in order.
    std::vector<std::int32_t> positions;
    // The first title that goes into the bunch menu, and with it all after; nothing when every title fits.
    std::optional<std::size_t> firstInBunch;
    RightOfButtons settings;
    bool operator==(const HorizontalLayout&) const = default;
};

// windowWidth is truncated to whole points; widths are those of the title buttons as they are drawn, one below 0
// counting as 0.
HorizontalLayout layOutHorizontally(
    std::int32_t windowWidth, const std::vector<double>& widths, const RightOfButtons& settings);

// x at which the bunch button is made.
double bunchButtonPosition(std::int32_t windowWidth);
// Its origin in the panel once there is a subview before it, whose frame is given.
Point bunchButtonOrigin(const Rect& nextToLast);

} // namespace tarragon
