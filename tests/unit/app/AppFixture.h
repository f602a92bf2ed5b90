#pragma once

#include "app/AppController.h"
#include "app/AppDelegate.h"
#include "app/RegisteredPreferences.h"
#include "fake/FakeLoginItemList.h"
#include "fake/FakePanelToolkit.h"
#include "fake/FakePlatform.h"
#include "fake/FakePreferencesWindow.h"
#include "fake/FakeUpdateChecker.h"
#include "panels/UserPanels.h"
#include "platform/PreferenceKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace tarragon {

class RecordingPanels : public UserPanels {
public:
    void showAboutPanel() override { shown.emplace_back("about"); }
    void showUpdateOutcome(const UpdateOutcome& outcome, std::function<void()> open) override {
        shown.emplace_back("updates");
        updateOutcomes.push_back(outcome);
        openLink = std::move(open);
    }
    void showFailure(const std::string& message) override { shown.push_back("failure: " + message); }

    std::vector<std::string> shown;
    std::vector<UpdateOutcome> updateOutcomes;
    std::function<void()> openLink; // of the outcome that was shown last
};

// A desktop with Mail in front, and the agent not started yet.
class AppTest : public testing::Test {
protected:
    AppTest()
        : platform(fake.platform())
        , mail(fake.addApplication("Mail"))
        , delegate(platform, {fake.menuPresenter, panelToolkit, panels, preferences}, updateChecker,
              {.screencast = "https://example.org/film"}, standardError) {
        mail.menu("File").item("New").item("Close");
        mail.menu("Edit").item("Copy").item("Paste");
        inbox = mail.window({.title = "Inbox", .positionCG = Point{100, 200}, .size = Size{900, 500}});
        fake.activate(mail);
        platform.loginItemList = &loginItems;
        platform.bundlePath = "/opt/Tarragon";
    }

    void launch() { delegate.applicationWillFinishLaunching(); }
    AppController& controller() { return *delegate.appController(); }
    AppAccessibility& reader() { return *controller().reader(); }

    // The titles of the root menu's items; a separator is a dash.
    std::vector<std::string> rootTitles() {
        std::vector<std::string> titles;
        for (const auto& item : reader().menu()->items())
            titles.push_back(item->isSeparatorItem() ? "-" : item->title());
        return titles;
    }

    // The lengths of the pauses after the one that settles the start.
    std::vector<double> pausesSinceLaunch() const {
        const auto& pauses = fake.runLoop.pauses();
        return {pauses.begin() + 1, pauses.end()};
    }

    // How often the preferences have asked for access.
    int alerts() const {
        const auto& told = preferences.window.told;
        return static_cast<int>(std::count(told.begin(), told.end(), "alert"));
    }

    static std::string keyPath(std::string_view key) { return keyPathOfPreference(key); }
    void set(std::string_view key, const DefaultsValue& value) { fake.defaults.setValue(key, value); }

    FakePlatform fake;
    RecordingPanels panels;
    FakePreferencesInterface preferences;
    FakeUpdateChecker updateChecker;
    FakePanelToolkit panelToolkit;
    FakeLoginItemList loginItems;
    Platform platform;
    FakeApplication mail;
    Element inbox; // its window, from (100, 200) to (1000, 700)
    std::ostringstream standardError;
    AppDelegate delegate;
};

} // namespace tarragon
