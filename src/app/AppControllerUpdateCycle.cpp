// How the controller keeps the mirror in step with the application in front.

#include "app/AppController.h"
#include "app/RegisteredPreferences.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

#include <cmath>
#include <string>

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

void AppController::handleAppChange(const Notification& notification) {
    if (!_appUIElementInfo)
        accessibilityCreation();
    // There is nothing to rebuild, and nothing to wait for, without a reader.
    if (!_appUIElementInfo) {
        log(LogCategory::Front, [] { return "switch: nothing is rebuilt, there is no menu reader"; });
        return;
    }
    // Our own windows leave the mirror of the application behind them in place.
    if (_appUIElementInfo->focusedAppName() == "Tarragon") {
        log(LogCategory::Front, [] { return "switch: nothing is rebuilt, a window of Tarragon is in front"; });
        return;
    }
    // The row of menu titles is built from the new menu bar, which some applications publish a little late.
    if (_preferences._horizontal)
        pauseForMenuBar(0.5);
    _appUIElementInfo->update();
    if (const auto entry = notification.userInformation.find(ZDAppChangeNotifier::PID);
        entry != notification.userInformation.end())
        _appPID = entry->second;
    // With no application in front there is nobody who could publish a menu bar later.
    if (!menuPopulated() && _platform.workspace.activeApplication()) {
        pauseForMenuBar(2.0);
        _appUIElementInfo->update();
        // This one publishes its menu bar in pieces.
        if (_appUIElementInfo->focusedAppName() == "Firefox") {
            _appUIElementInfo->update();
            _appUIElementInfo->update();
        }
    }
    log(LogCategory::Front, [&] {
        const auto& appName = _appUIElementInfo->currentAppName();
        return "switch: " + (appName ? "'" + *appName + "'" : "no application")
            + " is in front, menus read: " + std::to_string(_appUIElementInfo->menu()->numberOfItems());
    });
    if (_preferences._showTarragonMenu)
        _appUIElementInfo->appendAuxiliaryMenuTo(*_appUIElementInfo->menu());
    boldenAppTitleMenu();
    setMenuFont();
}

bool AppController::menuPopulated() const {
    return _appUIElementInfo && _appUIElementInfo->menu()->numberOfItems() > 0;
}

} // namespace tarragon
