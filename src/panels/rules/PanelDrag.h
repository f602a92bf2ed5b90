#pragma once

#include "platform/Geometry.h"

namespace tarragon {

// A drag of the panel moves the window below it.

// initialPanelFrameNS is the panel's frame when the drag began, at initialLocationNS. The panel never rises above the
// visible frame of the screen.
Point draggedPanelOriginNS(const Rect& initialPanelFrameNS, const Point& initialLocationNS,
    const Point& currentLocationNS, const Rect& visibleScreenFrameNS);

// Where the window's top-left corner goes, below the panel.
Point windowPositionBelowPanelCG(const Rect& panelFrameCG);

} // namespace tarragon
