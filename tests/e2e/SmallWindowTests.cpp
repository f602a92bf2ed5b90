// The program's small windows on a real desktop: the first launch's help, the about panel, the news of versions.
#include "EndToEndTest.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <X11/keysym.h>

namespace tarragon::e2e {

class SmallWindowTest : public WindowManagerTest {
protected:
    void TearDown() override {
        std::filesystem::remove(desktop().programFolder() / "xdg-open");
        // With it go windows that are still open.
        session().restartAgent();
        WindowManagerTest::TearDown();
    }

    std::vector<xcb_window_t> windowsOf(pid_t process) { return display().managedWindowsOf(process); }
    // The only window of the program; XCB_NONE when none comes.
    xcb_window_t waitForWindow(pid_t process) {
        waitUntil([&] { return !windowsOf(process).empty(); });
        const std::vector<xcb_window_t> windows = windowsOf(process);
        return windows.size() == 1 ? windows.front() : XCB_NONE;
    }
    static std::string contentsOf(const std::filesystem::path& file) {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
};

TEST_P(SmallWindowTest, OpensTheHelpAtTheFirstLaunchAlone) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    for (const bool isFirst : {true, false}) {
        agent().process().terminate();
        ASSERT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
        if (isFirst)
            agent().preferences().set("FirstRun", false);
        const std::unique_ptr<ChildProcess> program = desktop().start({E2E_TARRAGON});
        if (isFirst) {
            EXPECT_NE(waitForWindow(program->identifier()), XCB_NONE);
            EXPECT_TRUE(agent().preferences().boolean("FirstRun"));
        } else {
            // What comes after the start works already.
            ASSERT_TRUE(application.bringToFront());
            ASSERT_TRUE(waitUntil([&] { return agent().hotKeyIsRegistered(usualHotKey()); }));
            ASSERT_TRUE(waitUntil([&] {
                agent().pressHotKey();
                return !display().openMenus().empty();
            }));
            EXPECT_TRUE(windowsOf(program->identifier()).empty());
        }
        program->terminate();
    }
}

TEST_P(SmallWindowTest, ShowsThePreferencesWhenItIsStartedAgainAndOnCommand) {
    const auto shownTitles = [this] {
        std::vector<std::string> titles;
        for (const xcb_window_t window : windowsOf(agent().identifier()))
            titles.push_back(display().titleOf(window));
        return titles;
    };
    for (const std::vector<std::string>& arguments : {std::vector<std::string>(), {"preferences"}, {}}) {
        const CommandResult second = tarragon(arguments);
        EXPECT_EQ(second.status, 0);
        EXPECT_EQ(second.output, "");
        EXPECT_EQ(second.error, arguments.empty() ? "tarragon: already running on this display\n" : "");
        EXPECT_TRUE(waitUntil([&] { return shownTitles() == std::vector<std::string>{"General"}; }));
    }
    EXPECT_TRUE(agent().isRunning());
    EXPECT_TRUE(agent().hotKeyIsRegistered(usualHotKey()));
}

TEST_P(SmallWindowTest, BringsTheAboutPanelToTheFrontWithoutTakingTheFocus) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    const xcb_window_t active = display().activeWindow();
    ASSERT_TRUE(popUp().chooseByKeyboard({"Tarragon", "About Tarragon..."}));
    const xcb_window_t panel = waitForWindow(agent().identifier());
    ASSERT_NE(panel, XCB_NONE);
    EXPECT_EQ(display().titleOf(panel), "About Tarragon");
    // The window manager has had time to think of another one once a title has come back to it.
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    EXPECT_EQ(display().activeWindow(), active);
    EXPECT_TRUE(popUp().close());
}

TEST_P(SmallWindowTest, TellsOfANewerVersionAndOpensItsPage) {
    const std::filesystem::path opened = desktop().home() / "opened";
    const std::filesystem::path opener = desktop().programFolder() / "xdg-open";
    // It gets the environment that the program got, which chooses a platform of the toolkit for itself alone.
    std::ofstream(opener) << "#!/bin/sh\necho \"$1 ${QT_QPA_PLATFORM-none}\" >> '" << opened.string() << "'\n";
    std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
    std::string notes;
    for (int line = 0; line < 20; ++line)
        notes += "<li>Better</li>";
    const std::filesystem::path list = desktop().home() / "releases.xml";
    std::ofstream(list) << "<releases><release version='999.0'><description><ul>" << notes
                        << "</ul></description><url>https://example.org/999</url></release></releases>";
    agent().preferences().set("UpdateFeed", "file://" + list.string());
    session().restartAgent();

    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().chooseByKeyboard({"Tarragon", "Check for Updates"}));
    const xcb_window_t panel = waitForWindow(agent().identifier());
    ASSERT_NE(panel, XCB_NONE);
    // It grows by the notes.
    constexpr int HigherThanWithoutNotes = 250;
    ASSERT_TRUE(waitUntil([&] { return display().frameOf(panel).height > HigherThanWithoutNotes; }));
    display().activate(panel);
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == panel; }));
    input().tap(XK_Return);
    EXPECT_TRUE(waitUntil([&] { return contentsOf(opened) == "https://example.org/999 none\n"; }))
        << contentsOf(opened);
    std::filesystem::remove(opened);
    EXPECT_EQ(agent().process().standardError(), "");
    agent().preferences().set("UpdateFeed", "");
}

INSTANTIATE_TEST_SUITE_P(Under, SmallWindowTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
