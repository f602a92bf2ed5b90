#include "panels/rules/ScreenTopBarRules.h"

#include "panels/rules/Measures.h"

#include <algorithm>

namespace tarragon {

namespace {

constexpr double RoomBesideTitle = 16; // both sides together

bool overlap(const Rect& one, const Rect& other) {
    return one.origin.x < other.origin.x + other.size.width && other.origin.x < one.origin.x + one.size.width
        && one.origin.y < topNS(other) && other.origin.y < topNS(one);
}

} // namespace

Rect barScreenFrameNS(const Screen& screen) {
    Rect frame = screen.frameNS;
    const double visibleTop = topNS(screen.visibleFrameNS);
    const bool isVisible = screen.visibleFrameNS.size.height > 0 && visibleTop > frame.origin.y;
    if (isVisible && visibleTop < topNS(frame))
        frame.size.height = visibleTop - frame.origin.y;
    return frame;
}

Rect newBarFrameNS(const Rect& screenFrameNS) {
    return {.origin = {.x = screenFrameNS.origin.x, .y = topNS(screenFrameNS)}, .size = screenFrameNS.size};
}

Rect placedBarFrameNS(const Rect& screenFrameNS, const Size& currentSize, bool autoHides, bool slidIn) {
    if (autoHides && !slidIn) {
        const double topOfBar = topNS(screenFrameNS) + ScreenTopBarTravel;
        return {.origin = {.x = screenFrameNS.origin.x, .y = topOfBar - currentSize.height}, .size = currentSize};
    }
    return {.origin = {.x = screenFrameNS.origin.x, .y = topNS(screenFrameNS) - ScreenTopBarHeight},
        .size = {.width = screenFrameNS.size.width, .height = currentSize.height}};
}

bool isSeenAboveItsScreen(const Rect& barFrameNS, const Rect& screenFrameNS, const std::vector<Screen>& screens) {
    const auto showsBar = [&](const Screen& screen) { return overlap(barFrameNS, screen.frameNS); };
    return barFrameNS.origin.y >= topNS(screenFrameNS) && std::ranges::any_of(screens, showsBar);
}

Rect barFrameAfterSlideNS(const Rect& barFrameNS, BarSlide slide) {
    Rect frame = barFrameNS;
    if (slide == BarSlide::In)
        frame.origin.y -= ScreenTopBarTravel;
    else if (slide == BarSlide::Out)
        frame.origin.y += ScreenTopBarTravel;
    return frame;
}

Rect hotZoneNS(const Rect& screenFrameNS, bool halfHotZone) {
    return {.origin = {.x = screenFrameNS.origin.x, .y = topNS(screenFrameNS)},
        .size = {.width = screenFrameNS.size.width * (halfHotZone ? 0.5 : 1.0), .height = 70}};
}

BarSlide barSlide(const BarSlideCheck& check) {
    if (!check.autoHides)
        return BarSlide::None;
    if (check.titleMenuIsShowing || contains(hotZoneNS(check.screenFrameNS, check.halfHotZone), check.pointerNS))
        return check.slidIn ? BarSlide::None : BarSlide::In;
    return check.slidIn && !contains(check.barFrameNS, check.pointerNS) ? BarSlide::Out : BarSlide::None;
}

ButtonDress applyStyleOnBar(std::int64_t style, const ButtonDress& dress) {
    return style == 0 ? applyStyle(style, dress) : dress;
}

BarTitle barTitle(const std::string& title, const std::string& menuTitle) {
    const bool isApplication = title == menuTitle || title == "Chrome";
    BarTitle shown{.text = title, .boldAppName = isApplication, .isLogo = title == LogoTitle};
    if (title == "Tarragon")
        shown.text += " ";
    else if (isApplication)
        shown.text += "  ";
    return shown;
}

double barTitleWidth(const BarTitle& title, double fittingWidth) {
    return title.isLogo ? 35 : fittingWidth + RoomBesideTitle;
}

double barBunchWidth(double x, double fittingWidth, std::int32_t screenWidth) {
    return std::max(fittingWidth, std::min(fittingWidth + RoomBesideTitle, screenWidth - x));
}

BarLayout layOutBar(std::int32_t screenWidth, const std::vector<double>& widths) {
    BarLayout layout;
    const float limit = static_cast<float>(std::int64_t{screenWidth} - 45) + 20;

    std::int32_t x = 0;
    for (std::size_t index = 0; index < widths.size(); ++index) {
        // A title is never less than nothing wide, so the row only grows.
        const std::int32_t next = wholePoints(x + std::max(0.0, widths[index]));
        if (limit <= static_cast<float>(next)) {
            layout.firstInBunch = index;
            break;
        }
        layout.positions.push_back(x);
        x = next;
    }
    return layout;
}

} // namespace tarragon
