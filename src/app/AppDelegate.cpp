#include "app/AppDelegate.h"

#include "app/AppController.h"
#include "app/RegisteredPreferences.h"
#include "panels/UserPanels.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "platform/Texts.h"
#include "prefs/HotKeyRefusals.h"

#include <optional>
#include <utility>

namespace tarragon {

AppDelegate::AppDelegate(const Platform& platform, const UserInterface& userInterface, UpdateChecker& updateChecker,
    WebPages webPages, std::ostream& standardError)
    : _platform(platform)
    , _userInterface(userInterface)
    , _panels(userInterface.panels)
    , _updateChecker(updateChecker)
    , _webPages(std::move(webPages))
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

PreferencesWindowController& AppDelegate::preferenceController() {
    if (!_preferenceController) {
        _preferenceController = std::make_unique<PreferencesWindowController>(
            PreferencesWindowController::Services{.accessibility = _platform.accessibility,
                .defaults = _platform.defaults,
                .workspace = _platform.workspace,
                .hotKeys = _platform.hotKeys,
                .keyboard = _platform.keyboard,
                .loginItemList = _platform.loginItemList,
                .bundlePath = _platform.bundlePath,
                .webPages = _webPages},
            _userInterface.preferences, this);
    }
    return *_preferenceController;
}

void AppDelegate::showPreferencePanel() {
    preferenceController().displayWindow();
}

void AppDelegate::showPreferencePanelWithHelpAsInitial() {
    // One after the other, so that access that is missing is asked for twice; the question is shown once.
    showPreferencePanel();
    preferenceController().displayWindowWithHelpAsInitial();
}

void AppDelegate::openScreencastWebpage() {
    if (!_webPages.screencast.empty())
        openPage(_webPages.screencast);
}

void AppDelegate::openPage(const std::string& address) {
    if (!_platform.workspace.openURL(address))
        _panels.showFailure(
            withArguments(translated("AppDelegate", "No program could be found to open the page: %@"), {address}));
}

void AppDelegate::hotKeyRegistrationDidChange() {
    if (_preferenceController)
        _preferenceController->hotKeyRegistrationDidChange();
    const std::optional<KeyCombo> refused = refusedHotKey(_platform.defaults, _platform.hotKeys);
    if (!refused || _platform.userNotifications == nullptr
        || !_toldRefusals.emplace(refused->code, refused->flags).second)
        return;
    const bool isShown = _platform.userNotifications->show({.title = withArguments(
                                                                translated("AppDelegate", "%@ does not open the menus"),
                                                                {wordsForKeyCombo(*refused, _platform.keyboard)}),
        .text = translated("AppDelegate", "The desktop or another program keeps this combination of keys for itself."),
        .actionTitle = translated("AppDelegate", "Choose Another"),
        .action = [this] { preferenceController().displayWindowForRecording(); }});
    if (!isShown)
        log(LogCategory::Triggers, [] { return "the desktop shows no notification of the refused hot key"; });
}

void AppDelegate::accessibilityWasCreated() {
    if (_preferenceController)
        _preferenceController->accessDidChange();
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
    _panels.showUpdateOutcome(outcome, [this, link = newer ? newer->link : std::string()] { openPage(link); });
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
