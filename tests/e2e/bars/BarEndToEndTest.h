#pragma once

#include "bars/Bars.h"
#include "panel/PanelUseEndToEndTest.h"

#include <optional>
#include <string>
#include <vector>

namespace tarragon::e2e {

// What a bar takes at the top of its monitor, in points.
inline constexpr int BarHeight = 22;

// The monitors of a test, and which of them is the primary one. The program's screens are in the same order, but for
// the primary one, which is the first.
struct Arrangement {
    std::vector<PixelRect> monitors;
    std::size_t primary = 0;

    const PixelRect& primaryMonitor() const { return monitors[primary]; }
    // Those that have a bar, in the order of their screens, the first of which has index 1.
    std::vector<PixelRect> others() const;
};

// Halves of the display.
Arrangement besideEachOther(std::size_t primary = 0);
Arrangement aboveEachOther(std::size_t primary = 0);

// A test of the bars at the top of the monitors, on a desktop of several of them.
class BarEndToEndTest : public PanelUseEndToEndTest {
protected:
    using PanelUseEndToEndTest::PanelUseEndToEndTest;
    void TearDown() override;

    Bars bars() { return {display(), agent()}; }
    // Gives the desktop these monitors.
    void arrange(const Arrangement& arrangement);
    // Changes a setting and waits until the program has heard of it. It has its built-in value again after the test.
    [[nodiscard]] bool tellSetting(const std::string& key, bool value);
    // That the only bars seen are those along the top of these monitors, all of which show as much.
    testing::AssertionResult hasBarsOn(const std::vector<PixelRect>& monitors);
    // For longer than the program takes to look again.
    testing::AssertionResult hasNoBar();
    // That the bar of a screen shows these titles and the program's own one.
    testing::AssertionResult showsTitlesOnBar(int screen, std::vector<std::string> titles);
    // A window of its own with these menus, in front, with its titles on the bar of the second screen.
    TestApplication& launchOnBar(const std::vector<std::string>& titles, const PixelRect& frame);

    // Clicks a title of a bar and waits for its menu.
    bool openTitleOnBar(int screen, const PixelRect& monitor, const std::string& title);
    bool waitForMenuBelowBar(int screen, const PixelRect& monitor, const std::string& title);

    // That the corner of what the window manager draws around the window comes to be there.
    testing::AssertionResult standsAt(xcb_window_t window, int x, int y);
    testing::AssertionResult maximizeOn(xcb_window_t window, const PixelRect& monitor);
};

class WindowManagerBarTest : public BarEndToEndTest, public testing::WithParamInterface<WindowManager> {
protected:
    WindowManagerBarTest()
        : BarEndToEndTest(GetParam()) { }
};

// Where the window manager has to know the monitors as well.
class BarOnOutputsTest : public BarEndToEndTest, public testing::WithParamInterface<WindowManager> {
protected:
    BarOnOutputsTest()
        : BarEndToEndTest(GetParam(), Compositor::Off, Screens::OnOutputs) { }
    static void TearDownTestSuite();
};

} // namespace tarragon::e2e
