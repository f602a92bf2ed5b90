#pragma once

#include "panels/rules/ButtonStyle.h"
#include "platform/Displays.h"
#include "platform/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The bar of menu titles at the top of a screen other than the first: where it is, when it slides in and out, and what
// it shows. Pure functions on plain values; points throughout.

inline constexpr double ScreenTopBarHeight = 22;
// How far a hidden bar is above its place.
inline constexpr double ScreenTopBarTravel = 50;

// The screen as far as the bar is concerned. A bar of the desktop at the top of the screen was there first: ours goes
// directly below it, since one of the two would hide the other.
Rect barScreenFrameNS(const Screen& screen);

// The frame with which the bar's window is created, out of sight above its screen.
Rect newBarFrameNS(const Rect& screenFrameNS);

// Where the bar is put. One that hides itself and is not slid in keeps its size above the screen; any other keeps its
// height alone and lies along the top edge.
Rect placedBarFrameNS(const Rect& screenFrameNS, const Size& currentSize, bool autoHides, bool slidIn);

// A bar above its own screen is meant not to be seen, but another screen may lie there.
bool isSeenAboveItsScreen(const Rect& barFrameNS, const Rect& screenFrameNS, const std::vector<Screen>& screens);

// A slide is relative to where the bar is.
enum class BarSlide : std::uint8_t { None, In, Out };
Rect barFrameAfterSlideNS(const Rect& barFrameNS, BarSlide slide);

// The strip above a screen that the pointer touches from the screen's top edge on; its left half alone, if so set.
Rect hotZoneNS(const Rect& screenFrameNS, bool halfHotZone);

struct BarSlideCheck {
    bool autoHides = false;
    bool slidIn = false;
    bool titleMenuIsShowing = false;
    bool halfHotZone = false;
    Point pointerNS;
    Rect screenFrameNS;
    Rect barFrameNS;
};
BarSlide barSlide(const BarSlideCheck& check);

// Alpha of the bar's window as it is created, and from its first placement on.
constexpr double alphaOfNewBar(bool transparency) {
    return transparency ? 0.75 : 1.0;
}
constexpr double alphaOfPlacedBar(bool transparency) {
    return transparency ? 0.9 : 1.0;
}

// The bar has no borderless style; it takes the menu-bar look instead.
constexpr std::int64_t buttonStyleOfBar(std::int64_t preference) {
    return preference == 4 ? MenuBarLook : preference;
}
// The dress after a style was applied to it on a bar, where only the first style changes anything.
ButtonDress applyStyleOnBar(std::int64_t style, const ButtonDress& dress);

// How a bar shows a title of the mirrored menu.
struct BarTitle {
    std::string text;
    bool boldAppName = false;
    bool isLogo = false; // drawn as an image instead of the text
    bool operator==(const BarTitle&) const = default;
};
// menuTitle is that of the mirrored menu as a whole, which is the application's.
BarTitle barTitle(const std::string& title, const std::string& menuTitle);

// The width of a title's button; fittingWidth shows the whole title.
double barTitleWidth(const BarTitle& title, double fittingWidth);

// The width of the button of the bunch menu at an x of the bar: that of a title, as far as there is room.
double barBunchWidth(double x, double fittingWidth, std::int32_t screenWidth);

struct BarLayout {
    // x at which each title is made, before the 5 points that its frame adds; only of those that fit, in order.
    std::vector<std::int32_t> positions;
    // The first title that goes into the bunch menu, and with it all after; nothing when every title fits.
    std::optional<std::size_t> firstInBunch;
    bool operator==(const BarLayout&) const = default;
};
// screenWidth is truncated to whole points; widths are those of barTitleWidth, one below 0 counting as 0.
BarLayout layOutBar(std::int32_t screenWidth, const std::vector<double>& widths);

} // namespace tarragon
