// How the program ends, and what is left then.
#include "EndToEndTest.h"
#include "ProcessTree.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarragon::e2e {

class LifecycleTest : public WindowManagerTest {
protected:
    void TearDown() override {
        std::filesystem::remove(desktop().programFolder() / "xdg-open");
        if (!agent().isRunning())
            session().restartAgent();
        WindowManagerTest::TearDown();
    }

    static std::string contentsOf(const std::filesystem::path& file) {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    void expectNothingLeft(const std::vector<pid_t>& children) {
        EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
        EXPECT_TRUE(display().unmanagedWindowsOf(agent().identifier()).empty());
        EXPECT_TRUE(agent().openMenus().empty());
        for (pid_t child : children)
            EXPECT_NE(kill(child, 0), 0) << "process " << child << " is still there";
        // Nothing half-written beside the settings.
        for (const auto& entry : std::filesystem::directory_iterator(Agent::preferencesFile(desktop()).parent_path()))
            EXPECT_EQ(entry.path().extension(), ".plist") << entry.path();
        EXPECT_EQ(agent().process().standardError(), "");
    }
};

TEST_P(LifecycleTest, EndsFromItsOwnMenu) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    std::vector<pid_t> children = descendantsOf(agent().identifier());
    Menu own = popUp().openByKeyboard({"Tarragon"});
    EXPECT_EQ(titlesOf(own),
        (std::vector<std::string>{"About Tarragon...", "Preferences...", "Check for Updates", "Help...", "Quit"}));
    popUp().chooseByKeyboard({"Quit"});
    EXPECT_EQ(agent().process().waitForExit(), 0);
    expectNothingLeft(children);
    EXPECT_TRUE(application.process().isRunning());
}

TEST_P(LifecycleTest, EndsOnRequestOfTheSystem) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    for (bool withOpenMenu : {false, true}) {
        ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
        ASSERT_TRUE(withOpenMenu || popUp().close());
        std::vector<pid_t> children = descendantsOf(agent().identifier());
        agent().process().sendSignal(SIGTERM);
        EXPECT_EQ(agent().process().waitForExit(), 0) << "with " << (withOpenMenu ? "an" : "no") << " open menu";
        expectNothingLeft(children);
        session().restartAgent();
    }
}

TEST_P(LifecycleTest, EndsSoonWhileItTurnsToAStoppedApplication) {
    TestApplication& stopped = launch(ApplicationKind::Mousepad);
    TestApplication& geany = launch(ApplicationKind::Geany);
    ASSERT_TRUE(popUp().openWith(geany.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    stopped.process().sendSignal(SIGSTOP);
    ASSERT_TRUE(stopped.bringToFront());
    // It takes a second to find the application silent, and would otherwise give it two more to publish its menus. A
    // busy machine adds to the second.
    auto start = Clock::now();
    agent().process().sendSignal(SIGTERM);
    EXPECT_EQ(agent().process().waitForExit(), 0);
    EXPECT_LE(Clock::now() - start, Duration(2000));
    stopped.process().sendSignal(SIGCONT);
}

TEST_P(LifecycleTest, CanBeStartedAgainAfterItWasKilled) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    agent().process().sendSignal(SIGKILL);
    EXPECT_EQ(agent().process().waitForExit(), 128 + SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    session().restartAgent();
    EXPECT_TRUE(popUp().openWith(application.expectedTitles()));
    EXPECT_TRUE(popUp().close());
    EXPECT_EQ(agent().process().standardError(), "");
}

TEST_P(LifecycleTest, OutlivesAllApplications) {
    for (int round = 0; round < 3; ++round) {
        TestApplication& application = launch(ApplicationKind::Mousepad);
        ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
        ASSERT_TRUE(popUp().close());
        quit(application);
    }
    EXPECT_TRUE(agent().isRunning());
    EXPECT_LT(residentSizeOf(agent().identifier()), 180'000'000);
}

INSTANTIATE_TEST_SUITE_P(Under, LifecycleTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
