// What opens the menus, chosen in the preferences: the recorder of a combination of keys, and the field that learns a
// mouse button.
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

const std::string Recorder = "Combination of keys that opens the menus: ";

} // namespace

class PreferencesRecorderTest : public WindowManagerPreferencesTest {
protected:
    bool openRecorderPane() { return preferences().open() && preferences().showPane("Hot Key"); }
    bool shows(const std::string& words) {
        const auto showsThem = [&](const Control& control) { return control.name == Recorder + words; };
        return preferences().waitFor(Recorder, showsThem).has_value();
    }
    bool records() {
        return shows("Press the keys") && waitUntil([&] { return display().keyboardIsGrabbed(); });
    }
    bool startByClick() {
        const auto recorder = preferences().waitFor(Recorder);
        if (!recorder)
            return false;
        preferences().clickInto(*recorder);
        return records();
    }
    bool isTaken(const HotKey& hotKey) {
        return waitUntil([&] { return agent().hotKeyIsRegistered(hotKey); });
    }
    bool isFree(const HotKey& hotKey) {
        return waitUntil([&] { return !agent().hotKeyIsRegistered(hotKey); });
    }
    void press(const HotKey& hotKey) { input().tap(hotKey.symbol, hotKey.modifierSymbols); }
    // Tab by Tab until it is reached.
    bool tabTo(const std::string& name) {
        constexpr std::size_t MostSteps = 40;
        for (std::size_t step = 0; step < MostSteps; ++step) {
            const auto now = preferences().focused();
            if (now && now->name.starts_with(name))
                return true;
            input().tap(XK_Tab);
            waitUntil([&] {
                const auto next = preferences().focused();
                return next && (!now || next->name != now->name || next->frame != now->frame);
            });
        }
        return false;
    }
};

TEST_P(PreferencesRecorderTest, ACombinationRecordedAfterAClickOpensTheMenus) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(openRecorderPane());
    ASSERT_TRUE(shows("Ctrl+Alt+Space"));
    ASSERT_TRUE(startByClick());
    // What is held shows before the key.
    input().hold(XK_Control_L);
    EXPECT_TRUE(shows("Ctrl+…"));
    input().hold(XK_Shift_L);
    EXPECT_TRUE(shows("Ctrl+Shift+…"));
    input().tap(XK_space);
    input().releaseAll();
    EXPECT_TRUE(shows("Ctrl+Shift+Space"));
    EXPECT_TRUE(isTaken(otherHotKey()));
    EXPECT_TRUE(isFree(usualHotKey()));
    EXPECT_EQ(stored().integer("TriggerModifiers"), otherHotKey().modifierFlags);
    EXPECT_EQ(stored().integer("TriggerCharacterUInt"), otherHotKey().keyCode);
    agent().expectHotKey(otherHotKey());
    ASSERT_TRUE(preferences().close());
    EXPECT_TRUE(popUp().openWith(application.expectedTitles()));
}

TEST_P(PreferencesRecorderTest, ACombinationIsRecordedByKeyboardAlone) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(tabTo("Hot Key"));
    input().tap(XK_space);
    ASSERT_TRUE(waitUntil([&] { return preferences().title() == "Hot Key"; }));
    ASSERT_TRUE(tabTo(Recorder));
    input().tap(XK_Return);
    ASSERT_TRUE(records());
    press(otherHotKey());
    EXPECT_TRUE(shows("Ctrl+Shift+Space"));
    EXPECT_TRUE(isTaken(otherHotKey()));
    agent().expectHotKey(otherHotKey());
    input().tap(XK_Escape);
    ASSERT_TRUE(preferences().waitUntilClosed());
    EXPECT_TRUE(popUp().openWith(application.expectedTitles()));
}

TEST_P(PreferencesRecorderTest, EscapeKeepsTheCombinationAndTheWindow) {
    ASSERT_TRUE(openRecorderPane());
    ASSERT_TRUE(startByClick());
    input().tap(XK_Escape);
    EXPECT_TRUE(shows("Ctrl+Alt+Space"));
    EXPECT_TRUE(waitUntil([&] { return !display().keyboardIsGrabbed(); }));
    EXPECT_TRUE(agent().hotKeyIsRegistered(usualHotKey()));
    EXPECT_EQ(preferences().title(), "Hot Key");
}

TEST_P(PreferencesRecorderTest, BackspaceLeavesNoCombinationUntilAnotherIsRecorded) {
    ASSERT_TRUE(openRecorderPane());
    ASSERT_TRUE(startByClick());
    input().tap(XK_BackSpace);
    EXPECT_TRUE(shows("Record a combination"));
    EXPECT_TRUE(isFree(usualHotKey()));
    EXPECT_TRUE(waitUntil([&] { return !stored().has("NewTrigger"); }));
    ASSERT_TRUE(startByClick());
    press(usualHotKey());
    EXPECT_TRUE(shows("Ctrl+Alt+Space"));
    EXPECT_TRUE(isTaken(usualHotKey()));
}

TEST_P(PreferencesRecorderTest, RecordsTheCombinationThatOpensTheMenusNow) {
    launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(openRecorderPane());
    ASSERT_TRUE(startByClick());
    press(usualHotKey());
    EXPECT_TRUE(shows("Ctrl+Alt+Space"));
    EXPECT_TRUE(isTaken(usualHotKey()));
    EXPECT_TRUE(agent().openMenus().empty());
}

TEST_P(PreferencesRecorderTest, FollowsACombinationThatIsSetElsewhere) {
    ASSERT_TRUE(openRecorderPane());
    ASSERT_TRUE(shows("Ctrl+Alt+Space"));
    ASSERT_TRUE(agent().changeHotKey(otherHotKey()));
    EXPECT_TRUE(shows("Ctrl+Shift+Space"));
}

TEST_P(PreferencesRecorderTest, TheMouseButtonIsTheOneThatTheFieldIsClickedWith) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(openRecorderPane());
    const std::string field = "Button Number: ";
    const auto showsNumber = [&](const std::string& number) {
        return preferences()
            .waitFor(field, [&](const Control& control) { return control.name == field + number; })
            .has_value();
    };
    ASSERT_TRUE(showsNumber("2"));
    EXPECT_FALSE(preferences().control(field)->isEnabled());
    ASSERT_TRUE(preferences().click("Open the menus with a mouse button"));
    ASSERT_TRUE(storesBoolean("EnableMouseButton", true));
    ASSERT_TRUE(preferences().waitFor(field, [](const Control& control) { return control.isEnabled(); }));
    // Neither of the buttons that every window needs for itself.
    for (const std::uint8_t button : {1, 3})
        preferences().clickInto(*preferences().control(field), button);
    constexpr std::uint8_t Back = 8;
    preferences().clickInto(*preferences().control(field), Back);
    EXPECT_TRUE(showsNumber("3"));
    EXPECT_TRUE(storesInteger("MouseButton", 3));
    stored().set("MouseButton", std::uint64_t{4});
    EXPECT_TRUE(showsNumber("4"));
    preferences().clickInto(*preferences().control(field), Back);
    EXPECT_TRUE(showsNumber("3"));
    ASSERT_TRUE(preferences().close());
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    const PixelRect frame = display().frameOf(application.window());
    input().moveTo(frame.x + frame.width / 2, frame.y + frame.height / 2);
    EXPECT_TRUE(popUp().openByButton(Back));
    input().releaseAll();
}

INSTANTIATE_TEST_SUITE_P(Under, PreferencesRecorderTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
