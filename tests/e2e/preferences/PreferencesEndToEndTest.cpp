#include "preferences/PreferencesEndToEndTest.h"

#include "Panel.h"

#include <filesystem>

namespace tarragon::e2e {

void PreferencesEndToEndTest::SetUp() {
    DesktopTest::SetUp();
    // The program of the test before has the log on already.
    if (agent().process().standardError().find(" settings: ") == std::string::npos)
        restartAgent();
}

void PreferencesEndToEndTest::TearDown() {
    if (HasFailure())
        keepEvidence();
    input().releaseAll();
    if (agent().isRunning()) {
        EXPECT_TRUE(preferences().close());
        // The whole file, so that nothing that a test has stored is left.
        std::filesystem::remove(Agent::preferencesFile(desktop()));
        stored().set("FirstRun", true);
        EXPECT_TRUE(agent().changeHotKey(usualHotKey()));
    }
    DesktopTest::TearDown();
}

void PreferencesEndToEndTest::TearDownTestSuite() {
    // Others find a program that writes nothing.
    Session::discard(WindowManager::Openbox);
    Session::discard(WindowManager::Xfwm4);
}

void PreferencesEndToEndTest::restartAgent(const HotKey& hotKey, const Environment& additions) {
    Environment environment = Panel::TitlesInLog;
    for (const auto& [name, value] : additions)
        environment[name] = value;
    session().restartAgent(hotKey, environment);
}

bool PreferencesEndToEndTest::storesBoolean(const std::string& key, bool value) {
    return waitUntil([&] { return stored().has(key) && stored().boolean(key) == value; });
}

bool PreferencesEndToEndTest::storesInteger(const std::string& key, std::uint64_t value) {
    return waitUntil([&] { return stored().has(key) && stored().integer(key) == value; });
}

bool PreferencesEndToEndTest::storesText(const std::string& key, const std::string& value) {
    return waitUntil([&] { return stored().has(key) && stored().text(key) == value; });
}

std::size_t PreferencesEndToEndTest::changesOf(const std::string& key) {
    const std::string log = agent().process().standardError();
    const std::string mark = " settings: values." + key + " has changed\n";
    std::size_t count = 0;
    for (std::size_t at = log.find(mark); at != std::string::npos; at = log.find(mark, at + 1))
        ++count;
    return count;
}

} // namespace tarragon::e2e
