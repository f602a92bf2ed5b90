#pragma once

#include "EndToEndTest.h"
#include "preferences/PreferencesWindow.h"

#include <cstdint>
#include <string>

namespace tarragon::e2e {

// A test of the preferences window: no window of the program is open before and after it, and all settings are back at
// what they are built in with, but for the hot key that is free on every desktop.
class PreferencesEndToEndTest : public DesktopTest {
protected:
    using DesktopTest::DesktopTest;
    void SetUp() override;
    void TearDown() override;
    static void TearDownTestSuite();

    // Of the program that runs now.
    PreferencesWindow preferences() { return {desktop(), agent().identifier()}; }
    Preferences& stored() { return agent().preferences(); }
    bool storesBoolean(const std::string& key, bool value);
    bool storesInteger(const std::string& key, std::uint64_t value);
    bool storesText(const std::string& key, const std::string& value);
    // How often the program's log has told that a setting has changed.
    std::size_t changesOf(const std::string& key);
    // Starts the program with a log that tells of settings and of the panel.
    void restartAgent(const HotKey& hotKey = usualHotKey(), const Environment& additions = {});
};

// Run once under every window manager.
class WindowManagerPreferencesTest : public PreferencesEndToEndTest, public testing::WithParamInterface<WindowManager> {
protected:
    WindowManagerPreferencesTest()
        : PreferencesEndToEndTest(GetParam()) { }
};

} // namespace tarragon::e2e
