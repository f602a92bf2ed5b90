// The window in front and the bar at the top of its monitor: who gives way, and when.
#include "PanelUseEndToEndTest.h"

#include <tuple>
#include <vector>

namespace tarragon::e2e {

namespace {

constexpr int BarHeight = 22;

// Where the monitor with the bar lies. The desktop keeps a bar's room free only where the monitor has the desktop's own
// edge at its top.
enum class BarMonitor { BesideFirst, BelowFirst };

using Kind = std::tuple<WindowManager, BarMonitor>;

std::string nameOfKind(const testing::TestParamInfo<Kind>& information) {
    const auto [windowManager, monitor] = information.param;
    return nameOf(windowManager) + (monitor == BarMonitor::BesideFirst ? "_beside" : "_below");
}

} // namespace

class WindowUnderBarTest : public PanelUseEndToEndTest, public testing::WithParamInterface<Kind> {
protected:
    WindowUnderBarTest()
        : PanelUseEndToEndTest(std::get<0>(GetParam())) { }
    void SetUp() override {
        PanelUseEndToEndTest::SetUp();
        if (std::get<1>(GetParam()) == BarMonitor::BesideFirst) {
            monitor = {800, 0, 800, 1200};
            display().setMonitors({{0, 0, 800, 1200}, monitor}, 0);
        } else {
            monitor = {0, 600, 1600, 600};
            display().setMonitors({{0, 0, 1600, 600}, monitor}, 0);
        }
        application = &launchTitled({"Basil", "Chervil"}, 500, 200);
        EXPECT_TRUE(moveTo(window(), monitor.x + 50, monitor.y + 200));
        EXPECT_TRUE(waitUntil([this] {
            return barFrame() == PixelRect{monitor.x, monitor.y, monitor.width, BarHeight};
        }));
        // The program has made its bars and goes on with its ticks.
        EXPECT_TRUE(moveTo(window(), monitor.x + 50, monitor.y + 210));
        EXPECT_TRUE(standsAbove(window()));
    }
    void TearDown() override {
        display().setOneMonitor();
        PanelUseEndToEndTest::TearDown();
    }

    xcb_window_t window() { return application->window(); }
    // Empty while there is no bar to be seen.
    PixelRect barFrame() {
        std::vector<xcb_window_t> windows = display().managedWindows();
        for (const XWindow& unmanaged : display().unmanagedWindowsOf(agent().identifier()))
            windows.push_back(unmanaged.identifier);
        for (const xcb_window_t candidate : windows) {
            if (display().titleOf(candidate) == "TarragonSTPanel128" && display().isViewable(candidate))
                return display().frameOf(candidate);
        }
        return {};
    }
    bool endsBelowBar() {
        return waitUntil([this] { return display().outerFrameOf(window()).y == monitor.y + BarHeight; });
    }
    // For longer than the program takes to look again.
    bool staysInPlace() {
        const PixelRect frame = display().outerFrameOf(window());
        return holdsFor(Duration(1500), [&] { return display().outerFrameOf(window()) == frame; });
    }

    PixelRect monitor; // with the bar
    TestApplication* application = nullptr;
};

TEST_P(WindowUnderBarTest, AWindowIsMovedBelowTheBarAndStaysThere) {
    display().moveWindow(window(), monitor.x + 60, monitor.y + 5);
    EXPECT_TRUE(endsBelowBar()) << display().outerFrameOf(window()).y;
    EXPECT_EQ(display().outerFrameOf(window()).x, monitor.x + 60);
    EXPECT_TRUE(staysInPlace());
}

// Where no room is kept free for the bar, it is up to the window manager whether a maximised window can be moved.
TEST_P(WindowUnderBarTest, AMaximisedWindowComesToRest) {
    const int width = display().outerFrameOf(window()).width;
    display().setMaximized(window(), true);
    ASSERT_TRUE(waitUntil([&] { return display().outerFrameOf(window()).width > width; }));
    if (std::get<1>(GetParam()) == BarMonitor::BesideFirst) {
        EXPECT_TRUE(endsBelowBar());
    }
    EXPECT_TRUE(waitUntil([this] { return staysInPlace(); }));
}

TEST_P(WindowUnderBarTest, AWindowInTheUsersHandIsMovedAfterItsRelease) {
    const PixelRect before = display().outerFrameOf(window());
    const int x = before.x + before.width / 2;
    const int y = before.y + 10;
    input().moveTo(x, y);
    input().press();
    glide(x, y, x, monitor.y + 8);
    // This window manager keeps windows out of room that is kept free.
    const bool staysOutByItself = GetParam() == Kind(WindowManager::Xfwm4, BarMonitor::BesideFirst);
    if (!staysOutByItself) {
        const auto isUnderBar = [this] { return display().outerFrameOf(window()).y < monitor.y + BarHeight; };
        // The window manager may take the press for a drag only after the hand has come there; hands tremble.
        int tremble = 0;
        EXPECT_TRUE(waitUntil([&] {
            input().moveTo(x + ++tremble % 3, monitor.y + 8);
            return isUnderBar();
        }));
        EXPECT_TRUE(holdsFor(Duration(1500), isUnderBar));
    }
    input().release();
    EXPECT_TRUE(endsBelowBar());
    EXPECT_TRUE(staysInPlace());
}

TEST_P(WindowUnderBarTest, TheBarGivesWayToAFullScreenWindowAndComesBack) {
    display().setState(window(), "_NET_WM_STATE_FULLSCREEN", true);
    ASSERT_TRUE(waitUntil([this] { return display().hasState(window(), "_NET_WM_STATE_FULLSCREEN"); }));
    EXPECT_TRUE(waitUntil([this] { return barFrame() == PixelRect(); }));
    EXPECT_TRUE(staysInPlace());
    display().setState(window(), "_NET_WM_STATE_FULLSCREEN", false);
    EXPECT_TRUE(waitUntil([this] { return barFrame().height == BarHeight; }));
}

INSTANTIATE_TEST_SUITE_P(Under, WindowUnderBarTest,
    testing::Combine(testing::Values(WindowManager::Openbox, WindowManager::Xfwm4),
        testing::Values(BarMonitor::BesideFirst, BarMonitor::BelowFirst)),
    nameOfKind);

} // namespace tarragon::e2e
