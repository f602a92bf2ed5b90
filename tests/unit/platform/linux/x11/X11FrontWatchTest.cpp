// Which changes of the active window count as switches, on a real X server with a window manager played by the test.
#include "FakeWindowManager.h"
#include "fake/FakeRunLoop.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/windows/MenuBarSource.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/x11/X11Workspace.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <optional>
#include <poll.h>
#include <unistd.h>
#include <vector>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t Editor = 1001;
constexpr std::int64_t Viewer = 1002;
constexpr std::int64_t NoApplication = -1;

// Longer than the settling time after which no window counts as being in front.
constexpr double Settled = 0.5;
// All further questions for a late menu bar are over.
constexpr double LongAfter = 10;

// A virtual clock beside a real descriptor.
class ListeningRunLoop : public FakeRunLoop {
public:
    void watchDescriptor(int descriptor, std::function<void()> handler) override {
        _descriptor = descriptor;
        FakeRunLoop::watchDescriptor(descriptor, std::move(handler));
    }
    // Everything that the server has written so far.
    void handleReadable() {
        runPending();
        for (;;) {
            pollfd readable = {.fd = _descriptor, .events = POLLIN, .revents = 0};
            if (poll(&readable, 1, 0) != 1)
                return;
            signalDescriptor(_descriptor);
            runPending();
        }
    }

private:
    int _descriptor = -1;
};

class ToldMenuBars : public MenuBarSource {
public:
    std::uint32_t windowWithMenuBar(std::uint32_t window) override {
        ++questions;
        const auto found = menuBars.find(window);
        return found != menuBars.end() ? found->second : window;
    }

    std::map<std::uint32_t, std::uint32_t> menuBars; // a window that is missing has its own
    int questions = 0;
};

class X11FrontWatchTest : public testing::Test {
protected:
    void SetUp() override {
        if (_server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        manager = std::make_unique<FakeWindowManager>(_server.displayName());
        _connection = X11Connection::connect(_server.displayName());
        ASSERT_TRUE(_connection);
        windows = std::make_unique<X11Windows>(*_connection);
        workspace = std::make_unique<X11Workspace>(
            *_connection, *windows, _entries, runLoop, [](const std::string&) { return false; }, &menuBars);
    }

    // From here on, switches are written down as the process that is in front when they are told.
    void begin() {
        manager->synchronize();
        ASSERT_TRUE(workspace->installFrontSwitchedHandler([this] {
            const auto application = workspace->activeApplication();
            told.push_back(application ? application->processIdentifier : NoApplication);
            // A copy, since it may replace itself.
            if (const auto handler = whenTold)
                handler();
        }));
        ASSERT_TRUE(workspace->installSystemUIModeChangedHandler([this] { ++modeChanges; }));
        happen();
    }
    void happen() {
        manager->synchronize();
        runLoop.handleReadable();
    }
    void activate(std::uint32_t window) {
        manager->activate(window);
        happen();
    }
    void pass(double seconds) {
        runLoop.advance(seconds);
        happen();
    }
    // What was told since the last call.
    std::vector<std::int64_t> switches() { return std::exchange(told, {}); }

    std::unique_ptr<FakeWindowManager> manager;
    std::unique_ptr<X11Windows> windows;
    std::unique_ptr<X11Workspace> workspace;
    ListeningRunLoop runLoop;
    ToldMenuBars menuBars;
    std::vector<std::int64_t> told;
    std::function<void()> whenTold;
    std::uint32_t whenToldActivates = 0;
    int modeChanges = 0;

private:
    XkbServer _server;
    std::unique_ptr<X11Connection> _connection;
    DesktopEntries _entries{{}, {}};
};

TEST_F(X11FrontWatchTest, TellsOfEachSwitchOfApplicationsOnce) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    manager->activate(editor);
    begin();
    EXPECT_THAT(switches(), IsEmpty());
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
    activate(viewer);
    EXPECT_THAT(switches(), IsEmpty());
    activate(editor);
    EXPECT_THAT(switches(), ElementsAre(Editor));
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(X11FrontWatchTest, TellsOfTwoSwitchesInQuickSuccession) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    const auto third = manager->open({.process = 1003});
    manager->activate(editor);
    begin();
    // Both are over before anybody looks.
    manager->activate(viewer);
    activate(third);
    EXPECT_THAT(switches(), ElementsAre(1003));
    // There and back again is none.
    manager->activate(viewer);
    activate(third);
    EXPECT_THAT(switches(), IsEmpty());
    // The second comes while the first is being told.
    whenTold = [&] {
        whenTold = {};
        manager->activate(editor);
        manager->synchronize();
    };
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer, Editor));
}

TEST_F(X11FrontWatchTest, TellsAgainOfAWindowWhenAnotherOneWasSeenWhileItWasTold) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    manager->activate(editor);
    begin();
    // Whoever is told takes a while and reads the editor, which is behind the viewer again before anybody looks.
    whenTold = [&] {
        whenTold = {};
        manager->activate(editor);
        manager->synchronize();
        EXPECT_EQ(workspace->activeApplication()->processIdentifier, Editor);
        manager->activate(viewer);
        manager->synchronize();
    };
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer, Viewer));
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(X11FrontWatchTest, TellsOnceOfAWindowThatWasSeenBeforeItWasTold) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    const auto dialog = manager->open({.process = Viewer, .type = "_NET_WM_WINDOW_TYPE_DIALOG"});
    menuBars.menuBars[dialog] = viewer;
    manager->activate(editor);
    begin();
    whenTold = [&] {
        manager->activate(whenToldActivates);
        manager->synchronize();
        EXPECT_TRUE(workspace->activeApplication());
    };
    whenToldActivates = editor;
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer, Editor));
    // A dialog that comes meanwhile is no switch.
    whenToldActivates = dialog;
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(X11FrontWatchTest, TellsOfNoDialogSheetOrPalette) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    begin();
    for (const FakeWindow& passing :
        {FakeWindow{.process = Editor, .type = "_NET_WM_WINDOW_TYPE_DIALOG", .transientFor = editor},
            FakeWindow{.process = Editor, .transientFor = editor},
            FakeWindow{.process = Editor, .transientFor = editor, .state = "_NET_WM_STATE_MODAL"},
            FakeWindow{.process = Editor, .type = "_NET_WM_WINDOW_TYPE_UTILITY"}}) {
        const auto window = manager->open(passing);
        menuBars.menuBars[window] = editor;
        activate(window);
        pass(LongAfter);
        manager->close(window);
        activate(editor);
        pass(LongAfter);
        EXPECT_THAT(switches(), IsEmpty()) << passing.type << passing.state;
    }
}

TEST_F(X11FrontWatchTest, TellsOfADialogOfAnotherApplication) {
    const auto editor = manager->open({.process = Editor});
    const auto dialog = manager->open({.process = Viewer, .transientFor = editor});
    manager->activate(editor);
    begin();
    activate(dialog);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
}

TEST_F(X11FrontWatchTest, TellsOfASecondWindowWithAMenuBarOfItsOwn) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    manager->activate(first);
    begin();
    activate(second);
    EXPECT_THAT(switches(), ElementsAre(Editor));
    activate(first);
    EXPECT_THAT(switches(), ElementsAre(Editor));
}

TEST_F(X11FrontWatchTest, TellsOfNoSecondWindowWithoutAMenuBar) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    menuBars.menuBars[second] = first;
    manager->activate(first);
    begin();
    activate(second);
    pass(LongAfter);
    activate(first);
    EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(X11FrontWatchTest, TellsOfAMenuBarThatComesLateOnce) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    menuBars.menuBars[second] = first;
    manager->activate(first);
    begin();
    activate(second);
    pass(1);
    EXPECT_THAT(switches(), IsEmpty());
    menuBars.menuBars.erase(second);
    pass(1);
    EXPECT_THAT(switches(), ElementsAre(Editor));
    const int questions = menuBars.questions;
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
    EXPECT_EQ(menuBars.questions, questions);
}

TEST_F(X11FrontWatchTest, TellsOfAFirstMenuBarThatComesLate) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    menuBars.menuBars[viewer] = 0;
    manager->activate(editor);
    begin();
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
    menuBars.menuBars.erase(viewer);
    pass(1);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
}

TEST_F(X11FrontWatchTest, TellsOnceOfAMenuBarThatComesWhileTheSwitchIsBeingTold) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    menuBars.menuBars[viewer] = 0;
    manager->activate(editor);
    begin();
    whenTold = [&] { menuBars.menuBars.erase(viewer); };
    activate(viewer);
    pass(LongAfter);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
}

TEST_F(X11FrontWatchTest, AsksAFewTimesForAMenuBarThatNeverComes) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    menuBars.menuBars[second] = first;
    manager->activate(first);
    begin();
    menuBars.questions = 0;
    activate(second);
    pass(LongAfter);
    EXPECT_EQ(menuBars.questions, 5);
}

TEST_F(X11FrontWatchTest, AsksNoFurtherWhenAnotherWindowIsInFront) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    menuBars.menuBars[second] = first;
    manager->activate(first);
    begin();
    activate(second);
    activate(first);
    menuBars.questions = 0;
    menuBars.menuBars.erase(second);
    pass(LongAfter);
    EXPECT_EQ(menuBars.questions, 0);
    EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(X11FrontWatchTest, TellsOfOurOwnWindowsLikeAnyOther) {
    const auto editor = manager->open({.process = Editor});
    const auto own = manager->open({.process = getpid()});
    menuBars.menuBars[own] = 0;
    manager->activate(editor);
    begin();
    activate(own);
    EXPECT_THAT(switches(), ElementsAre(getpid()));
    activate(editor);
    EXPECT_THAT(switches(), ElementsAre(Editor));
}

TEST_F(X11FrontWatchTest, TellsNothingOfAFocusThatIsGoneForAMoment) {
    const auto editor = manager->open({.process = Editor});
    const auto viewer = manager->open({.process = Viewer});
    manager->activate(editor);
    begin();
    activate(XCB_NONE);
    pass(0.1);
    activate(editor);
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
    // Between two windows it is gone as well.
    activate(XCB_NONE);
    pass(0.1);
    activate(viewer);
    pass(LongAfter);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
}

TEST_F(X11FrontWatchTest, TellsNothingWhileTheKeyboardIsHeld) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    manager->focus(editor);
    begin();
    ASSERT_TRUE(manager->grabKeyboard());
    activate(XCB_NONE);
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
    manager->releaseKeyboard();
    activate(editor);
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
}

TEST_F(X11FrontWatchTest, TellsThatNoApplicationIsInFrontOnceTheKeyboardIsFree) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    manager->focus(editor);
    begin();
    ASSERT_TRUE(manager->grabKeyboard());
    activate(XCB_NONE);
    pass(LongAfter);
    manager->releaseKeyboard();
    happen();
    pass(Settled);
    EXPECT_THAT(switches(), ElementsAre(NoApplication));
}

TEST_F(X11FrontWatchTest, HoldsOntoNoWindowThatIsPutAwayWhileTheKeyboardIsHeld) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    manager->focus(editor);
    begin();
    ASSERT_TRUE(manager->grabKeyboard());
    manager->hide(editor);
    activate(XCB_NONE);
    pass(Settled);
    EXPECT_THAT(switches(), ElementsAre(NoApplication));
}

TEST_F(X11FrontWatchTest, TellsOnceThatTheLastWindowIsClosed) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    begin();
    manager->close(editor);
    activate(XCB_NONE);
    pass(Settled);
    EXPECT_THAT(switches(), ElementsAre(NoApplication));
    pass(LongAfter);
    EXPECT_THAT(switches(), IsEmpty());
    const auto viewer = manager->open({.process = Viewer});
    activate(viewer);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
}

TEST_F(X11FrontWatchTest, TellsOfAnEmptyWorkspaceAndOfTheWayBack) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    begin();
    manager->hide(editor);
    activate(XCB_NONE);
    pass(Settled);
    EXPECT_THAT(switches(), ElementsAre(NoApplication));
    manager->show(editor);
    activate(editor);
    pass(LongAfter);
    EXPECT_THAT(switches(), ElementsAre(Editor));
}

TEST_F(X11FrontWatchTest, TakesTheRootWindowAndOneThatIsGoneForNone) {
    const auto editor = manager->open({.process = Editor});
    const auto gone = manager->open({.process = Viewer});
    manager->close(gone);
    for (const std::uint32_t none : {manager->rootWindow(), gone}) {
        manager->activate(editor);
        if (none == manager->rootWindow())
            begin();
        else
            happen();
        told.clear();
        activate(none);
        pass(Settled);
        EXPECT_THAT(switches(), ElementsAre(NoApplication));
    }
}

TEST_F(X11FrontWatchTest, TakesTheDesktopOfAFileManagerForAnApplication) {
    const auto editor = manager->open({.process = Editor});
    const auto desktop = manager->open({.process = Viewer, .type = "_NET_WM_WINDOW_TYPE_DESKTOP"});
    manager->activate(editor);
    begin();
    activate(desktop);
    pass(LongAfter);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
}

TEST_F(X11FrontWatchTest, TellsOfAnotherApplicationWhoseWindowHasTheIdentifierOfOneThatIsGone) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    begin();
    manager->close(editor);
    ASSERT_EQ(manager->openAs(editor, {.process = Viewer}), editor);
    activate(editor);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
    manager->close(editor);
    ASSERT_EQ(manager->openAs(editor, {.process = Viewer}), editor);
    activate(editor);
    EXPECT_THAT(switches(), ElementsAre(Viewer));
    // It is watched like the first.
    manager->close(editor);
    activate(XCB_NONE);
    pass(Settled);
    EXPECT_THAT(switches(), ElementsAre(NoApplication));
}

TEST_F(X11FrontWatchTest, TellsThatTheWindowWithTheMenuBarIsGoneBehindTheActiveOne) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    menuBars.menuBars[second] = first;
    manager->activate(first);
    begin();
    activate(second);
    pass(LongAfter);
    ASSERT_THAT(switches(), IsEmpty());
    menuBars.menuBars[second] = 0;
    manager->close(first);
    happen();
    EXPECT_THAT(switches(), ElementsAre(Editor));
}

TEST_F(X11FrontWatchTest, TellsThatTheWindowWithTheMenuBarIsPutAway) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    menuBars.menuBars[second] = first;
    manager->activate(first);
    begin();
    activate(second);
    pass(LongAfter);
    menuBars.menuBars[second] = 0;
    manager->withdraw(first);
    happen();
    EXPECT_THAT(switches(), ElementsAre(Editor));
}

TEST_F(X11FrontWatchTest, TellsOfFullScreenApartFromSwitches) {
    const auto editor = manager->open({.process = Editor});
    manager->activate(editor);
    begin();
    manager->setState(editor, "_NET_WM_STATE_FULLSCREEN");
    happen();
    EXPECT_EQ(modeChanges, 1);
    manager->close(editor);
    activate(XCB_NONE);
    pass(Settled);
    EXPECT_EQ(modeChanges, 2);
    EXPECT_THAT(switches(), ElementsAre(NoApplication));
}

TEST_F(X11FrontWatchTest, KnowsInWhichOrderWindowsWereActive) {
    const auto first = manager->open({.process = Editor});
    const auto second = manager->open({.process = Editor});
    const auto third = manager->open({.process = Viewer});
    manager->activate(first);
    begin();
    activate(third);
    activate(first);
    EXPECT_THAT(windows->windowsByActivation(), ElementsAre(first, third, second));
    // A new window with the identifier of one that was active has not been.
    manager->close(third);
    manager->openAs(third, {.process = Editor});
    happen();
    EXPECT_THAT(windows->windowsByActivation(), ElementsAre(first, third, second));
    const auto fourth = manager->open({.process = Editor});
    happen();
    EXPECT_THAT(windows->windowsByActivation(), ElementsAre(first, fourth, third, second));
}

} // namespace
} // namespace tarragon
