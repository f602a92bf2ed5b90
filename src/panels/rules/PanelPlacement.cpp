#include "panels/rules/PanelPlacement.h"

#include "panels/rules/Measures.h"

#include <cmath>

namespace tarragon {

namespace {

// The buttons of a window at the left of its title bar, and their margin.
constexpr double WidthOfWindowButtons = 68;
// By how much a window is pushed down, and shortened, to leave a bar and a point free above it.
constexpr double BarAndMargin = 23;

// What a panel above a window takes of its screen.
constexpr double RoomForPanel = 23;

constexpr std::int64_t RoundedRectangle = 0;
constexpr std::int64_t ShadowlessSquare = 3;
constexpr std::int64_t Borderless = 4;

// From one coordinate space to the other; the same either way.
Rect flipped(const Rect& rect, double height) {
    return {.origin = {.x = rect.origin.x, .y = height - (rect.origin.y + rect.size.height)}, .size = rect.size};
}

// Less than 25 points below the screen's top, as it is asked when a panel is created: the sum loses its fraction, so on
// a screen of whole points 24 is close and 24.5 is not.
bool isCloseToScreenTop(double windowTopCG, double screenHeight) {
    return std::trunc(screenHeight - windowTopCG + 25) > screenHeight;
}

Point originOfNewPanel(const Point& windowPositionCG, double primaryScreenHeight, bool besideWindowButtons) {
    if (besideWindowButtons)
        return {.x = windowPositionCG.x + WidthOfWindowButtons, .y = primaryScreenHeight + 1};
    return {.x = windowPositionCG.x, .y = primaryScreenHeight - windowPositionCG.y + 23};
}

} // namespace

Rect ScreenRectMemory::rectToUse(const Rect& screenRectCG) {
    if (screenRectCG.size.height <= 1.0)
        return _lastGood;
    if (screenRectCG.origin.y != 0)
        _lastGood = screenRectCG;
    return screenRectCG;
}

PanelPlace panelPlace(const Rect& windowFrameCG, const Rect& screenRectCG, bool tarragonAlwaysRight) {
    const bool hasNoRoomAbove = screenRectCG.origin.y + RoomForPanel > windowFrameCG.origin.y;
    return hasNoRoomAbove || tarragonAlwaysRight ? PanelPlace::OnTitleBar : PanelPlace::AboveWindow;
}

Point panelTopLeftNS(PanelPlace place, bool horizontal, const Point& windowPositionCG, double primaryScreenHeight) {
    const double windowTopNS = primaryScreenHeight - windowPositionCG.y;
    if (place == PanelPlace::OnTitleBar)
        return {.x = windowPositionCG.x + WidthOfWindowButtons, .y = horizontal ? windowTopNS : windowTopNS + 5};
    return {.x = windowPositionCG.x, .y = windowTopNS + (horizontal ? 24 : 27)};
}

std::optional<PanelButtonStyle> buttonStyleInPlace(PanelPlace place, bool horizontal, std::int64_t buttonStyle) {
    const bool standsOnNothing = place == PanelPlace::AboveWindow && buttonStyle == Borderless;
    if (horizontal)
        return PanelButtonStyle{.style = standsOnNothing ? ShadowlessSquare : buttonStyle};
    if (standsOnNothing)
        return PanelButtonStyle{.style = RoundedRectangle, .replacesPreference = true};
    return std::nullopt;
}

Rect verticalPanelFrameNS(
    const Point& windowPositionCG, double screenHeight, double primaryScreenHeight, bool tarragonAlwaysRight) {
    const bool besideWindowButtons = isCloseToScreenTop(windowPositionCG.y, screenHeight) || tarragonAlwaysRight;
    return {.origin = originOfNewPanel(windowPositionCG, primaryScreenHeight, besideWindowButtons),
        .size = {.width = 56, .height = besideWindowButtons ? 26.0 : 25.0}};
}

Rect horizontalPanelRect(
    const Point& windowPositionCG, double screenHeight, double primaryScreenHeight, bool tarragonAlwaysRight) {
    const bool besideWindowButtons = isCloseToScreenTop(windowPositionCG.y, screenHeight) || tarragonAlwaysRight;
    return {.origin = originOfNewPanel(windowPositionCG, primaryScreenHeight, besideWindowButtons),
        .size = {.width = 0, .height = 25}};
}

Rect convertCGtoNSRectCoords(const Rect& rectCG, double topOfFirstScreenNS) {
    return flipped(rectCG, roundedToSinglePrecision(topOfFirstScreenNS));
}

Rect convertNSToCGRectCoords(const Rect& rectNS, double maximumYOfMainDisplayCG) {
    return flipped(rectNS, roundedToSinglePrecision(maximumYOfMainDisplayCG));
}

WindowChange windowChangeOnTitleBar(const Rect& windowFrameCG, const Rect& windowFrameNS, const Rect& screenRectCG,
    bool tarragonAlwaysRight, bool tarragonAlwaysVisible, bool screenTopEnabledWithAutohide) {
    if (tarragonAlwaysRight || !tarragonAlwaysVisible || !screenTopEnabledWithAutohide)
        return {};

    WindowChange change;
    const double room = screenRectCG.size.height - BarAndMargin;
    if (windowFrameCG.size.height >= room) {
        change.size =
            Size{.width = roundedToSinglePrecision(windowFrameCG.size.width), .height = roundedToSinglePrecision(room)};
    }
    change.positionCG = Point{.x = roundedToSinglePrecision(windowFrameNS.origin.x),
        .y = roundedToSinglePrecision(windowFrameCG.origin.y + BarAndMargin)};
    return change;
}

} // namespace tarragon
