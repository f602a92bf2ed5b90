// Where the panel stands on a desktop of several monitors, and on which of them it is seen.
#include "PanelEndToEndTest.h"

#include <vector>

namespace tarragon::e2e {

class PanelScreensTest : public WindowManagerPanelTest {
protected:
    // A panel steps back for a bar at the top of its screen.
    void SetUp() override {
        WindowManagerPanelTest::SetUp();
        set("EnableScreenTop", false);
    }
    void TearDown() override {
        display().setOneMonitor();
        WindowManagerPanelTest::TearDown();
    }

    TestApplication& launchWithPanel() {
        TestApplication& application = launch(ApplicationKind::Mousepad);
        EXPECT_TRUE(resizeTo(application.window(), 600, 300));
        EXPECT_TRUE(moveTo(application.window(), 100, 400));
        EXPECT_TRUE(standsAbove(application.window()));
        return application;
    }
    // The panel keeps to the top of the monitor that the window is on.
    void expectRoomAtTopOf(const PixelRect& monitor, xcb_window_t window) {
        const int x = monitor.x + 50;
        ASSERT_TRUE(moveTo(window, x, monitor.y + 250));
        EXPECT_TRUE(standsAbove(window));
        ASSERT_TRUE(moveTo(window, x, monitor.y + RoomForPanel));
        EXPECT_TRUE(standsAbove(window));
        ASSERT_TRUE(moveTo(window, x, monitor.y + RoomForPanel - 1));
        EXPECT_TRUE(standsOnTitleBarOf(window));
    }
};

TEST_P(PanelScreensTest, StandsByTheTopOfTheMonitorWhereverThatLies) {
    struct Arrangement {
        std::vector<PixelRect> monitors;
        std::size_t primary = 0;
    };
    // The corner of the coordinates that panels go by is that of the primary monitor.
    const std::vector<Arrangement> arrangements = {
        {{{0, 0, 800, 1200}, {800, 300, 800, 900}}, 0},
        {{{0, 300, 800, 900}, {800, 0, 800, 1200}}, 1},
        {{{0, 0, 1600, 600}, {0, 600, 1600, 600}}, 1},
    };
    TestApplication& application = launchWithPanel();
    for (const Arrangement& arrangement : arrangements) {
        display().setMonitors(arrangement.monitors, arrangement.primary);
        for (const PixelRect& monitor : arrangement.monitors)
            expectRoomAtTopOf(monitor, application.window());
    }
}

TEST_P(PanelScreensTest, IsNotSeenOnThePrimaryMonitorWhenTheUserWantsThat) {
    for (const std::size_t primary : {0U, 1U}) {
        const int onPrimary = primary == 0 ? 100 : 900;
        const int onOther = primary == 0 ? 900 : 100;
        display().setMonitors({{0, 0, 800, 1200}, {800, 0, 800, 1200}}, primary);
        TestApplication& application = launchWithPanel();
        ASSERT_TRUE(moveTo(application.window(), onPrimary, 400));
        EXPECT_TRUE(standsAbove(application.window()));
        set("ShowOnPrimaryScreen", false);
        EXPECT_TRUE(isNotSeen());
        ASSERT_TRUE(moveTo(application.window(), onOther, 400));
        EXPECT_TRUE(standsAbove(application.window()));
        ASSERT_TRUE(moveTo(application.window(), onPrimary, 400));
        EXPECT_TRUE(isNotSeen());
        set("ShowOnPrimaryScreen", true);
        EXPECT_TRUE(standsAbove(application.window()));
        quit(application);
    }
}

TEST_P(PanelScreensTest, FadesAtTheVeryTopOfThePrimaryMonitorWhenTheUserWantsThat) {
    display().setMonitors({{0, 0, 800, 1200}, {800, 0, 800, 1200}}, 0);
    TestApplication& application = launchWithPanel();
    const xcb_window_t window = application.window();
    set("HideOnPrimaryTopEdge", true);
    ASSERT_TRUE(moveTo(window, 100, 1));
    EXPECT_TRUE(standsOnTitleBarOf(window));
    ASSERT_TRUE(moveTo(window, 100, 0));
    EXPECT_TRUE(isNotSeen());
    // Titles that are laid out anew are shown.
    ASSERT_TRUE(moveTo(window, 100, 300));
    ASSERT_TRUE(resizeTo(window, 610, 300));
    EXPECT_TRUE(standsAbove(window));
    // The other monitor's edge is no concern of it.
    ASSERT_TRUE(moveTo(window, 900, 0));
    EXPECT_TRUE(standsOnTitleBarOf(window));
}

TEST_P(PanelScreensTest, StaysWithTheWindowWhenItsMonitorGoes) {
    display().setMonitors({{0, 0, 800, 1200}, {800, 300, 800, 900}}, 0);
    TestApplication& application = launchWithPanel();
    const xcb_window_t window = application.window();
    // Without room above it on the one monitor, with room when that is gone.
    ASSERT_TRUE(moveTo(window, 850, 310));
    EXPECT_TRUE(standsOnTitleBarOf(window));
    display().setOneMonitor();
    const auto standsByTheWholeScreen = [&] {
        return display().outerFrameOf(window).y < RoomForPanel ? standsOnTitleBarOf(window) : standsAbove(window);
    };
    EXPECT_TRUE(standsByTheWholeScreen());
    ASSERT_TRUE(moveTo(window, 850, 310));
    EXPECT_TRUE(standsAbove(window));
    EXPECT_TRUE(liesDirectlyOn(window));
}

INSTANTIATE_TEST_SUITE_P(Under, PanelScreensTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
