#include "prefs/PreferencesWindowController.h"

#include "platform/Accessibility.h"
#include "platform/HotKeys.h"
#include "platform/Keyboard.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "platform/Workspace.h"
#include "prefs/HotKeyRefusals.h"
#include "prefs/StartAtLogin.h"
#include "recorder/FreeKeyCombination.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <algorithm>
#include <utility>

namespace tarragon {

namespace {

// The store keeps what could not be written for as long as the program runs.
void noteWritten(bool written, std::string_view key) {
    if (!written)
        log(LogCategory::Settings, [&] { return std::string(key).append(" cannot be written to disk"); });
}

constexpr std::string_view WaysOfOpening[] = {
    preference::EnableHotkey, preference::EnableButton, preference::EnableScreenTop};

constexpr std::size_t GeneralItemIndex = 0;
constexpr std::size_t HotKeyItemIndex = 1;

} // namespace

PreferencesWindowController::PreferencesWindowController(
    Services services, PreferencesInterface& interface, PreferencesWindowControllerDelegate* delegate)
    : _services(std::move(services))
    , _delegate(delegate)
    , _window(interface.loadWindow(*this)) {
    setHideHotKeyWarning(true);
    setHideButtonWarning(true);
    _window->setCanJoinAllSpaces();
    for (const std::string_view key : WaysOfOpening)
        _observers.push_back(_services.defaults.addObserver(
            keyPathOfPreference(key), [this](const std::string&) { hideWarningsWithoutReason(); }));
    _observers.push_back(_services.defaults.addObserver(
        std::string(UnwrittenChangesKeyPath), [this](const std::string&) { unwrittenChangesDidChange(); }));
    unwrittenChangesDidChange();
}

PreferencesWindowController::~PreferencesWindowController() {
    for (const DefaultsObserver observer : _observers)
        _services.defaults.removeObserver(observer);
}

// Showing the window.

void PreferencesWindowController::displayWindow() {
    _window->setSelectedItem(GeneralItemIndex);
    selectPreferencesForItem(_window->toolbarItems().at(GeneralItemIndex), true);
    selectHelpText(PreferenceHelpText::General, true);
    _window->setMouseButtonNumber(
        static_cast<std::uint32_t>(integerValue(_services.defaults.value(preference::MouseButton))));
    _window->setupTap();
    showHotKeyRefusal();
    _window->orderFrontRegardless();
    checkAccessibility();
    _window->activateIgnoringOtherApps();
}

void PreferencesWindowController::displayWindowWithHelpAsInitial() {
    displayWindow();
    selectItem(HelpItemIndex, false);
}

void PreferencesWindowController::displayWindowForRecording() {
    displayWindow();
    selectItem(HotKeyItemIndex, false);
    _window->startRecording();
}

void PreferencesWindowController::selectItem(std::size_t index, bool animate) {
    _window->setSelectedItem(index);
    selectPreferencesForItem(_window->toolbarItems().at(index), animate);
}

void PreferencesWindowController::fadeOutWindow() {
    _window->close();
}

void PreferencesWindowController::windowWillClose() {
    _window->disableAndReleaseTap();
}

// Panes and help texts.

void PreferencesWindowController::changePreferencePane(const PreferenceItem& sender) {
    selectPreferencesForItem(sender, true);
}

void PreferencesWindowController::selectPreferencesForItem(const PreferenceItem& item, bool animate) {
    const PreferencePane pane = preferencePaneForTag(item.tag);
    if (pane == PreferencePane::HotKey)
        _window->setShortcutRecorderValue(shortcutRecorderValue());
    selectPreferences(pane, animate);
    _window->setTitle(item.label);
}

void PreferencesWindowController::selectPreferences(PreferencePane pane, bool animate) {
    const double paneHeight = _window->paneHeight(pane);
    const Rect frameNS = windowFrameForPane(_window->frameNS(), _window->contentSize().height, paneHeight);
    _window->removeSubviewsOfContent();
    _window->setFrame(frameNS, animate);
    _window->addPane(pane, {_window->contentSize().width, paneHeight});
}

std::vector<std::string> PreferencesWindowController::toolbarSelectableItemIdentifiers() const {
    std::vector<std::string> identifiers;
    for (const PreferenceItem& item : _window->toolbarItems())
        identifiers.push_back(item.identifier);
    return identifiers;
}

void PreferencesWindowController::changeHelpText(std::int64_t senderTag) {
    selectHelpTextForButton(senderTag, true);
}

void PreferencesWindowController::selectHelpTextForButton(std::int64_t tag, bool animate) {
    selectHelpText(preferenceHelpTextForTag(tag), animate);
}

void PreferencesWindowController::selectHelpText(PreferenceHelpText text, bool animate) {
    _window->setHelpText(text, animate);
}

// The hot key.

ShortcutRecorderValue PreferencesWindowController::shortcutRecorderValue() const {
    return {integerValue(_services.defaults.value(preference::TriggerCharacterUInt)),
        integerValue(_services.defaults.value(preference::TriggerModifiers))};
}

void PreferencesWindowController::shortcutRecorderKeyComboDidChange(
    const KeyCombo& combination, const std::optional<std::string>& keyComboString) {
    _window->willChangeValueForKey(preference::TriggerModifiers);
    _window->willChangeValueForKey(preference::TriggerCharacterUInt);
    store(preference::TriggerModifiers, combination.flags);
    store(preference::TriggerCharacterUInt, combination.code);
    // Last, because it is this change that registers the new combination, also where the words stay the same: whoever
    // follows a setting is told whenever it is stored.
    noteWritten(keyComboString ? _services.defaults.setValue(preference::NewTrigger, *keyComboString)
                               : _services.defaults.removeValue(preference::NewTrigger),
        preference::NewTrigger);
    _window->didChangeValueForKey(preference::TriggerCharacterUInt);
    _window->didChangeValueForKey(preference::TriggerModifiers);
}

void PreferencesWindowController::hotKeyRegistrationDidChange() {
    showHotKeyRefusal();
}

std::optional<KeyCombo> PreferencesWindowController::freeCombination() const {
    if (_services.keyboard == nullptr)
        return std::nullopt;
    const auto proposal = freeKeyCombination(*_services.keyboard, SRKeyCodeTransformer(*_services.keyboard));
    // The desktop may not know who keeps the one that it has refused.
    return proposal == hotKeyOfDefaults(_services.defaults) ? std::nullopt : proposal;
}

void PreferencesWindowController::showHotKeyRefusal() {
    const std::optional<KeyCombo> refused = refusedHotKey(_services.defaults, _services.hotKeys);
    if (!refused)
        return _window->setHotKeyRefusal(std::nullopt);
    // The desktop is asked for its combinations only where one is needed.
    const std::optional<KeyCombo> proposal = freeCombination();
    _window->setHotKeyRefusal(HotKeyRefusal{wordsForKeyCombo(*refused, _services.keyboard),
        proposal ? wordsForKeyCombo(*proposal, _services.keyboard) : std::string()});
}

void PreferencesWindowController::tryAnotherCombination() {
    const std::optional<KeyCombo> proposal = freeCombination();
    if (!proposal) {
        selectItem(HotKeyItemIndex, true);
        _window->startRecording();
        return;
    }
    shortcutRecorderKeyComboDidChange(*proposal, keyComboString(*proposal, SRKeyCodeTransformer(*_services.keyboard)));
    _window->setShortcutRecorderValue(shortcutRecorderValue());
}

// Controls.

void PreferencesWindowController::startAtLogin() {
    _startAtLogin = _window->launchCheckBoxIsOn();
    _window->willChangeValueForKey(preference::LaunchOnLogin);
    setStartAtLogin(_services.loginItemList, _services.bundlePath, _startAtLogin);
    const bool isWritten = _services.defaults.setValue(preference::LaunchOnLogin, _startAtLogin);
    noteWritten(isWritten, preference::LaunchOnLogin);
    _startAtLoginIsUnwritten = !isWritten;
    _window->didChangeValueForKey(preference::LaunchOnLogin);
}

void PreferencesWindowController::mouseButtonChanged() {
    writeNewMouseButton(_window->mouseButtonNumber());
}

void PreferencesWindowController::writeNewMouseButton(std::int64_t buttonNumber) {
    store(preference::MouseButton, buttonNumber);
}

bool PreferencesWindowController::somethingOpensMenus() const {
    return std::ranges::any_of(
        WaysOfOpening, [this](std::string_view key) { return boolValue(_services.defaults.value(key)); });
}

void PreferencesWindowController::checkIfBothOptionsAreNotOff(std::string_view senderTitle) {
    if (somethingOpensMenus())
        return hideWarningsWithoutReason();
    if (senderTitle == EnableHotkeyTitle)
        setHideHotKeyWarning(false);
    else
        setHideButtonWarning(false);
}

void PreferencesWindowController::hideWarningsWithoutReason() {
    if (!somethingOpensMenus())
        return;
    setHideHotKeyWarning(true);
    setHideButtonWarning(true);
}

void PreferencesWindowController::setHideHotKeyWarning(bool hide) {
    _hideHotKeyWarning = hide;
    _window->setHideHotKeyWarning(hide);
}

void PreferencesWindowController::setHideButtonWarning(bool hide) {
    _hideButtonWarning = hide;
    _window->setHideButtonWarning(hide);
}

void PreferencesWindowController::resetButton() {
    _services.defaults.revertToInitialValues();
    _window->setShortcutRecorderValue(shortcutRecorderValue());
    startAtLogin();
}

void PreferencesWindowController::applyChanges() {
    if (!_services.defaults.synchronize())
        logError(LogCategory::Settings, "the settings cannot be written to disk");
    if (_delegate)
        _delegate->restartAppUsingSUUpdater();
}

void PreferencesWindowController::quitFennick() {
    if (_delegate)
        _delegate->terminate();
}

void PreferencesWindowController::openTwitterWebpage() {
    openWebPage(_services.webPages.twitter);
}

void PreferencesWindowController::openFacebookWebpage() {
    openWebPage(_services.webPages.facebook);
}

void PreferencesWindowController::openProductWebpage() {
    openWebPage(_services.webPages.product);
}

void PreferencesWindowController::openScreencastWebpage() {
    if (_delegate)
        _delegate->openScreencastWebpage();
}

void PreferencesWindowController::openWebPage(const std::string& address) {
    if (!address.empty() && !_services.workspace.openURL(address))
        logError(LogCategory::Settings, "no program could be found to open " + address);
}

void PreferencesWindowController::store(std::string_view key, std::int64_t value) {
    noteWritten(_services.defaults.setValue(key, value), key);
}

// Access to the accessibility interface.

bool PreferencesWindowController::accessIsMissing() {
    return !_services.accessibility.isEnabled() && !_services.accessibility.isTrusted();
}

void PreferencesWindowController::checkAccessibility() {
    _accessCannotBeSwitchedOn = false;
    accessDidChange();
    if (_accessIsMissing)
        _window->showAccessibilityAlert([this](AccessibilityAlertAnswer answer) { answerAccessibilityAlert(answer); });
}

void PreferencesWindowController::accessDidChange() {
    _accessIsMissing = accessIsMissing();
    showBorderNotice();
}

void PreferencesWindowController::answerAccessibilityAlert(AccessibilityAlertAnswer answer) {
    if (!_delegate)
        return;
    if (answer == AccessibilityAlertAnswer::Quit)
        _delegate->terminate();
    // The program has to be started again after access was granted, so it ends here; where the desktop has no such
    // place nothing happens and the program keeps running.
    if (answer == AccessibilityAlertAnswer::OpenSystemPreferences && openAccessibilitySettings())
        _delegate->terminate();
}

void PreferencesWindowController::switchAccessOn() {
    openAccessibilitySettings();
}

bool PreferencesWindowController::openAccessibilitySettings() {
    const bool isOpened = _services.accessibility.openSettings();
    if (!isOpened)
        log(LogCategory::Accessibility, [] { return "the interface cannot be switched on from here"; });
    _accessCannotBeSwitchedOn = !isOpened;
    accessDidChange();
    return isOpened;
}

// What is told below the panes.

void PreferencesWindowController::unwrittenChangesDidChange() {
    _settingsAreUnwritten = _services.defaults.hasUnwrittenChanges();
    // What kept the setting from being written may have kept the login item, too.
    if (!_settingsAreUnwritten && std::exchange(_startAtLoginIsUnwritten, false))
        setStartAtLogin(_services.loginItemList, _services.bundlePath, _startAtLogin);
    showBorderNotice();
}

void PreferencesWindowController::showBorderNotice() {
    BorderNotice notice = BorderNotice::None;
    if (_settingsAreUnwritten)
        notice = BorderNotice::SettingsAreUnwritten;
    else if (_accessIsMissing)
        notice = _accessCannotBeSwitchedOn ? BorderNotice::AccessCannotBeSwitchedOn : BorderNotice::AccessIsMissing;
    _window->setBorderNotice(notice);
}

} // namespace tarragon
