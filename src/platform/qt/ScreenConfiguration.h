#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

struct ConfiguredScreen {
    std::string name; // tells the screen apart from the others
    Rect frame;
};

// The first is the primary screen. Of those with the same frame, which show the same, the first alone counts.
using ScreenConfiguration = std::vector<ConfiguredScreen>;

// Bits of displayReconfiguration; 0 when nothing has changed that they tell of.
std::uint32_t reconfigurationFlags(const ScreenConfiguration& before, const ScreenConfiguration& after);

} // namespace tarragon
