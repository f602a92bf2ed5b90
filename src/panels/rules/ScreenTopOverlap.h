#pragma once

#include "panels/rules/PanelPlacement.h"
#include "platform/Geometry.h"

#include <optional>
#include <string>

namespace tarragon {

// What is done to a window that lies under the fixed bar at the top of its screen.

struct ScreenTopOverlap {
    bool screenTopEnabled = false;
    bool barsExist = false;
    bool firstBarAutoHides = false;
    bool windowIsOnFirstScreen = false; // which has no bar
    Rect windowFrameCG;
    Rect windowFrameNS;
    Rect screenRectCG; // as a ScreenRectMemory answers it
    std::optional<std::string> focusedAppName;
};

// The window is put below the bar, and shortened where it would reach beyond the screen then. Nothing changes when it
// is not under a bar.
WindowChange windowChangeBelowBar(const ScreenTopOverlap& overlap);

} // namespace tarragon
