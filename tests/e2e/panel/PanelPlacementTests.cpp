// Where the panel stands beside the window in front, to the pixel, and when there is none.
#include "PanelEndToEndTest.h"

#include <algorithm>

namespace tarragon::e2e {

class PanelPlacementTest : public PanelEndToEndTest,
                           public testing::WithParamInterface<std::tuple<WindowManager, Compositor, ApplicationKind>> {
protected:
    PanelPlacementTest()
        : PanelEndToEndTest(std::get<0>(GetParam()), std::get<1>(GetParam())) { }

    // An application whose window has room above it, with the panel there.
    TestApplication& launchWithPanel() {
        TestApplication& application = launch(std::get<2>(GetParam()));
        EXPECT_TRUE(resizeTo(application.window(), 900, 500));
        EXPECT_TRUE(moveTo(application.window(), 300, 200));
        EXPECT_TRUE(standsAbove(application.window()));
        return application;
    }
};

TEST_P(PanelPlacementTest, FollowsTheWindowWhereverItGoesAndWhateverItsSize) {
    TestApplication& application = launchWithPanel();
    const xcb_window_t window = application.window();
    const std::vector<std::string> titles = application.expectedTitles();
    EXPECT_TRUE(panel().waitForTitles(titles));

    // The last place with room for it, and the first without.
    ASSERT_TRUE(moveTo(window, 411, RoomForPanel));
    EXPECT_TRUE(standsAbove(window));
    ASSERT_TRUE(moveTo(window, 411, RoomForPanel - 1));
    EXPECT_TRUE(standsOnTitleBarOf(window));
    ASSERT_TRUE(moveTo(window, 37, 433));
    EXPECT_TRUE(standsAbove(window));

    // With all titles in it, some of them, and all again.
    const std::vector<std::string> all = panel().titleTexts();
    EXPECT_FALSE(std::ranges::count(all, Panel::OverflowTitle));
    display().resizeWindow(window, 1, 400);
    ASSERT_TRUE(waitUntil([&] { return display().frameOf(window).height == 400; }));
    EXPECT_TRUE(standsAbove(window));
    if (display().frameOf(window).width < 400) {
        EXPECT_TRUE(waitUntil([&] { return panel().titleTexts().back() == Panel::OverflowTitle; }));
        EXPECT_LT(panel().titleTexts().size(), all.size() + 1);
    }
    ASSERT_TRUE(resizeTo(window, 1000, 400));
    EXPECT_TRUE(standsAbove(window));
    EXPECT_TRUE(waitUntil([&] { return panel().titleTexts() == all; }));

    ASSERT_TRUE(maximize(window, true));
    EXPECT_TRUE(standsOnTitleBarOf(window));
    ASSERT_TRUE(maximize(window, false));
    EXPECT_TRUE(standsAbove(window));
}

TEST_P(PanelPlacementTest, IsNotSeenWithoutAWindowToStandAt) {
    TestApplication& application = launchWithPanel();
    const xcb_window_t window = application.window();

    ASSERT_TRUE(setFullScreen(window, true));
    EXPECT_TRUE(isNotSeen());
    ASSERT_TRUE(setFullScreen(window, false));
    EXPECT_TRUE(standsAbove(window));

    display().minimize(window);
    EXPECT_TRUE(isNotSeen());
    ASSERT_TRUE(application.bringToFront());
    EXPECT_TRUE(standsAbove(window));

    display().showWorkspace(1);
    EXPECT_TRUE(isNotSeen());
    display().showWorkspace(0);
    EXPECT_TRUE(standsAbove(window));

    quit(application);
    EXPECT_TRUE(isNotSeen());
}

INSTANTIATE_TEST_SUITE_P(Over, PanelPlacementTest,
    testing::Combine(testing::Values(WindowManager::Openbox, WindowManager::Xfwm4),
        testing::Values(Compositor::Off, Compositor::On), EveryApplication),
    [](const auto& information) {
        return nameOfKindOfDesktop(std::get<0>(information.param), std::get<1>(information.param)) + "_"
            + nameOf(std::get<2>(information.param));
    });

} // namespace tarragon::e2e
