#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <optional>

namespace tarragon {

// What the update cycle does about the panel.

// The bar at the top of the window's own screen, when there is one.
struct ScreenTopBars {
    bool exist = false;
    bool firstAutoHides = false;
    // Of the bar that serves the window's screen.
    double yOfBarNS = 0;
};

struct CloseCheck {
    bool horizontal = false;
    bool hideOnPrimaryTopEdge = false;
    bool screenTopEnabled = false;
    std::int32_t focusedWindowScreenArrayOrder = 0; // 0 for the first screen
    Rect firstScreenVisibleFrameNS;
    Rect windowFrameNS;
    ScreenTopBars bars;
};

// True when the window is too close to the top of its screen for a panel: exactly at the top of the primary screen's
// visible frame where the setting says so, or within 100 points of a screen-top bar that stays.
bool closesPanel(const CloseCheck& check);

// One look at a horizontal panel, twice a second.
struct PanelTick {
    bool beingDragged = false;
    // The desktop, or a window that is ignored for its kind, is in front.
    bool otherThanWindowInFront = false;
    bool tarragonAlwaysVisible = false;
    bool mouseIsOnWindow = false;
    bool widthHasChanged = false;
    bool enableButton = false;
    bool titleMenuIsShowing = false;
    bool pointerIsInFrame = false;
};

struct PanelTickOutcome {
    bool endsTick = false;
    // Fades the panel out and notes it, whether it was noted before or not.
    bool fadesOut = false;
    // The same unless it was noted before.
    bool fadesOutOnce = false;
    bool laysOutAgain = false;
    bool operator==(const PanelTickOutcome&) const = default;
};

PanelTickOutcome tickOutcome(const PanelTick& tick);
// After the drag of a window has ended: without the fade for mouseIsOnWindow, and a fade ends it as a drag does.
PanelTickOutcome outcomeAfterDrag(const PanelTick& tick);

} // namespace tarragon
