#include "app/AppDelegate.h"

#include "app/AppController.h"
#include "app/RegisteredPreferences.h"
#include "panels/UserPanels.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "platform/Texts.h"

#include <optional>
#include <utility>

namespace tarragon {

AppDelegate::AppDelegate(const Platform& platform, const UserInterface& userInterface, UpdateChecker& updateChecker,
    std::string settingsURL, std::ostream& standardError)
    : _platform(platform)
    , _userInterface(userInterface)
    , _panels(userInterface.panels)
    , _updateChecker(updateChecker)
    , _settingsURL(std::move(settingsURL))
    , _mouseHotKey(platform.inputEvents, platform.runLoop, standardError) {
    setupPreferenceDefaults(_platform.defaults);
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::setupPreferenceDefaults(Defaults& defaults) {
    defaults.registerDefaults(registeredPreferences());
    defaults.setInitialValues(registeredPreferences());
}

bool AppDelegate::loadMainInterface() {
    return _mouseHotKey.awakeFromNib();
}

void AppDelegate::applicationWillFinishLaunching() {
    if (_appController)
        return;
    _appController = std::make_unique<AppController>(_platform, _userInterface, *this);
    _appController->init();
}

void AppDelegate::applicationDidFinishLaunching() {
    welcomeOnFirstLaunch();
    _mouseHotKey.setDelegate(_appController.get());
}

void AppDelegate::welcomeOnFirstLaunch() {
    if (boolValue(_platform.defaults.value(preference::FirstRun)))
        return;
    writeFirstRun(true);
    if (accessibilityIsMissing())
        writeFirstRun(false);
    showPreferencePanelWithHelpAsInitial();
}

void AppDelegate::writeFirstRun(bool value) {
    if (!_platform.defaults.setValue(preference::FirstRun, value))
        log(LogCategory::Settings, [] { return "that this was the first launch cannot be stored"; });
}

bool AppDelegate::applicationShouldHandleReopen() {
    showPreferencePanel();
    return false;
}

bool AppDelegate::applicationShouldTerminate() {
    if (_appController)
        _appController->clearAll();
    _mouseHotKey.killTap();
    return true;
}

bool AppDelegate::accessibilityIsMissing() {
    return !_platform.accessibility.isEnabled() && !_platform.accessibility.isTrusted();
}

void AppDelegate::accessibilityCheck() {
    if (!accessibilityIsMissing())
        return;
    log(LogCategory::Accessibility, [] { return "the interface is neither switched on nor open to this program"; });
    showPreferencePanel();
}

void AppDelegate::displayAboutPanel() {
    _panels.showAboutPanel();
}

void AppDelegate::showPreferencePanel() {
    // Without access the alert takes the place of the settings: nothing that they change would have an effect.
    if (accessibilityIsMissing()) {
        showAccessibilityAlert();
        return;
    }
    // A store that was never written has no file to open yet.
    _platform.defaults.synchronize();
    if (!_platform.workspace.openURL(_settingsURL))
        _panels.showFailure(withArguments(
            translated("AppDelegate", "No program could be found to open the settings: %@"), {_settingsURL}));
}

void AppDelegate::showAccessibilityAlert() {
    _panels.showAccessibilityAlert([this](AccessibilityAlertAnswer answer) {
        if (answer == AccessibilityAlertAnswer::Quit)
            terminate();
        // The program has to be started again after access was granted, so it ends here; where the desktop has no such
        // place nothing happens and the program keeps running.
        if (answer == AccessibilityAlertAnswer::OpenSystemPreferences && _platform.accessibility.openSettings())
            terminate();
    });
}

void AppDelegate::showPreferencePanelWithHelpAsInitial() {
    if (accessibilityIsMissing())
        showAccessibilityAlert();
    else
        _panels.showHelp();
}

void AppDelegate::checkForUpdates() {
    if (_updateChecker.isChecking())
        return showUpdateOutcome(UpdateUnderWay{});
    const std::optional<std::string> chosen = stringValue(_platform.defaults.value(preference::UpdateFeed));
    const std::string feed = chosen.value_or(_updateChecker.builtInFeed());
    if (feed.empty())
        return showUpdateOutcome(UpdateFeedMissing{});
    showUpdateOutcome(UpdateUnderWay{});
    _updateChecker.check(feed, [this](const UpdateOutcome& outcome) { showUpdateOutcome(outcome); });
}

void AppDelegate::showUpdateOutcome(const UpdateOutcome& outcome) {
    const auto* newer = std::get_if<NewerVersion>(&outcome);
    _panels.showUpdateOutcome(outcome, [this, link = newer ? newer->link : std::string()] {
        if (!_platform.workspace.openURL(link))
            _panels.showFailure(
                withArguments(translated("AppDelegate", "No program could be found to open the page: %@"), {link}));
    });
}

void AppDelegate::terminate() {
    if (applicationShouldTerminate())
        _platform.runLoop.stop(0);
}

std::uint64_t AppDelegate::memoryUsed() const {
    return _platform.process ? _platform.process->residentSize() : 0;
}

void AppDelegate::restartAppUsingSUUpdater() {
    // The program goes on until its run loop comes round. A second copy would find the first one running, and have it
    // show the settings.
    if (!_restarts) {
        _restarts = true;
        if (!_platform.process || !_platform.process->relaunchAfterEnd(_platform.bundlePath))
            logError(LogCategory::Settings, "the program ends and cannot be started anew");
    }
    terminate();
}

} // namespace tarragon
