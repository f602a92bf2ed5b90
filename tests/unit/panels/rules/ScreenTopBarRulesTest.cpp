#include "panels/rules/ScreenTopBarRules.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarragon {
namespace {

// Left of the primary screen; its top is at 1079.75.
constexpr Rect ScreenNS{{-1600.5, -120.5}, {1600, 1200.25}};

TEST(ScreenTopBar, HasTheWholeOfABareScreen) {
    EXPECT_EQ(barScreenFrameNS({ScreenNS, ScreenNS}), ScreenNS);
    // What the desktop has at the other edges does not concern it.
    EXPECT_EQ(barScreenFrameNS({ScreenNS, {{-1500, 0}, {1400, 1079.75}}}), ScreenNS);
}

TEST(ScreenTopBar, LeavesTheTopToWhatTheDesktopHasThere) {
    EXPECT_EQ(
        barScreenFrameNS({{{1440, 100}, {1280, 1024}}, {{1440, 130}, {1280, 964}}}), (Rect{{1440, 100}, {1280, 994}}));
}

TEST(ScreenTopBar, StaysOnAScreenWhoseVisibleFrameMakesNoSense) {
    EXPECT_EQ(barScreenFrameNS({ScreenNS, {}}), ScreenNS);
    EXPECT_EQ(barScreenFrameNS({ScreenNS, {{-1600.5, 1079.75}, {1600, 0}}}), ScreenNS);
    EXPECT_EQ(barScreenFrameNS({ScreenNS, {{-1600.5, -120.5}, {1600, 5000}}}), ScreenNS);
    EXPECT_EQ(barScreenFrameNS({ScreenNS, {{-1600.5, -900}, {1600, 200}}}), ScreenNS);
}

TEST(ScreenTopBar, IsSeenAboveItsScreenOnlyWhereAnotherOneIs) {
    constexpr Rect Own{{0, -1024}, {1280, 1024}};
    const auto isSeen = [&](const Rect& bar, const Rect& other) {
        return isSeenAboveItsScreen(bar, Own, {{other, other}, {Own, Own}});
    };
    constexpr Rect Above{{0, 0}, {1440, 900}};
    constexpr Rect Hidden{{0, 28}, {1280, 22}};
    EXPECT_TRUE(isSeen(Hidden, Above));
    EXPECT_TRUE(isSeen({{0, 0}, {1280, 22}}, Above));
    EXPECT_FALSE(isSeen({{0, -22}, {1280, 22}}, Above)); // in its place
    EXPECT_FALSE(isSeen({{0, -1}, {1280, 22}}, Above)); // on its way
    EXPECT_FALSE(isSeen(Hidden, {{1280, 0}, {1440, 900}})); // touches it at the right
    EXPECT_TRUE(isSeen(Hidden, {{1279, 0}, {1440, 900}}));
    EXPECT_FALSE(isSeen(Hidden, {{-1440, 0}, {1440, 900}}));
    EXPECT_FALSE(isSeen(Hidden, {{0, 50}, {1440, 900}})); // above a gap
    EXPECT_TRUE(isSeen(Hidden, {{0, 49}, {1440, 900}}));
    EXPECT_FALSE(isSeen(Hidden, Own)); // mirrored
    EXPECT_FALSE(isSeenAboveItsScreen(Hidden, Own, {}));
}

TEST(ScreenTopBar, IsMadeAboveItsScreen) {
    EXPECT_EQ(newBarFrameNS(ScreenNS), (Rect{{-1600.5, 1079.75}, {1600, 1200.25}}));
    EXPECT_EQ(newBarFrameNS({{1920, 0}, {1280, 1024}}), (Rect{{1920, 1024}, {1280, 1024}}));
}

TEST(ScreenTopBar, LiesAlongTheTopEdgeAndKeepsItsHeight) {
    constexpr Rect Expected{{-1600.5, 1057.75}, {1600, 22}};
    EXPECT_EQ(placedBarFrameNS(ScreenNS, {300, 22}, false, false), Expected);
    EXPECT_EQ(placedBarFrameNS(ScreenNS, {300, 22}, false, true), Expected);
    EXPECT_EQ(placedBarFrameNS(ScreenNS, {300, 22}, true, true), Expected);
    EXPECT_EQ(placedBarFrameNS(ScreenNS, {300, 30.5}, false, false), (Rect{{-1600.5, 1057.75}, {1600, 30.5}}));
}

TEST(ScreenTopBar, ThatHidesHasItsTopFiftyPointsAboveTheScreenAndKeepsItsSize) {
    EXPECT_EQ(placedBarFrameNS(ScreenNS, {1600, 22}, true, false), (Rect{{-1600.5, 1107.75}, {1600, 22}}));
    EXPECT_EQ(placedBarFrameNS(ScreenNS, {300, 30.5}, true, false), (Rect{{-1600.5, 1099.25}, {300, 30.5}}));
}

TEST(ScreenTopBar, SlidesFiftyPointsFromWhereItIs) {
    constexpr Rect Bar{{-1600.5, 7.25}, {1600, 22}};
    EXPECT_EQ(barFrameAfterSlideNS(Bar, BarSlide::None), Bar);
    EXPECT_EQ(barFrameAfterSlideNS(Bar, BarSlide::In), (Rect{{-1600.5, -42.75}, {1600, 22}}));
    EXPECT_EQ(barFrameAfterSlideNS(Bar, BarSlide::Out), (Rect{{-1600.5, 57.25}, {1600, 22}}));
}

TEST(ScreenTopBar, SlidesBetweenItsTwoPlaces) {
    RandomValues random;
    for (int round = 0; round < 1000; ++round) {
        const Rect screen = random.rect(5000, 3000);
        const Size bar{screen.size.width, 22};
        const Rect hidden = placedBarFrameNS(screen, bar, true, false);
        const Rect shown = placedBarFrameNS(screen, bar, true, true);
        EXPECT_EQ(barFrameAfterSlideNS(hidden, BarSlide::In), shown);
        EXPECT_EQ(barFrameAfterSlideNS(shown, BarSlide::Out), hidden);
        EXPECT_EQ(shown.origin.y + shown.size.height, screen.origin.y + screen.size.height);
    }
}

TEST(HotZone, BeginsAtTheScreensTopAndIsSeventyPointsHigh) {
    EXPECT_EQ(hotZoneNS(ScreenNS, false), (Rect{{-1600.5, 1079.75}, {1600, 70}}));
    EXPECT_EQ(hotZoneNS(ScreenNS, true), (Rect{{-1600.5, 1079.75}, {800, 70}}));
    EXPECT_EQ(hotZoneNS({{0, 0}, {1281, 1024}}, true), (Rect{{0, 1024}, {640.5, 70}}));
}

BarSlideCheck hiddenBar() {
    return {.autoHides = true,
        .slidIn = false,
        .titleMenuIsShowing = false,
        .halfHotZone = false,
        .pointerNS = {-1500, 500},
        .screenFrameNS = ScreenNS,
        .barFrameNS = {{-1600.5, 1107.75}, {1600, 22}}};
}

BarSlideCheck shownBar() {
    BarSlideCheck check = hiddenBar();
    check.slidIn = true;
    check.barFrameNS.origin.y = 1057.75;
    return check;
}

TEST(AutoHide, SlidesInWhereThePointerTouchesTheScreensTop) {
    struct {
        Point pointer;
        BarSlide whole;
        BarSlide half;
    } const cases[] = {
        {{-1600.5, 1079.75}, BarSlide::In, BarSlide::In},
        {{-1601, 1079.75}, BarSlide::None, BarSlide::None},
        {{-1500, 1079.5}, BarSlide::None, BarSlide::None},
        {{-1500, 1149.5}, BarSlide::In, BarSlide::In},
        {{-1500, 1149.75}, BarSlide::None, BarSlide::None},
        {{-801, 1079.75}, BarSlide::In, BarSlide::In},
        {{-800.5, 1079.75}, BarSlide::In, BarSlide::None},
        {{-1, 1079.75}, BarSlide::In, BarSlide::None},
        {{-0.5, 1079.75}, BarSlide::None, BarSlide::None},
        {{-1500, 500}, BarSlide::None, BarSlide::None},
    };
    for (const auto& c : cases) {
        BarSlideCheck check = hiddenBar();
        check.pointerNS = c.pointer;
        EXPECT_EQ(barSlide(check), c.whole) << c.pointer.x << " " << c.pointer.y;
        check.halfHotZone = true;
        EXPECT_EQ(barSlide(check), c.half) << c.pointer.x << " " << c.pointer.y;
    }
}

TEST(AutoHide, SlidesInWhileAMenuIsOpenAndStaysWhereverThePointerIs) {
    BarSlideCheck check = hiddenBar();
    check.titleMenuIsShowing = true;
    EXPECT_EQ(barSlide(check), BarSlide::In);
    check = shownBar();
    check.titleMenuIsShowing = true;
    EXPECT_EQ(barSlide(check), BarSlide::None);
}

TEST(AutoHide, SlidesOutWhenThePointerIsNeitherOnTheBarNorInTheHotZone) {
    struct {
        Point pointer;
        BarSlide slide;
    } const cases[] = {
        {{-1500, 500}, BarSlide::Out},
        {{-1500, 1057.5}, BarSlide::Out},
        {{-1500, 1057.75}, BarSlide::None},
        {{-1500, 1079.5}, BarSlide::None},
        {{-1500, 1079.75}, BarSlide::None}, // in the hot zone
        {{-1500, 1149.75}, BarSlide::Out},
        {{-1601, 1060}, BarSlide::Out},
        {{-0.5, 1060}, BarSlide::Out},
    };
    for (const auto& c : cases) {
        BarSlideCheck check = shownBar();
        check.pointerNS = c.pointer;
        EXPECT_EQ(barSlide(check), c.slide) << c.pointer.x << " " << c.pointer.y;
    }
    BarSlideCheck check = shownBar();
    check.halfHotZone = true;
    check.pointerNS = {-100, 1079.75};
    EXPECT_EQ(barSlide(check), BarSlide::Out);
}

TEST(AutoHide, NeverSlidesABarThatStays) {
    for (BarSlideCheck check : {hiddenBar(), shownBar()}) {
        check.autoHides = false;
        EXPECT_EQ(barSlide(check), BarSlide::None);
        check.pointerNS = {-1500, 1079.75};
        EXPECT_EQ(barSlide(check), BarSlide::None);
        check.titleMenuIsShowing = true;
        EXPECT_EQ(barSlide(check), BarSlide::None);
    }
}

TEST(AutoHide, KnowsOnlyTheTwoStates) {
    RandomValues random;
    int slides = 0;
    for (int round = 0; round < 20000; ++round) {
        BarSlideCheck check{.autoHides = random.truth(),
            .slidIn = random.truth(),
            .titleMenuIsShowing = random.whole(0, 9) == 0,
            .halfHotZone = random.truth(),
            .pointerNS = {random.quarters(-110, 210), random.quarters(60, 180)},
            .screenFrameNS = {{-100.25, -300}, {300, 400}},
            .barFrameNS = {{-100.25, random.truth() ? 78.0 : 128.0}, {300, 22}}};
        const double width = check.halfHotZone ? 150 : 300;
        const double x = check.pointerNS.x + 100.25;
        const double y = check.pointerNS.y - 100;
        const bool hot = x >= 0 && x < width && y >= 0 && y < 70;
        const double onBar = check.pointerNS.y - check.barFrameNS.origin.y;
        const bool on = x >= 0 && x < 300 && onBar >= 0 && onBar < 22;
        const bool wanted = hot || check.titleMenuIsShowing || (check.slidIn && on);
        BarSlide expected = BarSlide::None;
        if (check.autoHides && wanted != check.slidIn)
            expected = wanted ? BarSlide::In : BarSlide::Out;
        EXPECT_EQ(barSlide(check), expected);
        if (expected != BarSlide::None)
            ++slides;
    }
    EXPECT_GT(slides, 2000);
}

TEST(BarAlpha, IsAnotherOneOnceTheBarIsPlaced) {
    EXPECT_EQ(alphaOfNewBar(true), 0.75);
    EXPECT_EQ(alphaOfPlacedBar(true), 0.9);
    EXPECT_EQ(alphaOfNewBar(false), 1.0);
    EXPECT_EQ(alphaOfPlacedBar(false), 1.0);
}

TEST(BarStyle, IsTheMenuBarLookInsteadOfTheBorderlessOne) {
    EXPECT_EQ(buttonStyleOfBar(4), 5);
    for (const std::int64_t style : {-1, 0, 1, 2, 3, 5, 6})
        EXPECT_EQ(buttonStyleOfBar(style), style);
}

TEST(BarStyle, ChangesAButtonOnlyWhenItIsTheFirst) {
    const ButtonDress borderless = applyStyle(4, {});
    EXPECT_EQ(applyStyleOnBar(0, borderless), (ButtonDress{ButtonBezel::RoundRect, true, std::nullopt}));
    for (const std::int64_t style : {-1, 1, 2, 3, 4, 5, 6}) {
        EXPECT_EQ(applyStyleOnBar(style, {}), ButtonDress()) << style;
        EXPECT_EQ(applyStyleOnBar(style, borderless), borderless) << style;
    }
}

TEST(BarTitle, OfTheApplicationIsBoldWithTwoSpaces) {
    EXPECT_EQ(barTitle("Editor", "Editor"), (BarTitle{"Editor  ", true, false}));
    EXPECT_EQ(barTitle("Chrome", "Google Chrome"), (BarTitle{"Chrome  ", true, false}));
    EXPECT_EQ(barTitle("", ""), (BarTitle{"  ", true, false}));
}

TEST(BarTitle, OfTheProgramItselfHasOneSpace) {
    EXPECT_EQ(barTitle("Tarragon", "Editor"), (BarTitle{"Tarragon ", false, false}));
    EXPECT_EQ(barTitle("Tarragon", "Tarragon"), (BarTitle{"Tarragon ", true, false}));
}

TEST(BarTitle, OfTheSystemIsTheLogo) {
    EXPECT_EQ(barTitle("\xEF\xA3\xBF", "Editor"), (BarTitle{"\xEF\xA3\xBF", false, true}));
    EXPECT_EQ(barTitle("\xEF\xA3\xBF ", "Editor"), (BarTitle{"\xEF\xA3\xBF ", false, false}));
}

TEST(BarTitle, IsElseAsItIs) {
    for (const char* title :
        {"File", "editor", "Editor ", "chrome", "Google Chrome", "Chromes", "tarragon", "Tarragon ", "My Tarragon", ""})
        EXPECT_EQ(barTitle(title, "Editor"), (BarTitle{title, false, false})) << title;
}

TEST(BarTitle, IsSixteenPointsWiderThanItsTextAndTheLogoAlways35) {
    EXPECT_EQ(barTitleWidth(barTitle("File", "Editor"), 30.5), 46.5);
    EXPECT_EQ(barTitleWidth(barTitle("Editor", "Editor"), 0), 16);
    EXPECT_EQ(barTitleWidth(barTitle("\xEF\xA3\xBF", "Editor"), 30.5), 35);
}

TEST(BarTitle, OfTheBunchIsAsWideAsOthersWhereThereIsRoom) {
    EXPECT_EQ(barBunchWidth(100, 10, 700), 26);
    EXPECT_EQ(barBunchWidth(674, 10, 700), 26);
    EXPECT_EQ(barBunchWidth(680, 10, 700), 20);
    EXPECT_EQ(barBunchWidth(695, 10, 700), 10);
    EXPECT_EQ(barBunchWidth(5, 10, 0), 10);
}

TEST(BarLayout, PutsTitlesBesideEachOtherWithoutAGap) {
    EXPECT_EQ(layOutBar(1000, {35, 46.5, 60.75, 20}), (BarLayout{{0, 35, 81, 141}, std::nullopt}));
    EXPECT_EQ(layOutBar(1000, {}), (BarLayout{{}, std::nullopt}));
}

TEST(BarLayout, PutsATitleThatReachesTheLimitIntoTheBunch) {
    // The limit is 1000 - 45 and 20 points more.
    EXPECT_EQ(layOutBar(1000, {974.9}), (BarLayout{{0}, std::nullopt}));
    EXPECT_EQ(layOutBar(1000, {975}), (BarLayout{{}, 0}));
    EXPECT_EQ(layOutBar(1000, {500, 475, 0}), (BarLayout{{0}, 1}));
    EXPECT_EQ(layOutBar(1000, {500, 474.5, 0, 1}), (BarLayout{{0, 500, 974}, 3}));
}

TEST(BarLayout, OfAScreenWithoutWidthHasNoRoomForATitle) {
    for (const std::int32_t width : {25, 0, -1, std::numeric_limits<std::int32_t>::min()})
        EXPECT_EQ(layOutBar(width, {0, 40}), (BarLayout{{}, 0})) << width;
    EXPECT_EQ(layOutBar(26, {0, 40}), (BarLayout{{0}, 1}));
}

TEST(BarLayout, HoldsTwoHundredTitlesOnAScreenOfThirtyThousandPoints) {
    const std::vector<double> widths(200, 100.5);
    const BarLayout layout = layOutBar(30000, widths);
    EXPECT_EQ(layout.firstInBunch, std::nullopt);
    EXPECT_EQ(layout.positions.back(), 19900);
    EXPECT_EQ(layOutBar(1920, widths).firstInBunch, 18U);
}

TEST(BarLayout, ComparesInSinglePrecision) {
    // 16777217 and 16777216 are the same there, so that a title which reaches the latter reaches the former.
    EXPECT_EQ(layOutBar(16777217 + 25, {16777216}).firstInBunch, 0U);
    EXPECT_EQ(layOutBar(16777217 + 25, {16777215}).firstInBunch, std::nullopt);
}

TEST(BarLayout, EndsWithTheRangeForTitlesOfHugeWidth) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    for (const double width : {2147483640.0, 1e10, 1e300, Infinity}) {
        EXPECT_EQ(layOutBar(1000, {40, width, width, 40}), (BarLayout{{0}, 1})) << width;
        EXPECT_EQ(layOutBar(std::numeric_limits<std::int32_t>::max(), {40, width, width}), (BarLayout{{0}, 1}))
            << width;
    }
}

TEST(BarLayout, CountsAWidthBelowZeroAsNone) {
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double width : {-0.5, -40.0, -1e300, NotANumber})
        EXPECT_EQ(layOutBar(1000, {40, width, 40}), (BarLayout{{0, 40, 40}, std::nullopt})) << width;
}

TEST(BarLayout, FillsTheScreenUpToTheFirstTitleThatIsTooMuch) {
    RandomValues random;
    int bunches = 0;
    for (int round = 0; round < 10000; ++round) {
        const auto screenWidth = static_cast<std::int32_t>(random.whole(0, 2000));
        std::vector<double> widths(static_cast<std::size_t>(random.whole(0, 20)));
        for (double& width : widths)
            width = random.quarters(0, 150);
        std::vector<double> edges{0};
        for (const double width : widths)
            edges.push_back(std::floor(edges.back() + width));
        BarLayout expected;
        for (std::size_t index = 0; index < widths.size() && !expected.firstInBunch; ++index) {
            if (edges[index + 1] >= screenWidth - 25)
                expected.firstInBunch = index;
            else
                expected.positions.push_back(static_cast<std::int32_t>(edges[index]));
        }
        EXPECT_EQ(layOutBar(screenWidth, widths), expected);
        if (expected.firstInBunch)
            ++bunches;
    }
    EXPECT_GT(bunches, 2000);
    EXPECT_LT(bunches, 9000);
}

} // namespace
} // namespace tarragon
