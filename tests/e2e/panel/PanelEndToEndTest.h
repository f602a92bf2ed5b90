#pragma once

#include "EndToEndTest.h"
#include "Panel.h"

#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace tarragon::e2e {

// What the panel takes above a window or of its title bar, in points, and where on the title bar it begins.
inline constexpr int PanelHeight = 24;
inline constexpr int WidthOfWindowButtons = 68;
// A window whose top is this many points below the top of its screen has room for a panel above it.
inline constexpr int RoomForPanel = 23;

// A test of the floating panel: the program tells where it puts titles, and every setting is back at its default
// afterwards.
class PanelEndToEndTest : public DesktopTest {
protected:
    using DesktopTest::DesktopTest;
    void SetUp() override;
    void TearDown() override;
    static void TearDownTestSuite();

    Panel panel() { return {display(), agent()}; }
    // A setting that is on or off. It is put back after the test.
    void set(const std::string& key, bool value);

    // Until the window manager has done it. The place is that of the corner of what is drawn around the window.
    bool moveTo(xcb_window_t window, int x, int y);
    bool resizeTo(xcb_window_t window, int width, int height);
    bool maximize(xcb_window_t window, bool on);
    bool setFullScreen(xcb_window_t window, bool on);

    // Where the panel belongs for a window as it is now, in pixels.
    PixelRect aboveWindow(xcb_window_t window);
    PixelRect onTitleBar(xcb_window_t window);
    // That the panel is seen and comes to stand there.
    testing::AssertionResult standsAbove(xcb_window_t window);
    testing::AssertionResult standsOnTitleBarOf(xcb_window_t window);
    testing::AssertionResult isSeen();
    // For longer than the program takes to look again.
    testing::AssertionResult isNotSeen();
    // It has faded in.
    testing::AssertionResult isOpaque();
    // Directly above the window's frame, so below everything that lies above that.
    testing::AssertionResult liesDirectlyOn(xcb_window_t window);
    testing::AssertionResult liesBelow(xcb_window_t window);

private:
    std::string describePanel();

    std::map<std::string, bool> _settingsBefore;
};

// Run once on every kind of desktop.
class EveryDesktopPanelTest : public PanelEndToEndTest,
                              public testing::WithParamInterface<std::tuple<WindowManager, Compositor>> {
protected:
    EveryDesktopPanelTest()
        : PanelEndToEndTest(std::get<0>(GetParam()), std::get<1>(GetParam())) { }
    bool hasCompositor() const { return std::get<1>(GetParam()) == Compositor::On; }
};

// Run once under every window manager, for what no compositor has a part in.
class WindowManagerPanelTest : public PanelEndToEndTest, public testing::WithParamInterface<WindowManager> {
protected:
    WindowManagerPanelTest()
        : PanelEndToEndTest(GetParam()) { }
};

std::string nameOfKindOfDesktop(WindowManager windowManager, Compositor compositor);
std::string nameOfDesktop(const testing::TestParamInfo<std::tuple<WindowManager, Compositor>>& information);

inline const auto EveryDesktop = testing::Combine(
    testing::Values(WindowManager::Openbox, WindowManager::Xfwm4), testing::Values(Compositor::Off, Compositor::On));

} // namespace tarragon::e2e
