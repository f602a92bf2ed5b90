#include "panels/rules/PanelFade.h"

#include <algorithm>

namespace tarragon {

double easedProgress(double elapsedPart) {
    const double part = std::clamp(elapsedPart, 0.0, 1.0);
    return part * part * (3 - 2 * part);
}

bool fadesInOnEntering(const PanelEntering& entering) {
    if (entering.windowIsMinimized || entering.windowIsHidden || entering.desktopIsActive)
        return false;
    return entering.fadeEffect && entering.alpha < 1.0;
}

} // namespace tarragon
