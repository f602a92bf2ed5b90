#include "platform/linux/panelsurfaces/PanelAppearance.h"

#include <algorithm>
#include <cmath>

namespace tarragon {

PanelAppearance panelAppearance(double alpha, bool hasCompositor) {
    constexpr double Opaque = 0xFFFFFFFF;
    constexpr double VisibleFrom = 0.5;
    using Area = PanelAppearance::Area;
    const double bounded = alpha > 0 ? std::min(alpha, 1.0) : 0.0;
    const auto opacity = static_cast<std::uint32_t>(std::llround(bounded * Opaque));
    if (hasCompositor)
        return {opacity, Area::WholeWindow, bounded > 0 ? Area::PaintedRegion : Area::Nothing};
    const Area visible = bounded >= VisibleFrom ? Area::PaintedRegion : Area::Nothing;
    return {opacity, visible, visible};
}

} // namespace tarragon
