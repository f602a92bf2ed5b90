#include "panels/rules/ScreenTopOverlap.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarragon {
namespace {

// The screen with the bar is the one at the left of the primary screen, higher by half a point.
ScreenTopOverlap windowUnderBar() {
    return {.screenTopEnabled = true,
        .barsExist = true,
        .firstBarAutoHides = false,
        .windowIsOnFirstScreen = false,
        .windowFrameCG = {{-1500.5, 10.5}, {800, 600}},
        .windowFrameNS = {{-1500.25, 469}, {800, 600}},
        .screenRectCG = {{-1600, -0.5}, {1600, 1200}},
        .focusedAppName = "Editor"};
}

TEST(WindowUnderBar, IsMovedBelowTheBar) {
    EXPECT_EQ(windowChangeBelowBar(windowUnderBar()), (WindowChange{std::nullopt, Point{-1500.25, 21.5}}));
}

TEST(WindowUnderBar, IsOneWhoseTopIsCloserToItsScreensTopThanTheBarIsHigh) {
    for (const double y : {21.0, 20.5, -0.5, -100.0}) {
        ScreenTopOverlap overlap = windowUnderBar();
        overlap.windowFrameCG.origin.y = y;
        EXPECT_EQ(windowChangeBelowBar(overlap).positionCG, (Point{-1500.25, 21.5})) << y;
    }
    for (const double y : {21.5, 22.0, 22.5, 600.0}) {
        ScreenTopOverlap overlap = windowUnderBar();
        overlap.windowFrameCG.origin.y = y;
        overlap.windowFrameCG.size.height = 1200;
        EXPECT_EQ(windowChangeBelowBar(overlap), WindowChange()) << y;
    }
}

TEST(WindowUnderBar, IsLeftAloneWithoutABarThatStaysOnItsScreen) {
    for (bool ScreenTopOverlap::*needed : {&ScreenTopOverlap::screenTopEnabled, &ScreenTopOverlap::barsExist}) {
        ScreenTopOverlap overlap = windowUnderBar();
        overlap.*needed = false;
        EXPECT_EQ(windowChangeBelowBar(overlap), WindowChange());
    }
    for (bool ScreenTopOverlap::*reason :
        {&ScreenTopOverlap::firstBarAutoHides, &ScreenTopOverlap::windowIsOnFirstScreen}) {
        ScreenTopOverlap overlap = windowUnderBar();
        overlap.*reason = true;
        EXPECT_EQ(windowChangeBelowBar(overlap), WindowChange());
    }
}

TEST(WindowUnderBar, IsShortenedWhenItFillsItsScreenButForTheBar) {
    ScreenTopOverlap overlap = windowUnderBar();
    for (const double height : {1178.0, 1178.5, 1200.0, 4000.0}) {
        overlap.windowFrameCG.size.height = height;
        EXPECT_EQ(windowChangeBelowBar(overlap), (WindowChange{Size{800, 1178}, Point{-1500.25, 21.5}})) << height;
    }
    for (const double height : {1177.5, 0.0}) {
        overlap.windowFrameCG.size.height = height;
        EXPECT_EQ(windowChangeBelowBar(overlap).size, std::nullopt) << height;
    }
}

TEST(WindowUnderBar, OfOneApplicationIsShortenedAndNotMoved) {
    ScreenTopOverlap overlap = windowUnderBar();
    overlap.focusedAppName = "Steam";
    EXPECT_EQ(windowChangeBelowBar(overlap), WindowChange());
    overlap.windowFrameCG.size.height = 1200;
    EXPECT_EQ(windowChangeBelowBar(overlap), (WindowChange{Size{800, 1178}, std::nullopt}));
}

TEST(WindowUnderBar, IsExemptByTheExactNameOfItsApplication) {
    for (const std::optional<std::string>& name : std::initializer_list<std::optional<std::string>>{
             std::nullopt, "", "steam", "Steam ", "Steam 2", "Stea", "My Steam"}) {
        ScreenTopOverlap overlap = windowUnderBar();
        overlap.focusedAppName = name;
        EXPECT_EQ(windowChangeBelowBar(overlap).positionCG, (Point{-1500.25, 21.5})) << name.value_or("none");
    }
}

TEST(WindowUnderBar, IsSetInSinglePrecision) {
    ScreenTopOverlap overlap = windowUnderBar();
    overlap.windowFrameCG = {{0.3, 10.1}, {800.1, 1200}};
    overlap.windowFrameNS.origin.x = -700.1;
    overlap.screenRectCG = {{0, 0.1}, {1600, 1200.1}};
    const WindowChange change = windowChangeBelowBar(overlap);
    ASSERT_TRUE(change.size && change.positionCG);
    EXPECT_EQ(change.size->width, 800.1F);
    EXPECT_EQ(change.size->height, static_cast<float>(1200.1 - 22));
    EXPECT_EQ(change.positionCG->x, -700.1F);
    EXPECT_EQ(change.positionCG->y, static_cast<float>(0.1 + 22));
}

TEST(WindowUnderBar, IsComparedWithItsScreenBeforeTheRounding) {
    ScreenTopOverlap overlap = windowUnderBar();
    overlap.screenRectCG.size.height = 1200.1;
    overlap.windowFrameCG.size.height = 1200.1 - 22;
    EXPECT_TRUE(windowChangeBelowBar(overlap).size);
    overlap.windowFrameCG.size.height = std::nextafter(1200.1 - 22, 0);
    EXPECT_FALSE(windowChangeBelowBar(overlap).size);
}

TEST(WindowUnderBar, IsNoLongerUnderItAfterTheChange) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        ScreenTopOverlap overlap = windowUnderBar();
        overlap.screenRectCG = random.rect(3000, 2000);
        overlap.windowFrameCG = random.rect(3000, 2000);
        overlap.windowFrameCG.origin.y = overlap.screenRectCG.origin.y + random.quarters(-30, 40);
        overlap.windowFrameCG.size.height = overlap.screenRectCG.size.height - random.quarters(0, 40);
        const double distance = overlap.windowFrameCG.origin.y - overlap.screenRectCG.origin.y;
        const double rest = overlap.screenRectCG.size.height - overlap.windowFrameCG.size.height;

        const WindowChange change = windowChangeBelowBar(overlap);
        EXPECT_EQ(change.positionCG.has_value(), distance < 22);
        EXPECT_EQ(change.size.has_value(), distance < 22 && rest <= 22);
        if (change.positionCG)
            overlap.windowFrameCG.origin = *change.positionCG;
        if (change.size)
            overlap.windowFrameCG.size = *change.size;
        EXPECT_EQ(windowChangeBelowBar(overlap), WindowChange());
    }
}

} // namespace
} // namespace tarragon
