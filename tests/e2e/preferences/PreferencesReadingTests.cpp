// What a screen reader and a user without a pointer find in the preferences, in the user's language, and what is left
// of it all once they are closed.
#include "ProcessTree.h"
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace tarragon::e2e {

namespace {

constexpr const char* Panes[] = {"General", "Hot Key", "Window Top", "Screen Top", "Ignore List", "About", "Help"};

// What takes the focus for others does not count, nor do texts that are only to be marked, and rows go with their
// table.
bool canHaveFocus(const Control& control) {
    static const std::set<std::string> others{"tree item", "frame", "dialog", "filler", "label"};
    return control.has("focusable") && !others.contains(control.role);
}

} // namespace

class PreferencesReadingTest : public WindowManagerPreferencesTest {
protected:
    void TearDown() override {
        if (_hasAdditions && !HasFailure())
            restartAgent();
        WindowManagerPreferencesTest::TearDown();
    }
    void restartWith(const Environment& additions) {
        _hasAdditions = true;
        restartAgent(usualHotKey(), additions);
    }
    std::vector<Control> focusable() {
        std::vector<Control> shown = preferences().controls();
        std::erase_if(shown, [](const Control& control) { return !canHaveFocus(control) || !control.isEnabled(); });
        return shown;
    }
    std::size_t descriptors() {
        const std::filesystem::path folder = "/proc/" + std::to_string(agent().identifier()) + "/fd";
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
    }

private:
    bool _hasAdditions = false;
};

TEST_P(PreferencesReadingTest, EveryControlOfEveryPaneHasAName) {
    constexpr std::size_t FewestControls = 50; // of all panes, the items of the toolbar with each
    ASSERT_TRUE(preferences().open());
    std::size_t count = 0;
    for (const char* pane : Panes) {
        ASSERT_TRUE(preferences().showPane(pane));
        for (const Control& control : preferences().controls()) {
            if (!canHaveFocus(control))
                continue;
            EXPECT_NE(control.name, "") << control.role << " of " << pane;
            ++count;
        }
    }
    EXPECT_GT(count, FewestControls);
    ASSERT_TRUE(preferences().showPane("Ignore List"));
    ASSERT_TRUE(preferences().click("Add an application to the list"));
    ASSERT_TRUE(preferences().waitFor("Search applications"));
    for (const Control& control : preferences().controls()) {
        if (control.window != "Add Application" || !canHaveFocus(control))
            continue;
        EXPECT_NE(control.name, "") << control.role << " of the sheet";
    }
}

TEST_P(PreferencesReadingTest, TabAloneLeadsToEveryControl) {
    ASSERT_TRUE(preferences().open());
    for (const char* pane : Panes) {
        ASSERT_TRUE(preferences().showPane(pane));
        const std::vector<Control> visited = preferences().tabThrough();
        for (const Control& control : focusable()) {
            // Of radio buttons, Tab leads to the one that is chosen and arrow keys to the others.
            if (control.role == "radio button" && !control.isChecked())
                continue;
            const bool isVisited = std::any_of(visited.begin(), visited.end(), [&](const Control& other) {
                return other.role == control.role && other.name == control.name && other.frame == control.frame;
            });
            EXPECT_TRUE(isVisited) << control.role << " " << control.name << " of " << pane;
        }
    }
}

// A screen reader asks for a name when it is told that there is a new one.
TEST_P(PreferencesReadingTest, TellAScreenReaderWhatTheRecorderShows) {
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Hot Key"));
    const std::string recorder = "Combination of keys that opens the menus: ";
    const auto field = preferences().waitFor(recorder);
    ASSERT_TRUE(field);
    const auto reader = desktop().start({E2E_READER, "names", std::to_string(agent().identifier())});
    std::size_t heard = 0;
    const auto hears = [&](const std::string& words) {
        return waitUntil([&] {
            const std::string all = reader->standardOutput();
            const std::size_t found = all.find('"' + words + '"', heard);
            if (found != std::string::npos)
                heard = found + 1;
            return found != std::string::npos;
        });
    };
    ASSERT_TRUE(hears("ready"));
    preferences().clickInto(*field);
    EXPECT_TRUE(hears(recorder + "Press the keys"));
    input().hold(XK_Control_L);
    EXPECT_TRUE(hears(recorder + "Ctrl+…"));
    input().releaseAll();
    input().tap(XK_Escape);
    EXPECT_TRUE(hears(recorder + "Ctrl+Alt+Space"));
}

TEST_P(PreferencesReadingTest, SpeakTheLanguageOfTheSession) {
    struct Language {
        const char* code;
        const char* general;
        const char* box;
        const char* help;
    };
    for (const Language& language : {Language{"de", "Allgemein", "Tastenkürzel anzeigen", "Hilfe"},
             Language{"fr", "Général", "Afficher les raccourcis clavier", "Aide"}}) {
        restartWith({{"LANGUAGE", language.code}});
        ASSERT_TRUE(preferences().open());
        EXPECT_EQ(preferences().title(), language.general);
        EXPECT_TRUE(preferences().control(language.box)) << language.code;
        EXPECT_TRUE(preferences().showPane(language.help)) << language.code;
        ASSERT_TRUE(preferences().close());
    }
}

// Points and pixels do not meet there, so windows come out a point lower or higher than they were asked to be.
TEST_P(PreferencesReadingTest, HaveNoScrollBarAtAFractionalScale) {
    restartWith({{"QT_SCALE_FACTOR", "1.5"}});
    ASSERT_TRUE(preferences().open());
    const auto frame = [&] { return display().frameOf(preferences().windows().at(0)); };
    for (const char* pane : Panes) {
        ASSERT_TRUE(waitUntil([&] { return preferences().title() == pane; })) << preferences().title();
        ASSERT_TRUE(waitUntil([&] {
            const PixelRect now = frame();
            return holdsFor(Duration(200), [&] { return frame() == now; });
        }));
        const auto isScrollBar = [](const Control& control) { return control.role == "scroll bar"; };
        EXPECT_TRUE(waitUntil([&] { return !preferences().find(isScrollBar); })) << pane;
        input().tap(XK_Tab);
        input().tap(XK_space);
    }
}

TEST_P(PreferencesReadingTest, LeaveNothingBehindHoweverOftenTheyAreOpened) {
    constexpr int WarmUp = 5;
    constexpr int Rounds = 30;
    constexpr long MostGrowth = 3L * 1024 * 1024; // bytes
    const auto openAndClose = [&](int times) {
        for (int time = 0; time < times; ++time) {
            if (Agent::run(desktop(), {"preferences"}).status != 0
                || !waitUntil([&] { return preferences().windows().size() == 1; }))
                return false;
            display().close(preferences().windows().at(0));
            if (!preferences().waitUntilClosed())
                return false;
        }
        return true;
    };
    ASSERT_TRUE(openAndClose(WarmUp));
    const long memory = residentSizeOf(agent().identifier());
    const std::size_t open = descriptors();
    ASSERT_TRUE(openAndClose(Rounds));
    EXPECT_LT(residentSizeOf(agent().identifier()) - memory, MostGrowth);
    EXPECT_TRUE(waitUntil([&] { return descriptors() <= open; }));
}

// None of it is the window manager's.
INSTANTIATE_TEST_SUITE_P(Under, PreferencesReadingTest, testing::Values(WindowManager::Openbox), nameOfWindowManager);

} // namespace tarragon::e2e
