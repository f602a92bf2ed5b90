// How often the program takes something for a switch of applications, and rebuilds the mirror: by its own log.
#include "EndToEndTest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <functional>
#include <sstream>

namespace tarragon::e2e {

namespace {

const std::string NobodyInFront = "no application is in front";
const std::string OwnWindowInFront = "nothing is rebuilt";
const std::vector<std::string> OwnMenuAlone{"-", "Tarragon"};

} // namespace

// That something was no switch is seen at a later one, which the program tells of after everything before it.
class SwitchCountTest : public WindowManagerTest {
protected:
    void SetUp() override {
        WindowManagerTest::SetUp();
        // The program of the test before has the log on already.
        if (agent().process().standardError().find(" front: ") == std::string::npos)
            session().restartAgent(usualHotKey(), {{"TARRAGON_LOG", "front"}});
    }

    // Others find a program that writes nothing.
    static void TearDownTestSuite() {
        Session::discard(WindowManager::Openbox);
        Session::discard(WindowManager::Xfwm4);
    }

    // Everything that the program was told to be a switch since the last forgetSwitches(), by what it did.
    std::vector<std::string> switches() {
        static const std::string mark = " front: switch: ";
        std::vector<std::string> found;
        std::istringstream lines(agent().process().standardError());
        for (std::string line; std::getline(lines, line);) {
            const std::size_t at = line.find(mark);
            if (at != std::string::npos)
                found.push_back(line.substr(at + mark.size(), line.find(',', at) - at - mark.size()));
        }
        found.erase(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(std::min(_forgotten, found.size())));
        return found;
    }
    void forgetSwitches() { _forgotten += switches().size(); }
    bool waitForSwitches(std::size_t count) {
        return waitUntil([&] { return switches().size() >= count; });
    }

    // What the program tells once the application has come to the front; empty when that does not happen.
    std::string switchTo(TestApplication& application) {
        const std::size_t before = switches().size();
        return application.bringToFront() && waitForSwitches(before + 1) ? switches().back() : std::string{};
    }

    // The mirror as it stands now has these titles first.
    bool showsAtOnce(const std::vector<std::string>& titles) {
        if (!popUp().open(Duration(3000)))
            return false;
        std::vector<std::string> shown = titlesOf(popUp().items());
        shown.resize(std::min(shown.size(), titles.size()));
        return popUp().close() && shown == titles;
    }

    bool activate(xcb_window_t window) {
        // A window manager that is busy with a new window may leave the first request alone.
        return waitUntil([&] {
            display().activate(window);
            return waitUntil([&] { return display().activeWindow() == window; }, Duration(500));
        });
    }

private:
    std::size_t _forgotten = 0;
};

TEST_P(SwitchCountTest, CountsOneForEachChangeOfTheApplicationInFront) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    TestApplication& featherPad = launch(ApplicationKind::FeatherPad);
    ASSERT_TRUE(popUp().openWith(featherPad.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    const std::string mousepadInFront = switchTo(mousepad);
    const std::string featherPadInFront = switchTo(featherPad);
    ASSERT_NE(mousepadInFront, featherPadInFront);
    forgetSwitches();
    std::vector<std::string> expected;
    for (int round = 0; round < 2; ++round) {
        switchTo(mousepad);
        switchTo(featherPad);
        expected.insert(expected.end(), {mousepadInFront, featherPadInFront});
    }
    switchTo(mousepad);
    expected.push_back(mousepadInFront);
    EXPECT_EQ(switches(), expected);
}

TEST_P(SwitchCountTest, CountsNoneForDialogs) {
    struct Case {
        ApplicationKind kind;
        std::string name;
        std::function<void(TestApplication&)> open;
    };
    const auto byKeys = [this](xcb_keysym_t key, const std::vector<xcb_keysym_t>& modifiers) {
        return [=, this](TestApplication&) { input().tap(key, modifiers); };
    };
    const auto byClosing = [this](TestApplication& application) {
        input().tap(XK_x);
        EXPECT_TRUE(waitUntil([&] { return application.text() != TestApplication::Text; }));
        display().close(application.window());
    };
    TestApplication& other = launch(ApplicationKind::TwoWindows);
    for (const ApplicationKind kind :
        {ApplicationKind::Mousepad, ApplicationKind::Geany, ApplicationKind::FeatherPad}) {
        SCOPED_TRACE(nameOf(kind));
        TestApplication& application = launch(kind);
        const std::vector<std::string> titles = application.expectedTitles();
        ASSERT_TRUE(popUp().openWith(titles));
        ASSERT_TRUE(popUp().close());
        const std::string otherInFront = switchTo(other);
        const std::string applicationInFront = switchTo(application);
        forgetSwitches();
        for (const Case& dialog :
            {Case{ApplicationKind::Mousepad, "file dialog", byKeys(XK_s, {XK_Control_L, XK_Shift_L})},
                Case{ApplicationKind::Mousepad, "replacing", byKeys(XK_r, {XK_Control_L})},
                Case{ApplicationKind::Mousepad, "message box", byClosing},
                Case{ApplicationKind::Geany, "file dialog", byKeys(XK_o, {XK_Control_L})},
                Case{ApplicationKind::Geany, "finding", byKeys(XK_f, {XK_Control_L})},
                Case{ApplicationKind::Geany, "message box", byClosing},
                Case{ApplicationKind::FeatherPad, "file dialog", byKeys(XK_s, {XK_Control_L, XK_Shift_L})},
                Case{ApplicationKind::FeatherPad, "message box", byClosing}}) {
            if (dialog.kind != kind)
                continue;
            SCOPED_TRACE(dialog.name);
            dialog.open(application);
            ASSERT_TRUE(waitUntil([&] {
                const xcb_window_t active = display().activeWindow();
                return active != application.window() && display().processOf(active) == application.identifier();
            }));
            EXPECT_TRUE(showsAtOnce(titles));
            ASSERT_NE(display().activeWindow(), application.window());
            input().tap(XK_Escape);
            ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == application.window(); }));
        }
        EXPECT_TRUE(showsAtOnce(titles));
        switchTo(other);
        switchTo(application);
        EXPECT_EQ(switches(), (std::vector<std::string>{otherInFront, applicationInFront}));
        quit(application);
    }
}

TEST_P(SwitchCountTest, CountsNoneForPalettes) {
    TestApplication& other = launch(ApplicationKind::TwoWindows);
    ASSERT_TRUE(popUp().openWith(other.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    for (const char* kind : {"utility", "loose_utility"}) {
        SCOPED_TRACE(kind);
        std::unique_ptr<ChildProcess> process = desktop().start({E2E_WINDOW_KINDS, kind});
        ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(process->identifier()).size() == 2; }));
        std::vector<xcb_window_t> windows = display().managedWindowsOf(process->identifier());
        if (display().titleOf(windows[0]) != "Main")
            std::swap(windows[0], windows[1]);
        ASSERT_TRUE(activate(windows[0]));
        ASSERT_TRUE(popUp().openWith({"File"}));
        ASSERT_TRUE(popUp().close());
        const std::string otherInFront = switchTo(other);
        ASSERT_TRUE(activate(windows[0]));
        ASSERT_TRUE(waitUntil([&] { return switches().back() != otherInFront; }));
        const std::string applicationInFront = switches().back();
        forgetSwitches();
        for (const xcb_window_t window : {windows[1], windows[0]}) {
            ASSERT_TRUE(activate(window));
            EXPECT_TRUE(showsAtOnce({"File"}));
            EXPECT_EQ(display().activeWindow(), window);
        }
        switchTo(other);
        // The palette shows the menus of its application, too, when it is the first to come back.
        ASSERT_TRUE(activate(windows[1]));
        ASSERT_TRUE(waitForSwitches(2));
        EXPECT_TRUE(showsAtOnce({"File"}));
        ASSERT_TRUE(activate(windows[0]));
        switchTo(other);
        EXPECT_EQ(switches(), (std::vector<std::string>{otherInFront, applicationInFront, otherInFront}));
        process->terminate();
        ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(process->identifier()).empty(); }));
        forgetSwitches();
    }
}

TEST_P(SwitchCountTest, CountsOneForEachWindowWithAMenuBarOfItsOwn) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(mousepad.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    const std::string mousepadInFront = switches().back();
    TestApplication& application = launch(ApplicationKind::TwoWindows);
    ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(application.identifier()).size() == 2; }));
    const std::vector<xcb_window_t> windows = display().managedWindowsOf(application.identifier());
    // A switch takes a while, and another one meanwhile would be counted with it.
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    switchTo(mousepad);
    forgetSwitches();
    const std::vector<xcb_window_t> order{windows[0], windows[1], windows[0], windows[1]};
    for (std::size_t index = 0; index < order.size(); ++index) {
        ASSERT_TRUE(activate(order[index]));
        ASSERT_TRUE(waitForSwitches(index + 1));
    }
    switchTo(mousepad);
    std::vector<std::string> expected(order.size(), switches().front());
    EXPECT_NE(expected.front(), mousepadInFront);
    expected.push_back(mousepadInFront);
    EXPECT_EQ(switches(), expected);
}

TEST_P(SwitchCountTest, CountsOneForTheLastWindowThatCloses) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(mousepad.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    const std::string mousepadInFront = switches().back();
    forgetSwitches();
    quit(mousepad);
    ASSERT_TRUE(waitForSwitches(1));
    ASSERT_TRUE(popUp().openWith(OwnMenuAlone));
    ASSERT_TRUE(popUp().close());
    TestApplication& another = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(another.expectedTitles()));
    std::vector<std::string> found = switches();
    // Its menu bar may come after its window.
    ASSERT_GE(found.size(), 2U);
    found.resize(2);
    EXPECT_EQ(found, (std::vector<std::string>{NobodyInFront, mousepadInFront}));
}

TEST_P(SwitchCountTest, CountsOneForAnEmptyWorkspaceAndOneForTheWayBack) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    const std::vector<std::string> titles = mousepad.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    ASSERT_TRUE(popUp().close());
    const std::string mousepadInFront = switches().back();
    forgetSwitches();
    std::vector<std::string> expected;
    for (int round = 0; round < 2; ++round) {
        display().showWorkspace(1);
        expected.push_back(NobodyInFront);
        ASSERT_TRUE(waitForSwitches(expected.size()));
        EXPECT_TRUE(showsAtOnce(OwnMenuAlone));
        display().showWorkspace(0);
        expected.push_back(mousepadInFront);
        ASSERT_TRUE(waitForSwitches(expected.size()));
        EXPECT_TRUE(showsAtOnce(titles));
    }
    EXPECT_EQ(switches(), expected);
}

TEST_P(SwitchCountTest, RebuildsNothingForWindowsOfTheProgramItself) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    const std::vector<std::string> titles = mousepad.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    const std::string mousepadInFront = switches().back();
    forgetSwitches();
    ASSERT_TRUE(popUp().chooseByKeyboard({"Tarragon", "About Tarragon..."}));
    ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(agent().identifier()).size() == 1; }));
    const xcb_window_t about = display().managedWindowsOf(agent().identifier()).front();
    EXPECT_EQ(display().activeWindow(), mousepad.window());
    EXPECT_TRUE(showsAtOnce(titles));
    ASSERT_TRUE(activate(about));
    ASSERT_TRUE(waitForSwitches(1));
    EXPECT_TRUE(popUp().openWith(titles));
    EXPECT_TRUE(popUp().close());
    display().close(about);
    ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(agent().identifier()).empty(); }));
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == mousepad.window(); }));
    ASSERT_TRUE(waitForSwitches(2));
    EXPECT_TRUE(showsAtOnce(titles));
    quit(mousepad);
    ASSERT_TRUE(waitForSwitches(3));
    EXPECT_EQ(switches(), (std::vector<std::string>{OwnWindowInFront, mousepadInFront, NobodyInFront}));
}

INSTANTIATE_TEST_SUITE_P(Under, SwitchCountTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
