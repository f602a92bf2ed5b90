// The combination of keys: refused by the desktop, changed while the program runs, switched off.
#include "EndToEndTest.h"

namespace tarragon::e2e {

class HotKeyTest : public WindowManagerTest {
protected:
    void TearDown() override {
        // The others find the usual combination again.
        if (agent().hotKey().text != usualHotKey().text || !agent().isRunning())
            session().restartAgent();
        WindowManagerTest::TearDown();
    }

    static std::size_t linesWith(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++count;
        return count;
    }
};

TEST_P(HotKeyTest, ARefusedCombinationIsReportedOnceAndAnotherOneWorksAtOnce) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    std::vector<std::string> titles = application.expectedTitles();
    session().restartAgent(takenHotKey());
    EXPECT_TRUE(waitUntil([&] { return !agent().process().standardError().empty(); }));
    // Everything else works.
    EXPECT_EQ(tarragon({"menus"}).status, 0);
    ASSERT_TRUE(agent().changeHotKey(otherHotKey()));
    EXPECT_TRUE(popUp().openWith(titles));
    EXPECT_TRUE(popUp().close());
    std::string written = agent().process().standardError();
    EXPECT_EQ(linesWith(written, "hot key"), 1U) << written;
}

TEST_P(HotKeyTest, AChangedCombinationReplacesTheOldOne) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    ASSERT_TRUE(agent().changeHotKey(otherHotKey()));
    EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    EXPECT_TRUE(popUp().open());
    EXPECT_TRUE(popUp().close());
}

TEST_P(HotKeyTest, CanBeSwitchedOffAndOnAgain) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    for (int round = 0; round < 2; ++round) {
        agent().preferences().set("EnableHotkey", false);
        EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
        agent().preferences().set("EnableHotkey", true);
        EXPECT_TRUE(waitUntil([&] { return agent().hotKeyIsRegistered(usualHotKey()); }));
    }
    EXPECT_TRUE(popUp().open());
}

INSTANTIATE_TEST_SUITE_P(Under, HotKeyTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
