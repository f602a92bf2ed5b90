#include "panels/rules/PanelPlacement.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tarragon {
namespace {

constexpr auto OnTitleBar = PanelPlace::OnTitleBar;
constexpr auto AboveWindow = PanelPlace::AboveWindow;

// The primary screen at the right, 1920 x 1080; the other one at its left, lower by half a point and with 1200 points.

TEST(ScreenRectMemory, AnswersTheLastGoodRectangleForOneNoMoreThanAPointHigh) {
    constexpr Rect Good{{-1600, 30}, {1600, 1170}};
    for (const double height : {1.0, 0.5, 0.0, -3.0}) {
        ScreenRectMemory memory;
        EXPECT_EQ(memory.rectToUse(Good), Good);
        EXPECT_EQ(memory.rectToUse({{5, 5}, {100, height}}), Good) << height;
        EXPECT_EQ(memory.lastGood(), Good) << height;
    }
}

TEST(ScreenRectMemory, KeepsARectangleThatIsHigherThanAPoint) {
    ScreenRectMemory memory;
    constexpr Rect Low{{5, 5}, {100, 1.5}};
    EXPECT_EQ(memory.rectToUse(Low), Low);
    EXPECT_EQ(memory.rectToUse({}), Low);
}

TEST(ScreenRectMemory, UsesARectangleAtTheVeryTopWithoutKeepingIt) {
    ScreenRectMemory memory;
    constexpr Rect Good{{0, 30}, {1920, 1050}};
    constexpr Rect AtTop{{-1600, 0}, {1600, 1200}};
    EXPECT_EQ(memory.rectToUse(Good), Good);
    EXPECT_EQ(memory.rectToUse(AtTop), AtTop);
    EXPECT_EQ(memory.rectToUse({}), Good);
}

TEST(ScreenRectMemory, KeepsARectangleHalfAPointFromTheTopOnEitherSide) {
    for (const double y : {0.5, -0.5, -1200.0}) {
        ScreenRectMemory memory;
        const Rect good{{0, y}, {1920, 1050}};
        EXPECT_EQ(memory.rectToUse(good), good);
        EXPECT_EQ(memory.rectToUse({}), good) << y;
    }
}

TEST(ScreenRectMemory, AnswersTheRectangleThatItStartedWithUntilItHasSeenAGoodOne) {
    constexpr Rect Start{{0, 0}, {1920, 1080}};
    ScreenRectMemory memory(Start);
    EXPECT_EQ(memory.lastGood(), Start);
    EXPECT_EQ(memory.rectToUse({}), Start);
    EXPECT_EQ(ScreenRectMemory().rectToUse({}), Rect());
}

TEST(ScreenRectMemory, AnswersTheLatestOfAllThatWereWorthKeeping) {
    RandomValues random;
    std::vector<Rect> kept{Rect()};
    ScreenRectMemory memory;
    for (int round = 0; round < 5000; ++round) {
        Rect rect = random.rect(100, 100);
        rect.origin.y = random.quarters(-1, 1);
        rect.size.height = random.quarters(0, 3);
        const bool usable = rect.size.height > 1;
        EXPECT_EQ(memory.rectToUse(rect), usable ? rect : kept.back());
        if (usable && (rect.origin.y < 0 || rect.origin.y > 0))
            kept.push_back(rect);
        EXPECT_EQ(memory.lastGood(), kept.back());
    }
    EXPECT_GT(kept.size(), 1000U);
}

struct PlaceCase {
    double screenTop;
    double windowTop;
    PanelPlace place;
};

TEST(PanelPlace, IsOnTheTitleBarOfAWindowLessThan23PointsBelowTheTop) {
    for (const PlaceCase& c : std::initializer_list<PlaceCase>{
             {0, 0, OnTitleBar},
             {0, 22.5, OnTitleBar},
             {0, 22.9, OnTitleBar},
             {0, 23, AboveWindow},
             {0, 23.5, AboveWindow},
             // Below a bar of the desktop.
             {30, 30, OnTitleBar},
             {30, 52.5, OnTitleBar},
             {30, 53, AboveWindow},
             {-120.5, -98, OnTitleBar},
             {-120.5, -97.5, AboveWindow},
             {-120.5, -200, OnTitleBar},
             {1080.5, 1103, OnTitleBar},
             {1080.5, 1103.5, AboveWindow},
         }) {
        const Rect window{{-700.5, c.windowTop}, {800, 600}};
        const Rect screen{{-1600, c.screenTop}, {1600, 1200}};
        EXPECT_EQ(panelPlace(window, screen, false), c.place) << c.screenTop << " " << c.windowTop;
        EXPECT_EQ(panelPlace(window, screen, true), OnTitleBar) << c.screenTop << " " << c.windowTop;
    }
}

TEST(PanelPlace, IsThatOfTheDistanceToTheScreensTop) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        const Rect screen = random.rect(3000, 2000);
        Rect window = random.rect(3000, 2000);
        window.origin.y = screen.origin.y + random.quarters(-10, 60);
        const bool always = random.truth();
        const double distance = window.origin.y - screen.origin.y;
        EXPECT_EQ(panelPlace(window, screen, always), !always && distance >= 23 ? AboveWindow : OnTitleBar);
    }
}

struct TopLeftCase {
    PanelPlace place;
    bool horizontal;
    Point windowPositionCG;
    Point topLeftNS;
};

TEST(PanelTopLeft, IsFixedPointsFromTheWindowsTopLeft) {
    for (const TopLeftCase& c : std::initializer_list<TopLeftCase>{
             {OnTitleBar, false, {100, 10}, {168, 1075}},
             {OnTitleBar, true, {100, 10}, {168, 1070}},
             {AboveWindow, false, {100, 200}, {100, 907}},
             {AboveWindow, true, {100, 200}, {100, 904}},
             {OnTitleBar, false, {-1600.5, -0.5}, {-1532.5, 1085.5}},
             {OnTitleBar, true, {-1600.5, -0.5}, {-1532.5, 1080.5}},
             {AboveWindow, false, {-700.25, 1150.5}, {-700.25, -43.5}},
             {AboveWindow, true, {-700.25, 1150.5}, {-700.25, -46.5}},
         })
        EXPECT_EQ(panelTopLeftNS(c.place, c.horizontal, c.windowPositionCG, 1080), c.topLeftNS);
}

TEST(PanelTopLeft, FollowsTheWindowPointByPoint) {
    RandomValues random;
    for (int round = 0; round < 2000; ++round) {
        const PanelPlace place = random.truth() ? OnTitleBar : AboveWindow;
        const bool horizontal = random.truth();
        const double height = random.quarters(0, 4000);
        const Point window{random.quarters(-9000, 9000), random.quarters(-9000, 9000)};
        const Point atOrigin = panelTopLeftNS(place, horizontal, {}, 0);
        const Point topLeft = panelTopLeftNS(place, horizontal, window, height);
        EXPECT_EQ(topLeft, (Point{atOrigin.x + window.x, atOrigin.y + height - window.y}));
    }
}

TEST(ButtonStyleInPlace, OnTheTitleBarIsTheOwnOneOfAHorizontalPanel) {
    for (std::int64_t style = -1; style <= 7; ++style) {
        EXPECT_EQ(buttonStyleInPlace(OnTitleBar, true, style), (PanelButtonStyle{style, false})) << style;
        EXPECT_EQ(buttonStyleInPlace(OnTitleBar, false, style), std::nullopt) << style;
    }
}

TEST(ButtonStyleInPlace, AboveAWindowReplacesTheBorderlessOneOfAVerticalPanelAndThePreference) {
    EXPECT_EQ(buttonStyleInPlace(AboveWindow, false, 4), (PanelButtonStyle{0, true}));
    for (const std::int64_t style : {-1, 0, 1, 2, 3, 5, 6})
        EXPECT_EQ(buttonStyleInPlace(AboveWindow, false, style), std::nullopt) << style;
}

TEST(ButtonStyleInPlace, AboveAWindowReplacesTheBorderlessOneOfAHorizontalPanelAndLeavesThePreference) {
    EXPECT_EQ(buttonStyleInPlace(AboveWindow, true, 4), (PanelButtonStyle{3, false}));
    for (const std::int64_t style : {-1, 0, 1, 2, 3, 5, 6})
        EXPECT_EQ(buttonStyleInPlace(AboveWindow, true, style), (PanelButtonStyle{style, false})) << style;
}

struct CreationCase {
    Point windowPositionCG;
    double screenHeight;
    bool tarragonAlwaysRight;
    bool besideButtons;
};

// The screen that the creation goes by is 1200 points high and the primary one 1080.
const std::initializer_list<CreationCase> CreationCases{
    {{100, 25}, 1200, false, false},
    {{100, 25.5}, 1200, false, false},
    {{100, 24}, 1200, false, true},
    {{100, 24.5}, 1200, false, false}, // the fraction is cut off
    {{100, 24.5}, 1200.5, false, true}, // 1201 > 1200.5
    {{100, 25}, 1200.5, false, false},
    {{-700.5, -30}, 1200, false, true},
    {{-700.5, 0}, 1200, false, true},
    {{-700.5, 400.5}, 1200, false, false},
    {{-700.5, 400.5}, 1200, true, true},
    {{-700.5, 3000}, 1200, false, false},
    {{100, 25}, 1200, true, true},
    {{100, 24}, 1200, true, true},
};

TEST(NewVerticalPanel, LiesBesideTheButtonsOfAWindowAtTheTopAndElseAboveTheWindow) {
    for (const CreationCase& c : CreationCases) {
        const Point window = c.windowPositionCG;
        const Rect expected =
            c.besideButtons ? Rect{{window.x + 68, 1081}, {56, 26}} : Rect{{window.x, 1080 - window.y + 23}, {56, 25}};
        EXPECT_EQ(verticalPanelFrameNS(window, c.screenHeight, 1080, c.tarragonAlwaysRight), expected)
            << window.y << " " << c.screenHeight;
    }
}

TEST(NewHorizontalPanel, LiesBesideTheButtonsOfAWindowAtTheTopAndElseAboveTheWindow) {
    for (const CreationCase& c : CreationCases) {
        const Point window = c.windowPositionCG;
        const Point origin = c.besideButtons ? Point{window.x + 68, 1081} : Point{window.x, 1080 - window.y + 23};
        EXPECT_EQ(horizontalPanelRect(window, c.screenHeight, 1080, c.tarragonAlwaysRight), (Rect{origin, {0, 25}}))
            << window.y << " " << c.screenHeight;
    }
}

TEST(NewPanel, IsAtTheSamePlaceInBothForms) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        const Point window{random.quarters(-9000, 9000), random.quarters(-30, 60)};
        const auto screenHeight = static_cast<double>(random.whole(600, 4000));
        const auto primaryHeight = static_cast<double>(random.whole(600, 4000));
        const bool always = random.truth();
        const Rect vertical = verticalPanelFrameNS(window, screenHeight, primaryHeight, always);
        EXPECT_EQ(vertical.origin, horizontalPanelRect(window, screenHeight, primaryHeight, always).origin);
        // With screens of whole points the cut-off fraction is that of the window's place.
        const bool beside = always || std::ceil(window.y) < 25;
        EXPECT_EQ(vertical.size, (Size{56, beside ? 26.0 : 25.0})) << window.y;
    }
}

TEST(Conversion, TurnsARectangleUpsideDownAtTheGivenHeight) {
    EXPECT_EQ(convertCGtoNSRectCoords({{10, 100}, {200, 50}}, 900), (Rect{{10, 750}, {200, 50}}));
    EXPECT_EQ(convertNSToCGRectCoords({{10, 750}, {200, 50}}, 900), (Rect{{10, 100}, {200, 50}}));
    EXPECT_EQ(
        convertCGtoNSRectCoords({{-1600.5, -120.5}, {1600, 1200.25}}, 1080), (Rect{{-1600.5, 0.25}, {1600, 1200.25}}));
    EXPECT_EQ(
        convertNSToCGRectCoords({{-1600.5, 0.25}, {1600, 1200.25}}, 1080), (Rect{{-1600.5, -120.5}, {1600, 1200.25}}));
}

TEST(Conversion, RoundsTheGivenHeightAloneToSinglePrecision) {
    // Between 16777216 and 16777218 there is no value of single precision.
    constexpr double Height = 16777217;
    constexpr double Rounded = 16777216;
    EXPECT_EQ(convertCGtoNSRectCoords({{0.1, 0}, {0.3, 50}}, Height), (Rect{{0.1, Rounded - 50}, {0.3, 50}}));
    EXPECT_EQ(convertNSToCGRectCoords({{0.1, 0}, {0.3, 50}}, Height), (Rect{{0.1, Rounded - 50}, {0.3, 50}}));

    constexpr double Tenth = 1080.1;
    const double roundedTenth = static_cast<float>(Tenth);
    ASSERT_NE(roundedTenth, Tenth);
    EXPECT_EQ(convertCGtoNSRectCoords({{0, 0.7}, {1, 0.2}}, Tenth).origin.y, roundedTenth - (0.7 + 0.2));
    EXPECT_EQ(convertNSToCGRectCoords({{0, 0.7}, {1, 0.2}}, Tenth).origin.y, roundedTenth - (0.7 + 0.2));
}

TEST(Conversion, LeadsBackWhereBothHeightsAreTheSame) {
    RandomValues random;
    for (int round = 0; round < 2000; ++round) {
        const Rect rect = random.rect(9000, 9000);
        const double height = random.quarters(0, 9000);
        EXPECT_EQ(convertNSToCGRectCoords(convertCGtoNSRectCoords(rect, height), height), rect);
        // With different heights the difference stays.
        Rect moved = rect;
        moved.origin.y += 7;
        EXPECT_EQ(convertNSToCGRectCoords(convertCGtoNSRectCoords(rect, height), height + 7), moved);
    }
}

struct WindowOnTitleBar {
    Rect frameCG{{-700.5, 10.5}, {800, 600}};
    Rect frameNS{{-700.25, 470}, {800, 600}};
    Rect screenCG{{-1600, 0}, {1600, 1200}};
    bool tarragonAlwaysRight = false;
    bool tarragonAlwaysVisible = true;
    bool screenTopEnabledWithAutohide = true;

    WindowChange change() const {
        return windowChangeOnTitleBar(
            frameCG, frameNS, screenCG, tarragonAlwaysRight, tarragonAlwaysVisible, screenTopEnabledWithAutohide);
    }
};

TEST(WindowOnTitleBar, IsMovedDownFromUnderAHidingBar) {
    EXPECT_EQ(WindowOnTitleBar().change(), (WindowChange{std::nullopt, Point{-700.25, 33.5}}));
}

TEST(WindowOnTitleBar, IsLeftAloneUnlessThePanelStaysAboveItAndTheBarHides) {
    for (const double height : {600.0, 1200.0}) {
        WindowOnTitleBar window;
        window.frameCG.size.height = height;
        window.tarragonAlwaysRight = true;
        EXPECT_EQ(window.change(), WindowChange());
        window = {};
        window.frameCG.size.height = height;
        window.tarragonAlwaysVisible = false;
        EXPECT_EQ(window.change(), WindowChange());
        window = {};
        window.frameCG.size.height = height;
        window.screenTopEnabledWithAutohide = false;
        EXPECT_EQ(window.change(), WindowChange());
    }
}

TEST(WindowOnTitleBar, IsShortenedWhenItFillsItsScreenButForTheBar) {
    WindowOnTitleBar window;
    for (const double height : {1177.0, 1177.5, 1200.0, 5000.0}) {
        window.frameCG.size.height = height;
        EXPECT_EQ(window.change(), (WindowChange{Size{800, 1177}, Point{-700.25, 33.5}})) << height;
    }
    for (const double height : {1176.5, 1.0, 0.0}) {
        window.frameCG.size.height = height;
        EXPECT_EQ(window.change(), (WindowChange{std::nullopt, Point{-700.25, 33.5}})) << height;
    }
}

TEST(WindowOnTitleBar, IsSetInSinglePrecision) {
    WindowOnTitleBar window;
    window.frameCG = {{0.3, 10.1}, {800.1, 1200}};
    window.frameNS.origin.x = -700.1;
    window.screenCG.size.height = 1200.1;
    const WindowChange change = window.change();
    ASSERT_TRUE(change.size && change.positionCG);
    EXPECT_EQ(change.size->width, 800.1F);
    EXPECT_EQ(change.size->height, static_cast<float>(1200.1 - 23));
    EXPECT_EQ(change.positionCG->x, -700.1F);
    EXPECT_EQ(change.positionCG->y, static_cast<float>(10.1 + 23));
}

TEST(WindowOnTitleBar, IsComparedWithItsScreenBeforeTheRounding) {
    WindowOnTitleBar window;
    // The room is rounded up past the window's height, which yet fills it.
    window.screenCG.size.height = 1200.1;
    window.frameCG.size.height = 1200.1 - 23;
    EXPECT_TRUE(window.change().size);
    window.frameCG.size.height = std::nextafter(1200.1 - 23, 0);
    EXPECT_FALSE(window.change().size);
}

TEST(WindowOnTitleBar, IsMovedByTwentyThreePointsAndShortenedToWhatIsLeft) {
    RandomValues random;
    int shortened = 0;
    for (int round = 0; round < 5000; ++round) {
        WindowOnTitleBar window{.frameCG = random.rect(3000, 2000),
            .frameNS = random.rect(3000, 2000),
            .screenCG = random.rect(3000, 2000),
            .tarragonAlwaysRight = random.truth(),
            .tarragonAlwaysVisible = random.truth(),
            .screenTopEnabledWithAutohide = random.truth()};
        const double rest = random.quarters(-10, 60);
        window.frameCG.size.height = window.screenCG.size.height - rest;

        WindowChange expected;
        if (!window.tarragonAlwaysRight && window.tarragonAlwaysVisible) {
            if (window.screenTopEnabledWithAutohide)
                expected.positionCG = Point{window.frameNS.origin.x, window.frameCG.origin.y + 23};
            if (window.screenTopEnabledWithAutohide && rest <= 23)
                expected.size = Size{window.frameCG.size.width, window.frameCG.size.height + rest - 23};
        }
        EXPECT_EQ(window.change(), expected) << rest;
        if (expected.size)
            ++shortened;
    }
    EXPECT_GT(shortened, 100);
}

} // namespace
} // namespace tarragon
