#pragma once

#include "fake/FakeAccessibility.h"
#include "fake/FakeDefaults.h"
#include "fake/FakeHotKeys.h"
#include "fake/FakeKeyboard.h"
#include "fake/FakeLoginItemList.h"
#include "fake/FakePreferencesWindow.h"
#include "fake/FakeWorkspace.h"
#include "platform/ModifierFlags.h"
#include "platform/PreferenceKeys.h"
#include "prefs/PreferencesWindowController.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

inline constexpr std::int64_t SpaceBar = 49; // a key code

// What the application was asked for, in order.
class RecordingDelegate : public PreferencesWindowControllerDelegate {
public:
    void restartAppUsingSUUpdater() override {
        told.emplace_back("restart");
        if (whenRestarted)
            whenRestarted();
    }
    void terminate() override { told.emplace_back("terminate"); }
    void openScreencastWebpage() override { told.emplace_back("screencast"); }

    std::function<void()> whenRestarted;
    std::vector<std::string> told;
};

// The controller on a desktop in memory, with a window that only remembers what it is told.
class PreferencesWindowControllerTest : public testing::Test {
protected:
    PreferencesWindowControllerTest() {
        const DefaultsDictionary values = {
            {std::string(preference::EnableHotkey), true},
            {std::string(preference::NewTrigger), std::string("\u02C4Z")},
            {std::string(preference::TriggerCharacterUInt), SpaceBar},
            {std::string(preference::TriggerModifiers), std::int64_t{modifier::Option}},
            {std::string(preference::LaunchOnLogin), false},
            {std::string(preference::EnableButton), true},
            {std::string(preference::EnableScreenTop), true},
            {std::string(preference::MouseButton), std::int64_t{2}},
        };
        defaults.registerDefaults(values);
        defaults.setInitialValues(values);
        _controller.emplace(
            PreferencesWindowController::Services{accessibility, defaults, workspace, hotKeys, &keyboard, &loginItems,
                "/opt/Tarragon", {"https://p", "https://s", "https://t", "https://f"}},
            interface, &delegate);
    }

    PreferencesWindowController& controller() { return *_controller; }
    PreferencesWindowRecord& window() { return interface.window; }
    void set(std::string_view key, const DefaultsValue& value) { ASSERT_TRUE(defaults.setValue(key, value)); }
    void takeAccessAway() {
        accessibility.setEnabled(false);
        accessibility.setTrusted(false);
    }
    static PreferenceItem item(std::int64_t tag) { return {"", "Label", tag}; }

    FakeAccessibility accessibility;
    FakeDefaults defaults;
    FakeWorkspace workspace;
    FakeHotKeys hotKeys;
    FakeKeyboard keyboard;
    FakeLoginItemList loginItems;
    FakePreferencesInterface interface;
    RecordingDelegate delegate;

private:
    std::optional<PreferencesWindowController> _controller;
};

} // namespace tarragon
