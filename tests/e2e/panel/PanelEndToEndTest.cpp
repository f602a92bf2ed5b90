#include "PanelEndToEndTest.h"

#include <algorithm>
#include <sstream>

namespace tarragon::e2e {

namespace {

std::ostream& operator<<(std::ostream& stream, const PixelRect& rect) {
    return stream << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

std::string textOf(const PixelRect& rect) {
    std::ostringstream stream;
    stream << rect;
    return stream.str();
}

testing::AssertionResult result(bool success, const std::string& message) {
    return success ? testing::AssertionSuccess() : testing::AssertionFailure() << message;
}

} // namespace

void PanelEndToEndTest::SetUp() {
    DesktopTest::SetUp();
    // The program of the test before has the log on already.
    if (agent().process().standardError().find(" panel: ") == std::string::npos)
        session().restartAgent(usualHotKey(), Panel::TitlesInLog);
    // Far from every panel.
    input().moveTo(5, display().bounds().height - 5);
}

void PanelEndToEndTest::TearDown() {
    for (const auto& [key, value] : _settingsBefore)
        agent().preferences().set(key, value);
    DesktopTest::TearDown();
}

void PanelEndToEndTest::TearDownTestSuite() {
    // Others find a program that writes nothing.
    Session::discard(WindowManager::Openbox);
    Session::discard(WindowManager::Xfwm4);
}

void PanelEndToEndTest::set(const std::string& key, bool value) {
    _settingsBefore.emplace(key, !value);
    agent().preferences().set(key, value);
}

bool PanelEndToEndTest::moveTo(xcb_window_t window, int x, int y) {
    display().moveWindow(window, x, y);
    return waitUntil([&] {
        const PixelRect frame = display().outerFrameOf(window);
        return frame.x == x && frame.y == y;
    });
}

bool PanelEndToEndTest::resizeTo(xcb_window_t window, int width, int height) {
    display().resizeWindow(window, width, height);
    return waitUntil([&] {
        const PixelRect frame = display().frameOf(window);
        return frame.width == width && frame.height == height;
    });
}

bool PanelEndToEndTest::maximize(xcb_window_t window, bool on) {
    const int widthBefore = display().frameOf(window).width;
    display().setMaximized(window, on);
    return waitUntil([&] { return display().frameOf(window).width != widthBefore; });
}

bool PanelEndToEndTest::setFullScreen(xcb_window_t window, bool on) {
    display().setState(window, "_NET_WM_STATE_FULLSCREEN", on);
    return waitUntil([&] {
        const bool fillsScreen = display().frameOf(window) == display().bounds();
        return display().hasState(window, "_NET_WM_STATE_FULLSCREEN") == on && fillsScreen == on;
    });
}

PixelRect PanelEndToEndTest::aboveWindow(xcb_window_t window) {
    const PixelRect frame = display().outerFrameOf(window);
    return {frame.x, frame.y - PanelHeight, frame.width, PanelHeight};
}

PixelRect PanelEndToEndTest::onTitleBar(xcb_window_t window) {
    const PixelRect frame = display().outerFrameOf(window);
    return {frame.x + WidthOfWindowButtons, frame.y, frame.width, PanelHeight};
}

testing::AssertionResult PanelEndToEndTest::isOpaque() {
    return result(panel().waitUntilOpaque(), describePanel());
}

std::string PanelEndToEndTest::describePanel() {
    const Panel shown = panel();
    std::string text = "the panel is " + std::string(shown.isSeen() ? "seen" : "not seen") + " at "
        + textOf(shown.frame()) + ", opacity " + std::to_string(shown.opacity());
    return text + (shown.isViewable() ? "" : ", hidden");
}

testing::AssertionResult PanelEndToEndTest::standsAbove(xcb_window_t window) {
    const bool stands = waitUntil([&] { return panel().isSeen() && panel().frame() == aboveWindow(window); });
    return result(stands, describePanel() + " and belongs above at " + textOf(aboveWindow(window)));
}

testing::AssertionResult PanelEndToEndTest::standsOnTitleBarOf(xcb_window_t window) {
    const bool stands = waitUntil([&] { return panel().isSeen() && panel().frame() == onTitleBar(window); });
    return result(stands, describePanel() + " and belongs on the title bar at " + textOf(onTitleBar(window)));
}

testing::AssertionResult PanelEndToEndTest::isSeen() {
    return result(panel().waitUntilSeen(), describePanel());
}

testing::AssertionResult PanelEndToEndTest::isNotSeen() {
    // Titles that are laid out anew are not seen for a moment either.
    const bool staysAway = waitUntil([this] { return holdsFor(Duration(500), [this] { return !panel().isSeen(); }); });
    return result(staysAway, describePanel());
}

testing::AssertionResult PanelEndToEndTest::liesDirectlyOn(xcb_window_t window) {
    const bool lies = waitUntil([&] { return panel().windowBelow() == panel().frameWindowOf(window); });
    return result(lies, "below the panel lies '" + display().titleOf(panel().windowBelow()) + "'");
}

testing::AssertionResult PanelEndToEndTest::liesBelow(xcb_window_t window) {
    const bool lies = waitUntil([&] {
        const std::vector<xcb_window_t> above = panel().windowsAbove();
        return std::find(above.begin(), above.end(), panel().frameWindowOf(window)) != above.end();
    });
    return result(lies, describePanel() + " and does not lie below '" + display().titleOf(window) + "'");
}

std::string nameOfKindOfDesktop(WindowManager windowManager, Compositor compositor) {
    return nameOf(windowManager) + (compositor == Compositor::On ? "_composited" : "");
}

std::string nameOfDesktop(const testing::TestParamInfo<std::tuple<WindowManager, Compositor>>& information) {
    return nameOfKindOfDesktop(std::get<0>(information.param), std::get<1>(information.param));
}

} // namespace tarragon::e2e
