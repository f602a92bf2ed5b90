#include "panels/rules/PanelDrag.h"

#include "panels/rules/Measures.h"

#include <algorithm>

namespace tarragon {

Point draggedPanelOriginNS(const Rect& initialPanelFrameNS, const Point& initialLocationNS,
    const Point& currentLocationNS, const Rect& visibleScreenFrameNS) {
    const double highest = topNS(visibleScreenFrameNS) - initialPanelFrameNS.size.height;
    return {.x = initialPanelFrameNS.origin.x + (currentLocationNS.x - initialLocationNS.x),
        .y = std::min(initialPanelFrameNS.origin.y + (currentLocationNS.y - initialLocationNS.y), highest)};
}

Point windowPositionBelowPanelCG(const Rect& panelFrameCG) {
    return {.x = panelFrameCG.origin.x, .y = panelFrameCG.origin.y + panelFrameCG.size.height};
}

} // namespace tarragon
