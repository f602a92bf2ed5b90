// What the program says of the focused window, and what it does to it, against what the X server says.
#include "DockWindow.h"
#include "EndToEndTest.h"
#include "MirrorProbe.h"

#include <algorithm>
#include <array>

namespace tarragon::e2e {

namespace {

using Json = nlohmann::json;

struct PixelPoint {
    int x = 0;
    int y = 0;
};

// The spaces of the program, from pixels of the root window: both have a corner of the primary monitor as their origin.
Json inScreenSpace(const PixelRect& rect, const PixelRect& primary) {
    return Json::array({rect.x - primary.x, rect.y - primary.y, rect.width, rect.height});
}

Json inCocoaSpace(const PixelRect& rect, const PixelRect& primary) {
    return Json::array(
        {rect.x - primary.x, primary.y + primary.height - rect.y - rect.height, rect.width, rect.height});
}

// In Cocoa space the bottom edge belongs to a screen and the top edge does not; the same seen from above.
bool screenHolds(const PixelRect& screen, const PixelPoint& point) {
    return point.x >= screen.x && point.x < screen.x + screen.width && point.y > screen.y
        && point.y <= screen.y + screen.height;
}

// The points that decide on the screen of a window, the first that lies on one before the others.
std::array<PixelPoint, 6> decidingPoints(const PixelRect& frame) {
    int middle = frame.x + frame.width / 2;
    int centre = frame.y + frame.height / 2;
    int right = frame.x + frame.width;
    int bottom = frame.y + frame.height;
    return {{{middle, centre}, {frame.x, bottom}, {right, frame.y}, {right, centre}, {middle, frame.y},
        {frame.x, frame.y}}};
}

PixelRect around(const PixelPoint& point) {
    constexpr int reach = 40;
    return {point.x - reach, point.y - reach, 2 * reach, 2 * reach};
}

std::string text(const PixelRect& rect) {
    return std::to_string(rect.x) + "," + std::to_string(rect.y) + " " + std::to_string(rect.width) + "x"
        + std::to_string(rect.height);
}

} // namespace

// Shared by the tests of real applications and those of windows of every kind.
class OnMonitors {
public:
    explicit OnMonitors(XDisplay& display)
        : _display(display)
        , _monitors{display.bounds()} { }
    ~OnMonitors() { _display.setOneMonitor(); }
    OnMonitors(const OnMonitors&) = delete;
    OnMonitors& operator=(const OnMonitors&) = delete;

    const PixelRect& primary() const { return _monitors.front(); }
    // As the program is to list them.
    const std::vector<PixelRect>& monitors() const { return _monitors; }

    // True when the probe has noticed.
    bool set(MirrorProbe& probe, const std::vector<PixelRect>& monitors, std::size_t primary = 0) {
        _display.setMonitors(monitors, primary);
        _monitors = monitors;
        std::rotate(_monitors.begin(), _monitors.begin() + static_cast<std::ptrdiff_t>(primary),
            _monitors.begin() + static_cast<std::ptrdiff_t>(primary) + 1);
        return waitUntil([&] { return framesOf(probe.ask("window")) == expectedFrames(); });
    }

    bool setSideBySide(MirrorProbe& probe, std::size_t primary = 0) {
        PixelRect whole = _display.bounds();
        int half = whole.width / 2;
        return set(probe, {{0, 0, half, whole.height}, {half, 0, whole.width - half, whole.height}}, primary);
    }

private:
    static std::vector<Json> framesOf(const Json& window) {
        std::vector<Json> frames;
        for (const Json& screen : window.at("screens"))
            frames.push_back(screen.at("frame"));
        return frames;
    }
    std::vector<Json> expectedFrames() const {
        std::vector<Json> frames;
        for (const PixelRect& monitor : _monitors)
            frames.push_back(inCocoaSpace(monitor, primary()));
        return frames;
    }

    XDisplay& _display;
    std::vector<PixelRect> _monitors; // the primary one first
};

class HeldWindowManager {
public:
    explicit HeldWindowManager(Desktop& desktop)
        : _desktop(desktop) {
        _desktop.holdWindowManager(true);
    }
    ~HeldWindowManager() {
        // It finds the usual monitor again.
        _desktop.display().setOneMonitor();
        _desktop.holdWindowManager(false);
    }
    HeldWindowManager(const HeldWindowManager&) = delete;
    HeldWindowManager& operator=(const HeldWindowManager&) = delete;

private:
    Desktop& _desktop;
};

class WindowQueryTest : public ApplicationTest {
protected:
    // Moves the window through the program under test, until the server says that it is there.
    bool moveTo(MirrorProbe& probe, const OnMonitors& setup, xcb_window_t window, int x, int y) {
        probe.ask("position " + std::to_string(x - setup.primary().x) + " " + std::to_string(y - setup.primary().y));
        return waitUntil([&] {
            PixelRect frame = display().outerFrameOf(window);
            return frame.x == x && frame.y == y;
        });
    }

    bool resizeTo(MirrorProbe& probe, xcb_window_t window, int width, int height) {
        probe.ask("size " + std::to_string(width) + " " + std::to_string(height));
        return waitUntil([&] {
            PixelRect frame = display().outerFrameOf(window);
            return frame.width == width && frame.height == height;
        });
    }

    void expectTrueFrame(MirrorProbe& probe, const OnMonitors& setup, xcb_window_t window) {
        PixelRect frame = display().outerFrameOf(window);
        Json answer = probe.ask("window");
        EXPECT_EQ(answer.at("frameCG"), inScreenSpace(frame, setup.primary()));
        EXPECT_EQ(answer.at("frameNS"), inCocoaSpace(frame, setup.primary()));
        EXPECT_EQ(answer.at("positionCG"), Json::array({answer["frameCG"][0], answer["frameCG"][1]}));
        EXPECT_EQ(answer.at("positionNS"), Json::array({answer["frameNS"][0], answer["frameNS"][1]}));
    }

    void expectScreen(MirrorProbe& probe, const OnMonitors& setup, std::size_t index) {
        Json answer = probe.ask("window");
        Json frame = inCocoaSpace(setup.monitors().at(index), setup.primary());
        ASSERT_FALSE(answer.at("screen").is_null());
        EXPECT_EQ(answer["screen"].at("frame"), frame);
        EXPECT_EQ(answer["screenRectNS"], frame);
        EXPECT_EQ(answer["screenRectCG"], inScreenSpace(setup.monitors().at(index), setup.primary()));
    }
};

TEST_P(WindowQueryTest, TellsFrameAndTitleAsTheServerDoes) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(setup.setSideBySide(probe));
    Json answer = probe.ask("window");
    EXPECT_EQ(answer.at("title"), display().titleOf(application.window()));
    EXPECT_EQ(answer.at("role"), "window");
    EXPECT_EQ(answer.at("fullScreen"), false);
    EXPECT_EQ(answer.at("minimized"), false);
    EXPECT_EQ(answer.at("hidden"), false);
    EXPECT_EQ(answer.at("passing"), false);
    EXPECT_EQ(answer.at("desktopLike"), false);
    expectTrueFrame(probe, setup, application.window());
    // The decorations are part of it.
    PixelRect outer = display().outerFrameOf(application.window());
    EXPECT_GT(outer.height, display().frameOf(application.window()).height);
}

TEST_P(WindowQueryTest, MovesAndResizesTheWindowToThePixel) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(setup.setSideBySide(probe));
    // On the left screen, on the right one and astride both.
    for (const PixelRect& wanted :
        {PixelRect{37, 61, 701, 503}, PixelRect{833, 245, 650, 611}, PixelRect{411, 129, 777, 555}}) {
        EXPECT_TRUE(resizeTo(probe, application.window(), wanted.width, wanted.height)) << text(wanted);
        EXPECT_TRUE(moveTo(probe, setup, application.window(), wanted.x, wanted.y)) << text(wanted);
        EXPECT_EQ(display().outerFrameOf(application.window()), wanted)
            << text(display().outerFrameOf(application.window())) << " instead of " << text(wanted);
        expectTrueFrame(probe, setup, application.window());
    }
}

TEST_P(WindowQueryTest, CountsFromThePrimaryScreenWhereverItStands) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(setup.setSideBySide(probe, 1));
    EXPECT_EQ(setup.primary().x, 800);
    ASSERT_TRUE(resizeTo(probe, application.window(), 600, 450));
    for (int x : {900, 100, 450}) {
        EXPECT_TRUE(moveTo(probe, setup, application.window(), x, 77)) << x;
        expectTrueFrame(probe, setup, application.window());
    }
    Json answer = probe.ask("window");
    EXPECT_EQ(answer.at("mainDisplay"), Json::array({0, 0, setup.primary().width, setup.primary().height}));
    EXPECT_EQ(answer.at("primarySize"), Json::array({setup.primary().width, setup.primary().height}));
}

TEST_P(WindowQueryTest, TellsTheScreenOfTheWindow) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(setup.setSideBySide(probe));
    ASSERT_TRUE(resizeTo(probe, application.window(), 600, 500));
    struct Case {
        int x;
        std::size_t screen;
    };
    // Wholly on one, wholly on the other, and astride with more on the one or the other.
    for (const Case& each : {Case{50, 0}, Case{900, 1}, Case{450, 0}, Case{499, 0}, Case{500, 1}, Case{600, 1}}) {
        ASSERT_TRUE(moveTo(probe, setup, application.window(), each.x, 300)) << each.x;
        expectScreen(probe, setup, each.screen);
        EXPECT_EQ(probe.ask("window").at("screenOrder"), each.screen) << each.x;
    }
    // The pointer has its own screen.
    for (std::size_t index : {0U, 1U}) {
        input().moveTo(index == 0 ? 799 : 800, 500);
        EXPECT_TRUE(waitUntil([&] {
            Json screen = probe.ask("window").at("pointerScreen");
            return !screen.is_null() && screen.at("frame") == inCocoaSpace(setup.monitors().at(index), setup.primary());
        })) << index;
    }
}

TEST_P(WindowQueryTest, TriesSixPointsOfTheWindowInTheirOrder) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(resizeTo(probe, application.window(), 640, 480));
    ASSERT_TRUE(moveTo(probe, setup, application.window(), 500, 400));
    PixelRect frame{500, 400, 640, 480};
    std::array<PixelPoint, 6> points = decidingPoints(frame);
    // No part of the window is on the primary screen. Window managers would fetch it there.
    PixelRect primary{0, 0, 300, 300};
    HeldWindowManager held(desktop());
    for (std::size_t first = 0; first < points.size(); ++first) {
        std::vector<PixelRect> monitors{primary};
        for (std::size_t index = points.size(); index-- > first;)
            monitors.push_back(around(points.at(index)));
        ASSERT_TRUE(setup.set(probe, monitors)) << first;
        for (std::size_t index = 0; index < first; ++index)
            ASSERT_TRUE(std::none_of(monitors.begin(), monitors.end(),
                [&](const PixelRect& monitor) { return screenHolds(monitor, points.at(index)); }));
        expectScreen(probe, setup, monitors.size() - 1);
        // The order is asked for at the centre alone.
        EXPECT_EQ(probe.ask("window").at("screenOrder"), first == 0 ? monitors.size() - 1 : 0) << first;
    }
    // The bottom-right corner is not tried.
    ASSERT_TRUE(setup.set(probe, {primary, around({frame.x + frame.width, frame.y + frame.height})}));
    Json answer = probe.ask("window");
    EXPECT_TRUE(answer.at("screen").is_null()) << answer["screen"];
    EXPECT_EQ(answer.at("screenRectNS"), Json::array({0, 0, 0, 0}));
    EXPECT_EQ(answer.at("screenOrder"), 0);
}

TEST_P(WindowQueryTest, TellsThatTheWindowIsFullScreen) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(setup.setSideBySide(probe));
    for (bool on : {true, false}) {
        display().setState(application.window(), "_NET_WM_STATE_FULLSCREEN", on);
        ASSERT_TRUE(
            waitUntil([&] { return display().hasState(application.window(), "_NET_WM_STATE_FULLSCREEN") == on; }));
        EXPECT_EQ(probe.ask("window").at("fullScreen"), on);
    }
}

TEST_P(WindowQueryTest, TellsThatTheApplicationIsHidden) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    probe.update();
    EXPECT_EQ(probe.ask("window").at("hidden"), false);
    display().minimize(application.window());
    ASSERT_TRUE(waitUntil([&] { return display().hasState(application.window(), "_NET_WM_STATE_HIDDEN"); }));
    Json answer = probe.ask("window");
    EXPECT_EQ(answer.at("hidden"), true);
    // No window is left to have the focus.
    EXPECT_EQ(answer.at("minimized"), true);
    EXPECT_EQ(answer.at("frameNS"), Json::array({0, 0, 0, 0}));
    EXPECT_EQ(answer.at("passing"), true);
    ASSERT_TRUE(application.bringToFront());
    EXPECT_EQ(probe.ask("window").at("hidden"), false);
}

INSTANTIATE_TEST_SUITE_P(
    Under, WindowQueryTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

class WindowKindTest : public WindowManagerTest { };

TEST_P(WindowKindTest, TellsTheRoleOfEveryKind) {
    struct Case {
        std::string kind;
        std::string role;
        bool passing;
        bool desktopLike;
    };
    for (const Case& each : {Case{"dialog", "dialog", true, false}, Case{"sheet", "sheet", true, false},
             Case{"utility", "floating window", true, false}, Case{"desktop", "AXWindow:AXUnknown", false, true}}) {
        std::unique_ptr<ChildProcess> process = desktop().start({E2E_WINDOW_KINDS, each.kind});
        ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(process->identifier()).size() == 2; }));
        for (xcb_window_t window : display().managedWindowsOf(process->identifier())) {
            bool isMain = display().titleOf(window) == "Main";
            // While a sheet is open its window does not come to the front.
            if (isMain && each.kind == "sheet")
                continue;
            ASSERT_TRUE(waitUntil([&] {
                display().activate(window);
                return waitUntil([&] { return display().activeWindow() == window; }, Duration(500));
            })) << each.kind;
            MirrorProbe probe(desktop());
            Json answer = probe.ask("window");
            EXPECT_EQ(answer.at("title"), display().titleOf(window));
            EXPECT_EQ(answer.at("role"), isMain ? "window" : each.role) << each.kind;
            EXPECT_EQ(answer.at("passing"), !isMain && each.passing) << each.kind;
            EXPECT_EQ(answer.at("desktopLike"), !isMain && each.desktopLike) << each.kind;
        }
    }
}

TEST_P(WindowKindTest, LeavesPanelsOutOfTheScreensTheyStandOn) {
    launch(ApplicationKind::Mousepad);
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    ASSERT_TRUE(setup.setSideBySide(probe));
    // Forty rows at the bottom of the right screen alone, as a task bar has them.
    DockWindow dock(display(), {800, 1160, 800, 40});
    EXPECT_TRUE(waitUntil([&] {
        Json screens = probe.ask("window").at("screens");
        return screens[0].at("visible") == screens[0].at("frame")
            && screens[1].at("visible") == Json::array({800, 40, 800, 1160});
    })) << probe.ask("window").at("screens");
}

TEST_P(WindowKindTest, ConvertsBetweenTheSpacesByTheMainDisplay) {
    launch(ApplicationKind::Mousepad);
    MirrorProbe probe(desktop());
    OnMonitors setup(display());
    PixelRect whole = display().bounds();
    // The main display is the lower one of two of different heights.
    ASSERT_TRUE(setup.set(probe, {{0, 0, whole.width, 500}, {0, 500, whole.width, 700}}, 1));
    EXPECT_EQ(probe.ask("convert 10 20 30 40.5"), Json::array({10, 700 - 60.5, 30, 40.5}));
    // Above it in Cocoa space is above it on the screen.
    EXPECT_EQ(probe.ask("convert 0 700 100 500"), Json::array({0, -500, 100, 500}));
    EXPECT_EQ(probe.ask("point 10 701").at("order"), 1);
    EXPECT_EQ(probe.ask("point 10 699").at("order"), 0);
    EXPECT_EQ(probe.ask("point 10 5000").at("order"), 0);
    EXPECT_TRUE(probe.ask("point 10 5000").at("screen").is_null());
}

INSTANTIATE_TEST_SUITE_P(Under, WindowKindTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
