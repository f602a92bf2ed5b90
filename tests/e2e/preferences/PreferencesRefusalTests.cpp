// A combination of keys that the desktop keeps for itself: who is told, and what leads to one that is free.
#include "preferences/PreferencesEndToEndTest.h"

#include <algorithm>
#include <csignal>
#include <filesystem>

namespace tarragon::e2e {

namespace {

const std::string Recorder = "Combination of keys that opens the menus: ";
const std::string Refused = "keeps this combination for itself";

} // namespace

class PreferencesRefusalTest : public WindowManagerPreferencesTest {
protected:
    void SetUp() override {
        WindowManagerPreferencesTest::SetUp();
        _service = desktop().start({E2E_NOTIFICATION_SERVICE});
        ASSERT_TRUE(waitUntil([&] { return _service->standardOutput() == "ready\n"; }));
    }
    void TearDown() override {
        _service.reset();
        WindowManagerPreferencesTest::TearDown();
    }
    std::string notifications() { return _service->standardOutput().substr(std::string("ready\n").size()); }
    std::size_t countOfNotifications() {
        const std::string shown = notifications();
        return static_cast<std::size_t>(std::count(shown.begin(), shown.end(), '\n'));
    }
    // Window managers switch windows with it.
    static HotKey otherTakenHotKey() {
        constexpr std::uint32_t TabKeyCode = 48;
        HotKey hotKey = takenHotKey();
        hotKey.keyCode = TabKeyCode;
        hotKey.text = "Alt+Tab";
        return hotKey;
    }
    // It is up when it has told of the refusal, which it does once an application is in front.
    bool startWithTakenHotKey() {
        launch(ApplicationKind::Mousepad);
        restartAgent(takenHotKey());
        return waitUntil([&] { return countOfNotifications() == 1; });
    }
    void set(const HotKey& hotKey) { stored().setHotKey(hotKey.keyCode, hotKey.modifierFlags, hotKey.text); }

    std::unique_ptr<ChildProcess> _service;
};

TEST_P(PreferencesRefusalTest, ANotificationTellsOfEachCombinationOnceAndOpensTheRecorder) {
    ASSERT_TRUE(startWithTakenHotKey());
    EXPECT_NE(notifications().find("Space does not open the menus\t"), std::string::npos) << notifications();
    EXPECT_NE(notifications().find("\tChoose Another\n"), std::string::npos) << notifications();
    _service->sendSignal(SIGUSR1);
    ASSERT_TRUE(preferences().waitUntilOpen());
    EXPECT_EQ(preferences().title(), "Hot Key");
    EXPECT_TRUE(preferences().waitFor(Recorder + "Press the keys"));
    EXPECT_TRUE(preferences().says(Refused));
    // A free one, and the refused one again.
    input().tap(otherHotKey().symbol, otherHotKey().modifierSymbols);
    EXPECT_TRUE(waitUntil([&] { return agent().hotKeyIsRegistered(otherHotKey()); }));
    EXPECT_TRUE(waitUntil([&] { return !preferences().says(Refused); }));
    set(takenHotKey());
    EXPECT_TRUE(preferences().waitUntilSays(Refused));
    set(otherTakenHotKey());
    EXPECT_TRUE(waitUntil([&] { return countOfNotifications() == 2; }));
    EXPECT_NE(notifications().find("Tab does not open the menus\t"), std::string::npos) << notifications();
}

TEST_P(PreferencesRefusalTest, IsSaidBesideTheRecorderWithAButtonThatTakesAnother) {
    ASSERT_TRUE(startWithTakenHotKey());
    ASSERT_TRUE(preferences().open());
    EXPECT_FALSE(preferences().says(Refused));
    ASSERT_TRUE(preferences().showPane("Hot Key"));
    ASSERT_TRUE(preferences().says(Refused));
    ASSERT_TRUE(preferences().click("Try Another Combination"));
    EXPECT_TRUE(waitUntil([&] { return !preferences().says(Refused); }));
    EXPECT_FALSE(preferences().control("Try Another Combination"));
    EXPECT_FALSE(preferences().control(Recorder + "Alt+Space"));
    EXPECT_NE(stored().text("NewTrigger"), takenHotKey().text);
}

TEST_P(PreferencesRefusalTest, TheHelpOfTheFirstLaunchProposesAFreeOneThatAClickTakes) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    agent().process().terminate();
    ASSERT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    std::filesystem::remove(Agent::preferencesFile(desktop()));
    const auto first = desktop().start({E2E_TARRAGON});
    PreferencesWindow window(desktop(), first->identifier());
    ASSERT_TRUE(window.waitUntilOpen());
    EXPECT_TRUE(waitUntil([&] { return window.title() == "Help"; }));
    ASSERT_TRUE(window.waitUntilSays(Refused));
    const auto button = window.waitFor("Use ");
    ASSERT_TRUE(button);
    const std::string words = button->name.substr(std::string("Use ").size());
    EXPECT_TRUE(window.says(words + " is free"));
    window.click(*button);
    EXPECT_TRUE(waitUntil([&] { return !window.says(Refused); }));
    EXPECT_TRUE(window.says("Press " + words + " anywhere"));
    EXPECT_TRUE(stored().has("TriggerModifiers"));
    EXPECT_NE(stored().integer("TriggerModifiers"), takenHotKey().modifierFlags);
    EXPECT_EQ(window.title(), "Help");
    first->terminate();
    restartAgent();
    EXPECT_TRUE(application.process().isRunning());
}

INSTANTIATE_TEST_SUITE_P(Under, PreferencesRefusalTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
