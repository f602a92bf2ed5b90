// What the panel lies on and what lies on it, among other windows.
#include "DockWindow.h"
#include "PanelEndToEndTest.h"

#include <X11/keysym.h>

namespace tarragon::e2e {

class PanelStackingTest : public EveryDesktopPanelTest {
protected:
    // An application with the panel above its window.
    TestApplication& launchAt(ApplicationKind kind, const PixelRect& place) {
        TestApplication& application = launch(kind);
        EXPECT_TRUE(resizeTo(application.window(), place.width, place.height));
        EXPECT_TRUE(moveTo(application.window(), place.x, place.y));
        return application;
    }
};

TEST_P(PanelStackingTest, GoesWithTheApplicationInFrontAndCoversNoOther) {
    TestApplication& mousepad = launchAt(ApplicationKind::Mousepad, {200, 300, 700, 400});
    EXPECT_TRUE(standsAbove(mousepad.window()));
    EXPECT_TRUE(liesDirectlyOn(mousepad.window()));

    // It covers the place of the panel before.
    TestApplication& geany = launchAt(ApplicationKind::Geany, {100, 100, 800, 500});
    EXPECT_TRUE(standsAbove(geany.window()));
    EXPECT_TRUE(liesDirectlyOn(geany.window()));
    EXPECT_TRUE(panel().waitForTitles(geany.expectedTitles()));

    ASSERT_TRUE(mousepad.bringToFront());
    EXPECT_TRUE(standsAbove(mousepad.window()));
    EXPECT_TRUE(liesDirectlyOn(mousepad.window()));
    EXPECT_TRUE(panel().waitForTitles(mousepad.expectedTitles()));

    quit(mousepad);
    EXPECT_TRUE(standsAbove(geany.window()));
    EXPECT_TRUE(liesDirectlyOn(geany.window()));
}

TEST_P(PanelStackingTest, StepsBackWhileADialogIsInFront) {
    TestApplication& application = launchAt(ApplicationKind::Mousepad, {200, 300, 700, 400});
    EXPECT_TRUE(standsAbove(application.window()));
    // A fade that is under way is not turned round.
    ASSERT_TRUE(isOpaque());
    input().tap(XK_s, {XK_Control_L, XK_Shift_L});
    ASSERT_TRUE(waitUntil([&] {
        const xcb_window_t active = display().activeWindow();
        return active != application.window() && display().processOf(active) == application.identifier();
    }));
    EXPECT_TRUE(isNotSeen());
    input().tap(XK_Escape);
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == application.window(); }));
    EXPECT_TRUE(standsAbove(application.window()));
}

TEST_P(PanelStackingTest, StaysBelowWindowsThatAreAlwaysOnTop) {
    TestApplication& application = launchAt(ApplicationKind::Mousepad, {200, 300, 700, 400});
    TestApplication& terminal = launch(ApplicationKind::Terminal);
    display().setState(terminal.window(), "_NET_WM_STATE_ABOVE", true);
    ASSERT_TRUE(waitUntil([&] { return display().hasState(terminal.window(), "_NET_WM_STATE_ABOVE"); }));
    ASSERT_TRUE(moveTo(terminal.window(), 250, 200));
    ASSERT_TRUE(application.bringToFront());
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(liesDirectlyOn(application.window()));
    EXPECT_TRUE(liesBelow(terminal.window()));

    // When that one is in front, the panel lies on it and above the others.
    ASSERT_TRUE(terminal.bringToFront());
    EXPECT_TRUE(standsAbove(terminal.window()));
    EXPECT_TRUE(liesDirectlyOn(terminal.window()));
}

TEST_P(PanelStackingTest, LeavesABarOfTheDesktopAtTheTopFree) {
    TestApplication& application = launchAt(ApplicationKind::Mousepad, {200, 300, 700, 400});
    const xcb_window_t window = application.window();
    for (const int height : {22, 40}) {
        const DockWindow dock(display(), {0, 0, display().bounds().width, height});
        ASSERT_TRUE(maximize(window, true));
        ASSERT_TRUE(waitUntil([&] { return display().outerFrameOf(window).y == height; }));
        EXPECT_TRUE(standsOnTitleBarOf(window));
        EXPECT_TRUE(liesBelow(dock.window()));
        ASSERT_TRUE(maximize(window, false));
        EXPECT_TRUE(standsAbove(window));

        ASSERT_TRUE(moveTo(window, 300, height + RoomForPanel));
        EXPECT_TRUE(standsAbove(window));
        EXPECT_TRUE(liesBelow(dock.window()));
        ASSERT_TRUE(moveTo(window, 300, height + RoomForPanel - 1));
        EXPECT_TRUE(standsOnTitleBarOf(window));
        ASSERT_TRUE(moveTo(window, 200, 300));
        EXPECT_TRUE(standsAbove(window));
    }
    // Its place is free again.
    ASSERT_TRUE(moveTo(window, 200, RoomForPanel));
    EXPECT_TRUE(standsAbove(window));
}

INSTANTIATE_TEST_SUITE_P(On, PanelStackingTest, EveryDesktop, nameOfDesktop);

} // namespace tarragon::e2e
