// The program in the session's autostart folder, by its preference.
#include "EndToEndTest.h"
#include "ProcessTree.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarragon::e2e {

class LaunchOnLoginTest : public WindowManagerTest {
protected:
    void TearDown() override {
        agent().preferences().set("LaunchOnLogin", false);
        session().restartAgent();
        WindowManagerTest::TearDown();
    }

    std::filesystem::path entry() { return desktop().configurationFolder() / "autostart" / "tarragon.desktop"; }
    std::string contentsOfEntry() {
        std::ifstream stream(entry());
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    void restartWith(bool launchOnLogin) {
        agent().preferences().set("LaunchOnLogin", launchOnLogin);
        session().restartAgent();
    }
};

TEST_P(LaunchOnLoginTest, ComesAndGoesWithThePreferenceAtTheNextStart) {
    EXPECT_FALSE(std::filesystem::exists(entry()));
    restartWith(true);
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(entry()); }));
    const std::string contents = contentsOfEntry();
    EXPECT_NE(contents.find("\nName=Tarragon\n"), std::string::npos) << contents;
    EXPECT_NE(contents.find(std::filesystem::canonical(E2E_TARRAGON).string()), std::string::npos) << contents;
    const CommandResult validation = desktop().run({"desktop-file-validate", entry().string()});
    EXPECT_EQ(validation.status, 0) << validation.output << validation.error;

    // Another start with the preference on leaves one entry, as it is.
    session().restartAgent();
    EXPECT_EQ(contentsOfEntry(), contents);
    const std::filesystem::directory_iterator entries(entry().parent_path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);

    restartWith(false);
    EXPECT_TRUE(waitUntil([this] { return !std::filesystem::exists(entry()); }));
}

// The same path is that of the copy that takes the place of a program that ends.
TEST_P(LaunchOnLoginTest, NamesTheProgramByItsFullPathHoweverItWasStarted) {
    const std::filesystem::path program = std::filesystem::canonical(E2E_TARRAGON);
    const std::filesystem::path link = desktop().programFolder() / "tarragon-by-name";
    std::filesystem::create_symlink(program, link);
    const std::filesystem::path starter = desktop().home() / "start";
    agent().preferences().set("LaunchOnLogin", true);
    TestApplication& application = launch(ApplicationKind::Terminal);
    for (const std::string& command : {std::string("exec tarragon-by-name"),
             "cd '" + program.parent_path().string() + "' && exec ./" + program.filename().string()}) {
        agent().process().terminate();
        ASSERT_TRUE(waitUntil([this] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
        std::filesystem::remove(entry());
        std::ofstream(starter) << "#!/bin/sh\n" << command << "\n";
        std::filesystem::permissions(starter, std::filesystem::perms::owner_all);
        const Agent other(desktop(), usualHotKey(), starter);
        EXPECT_TRUE(waitUntil([this] { return std::filesystem::exists(entry()); }));
        EXPECT_NE(contentsOfEntry().find("\nExec=" + program.string() + "\n"), std::string::npos) << contentsOfEntry();
    }
    std::filesystem::remove(link);
    std::filesystem::remove(starter);
    EXPECT_TRUE(application.process().isRunning());
}

TEST_P(LaunchOnLoginTest, IsStartedByTheSession) {
    restartWith(true);
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(entry()); }));
    agent().process().terminate();
    ASSERT_TRUE(waitUntil([this] { return !agent().hotKeyIsRegistered(usualHotKey()); }));

    TestApplication& application = launch(ApplicationKind::Terminal);
    const auto starter = desktop().start({"dex", "--wait", entry().string()});
    EXPECT_TRUE(waitUntil([this] { return agent().hotKeyIsRegistered(usualHotKey()); }, Duration(20000)))
        << starter->standardError();
    for (const pid_t process : descendantsOf(starter->identifier()))
        kill(process, SIGTERM);
    EXPECT_TRUE(waitUntil([this] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
    EXPECT_TRUE(application.process().isRunning());
}

INSTANTIATE_TEST_SUITE_P(Under, LaunchOnLoginTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
