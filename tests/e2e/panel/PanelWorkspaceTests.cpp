// The panel of an application whose windows are on some workspaces and not on others, while the preferences, which are
// on all of them, are in front.
#include "PanelUseEndToEndTest.h"
#include "preferences/PreferencesWindow.h"

#include <vector>

namespace tarragon::e2e {

class PanelWorkspaceTest : public WindowManagerPanelUseTest {
protected:
    void TearDown() override {
        display().showWorkspace(0);
        EXPECT_TRUE(waitUntil([&] { return display().workspace() == 0; }));
        EXPECT_TRUE(preferences().close());
        WindowManagerPanelUseTest::TearDown();
    }
    PreferencesWindow preferences() { return {desktop(), agent().identifier()}; }
    // In front of the application whose menus the panel has.
    bool openPreferences() {
        if (!preferences().open())
            return false;
        _preferences = preferences().windows().at(0);
        return moveTo(_preferences, 700, 350);
    }
    // Window managers give the focus to a window of the workspace that they show, and some a little later than they
    // tell that they show it.
    bool bringPreferencesToFront() {
        const auto areInFront = [&] { return display().activeWindow() == _preferences; };
        return waitUntil([&] {
            if (!areInFront())
                display().activate(_preferences);
            return holdsFor(Duration(100), areInFront);
        });
    }
    // With the preferences in front there as well.
    testing::AssertionResult goTo(std::uint32_t workspace) {
        display().showWorkspace(workspace);
        if (!waitUntil([&] { return display().workspace() == workspace && display().isViewable(_preferences); }))
            return testing::AssertionFailure() << "workspace " << workspace << " is not shown";
        if (!bringPreferencesToFront())
            return testing::AssertionFailure() << "the preferences are not in front on workspace " << workspace;
        return testing::AssertionSuccess();
    }
    bool putOnWorkspace(xcb_window_t window, std::uint32_t workspace) {
        display().putOnWorkspace(window, workspace);
        return waitUntil([&] { return display().isViewable(window) == (display().workspace() == workspace); });
    }
    // The other window of an application of two, on a workspace of its own.
    xcb_window_t putOtherWindowOnWorkspace(const TestApplication& application, std::uint32_t workspace) {
        std::vector<xcb_window_t> windows = display().managedWindowsOf(application.identifier());
        std::erase(windows, application.window());
        if (windows.size() != 1 || !putOnWorkspace(windows[0], workspace))
            return XCB_NONE;
        return windows[0];
    }

    xcb_window_t _preferences = XCB_NONE;
};

TEST_P(PanelWorkspaceTest, IsAwayWhereItsApplicationHasNoWindow) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(place(application, {100, 200, 500, 300}));
    ASSERT_TRUE(openPreferences());
    EXPECT_TRUE(standsAbove(application.window()));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(goTo(1));
        EXPECT_TRUE(isNotSeen()) << "round " << round;
        ASSERT_TRUE(goTo(0));
        EXPECT_TRUE(standsAbove(application.window())) << "round " << round;
        EXPECT_TRUE(liesDirectlyOn(application.window())) << "round " << round;
    }
}

TEST_P(PanelWorkspaceTest, GoesWithAWindowThatIsPutOnAnotherWorkspace) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(place(application, {100, 200, 500, 300}));
    ASSERT_TRUE(openPreferences());
    ASSERT_TRUE(putOnWorkspace(application.window(), 1));
    EXPECT_TRUE(isNotSeen());
    ASSERT_TRUE(goTo(1));
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(liesDirectlyOn(application.window()));
}

TEST_P(PanelWorkspaceTest, RidesOnTheWindowOfItsApplicationThatIsThere) {
    TestApplication& application = launch(ApplicationKind::TwoWindows);
    const xcb_window_t here = application.window();
    const xcb_window_t there = putOtherWindowOnWorkspace(application, 1);
    ASSERT_NE(there, xcb_window_t(XCB_NONE));
    ASSERT_TRUE(resizeTo(here, 500, 300) && moveTo(here, 100, 200));
    ASSERT_TRUE(application.bringToFront());
    ASSERT_TRUE(openPreferences());
    EXPECT_TRUE(standsAbove(here));
    ASSERT_TRUE(goTo(1));
    ASSERT_TRUE(resizeTo(there, 400, 250) && moveTo(there, 200, 300));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(goTo(1));
        EXPECT_TRUE(standsAbove(there)) << "round " << round;
        ASSERT_TRUE(goTo(2));
        EXPECT_TRUE(isNotSeen()) << "round " << round;
        ASSERT_TRUE(goTo(0));
        EXPECT_TRUE(standsAbove(here)) << "round " << round;
    }
}

TEST_P(PanelWorkspaceTest, IsNotCoveredByTheWindowThatItRidesOnThere) {
    TestApplication& application = launch(ApplicationKind::TwoWindows);
    const xcb_window_t here = application.window();
    const xcb_window_t there = putOtherWindowOnWorkspace(application, 1);
    ASSERT_NE(there, xcb_window_t(XCB_NONE));
    ASSERT_TRUE(openPreferences());
    ASSERT_TRUE(goTo(1));
    // Above the other one, and with no room above it.
    ASSERT_TRUE(moveTo(there, 100, 0));
    const std::size_t atFirst = layouts();
    ASSERT_TRUE(application.bringToFront(there));
    waitForLayoutAfter(atFirst);
    ASSERT_TRUE(goTo(0));
    // The other menu bar is read before the preferences are in front again.
    const std::size_t before = layouts();
    ASSERT_TRUE(application.bringToFront(here));
    waitForLayoutAfter(before);
    EXPECT_TRUE(standsAbove(here));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(goTo(1));
        EXPECT_TRUE(standsOnTitleBarOf(there)) << "round " << round;
        EXPECT_TRUE(liesDirectlyOn(there)) << "round " << round;
        ASSERT_TRUE(goTo(0));
        EXPECT_TRUE(standsAbove(here)) << "round " << round;
        EXPECT_TRUE(liesDirectlyOn(here)) << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Under, PanelWorkspaceTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
