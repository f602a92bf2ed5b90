// How the controller keeps the mirror in step with the application in front.

#include "app/AppController.h"
#include "app/RegisteredPreferences.h"
#include "panels/TarragonPanel.h"
#include "panels/TarragonPanelController.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

#include <cmath>
#include <string>
#include <vector>

namespace tarragon {

void AppController::setupNotificationsToReceive() {
    _platform.notificationCenter.addObserver(ZDAppChangeNotifier::ZDAppChanged, _appChangeNotifier.get(),
        [this](const Notification& notification) { handleAppChange(notification); });
    for (const std::string_view key : observedPreferences()) {
        _platform.defaults.addObserver(
            keyPathOfPreference(key), [this](const std::string& keyPath) { observeValueForKeyPath(keyPath); });
    }
}

void AppController::pauseForMenuBar(double seconds) {
    log(LogCategory::Front,
        [&] { return "waiting " + std::to_string(std::lround(seconds * 1000)) + " ms for the menu bar"; });
    _platform.runLoop.pause(seconds);
}

// An own window leaves the mirror of the application behind it in place.
bool AppController::ownWindowIsInFront() {
    return _appUIElementInfo->focusedAppName() == "Tarragon";
}

bool AppController::readMenusInFront() {
    if (ownWindowIsInFront()) {
        log(LogCategory::Front, [] { return "the menus are not read: a window of Tarragon has come to the front"; });
        return false;
    }
    _appUIElementInfo->update();
    return true;
}

void AppController::readAgainIfEmpty(double pause, const std::vector<std::string>& applicationsReadTwiceMore) {
    // With no application in front there is nobody who could publish a menu bar later.
    if (menuPopulated() || !_platform.workspace.activeApplication())
        return;
    pauseForMenuBar(pause);
    readMenusInFront();
    for (const std::string& name : applicationsReadTwiceMore) {
        if (_appUIElementInfo->focusedAppName() == name) {
            _appUIElementInfo->update();
            _appUIElementInfo->update();
        }
    }
}

void AppController::handleAppChange(const Notification& notification) {
    if (!_appUIElementInfo)
        accessibilityCreation();
    // There is nothing to rebuild, and nothing to wait for, without a reader.
    if (!_appUIElementInfo) {
        log(LogCategory::Front, [] { return "switch: nothing is rebuilt, there is no menu reader"; });
        return;
    }
    if (ownWindowIsInFront()) {
        log(LogCategory::Front, [] { return "switch: nothing is rebuilt, a window of Tarragon is in front"; });
        return;
    }
    // The row of menu titles is built from the new menu bar, which some applications publish a little late.
    if (_preferences._horizontal)
        pauseForMenuBar(0.5);
    if (!readMenusInFront())
        return;
    if (const auto entry = notification.userInformation.find(ZDAppChangeNotifier::PID);
        entry != notification.userInformation.end())
        _appPID = entry->second;
    dropPanel();
    readAgainIfEmpty(2.0, {"Firefox"});
    log(LogCategory::Front, [&] {
        const auto& appName = _appUIElementInfo->currentAppName();
        return "switch: " + (appName ? "'" + *appName + "'" : "no application")
            + " is in front, menus read: " + std::to_string(_appUIElementInfo->menu()->numberOfItems());
    });
    if (_preferences._showTarragonMenu)
        _appUIElementInfo->appendAuxiliaryMenuTo(*_appUIElementInfo->menu());
    boldenAppTitleMenu();
    setMenuFont();
    showMenuOnBars();
    moveAndResizeAppWindowIfOverlappingScreenTop();
    buildAndPlacePanel();
}

void AppController::fireFoxSpecial() {
    dropPanel();
    if (_preferences._horizontal)
        pauseForMenuBar(0.5);
    if (!_appUIElementInfo)
        return;
    readMenusInFront();
    readAgainIfEmpty(1.8, {"Firefox", "Thunderbird"});
    boldenAppTitleMenu();
    setMenuFont();
    buildAndPlacePanel();
    setupBarsForMovedBrowser();
}

bool AppController::menuPopulated() const {
    return _appUIElementInfo && _appUIElementInfo->menu()->numberOfItems() > 0;
}

bool AppController::checkIfMenuIsShowing() const {
    const bool panelMenuIsShowing = _preferences._horizontal && _preferences._enableButton && _tarragonPanelController
        && _tarragonPanelController->bShowing();
    return panelMenuIsShowing || barMenuIsShowing();
}

} // namespace tarragon
