#include "panels/rules/PanelVisibility.h"

#include "panels/rules/Measures.h"

namespace tarragon {

namespace {

constexpr double LeastDistanceToBar = 100;

// Neither the pointer nor an open menu keeps the panel on the screen.
bool isLeftAlone(const PanelTick& tick) {
    return !tick.tarragonAlwaysVisible && tick.enableButton && !tick.titleMenuIsShowing && !tick.pointerIsInFrame;
}

} // namespace

bool closesPanel(const CloseCheck& check) {
    const bool isOnFirstScreen = check.focusedWindowScreenArrayOrder == 0;
    if (check.horizontal && check.hideOnPrimaryTopEdge && isOnFirstScreen
        && topNS(check.firstScreenVisibleFrameNS) == topNS(check.windowFrameNS))
        return true;
    if (!check.bars.exist || (check.screenTopEnabled && check.bars.firstAutoHides))
        return false;
    if (!check.horizontal || isOnFirstScreen)
        return false;
    return check.bars.yOfBarNS - check.windowFrameNS.origin.y - check.windowFrameNS.size.height < LeastDistanceToBar;
}

PanelTickOutcome tickOutcome(const PanelTick& tick) {
    if (tick.beingDragged)
        return {.endsTick = true};
    if (tick.otherThanWindowInFront)
        return {.endsTick = true, .fadesOutOnce = true};
    return {.fadesOut = !tick.tarragonAlwaysVisible && !tick.mouseIsOnWindow,
        .fadesOutOnce = !tick.widthHasChanged && isLeftAlone(tick),
        .laysOutAgain = tick.widthHasChanged};
}

PanelTickOutcome outcomeAfterDrag(const PanelTick& tick) {
    PanelTickOutcome outcome = tickOutcome(tick);
    outcome.fadesOut = false;
    outcome.endsTick = outcome.endsTick || outcome.fadesOutOnce;
    return outcome;
}

} // namespace tarragon
