// What the preferences warn of and the buttons that act on all of them at once.
#include "Panel.h"
#include "ProcessTree.h"
#include "TrayWindow.h"
#include "bars/Bars.h"
#include "preferences/PreferencesEndToEndTest.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>

#include <unistd.h>

namespace tarragon::e2e {

namespace {

const std::string Warning = "Now nothing opens the menus any more";
constexpr const char* HotKeyBox = "Enable hotkey";
constexpr const char* PanelBox = "Show a panel above the window in front";
constexpr const char* BarsBox = "Show a menu bar on every screen but the first";

} // namespace

class PreferencesActionTest : public WindowManagerPreferencesTest {
protected:
    void TearDown() override {
        display().setOneMonitor();
        if (!agent().isRunning())
            restartAgent();
        WindowManagerPreferencesTest::TearDown();
    }
    bool clickIn(const std::string& pane, const std::string& name) {
        return preferences().showPane(pane) && preferences().click(name);
    }
    bool warns(const std::string& pane) { return preferences().showPane(pane) && preferences().says(Warning); }
    bool comesToWarn() { return preferences().waitUntilSays(Warning); }
    bool ceasesToWarn() {
        return waitUntil([&] { return !preferences().says(Warning); });
    }
    // Those of this desktop that run the program.
    std::vector<pid_t> programs() {
        std::vector<pid_t> programs;
        for (const pid_t process : descendantsOf(getpid())) {
            std::error_code ended;
            const auto file = std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/exe", ended);
            if (file == std::filesystem::canonical(E2E_TARRAGON)
                && hasEnvironmentVariable(process, "HOME=" + desktop().home().string()))
                programs.push_back(process);
        }
        return programs;
    }
};

TEST_P(PreferencesActionTest, TheBoxThatSwitchesTheLastWayOffIsWarnedOf) {
    struct Row {
        const char* pane;
        const char* box;
        std::vector<std::string> warned; // panes
        std::vector<std::string> notWarned;
    };
    const Row rows[] = {{"Hot Key", HotKeyBox, {"Hot Key"}, {"Window Top", "Screen Top"}},
        {"Window Top", PanelBox, {"Window Top", "Screen Top"}, {"Hot Key"}},
        {"Screen Top", BarsBox, {"Window Top", "Screen Top"}, {"Hot Key"}}};
    ASSERT_TRUE(preferences().open());
    for (const Row& last : rows) {
        for (const Row& other : rows) {
            if (other.box == last.box)
                continue;
            ASSERT_TRUE(clickIn(other.pane, other.box));
            EXPECT_FALSE(preferences().says(Warning)) << other.box;
        }
        ASSERT_TRUE(clickIn(last.pane, last.box));
        EXPECT_TRUE(comesToWarn()) << last.box;
        for (const std::string& pane : last.warned)
            EXPECT_TRUE(warns(pane)) << last.box << ", " << pane;
        for (const std::string& pane : last.notWarned)
            EXPECT_FALSE(warns(pane)) << last.box << ", " << pane;
        // The setting is not changed back.
        for (const char* key : {"EnableHotkey", "EnableButton", "EnableScreenTop"}) {
            EXPECT_TRUE(stored().has(key));
            EXPECT_FALSE(stored().boolean(key)) << key;
        }
        for (const Row& row : rows) {
            ASSERT_TRUE(clickIn(row.pane, row.box));
            EXPECT_TRUE(ceasesToWarn()) << row.box;
        }
    }
}

TEST_P(PreferencesActionTest, TheWarningGoesWithAReset) {
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(clickIn("Hot Key", HotKeyBox));
    ASSERT_TRUE(clickIn("Screen Top", BarsBox));
    ASSERT_TRUE(clickIn("Window Top", PanelBox));
    ASSERT_TRUE(comesToWarn());
    ASSERT_TRUE(clickIn("General", "Reset to Defaults"));
    ASSERT_TRUE(preferences().showPane("Window Top"));
    EXPECT_TRUE(ceasesToWarn());
    EXPECT_TRUE(preferences().control(PanelBox)->isChecked());
}

TEST_P(PreferencesActionTest, ResetBringsEverySettingBackAndTheCombinationShown) {
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().click("Show keyboard shortcuts"));
    ASSERT_TRUE(storesBoolean("ShowKeyEquivalents", false));
    ASSERT_TRUE(preferences().click("Launch on login"));
    ASSERT_TRUE(storesBoolean("LaunchOnLogin", true));
    const std::filesystem::path entry = desktop().configurationFolder() / "autostart" / "tarragon.desktop";
    EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(entry); }));
    ASSERT_TRUE(clickIn("Window Top", "One button that opens all menus"));
    ASSERT_TRUE(storesBoolean("Horizontal", false));
    ASSERT_TRUE(preferences().showPane("Hot Key"));
    const std::string recorder = "Combination of keys that opens the menus: ";
    EXPECT_TRUE(preferences().waitFor(recorder + "Ctrl+Alt+Space"));

    ASSERT_TRUE(clickIn("General", "Reset to Defaults"));
    EXPECT_TRUE(preferences().waitFor("Show keyboard shortcuts", [](const Control& box) { return box.isChecked(); }));
    EXPECT_TRUE(preferences().waitFor("Launch on login", [](const Control& box) { return !box.isChecked(); }));
    EXPECT_TRUE(waitUntil([&] { return !std::filesystem::exists(entry); }));
    EXPECT_TRUE(waitUntil([&] { return !stored().has("ShowKeyEquivalents") && !stored().has("TriggerModifiers"); }));
    ASSERT_TRUE(preferences().showPane("Window Top"));
    EXPECT_TRUE(preferences().waitFor("Every title, side by side", [](const Control& box) { return box.isChecked(); }));
    ASSERT_TRUE(preferences().showPane("Hot Key"));
    EXPECT_TRUE(preferences().waitFor(recorder + "Alt+Space"));
    EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    // Not the first launch once more.
    EXPECT_TRUE(stored().boolean("FirstRun"));
}

TEST_P(PreferencesActionTest, ApplyStartsTheProgramAnewWithTheSameSettings) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().click("Show keyboard shortcuts"));
    ASSERT_TRUE(storesBoolean("ShowKeyEquivalents", false));
    const pid_t before = agent().identifier();
    ASSERT_TRUE(preferences().click("Apply and Relaunch"));
    EXPECT_EQ(agent().process().waitForExit(), 0);
    EXPECT_TRUE(waitUntil([&] { return display().managedWindowsOf(before).empty(); }));
    // It is up when its combination is.
    EXPECT_TRUE(waitUntil([&] { return agent().hotKeyIsRegistered(usualHotKey()); }, Duration(20000)));
    EXPECT_FALSE(stored().boolean("ShowKeyEquivalents"));
    EXPECT_TRUE(holdsFor(Duration(500), [&] { return display().managedWindows().size() == 1; }));
    const std::vector<pid_t> processes = programs();
    ASSERT_EQ(processes.size(), 1U);
    EXPECT_NE(processes[0], before);
    kill(processes[0], SIGTERM);
    EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    EXPECT_TRUE(application.process().isRunning());
}

TEST_P(PreferencesActionTest, QuitEndsTheProgram) {
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().click("Quit Tarragon"));
    EXPECT_EQ(agent().process().waitForExit(), 0);
    EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    EXPECT_TRUE(waitUntil([&] { return display().managedWindows().empty(); }));
}

TEST_P(PreferencesActionTest, WhatIsSwitchedOffGoesAtOnceAndComesBack) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(preferences().open());
    const xcb_window_t window = preferences().windows().at(0);
    Panel panel(display(), agent());
    const auto measured = [&](const char* what, const std::string& box, const std::function<bool()>& condition) {
        ASSERT_TRUE(preferences().click(box)) << what;
        const auto clicked = Clock::now();
        EXPECT_TRUE(waitUntil(condition)) << what;
        std::cout << what << " " << std::chrono::duration_cast<Duration>(Clock::now() - clicked).count()
                  << " ms after the click\n";
    };
    // The tray.
    TrayWindow tray(desktop().environment().at("DISPLAY"));
    ASSERT_TRUE(waitUntil([&] { return tray.itemCount() == 1; }));
    measured("the status item is gone", "Show an icon in the tray", [&] { return tray.itemCount() == 0; });
    measured("the status item is back", "Show an icon in the tray", [&] { return tray.itemCount() == 1; });
    // The panel.
    ASSERT_TRUE(preferences().showPane("Window Top"));
    ASSERT_TRUE(panel.waitUntilSeen());
    measured("the panel is gone", PanelBox, [&] { return !panel.isSeen(); });
    measured("the panel is back", PanelBox, [&] { return panel.isSeen(); });
    // The combination of keys.
    ASSERT_TRUE(preferences().showPane("Hot Key"));
    measured("the hot key is free", HotKeyBox, [&] { return !agent().hotKeyIsRegistered(usualHotKey()); });
    measured("the hot key is taken", HotKeyBox, [&] { return agent().hotKeyIsRegistered(usualHotKey()); });
    // The bars.
    display().setTwoMonitors();
    Bars bars(display(), agent());
    constexpr Duration TimeForBars(20000);
    ASSERT_TRUE(waitUntil([&] { return bars.seen().size() == 1; }, TimeForBars));
    ASSERT_TRUE(preferences().showPane("Screen Top"));
    measured("the bar is gone", BarsBox, [&] { return bars.seen().empty(); });
    measured("the bar is back", BarsBox, [&] { return bars.seen().size() == 1; });
    display().setOneMonitor();
    EXPECT_TRUE(waitUntil([&] { return bars.seen().empty(); }, TimeForBars));
    EXPECT_EQ(preferences().windows().at(0), window);
    EXPECT_TRUE(application.process().isRunning());
}

TEST_P(PreferencesActionTest, TheWindowSaysWhenChangesAreNotKeptAndTheyAreOnceTheyCanBe) {
    const std::string unwritten = "The settings cannot be written to disk";
    const std::filesystem::path folder = desktop().configurationFolder() / "tarragon";
    const std::filesystem::path aside = desktop().home() / "aside";
    ASSERT_TRUE(preferences().open());
    EXPECT_FALSE(preferences().says(unwritten));
    // A file in the way of the folder keeps everybody from writing, root too.
    std::filesystem::rename(folder, aside);
    std::ofstream(folder) << "in the way";
    ASSERT_TRUE(clickIn("Screen Top", BarsBox));
    EXPECT_TRUE(preferences().waitUntilSays(unwritten));
    std::filesystem::remove(folder);
    std::filesystem::rename(aside, folder);
    EXPECT_TRUE(stored().boolean("EnableScreenTop") || !stored().has("EnableScreenTop"));
    ASSERT_TRUE(clickIn("Window Top", PanelBox));
    EXPECT_TRUE(preferences().waitUntilSays("Every change counts at once."));
    EXPECT_FALSE(preferences().says(unwritten));
    EXPECT_TRUE(storesBoolean("EnableScreenTop", false));
    EXPECT_TRUE(storesBoolean("EnableButton", false));
}

INSTANTIATE_TEST_SUITE_P(Under, PreferencesActionTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
