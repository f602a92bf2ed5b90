#pragma once

#include <cstdint>

namespace tarragon {

// How a window gets an alpha, with a compositor, which blends windows, and without.
struct PanelAppearance {
    enum class Area : std::uint8_t { Nothing, PaintedRegion, WholeWindow };
    std::uint32_t opacity = 0xFFFFFFFF; // of all, in the compositor's units
    Area drawn = Area::WholeWindow;
    Area clickable = Area::PaintedRegion;
    bool operator==(const PanelAppearance&) const = default;
};

// Without a compositor a window is there or not, and what it does not paint would be black: the rest is cut off.
PanelAppearance panelAppearance(double alpha, bool hasCompositor);

} // namespace tarragon
