#pragma once

#include "platform/Defaults.h"
#include "prefs/PreferencesWindow.h"
#include "recorder/KeyCombo.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

class Accessibility;
class HotKeys;
class Keyboard;
class LoginItemList;
class Workspace;

// What the preferences ask of the application.
class PreferencesWindowControllerDelegate {
public:
    virtual ~PreferencesWindowControllerDelegate() = default;
    virtual void restartAppUsingSUUpdater() = 0;
    virtual void terminate() = 0;
    virtual void openScreencastWebpage() = 0;
};

// Addresses of web pages; empty for those that there are not.
struct WebPages {
    std::string product = {};
    std::string screencast = {};
    std::string twitter = {};
    std::string facebook = {};
};

// Runs the preferences window: panes, help texts, the controls that are more than a setting, and what happens each time
// that the window is shown. Main thread only.
class PreferencesWindowController {
public:
    // What the controller works with; all of it outlives it.
    struct Services {
        Accessibility& accessibility;
        Defaults& defaults;
        Workspace& workspace;
        HotKeys& hotKeys;
        Keyboard* keyboard = nullptr; // nullptr for none
        LoginItemList* loginItemList = nullptr; // nullptr for none
        std::string bundlePath; // of the running program
        WebPages webPages;
    };

    // The title of the check box of the hot key, by which it is known.
    static constexpr std::string_view EnableHotkeyTitle = "Enable hotkey";

    // Loads the window. The delegate outlives the controller; nullptr for none.
    PreferencesWindowController(
        Services services, PreferencesInterface& interface, PreferencesWindowControllerDelegate* delegate);
    ~PreferencesWindowController();
    PreferencesWindowController(const PreferencesWindowController&) = delete;
    PreferencesWindowController& operator=(const PreferencesWindowController&) = delete;

    // Showing the window.

    // On the general pane, with its help text. Asks for access when it is missing.
    void displayWindow();
    void displayWindowWithHelpAsInitial();
    // On the pane of the hot key, waiting for the user to press a combination.
    void displayWindowForRecording();
    void fadeOutWindow();
    // The window has been closed, by whatever means.
    void windowWillClose();

    // Panes and help texts.

    void changePreferencePane(const PreferenceItem& sender);
    void selectPreferencesForItem(const PreferenceItem& item, bool animate);
    std::vector<std::string> toolbarSelectableItemIdentifiers() const;
    void changeHelpText(std::int64_t senderTag);
    void selectHelpTextForButton(std::int64_t tag, bool animate);

    // The hot key.

    ShortcutRecorderValue shortcutRecorderValue() const;
    // keyComboString is how the recorder shows the combination; nothing for an empty one.
    void shortcutRecorderKeyComboDidChange(
        const KeyCombo& combination, const std::optional<std::string>& keyComboString);
    // No combination is refused as taken, on purpose.
    static bool shortcutRecorderIsKeyCodeAndFlagsTaken(
        std::int16_t /*keyCode*/, std::uint32_t /*flags*/, std::string& /*reason*/) {
        return false;
    }

    // Another combination was registered, or refused, or the hot key was switched off.
    void hotKeyRegistrationDidChange();
    // Access to the accessibility interface may have been given or taken away.
    void accessDidChange();
    // Takes one that is free, or waits for the user to press one where none is known.
    void tryAnotherCombination();

    // Controls.

    // The state of the check box becomes the setting, and the list of what is started at login follows it.
    void startAtLogin();
    void mouseButtonChanged();
    // Warns when no way of opening menus is left; senderTitle is that of the check box just clicked. The warning goes
    // when a way is switched on again, by whoever.
    void checkIfBothOptionsAreNotOff(std::string_view senderTitle);
    void resetButton();
    // Starts the program anew, with the settings written to disk.
    void applyChanges();
    void quitFennick();
    void openTwitterWebpage();
    void openFacebookWebpage();
    void openProductWebpage();
    void openScreencastWebpage();
    // Switches the desktop's accessibility interface on, or leads to where that is done; the window says when neither
    // works.
    void switchAccessOn();

    bool hideHotKeyWarning() const { return _hideHotKeyWarning; }
    bool hideButtonWarning() const { return _hideButtonWarning; }
    const WebPages& webPages() const { return _services.webPages; }

private:
    void selectPreferences(PreferencePane pane, bool animate);
    void selectHelpText(PreferenceHelpText text, bool animate);
    void selectItem(std::size_t index, bool animate);
    void writeNewMouseButton(std::int64_t buttonNumber);
    bool somethingOpensMenus() const;
    void hideWarningsWithoutReason();
    void setHideHotKeyWarning(bool hide);
    void setHideButtonWarning(bool hide);
    void unwrittenChangesDidChange();
    void showBorderNotice();
    void checkAccessibility();
    bool accessIsMissing();
    bool openAccessibilitySettings();
    void answerAccessibilityAlert(AccessibilityAlertAnswer answer);
    std::optional<KeyCombo> freeCombination() const;
    void showHotKeyRefusal();
    void store(std::string_view key, std::int64_t value);
    void openWebPage(const std::string& address);

    Services _services;
    PreferencesWindowControllerDelegate* _delegate;
    std::vector<DefaultsObserver> _observers;
    bool _startAtLogin = false;
    bool _startAtLoginIsUnwritten = false;
    bool _hideHotKeyWarning = true;
    bool _hideButtonWarning = true;
    bool _accessIsMissing = false;
    bool _accessCannotBeSwitchedOn = false; // it was tried
    bool _settingsAreUnwritten = false;
    std::unique_ptr<PreferencesWindow> _window; // after what it may ask while it is made
};

} // namespace tarragon
