#pragma once

#include "fake/FakeLoginItemList.h"
#include "fake/FakePlatform.h"
#include "platform/PreferenceKeys.h"
#include "prefs/PreferencesWindowController.h"
#include "prefs/widgets/QtPreferencesInterface.h"
#include "prefs/widgets/QtPreferencesWindow.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace tarragon {

// Keeps an eye on the window that the controller owns.
class WatchedInterface : public PreferencesInterface {
public:
    WatchedInterface(const Platform& platform, std::ostream& standardError)
        : _interface(platform, "1.2.3", standardError) { }
    std::unique_ptr<PreferencesWindow> loadWindow(PreferencesWindowController& controller) override {
        auto made = _interface.loadWindow(controller);
        window = dynamic_cast<QtPreferencesWindow*>(made.get());
        return made;
    }
    QtPreferencesWindow* window = nullptr;

private:
    QtPreferencesInterface _interface;
};

// The real window on a desktop in memory, with the defaults of all settings; not shown yet.
class PreferencesWindowTest : public testing::Test, public PreferencesWindowControllerDelegate {
protected:
    PreferencesWindowTest() {
        const DefaultsDictionary values = {
            {std::string(preference::EnableHotkey), true},
            {std::string(preference::NewTrigger), std::string("\u02C4Z")},
            {std::string(preference::TriggerCharacterUInt), std::int64_t{49}},
            {std::string(preference::TriggerModifiers), std::int64_t{modifier::Option}},
            {std::string(preference::FoldAlternate), true},
            {std::string(preference::ShowKeyEquivalents), true},
            {std::string(preference::ShowAppleMenu), true},
            {std::string(preference::ShowStatusBarIcon), true},
            {std::string(preference::ShowTarragonMenu), true},
            {std::string(preference::LaunchOnLogin), false},
            {std::string(preference::TarragonAlwaysVisible), true},
            {std::string(preference::TarragonAlwaysRight), false},
            {std::string(preference::ShowOnPrimaryScreen), true},
            {std::string(preference::EnableButton), true},
            {std::string(preference::ButtonHasShadow), false},
            {std::string(preference::ButtonHasTexture), false},
            {std::string(preference::ButtonHasBorder), true},
            {std::string(preference::ButtonRound), true},
            {std::string(preference::ButtonLabel), std::string("Menu")},
            {std::string(preference::Horizontal), true},
            {std::string(preference::FontSizeSmall), std::int64_t{12}},
            {std::string(preference::ButtonStyle), std::int64_t{0}},
            {std::string(preference::TitleFontSizeSmall), std::int64_t{0}},
            {std::string(preference::ShowApplicationMenu), true},
            {std::string(preference::EnableScreenTop), true},
            {std::string(preference::ScreenTopAutoHide), false},
            {std::string(preference::ScreenTopTransparency), false},
            {std::string(preference::ScreenTopHalfHotZone), false},
            {std::string(preference::HideOnPrimaryTopEdge), false},
            {std::string(preference::EnableMouseButton), false},
            {std::string(preference::MouseButton), std::int64_t{2}},
        };
        fake.defaults.registerDefaults(values);
        fake.defaults.setInitialValues(values);
        platform.loginItemList = &loginItems;
        platform.bundlePath = "/opt/Tarragon";
    }

    // As on a desktop whose applications have nothing that these are about.
    void hideSettingsWithoutEffect() {
        platform.settingsWithoutEffect = {preference::ShowAppleMenu, preference::FoldAlternate,
            preference::ShowApplicationMenu, preference::ButtonHasShadow, preference::ButtonHasTexture,
            preference::ButtonHasBorder, preference::ButtonRound};
    }

    void restartAppUsingSUUpdater() override { told.emplace_back("restart"); }
    void terminate() override { told.emplace_back("terminate"); }
    void openScreencastWebpage() override { told.emplace_back("screencast"); }

    PreferencesWindowController& controller() {
        if (!_controller) {
            _interface = std::make_unique<WatchedInterface>(platform, standardError);
            _controller = std::make_unique<PreferencesWindowController>(
                PreferencesWindowController::Services{platform.accessibility, platform.defaults, platform.workspace,
                    platform.hotKeys, platform.keyboard, platform.loginItemList, platform.bundlePath, webPages},
                *_interface, this);
        }
        return *_controller;
    }
    QtPreferencesWindow& window() {
        controller();
        return *_interface->window;
    }
    // A control by the name that it has in the interface file.
    template <typename Control = QWidget>
    Control& control(const char* name) {
        auto* found = window().findChild<Control*>(name);
        if (found == nullptr)
            ADD_FAILURE() << "no " << name;
        return *found;
    }
    void selectPane(PreferencePane pane) {
        controller().selectPreferencesForItem(window().toolbarItems().at(static_cast<std::size_t>(pane)), false);
    }
    DefaultsValue value(std::string_view key) { return fake.defaults.value(key).value_or(DefaultsValue()); }
    // As another process does, or a person with an editor.
    void changeFromOutside(std::string_view key, const DefaultsValue& changed) {
        fake.defaults.writeFromOtherProcess(std::string(key), changed);
        fake.defaults.synchronize();
    }
    static void handleEvents() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    FakePlatform fake;
    FakeLoginItemList loginItems;
    Platform platform = fake.platform();
    WebPages webPages;
    std::ostringstream standardError;
    std::vector<std::string> told;

private:
    std::unique_ptr<WatchedInterface> _interface;
    std::unique_ptr<PreferencesWindowController> _controller;
};

} // namespace tarragon
