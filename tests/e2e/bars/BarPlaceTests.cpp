// Where the bars are, on desktops of two and three monitors, and what they are to other windows.
#include "DockWindow.h"
#include "bars/BarEndToEndTest.h"

#include <vector>

namespace tarragon::e2e {

namespace {

const std::vector<std::string> HerbTitles{"Basil", "Chervil", "Dill"};

} // namespace

class BarPlaceTest : public WindowManagerBarTest { };

TEST_P(BarPlaceTest, LieAlongTheTopOfEveryMonitorButThePrimaryOne) {
    const std::vector<Arrangement> arrangements = {
        besideEachOther(0),
        besideEachOther(1),
        aboveEachOther(0),
        aboveEachOther(1),
        {{{0, 0, 600, 1200}, {600, 300, 500, 900}, {1100, 0, 500, 700}}, 1},
        {{{0, 0, 600, 1200}, {600, 300, 500, 900}, {1100, 0, 500, 700}}, 2},
    };
    launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil", "Dill"});
    for (const Arrangement& arrangement : arrangements) {
        arrange(arrangement);
        const std::vector<PixelRect> others = arrangement.others();
        EXPECT_TRUE(hasBarsOn(others));
        for (std::size_t screen = 1; screen <= others.size(); ++screen)
            EXPECT_TRUE(showsTitlesOnBar(static_cast<int>(screen), HerbTitles));
    }
}

TEST_P(BarPlaceTest, AreNotThereWithOneMonitorOrWhenSwitchedOff) {
    launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil", "Dill"});
    EXPECT_TRUE(hasNoBar());
    arrange(besideEachOther());
    EXPECT_TRUE(hasBarsOn(besideEachOther().others()));
    set("EnableScreenTop", false);
    EXPECT_TRUE(hasNoBar());
    set("EnableScreenTop", true);
    EXPECT_TRUE(hasBarsOn(besideEachOther().others()));
    display().setOneMonitor();
    EXPECT_TRUE(hasNoBar());
}

TEST_P(BarPlaceTest, AreDocksThatNeverGetTheFocusAndAreOnEveryWorkspace) {
    TestApplication& application = launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil", "Dill"});
    const Arrangement arrangement = besideEachOther();
    arrange(arrangement);
    const PixelRect monitor = arrangement.others().front();
    ASSERT_TRUE(hasBarsOn({monitor}));
    EXPECT_TRUE(bars().isDock(bars().seenOn(monitor)->identifier));
    EXPECT_EQ(display().activeWindow(), application.window());
    // Beside the titles.
    input().moveTo(monitor.x + monitor.width - 5, monitor.y + 5);
    input().click();
    EXPECT_TRUE(holdsFor(Duration(300), [&] { return display().activeWindow() == application.window(); }));
    // Also after it was hidden and shown again, which window managers take for a new window.
    display().setState(application.window(), "_NET_WM_STATE_FULLSCREEN", true);
    ASSERT_TRUE(waitUntil([&] { return bars().seen().empty(); }));
    display().setState(application.window(), "_NET_WM_STATE_FULLSCREEN", false);
    ASSERT_TRUE(hasBarsOn({monitor}));
    EXPECT_EQ(display().activeWindow(), application.window());
    display().showWorkspace(1);
    ASSERT_TRUE(waitUntil([&] { return !display().isViewable(application.window()); }));
    EXPECT_TRUE(holdsFor(Duration(600), [&] { return bars().seenOn(monitor).has_value(); }));
    display().showWorkspace(0);
    ASSERT_TRUE(waitUntil([&] { return display().isViewable(application.window()); }));
}

INSTANTIATE_TEST_SUITE_P(Under, BarPlaceTest, EveryWindowManager, nameOfWindowManager);

// What windows do about a bar.
class BarAndWindowsTest : public BarOnOutputsTest { };

TEST_P(BarAndWindowsTest, BarsLieBelowABarOfTheDesktopAndKeepWindowsBelowBoth) {
    TestApplication& application = launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil", "Dill"});
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    arrange(arrangement);
    ASSERT_TRUE(hasBarsOn({monitor}));
    const DockWindow dock(display(), {monitor.x, 0, monitor.width, 30});
    const PixelRect below{monitor.x, 30, monitor.width, BarHeight};
    const auto liesBelow = [&] { return bars().framesSeen() == std::vector{below}; };
    ASSERT_TRUE(application.bringToFront());
    launch(ApplicationKind::Titled, {"400", "300", "Basil", "Chervil", "Dill"});
    EXPECT_TRUE(waitUntil(liesBelow));
    ASSERT_TRUE(maximizeOn(application.window(), monitor));
    EXPECT_TRUE(standsAt(application.window(), monitor.x, 30 + BarHeight));
}

TEST_P(BarAndWindowsTest, AMaximisedWindowEndsBelowTheBar) {
    for (const Arrangement& arrangement : {besideEachOther(), aboveEachOther()}) {
        arrange(arrangement);
        const PixelRect monitor = arrangement.others().front();
        ASSERT_TRUE(hasBarsOn({monitor}));
        TestApplication& application = launchOnBar(HerbTitles, {monitor.x + 50, monitor.y + 100, 500, 300});
        ASSERT_TRUE(maximizeOn(application.window(), monitor));
        EXPECT_TRUE(standsAt(application.window(), monitor.x, monitor.y + BarHeight));
        EXPECT_TRUE(waitUntil([&] {
            const PixelRect frame = display().outerFrameOf(application.window());
            return frame.y + frame.height <= monitor.y + monitor.height;
        }));
        // Once and for all.
        const PixelRect frame = display().outerFrameOf(application.window());
        EXPECT_TRUE(holdsFor(Duration(1200), [&] { return display().outerFrameOf(application.window()) == frame; }));
        quit(application);
        // A bar goes to a monitor that was only moved when another application comes to the front.
        display().setOneMonitor();
        ASSERT_TRUE(hasNoBar());
    }
}

TEST_P(BarAndWindowsTest, AllBarsHideForAFullScreenWindowInFrontAndDisturbNoOther) {
    const Arrangement arrangement{{{0, 0, 600, 1200}, {600, 0, 500, 1200}, {1100, 0, 500, 1200}}, 0};
    arrange(arrangement);
    ASSERT_TRUE(hasBarsOn(arrangement.others()));
    const PixelRect monitor = arrangement.others().back();
    TestApplication& other = launchOnBar(HerbTitles, {monitor.x + 50, 200, 400, 300});
    ASSERT_TRUE(maximizeOn(other.window(), monitor));
    ASSERT_TRUE(standsAt(other.window(), monitor.x, BarHeight));
    const PixelRect frame = display().outerFrameOf(other.window());
    TestApplication& application = launchOnBar({"Fennel", "Garlic"}, {100, 300, 400, 300});
    display().setState(application.window(), "_NET_WM_STATE_FULLSCREEN", true);
    ASSERT_TRUE(waitUntil([&] { return bars().seen().empty(); }));
    EXPECT_TRUE(holdsFor(
        Duration(1200), [&] { return bars().seen().empty() && display().outerFrameOf(other.window()) == frame; }));
    display().setState(application.window(), "_NET_WM_STATE_FULLSCREEN", false);
    EXPECT_TRUE(hasBarsOn(arrangement.others()));
    EXPECT_TRUE(holdsFor(Duration(600), [&] { return display().outerFrameOf(other.window()) == frame; }));
}

// It reserves no room, so windows lie where the bar slides in.
TEST_P(BarAndWindowsTest, ABarThatHidesItselfLiesAboveAMaximisedWindow) {
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    arrange(arrangement);
    ASSERT_TRUE(hasBarsOn({monitor}));
    // The room for a panel that is always to be seen would be made below the bar.
    ASSERT_TRUE(tellSetting("TarragonAlwaysVisible", false));
    ASSERT_TRUE(tellSetting("ScreenTopAutoHide", true));
    TestApplication& application = launchOnBar(HerbTitles, {monitor.x + 50, 200, 500, 250});
    ASSERT_TRUE(hasNoBar());
    display().setMaximized(application.window(), true);
    ASSERT_TRUE(waitUntil([&] { return display().outerFrameOf(application.window()) == monitor; }));
    input().moveTo(monitor.x + 300, 0);
    ASSERT_TRUE(hasBarsOn({monitor}));
    const auto liesAboveIt = [&] {
        const auto bar = bars().seenOn(monitor);
        return bar && panel().liesAbove(bar->identifier, application.window());
    };
    EXPECT_TRUE(waitUntil(liesAboveIt));
    // Also each time that a window of the other screen is in front, and when that one lies below the maximised one.
    TestApplication& other = launchOnBar({"Fennel"}, {50, 300, 400, 250});
    for (int round = 0; round < 3; ++round) {
        display().lower(other.window());
        ASSERT_TRUE(waitUntil([&] { return panel().liesAbove(application.window(), other.window()); }));
        EXPECT_TRUE(waitUntil(liesAboveIt));
        EXPECT_TRUE(holdsFor(Duration(600), liesAboveIt));
        ASSERT_TRUE(other.bringToFront());
        ASSERT_TRUE(waitUntil([&] { return panel().liesAbove(other.window(), application.window()); }));
        EXPECT_TRUE(waitUntil(liesAboveIt));
        EXPECT_TRUE(holdsFor(Duration(600), liesAboveIt));
    }
    EXPECT_TRUE(openTitleOnBar(1, monitor, "Fennel"));
}

TEST_P(BarAndWindowsTest, OneApplicationMayLieUnderTheBar) {
    const Arrangement arrangement = aboveEachOther();
    arrange(arrangement);
    const PixelRect monitor = arrangement.others().front();
    ASSERT_TRUE(hasBarsOn({monitor}));
    TestApplication& other = launchOnBar(HerbTitles, {300, monitor.y + 200, 600, 250});
    display().moveWindow(other.window(), 300, monitor.y);
    EXPECT_TRUE(standsAt(other.window(), 300, monitor.y + BarHeight));
    quit(other);
    TestApplication& steam = launch(ApplicationKind::Titled, {"--name", "Steam", "600", "250", "Basil", "Chervil"});
    EXPECT_TRUE(showsTitlesOnBar(1, {"Basil", "Chervil"}));
    ASSERT_TRUE(moveTo(steam.window(), 300, monitor.y));
    EXPECT_TRUE(holdsFor(Duration(1200), [&] { return display().outerFrameOf(steam.window()).y == monitor.y; }));
    // It is shortened all the same.
    display().resizeWindow(steam.window(), 600, 560);
    EXPECT_TRUE(waitUntil([&] {
        const PixelRect frame = display().outerFrameOf(steam.window());
        return frame.y == monitor.y && frame.height == monitor.height - BarHeight;
    })) << display().outerFrameOf(steam.window()).height;
}

INSTANTIATE_TEST_SUITE_P(Under, BarAndWindowsTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
