// The ways to the preferences, each of which leads to one and the same window.
#include "PopUp.h"
#include "TrayWindow.h"
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

#include <filesystem>
#include <utility>

namespace tarragon::e2e {

class PreferencesOpeningTest : public WindowManagerPreferencesTest {
protected:
    bool chooseFromOwnMenu(const std::string& item) {
        return popUp().open() && popUp().chooseByKeyboard({"Tarragon", item});
    }
    // Long enough for a second window to be there.
    bool staysOneWindow() {
        return holdsFor(Duration(500), [&] { return preferences().windows().size() == 1; });
    }
};

TEST_P(PreferencesOpeningTest, TheOwnMenuOpensThemOnceHoweverOftenItIsChosen) {
    launch(ApplicationKind::Mousepad);
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(chooseFromOwnMenu("Preferences...")) << "round " << round;
        ASSERT_TRUE(preferences().waitUntilOpen()) << "round " << round;
        EXPECT_TRUE(staysOneWindow());
        EXPECT_EQ(preferences().title(), "General");
    }
}

TEST_P(PreferencesOpeningTest, TheHelpOfTheOwnMenuShowsTheHelpPane) {
    launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(chooseFromOwnMenu("Help..."));
    ASSERT_TRUE(preferences().waitUntilOpen());
    EXPECT_TRUE(waitUntil([&] { return preferences().title() == "Help"; }));
    EXPECT_TRUE(preferences().waitUntilSays("Choosing an item"));
    EXPECT_TRUE(preferences().waitFor("Help", [](const Control& item) { return item.isChecked(); }));
    ASSERT_TRUE(preferences().close());
    // The next time begins as usual.
    ASSERT_TRUE(preferences().open());
    EXPECT_EQ(preferences().title(), "General");
    EXPECT_TRUE(preferences().waitFor("General", [](const Control& item) { return item.isChecked(); }));
}

TEST_P(PreferencesOpeningTest, TheMenuOfTheStatusItemOpensThem) {
    TrayWindow tray(desktop().environment().at("DISPLAY"));
    ASSERT_TRUE(waitUntil([&] { return tray.itemCount() == 1; }));
    const PixelRect item = tray.frameOfItem(0);
    input().moveTo(item.x + item.width / 2, item.y + item.height / 2);
    popUp().startAnew();
    input().click(3);
    ASSERT_TRUE(waitUntil([&] { return popUp().isOpen() && display().keyboardIsGrabbed(); }));
    ASSERT_TRUE(popUp().highlight("Preferences..."));
    input().tap(XK_Return);
    EXPECT_TRUE(preferences().waitUntilOpen());
    EXPECT_TRUE(staysOneWindow());
}

TEST_P(PreferencesOpeningTest, ASecondStartOpensThem) {
    const pid_t before = agent().identifier();
    for (int start = 0; start < 2; ++start) {
        const CommandResult second = tarragon({});
        EXPECT_EQ(second.status, 0);
        EXPECT_EQ(second.output, "");
        EXPECT_EQ(second.error, "tarragon: already running on this display\n");
        ASSERT_TRUE(preferences().waitUntilOpen()) << "start " << start;
        EXPECT_TRUE(staysOneWindow());
    }
    EXPECT_TRUE(agent().isRunning());
    EXPECT_EQ(agent().identifier(), before);
}

TEST_P(PreferencesOpeningTest, TheCommandOpensThoseOfTheRunningProgram) {
    for (int round = 0; round < 2; ++round) {
        const CommandResult command = tarragon({"preferences"});
        EXPECT_EQ(command.status, 0);
        EXPECT_EQ(command.output, "");
        EXPECT_EQ(command.error, "");
        ASSERT_TRUE(preferences().waitUntilOpen()) << "round " << round;
        EXPECT_TRUE(staysOneWindow());
    }
}

TEST_P(PreferencesOpeningTest, TheCommandStartsTheProgramWhereNoneRuns) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    agent().process().terminate();
    ASSERT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    {
        const auto started = desktop().start({E2E_TARRAGON, "preferences"});
        EXPECT_TRUE(waitUntil([&] { return display().managedWindowsOf(started->identifier()).size() == 1; }));
        EXPECT_TRUE(waitUntil([&] { return display().processOf(display().activeWindow()) == started->identifier(); }));
        // It is the program itself, not only its window.
        EXPECT_TRUE(waitUntil([&] { return agent().hotKeyIsRegistered(usualHotKey()); }));
        input().tap(XK_Escape);
        EXPECT_TRUE(waitUntil([&] { return display().managedWindowsOf(started->identifier()).empty(); }));
        EXPECT_TRUE(started->isRunning());
        EXPECT_EQ(started->standardError(), "");
    }
    ASSERT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    restartAgent();
    EXPECT_TRUE(application.process().isRunning());
}

TEST_P(PreferencesOpeningTest, ComeToTheFrontFromBehindAndFromTheTaskBar) {
    ASSERT_TRUE(preferences().open());
    const xcb_window_t window = preferences().windows().at(0);
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_EQ(display().activeWindow(), application.window());
    ASSERT_TRUE(preferences().open());
    EXPECT_EQ(preferences().windows().at(0), window);
    display().minimize(window);
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() != window; }));
    EXPECT_TRUE(preferences().open());
}

TEST_P(PreferencesOpeningTest, FollowTheUserToEveryWorkspace) {
    ASSERT_TRUE(preferences().open());
    const xcb_window_t window = preferences().windows().at(0);
    display().showWorkspace(1);
    EXPECT_TRUE(waitUntil([&] { return display().workspace() == 1; }));
    EXPECT_TRUE(holdsFor(Duration(300), [&] { return display().isViewable(window); }));
    ASSERT_TRUE(preferences().close());
    ASSERT_TRUE(preferences().open());
    display().showWorkspace(0);
    EXPECT_TRUE(waitUntil([&] { return display().workspace() == 0; }));
    EXPECT_TRUE(holdsFor(Duration(300), [&] { return display().isViewable(preferences().windows().at(0)); }));
}

TEST_P(PreferencesOpeningTest, EscapeClosesThemAndTheProgramGoesOn) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(preferences().open());
        input().tap(XK_Escape);
        EXPECT_TRUE(preferences().waitUntilClosed());
        EXPECT_TRUE(agent().isRunning());
    }
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == application.window(); }));
    EXPECT_TRUE(popUp().openWith(application.expectedTitles()));
}

TEST_P(PreferencesOpeningTest, TheFramesOwnButtonClosesThemAndTheyOpenAgain) {
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(preferences().open());
        display().close(preferences().windows().at(0));
        EXPECT_TRUE(preferences().waitUntilClosed());
        EXPECT_TRUE(agent().isRunning());
    }
}

TEST_P(PreferencesOpeningTest, TheyOpenWhereTheUserHasLeftThem) {
    using Place = std::pair<int, int>;
    const auto place = [this] {
        const PixelRect frame = display().outerFrameOf(preferences().windows().at(0));
        return Place(frame.x, frame.y);
    };
    ASSERT_TRUE(preferences().open());
    for (const Place& left : {Place(120, 90), Place(310, 150)}) {
        display().moveWindow(preferences().windows().at(0), left.first, left.second);
        ASSERT_TRUE(waitUntil([&] { return place() == left; }));
        // However often they are opened there.
        for (int round = 0; round < 3; ++round) {
            ASSERT_TRUE(preferences().close());
            ASSERT_TRUE(preferences().open());
            EXPECT_TRUE(waitUntil([&] { return place() == left; })) << testing::PrintToString(left) << round;
        }
    }
}

TEST_P(PreferencesOpeningTest, TheFirstLaunchShowsTheHelpPane) {
    agent().process().terminate();
    std::filesystem::remove(Agent::preferencesFile(desktop()));
    // With the built-in combination, which is refused here.
    const auto first = desktop().start({E2E_TARRAGON});
    EXPECT_TRUE(waitUntil([&] { return display().managedWindowsOf(first->identifier()).size() == 1; }));
    const xcb_window_t window = display().managedWindowsOf(first->identifier()).at(0);
    EXPECT_TRUE(waitUntil([&] { return display().titleOf(window) == "Help"; }));
    EXPECT_TRUE(waitUntil([&] { return stored().boolean("FirstRun"); }));
    first->terminate();
    // The second launch shows nothing.
    restartAgent();
    EXPECT_TRUE(holdsFor(Duration(700), [&] { return !preferences().isOpen(); }));
}

TEST_P(PreferencesOpeningTest, TheTopEdgeStaysWhereItIsFromPaneToPane) {
    ASSERT_TRUE(preferences().open());
    const xcb_window_t window = preferences().windows().at(0);
    const PixelRect before = display().outerFrameOf(window);
    std::set<int> heights;
    for (const char* pane : {"Hot Key", "Window Top", "Screen Top", "Ignore List", "About", "Help", "General"}) {
        ASSERT_TRUE(preferences().showPane(pane)) << pane;
        const PixelRect now = display().outerFrameOf(window);
        EXPECT_EQ(now.x, before.x) << pane;
        EXPECT_EQ(now.y, before.y) << pane;
        EXPECT_EQ(now.width, before.width) << pane;
        heights.insert(now.height);
        EXPECT_TRUE(preferences().waitFor(pane, [](const Control& item) { return item.isChecked(); })) << pane;
    }
    EXPECT_GT(heights.size(), 3U);
    EXPECT_EQ(display().outerFrameOf(window), before);
}

INSTANTIATE_TEST_SUITE_P(Under, PreferencesOpeningTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
