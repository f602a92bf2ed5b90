#include "bars/BarEndToEndTest.h"

#include <algorithm>
#include <sstream>
#include <tuple>

namespace tarragon::e2e {

namespace {

// A bar takes a second to make, on purpose.
constexpr Duration TimeForBars(20000);

constexpr PixelRect Display{0, 0, 1600, 1200};

std::string textOf(const std::vector<PixelRect>& frames) {
    std::ostringstream text;
    for (const PixelRect& frame : frames)
        text << " " << frame.x << ',' << frame.y << ' ' << frame.width << 'x' << frame.height;
    return frames.empty() ? " nothing" : text.str();
}

testing::AssertionResult result(bool success, const std::string& message) {
    return success ? testing::AssertionSuccess() : testing::AssertionFailure() << message;
}

} // namespace

std::vector<PixelRect> Arrangement::others() const {
    std::vector<PixelRect> others = monitors;
    others.erase(others.begin() + static_cast<std::ptrdiff_t>(primary));
    return others;
}

Arrangement besideEachOther(std::size_t primary) {
    constexpr int Half = Display.width / 2;
    return {{{0, 0, Half, Display.height}, {Half, 0, Half, Display.height}}, primary};
}

Arrangement aboveEachOther(std::size_t primary) {
    constexpr int Half = Display.height / 2;
    return {{{0, 0, Display.width, Half}, {0, Half, Display.width, Half}}, primary};
}

void BarEndToEndTest::TearDown() {
    // Before the desktop is another one.
    if (HasFailure())
        keepEvidence();
    display().setOneMonitor();
    EXPECT_TRUE(waitUntil([this] { return bars().seen().empty(); }, TimeForBars));
    PanelUseEndToEndTest::TearDown();
}

void BarOnOutputsTest::TearDownTestSuite() {
    for (const WindowManager windowManager : {WindowManager::Openbox, WindowManager::Xfwm4})
        Session::discard(windowManager, Compositor::Off, Screens::OnOutputs);
}

void BarEndToEndTest::arrange(const Arrangement& arrangement) {
    display().setMonitors(arrangement.monitors, arrangement.primary);
}

bool BarEndToEndTest::tellSetting(const std::string& key, bool value) {
    const auto timesHeard = [&] {
        const std::string log = agent().process().standardError();
        const std::string mark = " settings: values." + key + " has changed";
        std::size_t count = 0;
        for (std::size_t at = log.find(mark); at != std::string::npos; at = log.find(mark, at + 1))
            ++count;
        return count;
    };
    const std::size_t before = timesHeard();
    change(key, value);
    return waitUntil([&] { return timesHeard() > before; });
}

testing::AssertionResult BarEndToEndTest::hasBarsOn(const std::vector<PixelRect>& monitors) {
    std::vector<PixelRect> wanted;
    for (const PixelRect& monitor : monitors)
        wanted.push_back({monitor.x, monitor.y, monitor.width, BarHeight});
    std::ranges::sort(wanted, {}, [](const PixelRect& frame) { return std::tuple(frame.x, frame.y); });
    const bool isSo = waitUntil([&] { return bars().framesSeen() == wanted; }, TimeForBars);
    return result(isSo, "bars at" + textOf(bars().framesSeen()) + ", wanted at" + textOf(wanted));
}

testing::AssertionResult BarEndToEndTest::hasNoBar() {
    const bool staysAway =
        waitUntil([this] { return holdsFor(Duration(600), [this] { return bars().seen().empty(); }); });
    return result(staysAway, "bars at" + textOf(bars().framesSeen()));
}

testing::AssertionResult BarEndToEndTest::showsTitlesOnBar(int screen, std::vector<std::string> titles) {
    // With the spaces that a bar gives its own title.
    titles.emplace_back("Tarragon ");
    std::string shown;
    const bool shows = waitUntil(
        [&] {
            std::vector<std::string> texts;
            shown.clear();
            for (const PanelTitle& title : bars().titles(screen)) {
                texts.push_back(title.title);
                shown += " '" + title.title + "'";
            }
            return texts == titles;
        },
        TimeForBars);
    return result(shows, "the bar shows" + shown);
}

TestApplication& BarEndToEndTest::launchOnBar(const std::vector<std::string>& titles, const PixelRect& frame) {
    TestApplication& application = launchTitled(titles, frame.width, frame.height);
    EXPECT_TRUE(showsTitlesOnBar(1, titles));
    EXPECT_TRUE(moveTo(application.window(), frame.x, frame.y));
    return application;
}

bool BarEndToEndTest::openTitleOnBar(int screen, const PixelRect& monitor, const std::string& title) {
    if (!waitUntil([&] { return bars().frameOfTitle(screen, monitor, title).has_value(); }))
        return false;
    const PixelRect frame = *bars().frameOfTitle(screen, monitor, title);
    input().moveTo(frame.x + frame.width / 2, frame.y + frame.height / 2);
    popUp().startAnew();
    input().click();
    return waitForMenuBelowBar(screen, monitor, title);
}

bool BarEndToEndTest::waitForMenuBelowBar(int screen, const PixelRect& monitor, const std::string& title) {
    // Until the menu has the keyboard, keys would go to the application behind it.
    return waitUntil([&] {
        constexpr int MenuDistance = 2; // below the bar, of which 1.75 points are wanted
        const auto frame = bars().frameOfTitle(screen, monitor, title);
        const std::vector<XWindow> menus = agent().openMenus();
        return frame && menus.size() == 1 && menus[0].frame.x == frame->x
            && menus[0].frame.y == frame->y + frame->height + MenuDistance && display().keyboardIsGrabbed();
    });
}

testing::AssertionResult BarEndToEndTest::standsAt(xcb_window_t window, int x, int y) {
    const auto place = [&] { return display().outerFrameOf(window); };
    const bool stands = waitUntil([&] { return place().x == x && place().y == y; });
    return result(stands, "the window is at" + textOf({place()}));
}

testing::AssertionResult BarEndToEndTest::maximizeOn(xcb_window_t window, const PixelRect& monitor) {
    if (!moveTo(window, monitor.x + 60, monitor.y + 120))
        return testing::AssertionFailure() << "the window does not move to the monitor";
    display().setMaximized(window, true);
    const auto frame = [&] { return display().outerFrameOf(window); };
    const bool fills = waitUntil([&] { return frame().x == monitor.x && frame().width == monitor.width; });
    return result(fills, "the window is at" + textOf({frame()}));
}

} // namespace tarragon::e2e
