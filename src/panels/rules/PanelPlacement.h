#pragma once

#include "platform/Displays.h"
#include "platform/Geometry.h"

#include <cstdint>
#include <optional>

namespace tarragon {

// Where a floating panel is put beside the window in front. Pure functions on plain values; points throughout.

// The last rectangle of a screen that was worth keeping; takes the place of one that comes back empty.
class ScreenRectMemory {
public:
    explicit ScreenRectMemory(const Rect& screenRectCG = {})
        : _lastGood(screenRectCG) { }
    // The rectangle to go by. One that is no more than a point high is replaced by the last good one; any other is
    // remembered unless its y is exactly 0, which is used and yet deliberately not kept.
    Rect rectToUse(const Rect& screenRectCG);
    const Rect& lastGood() const { return _lastGood; }

private:
    Rect _lastGood;
};

enum class PanelPlace : std::uint8_t { OnTitleBar, AboveWindow };

// On the title bar when the window's top is less than 23 points below the top of its screen, or when the panel is
// always to be at the right of the window's buttons. screenRectCG is the visible frame, so that a bar of the desktop at
// the top of the screen stays free, however high it is.
PanelPlace panelPlace(const Rect& windowFrameCG, const Rect& screenRectCG, bool tarragonAlwaysRight);

// The panel's top-left corner. windowPositionCG is the window's top-left corner; heights in points.
Point panelTopLeftNS(PanelPlace place, bool horizontal, const Point& windowPositionCG, double primaryScreenHeight);

// The style in which the buttons are drawn in a place. Above a window the borderless style has nothing to stand on.
struct PanelButtonStyle {
    std::int64_t style = 0;
    // The stored preference is to be rewritten to the style, as only a vertical panel does.
    bool replacesPreference = false;
    bool operator==(const PanelButtonStyle&) const = default;
};
// Nothing where the placement leaves the buttons as they are, as for a vertical panel without the borderless style.
std::optional<PanelButtonStyle> buttonStyleInPlace(PanelPlace place, bool horizontal, std::int64_t buttonStyle);

// The frame with which a panel is created, before its buttons and its first placement.
// screenHeight is that of the screen that the creation goes by.
Rect verticalPanelFrameNS(
    const Point& windowPositionCG, double screenHeight, double primaryScreenHeight, bool tarragonAlwaysRight);
// In Cocoa numbers, to be passed through convertCGtoNSRectCoords all the same.
Rect horizontalPanelRect(
    const Point& windowPositionCG, double screenHeight, double primaryScreenHeight, bool tarragonAlwaysRight);

// (x, T - maxY, width, height), T the top of the first screen in Cocoa space, rounded to single precision.
Rect convertCGtoNSRectCoords(const Rect& rectCG, double topOfFirstScreenNS);
// (x, B - (y + height), width, height), B the maximum y of the main display in screen space, likewise rounded. The two
// take their heights from different sources.
Rect convertNSToCGRectCoords(const Rect& rectNS, double maximumYOfMainDisplayCG);

// What the title-bar placement does to the window itself where an auto-hiding screen-top bar lies above it.
struct WindowChange {
    std::optional<Size> size;
    std::optional<Point> positionCG; // top-left corner
    bool operator==(const WindowChange&) const = default;
};
WindowChange windowChangeOnTitleBar(const Rect& windowFrameCG, const Rect& windowFrameNS, const Rect& screenRectCG,
    bool tarragonAlwaysRight, bool tarragonAlwaysVisible, bool screenTopEnabledWithAutohide);

} // namespace tarragon
