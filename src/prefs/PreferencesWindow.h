#pragma once

#include "prefs/PreferencePanes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

class PreferencesWindowController;

// What the user answers to the accessibility alert.
enum class AccessibilityAlertAnswer { OpenSystemPreferences = 1000, Quit = 1001, None = 0 };

// What the recorder of the hot key shows, as it is stored.
struct ShortcutRecorderValue {
    std::int64_t keyCode = 0; // virtual key code; negative for no key
    std::int64_t modifierFlags = 0; // Cocoa flags
    bool operator==(const ShortcutRecorderValue&) const = default;
};

// A hot key that the desktop keeps for itself, in words for the user.
struct HotKeyRefusal {
    std::string combination; // the one that does not work
    std::string proposal; // one that is free; empty when none is known
    bool operator==(const HotKeyRefusal&) const = default;
};

// What the line below every pane tells.
enum class BorderNotice {
    None, // changes count at once
    SettingsAreUnwritten, // changes are not kept when the program ends
    AccessIsMissing, // with a button that switches it on
    AccessCannotBeSwitchedOn // with the same button, to try it once more
};

// The preferences window as its controller sees it. The controls that are bound to settings read and write these by
// themselves; all others tell the controller. Main thread only.
class PreferencesWindow {
public:
    virtual ~PreferencesWindow() = default;

    // The window is on every desktop of the user.
    virtual void setCanJoinAllSpaces() = 0;
    // To the front, before the program is active.
    virtual void orderFrontRegardless() = 0;
    virtual void activateIgnoringOtherApps() = 0;
    virtual void close() = 0;
    virtual void setTitle(const std::string& title) = 0;

    // The items of the toolbar, in their order.
    [[nodiscard]] virtual std::vector<PreferenceItem> toolbarItems() const = 0;
    // Marks the item as the chosen one, and does nothing else.
    virtual void setSelectedItem(std::size_t index) = 0;

    // The frame with its toolbar, without what the desktop draws around it. The place is counted upwards from anywhere
    // that does not change.
    [[nodiscard]] virtual Rect frameNS() const = 0;
    virtual void setFrame(const Rect& frameNS, bool animate) = 0;
    [[nodiscard]] virtual Size contentSize() const = 0;
    // The pane's own height, at the width of the content, with the border view that every pane gets.
    [[nodiscard]] virtual double paneHeight(PreferencePane pane) const = 0;
    virtual void removeSubviewsOfContent() = 0;
    // Gives the pane that size and the border view, and puts it into the content.
    virtual void addPane(PreferencePane pane, const Size& size) = 0;
    // Into the container of the help texts, in place of the one that is there.
    virtual void setHelpText(PreferenceHelpText text, bool animate) = 0;

    [[nodiscard]] virtual bool launchCheckBoxIsOn() const = 0;

    // The recorder shows the combination, without telling that it has changed.
    virtual void setShortcutRecorderValue(const ShortcutRecorderValue& value) = 0;
    virtual void startRecording() = 0;

    virtual void setMouseButtonNumber(std::uint32_t buttonNumber) = 0;
    [[nodiscard]] virtual std::uint32_t mouseButtonNumber() const = 0;
    // The control of the mouse button hears presses from here to there.
    virtual void setupTap() = 0;
    virtual void disableAndReleaseTap() = 0;

    // Controls that show the setting wait for the end of the change, and show its value then.
    virtual void willChangeValueForKey(std::string_view key) = 0;
    virtual void didChangeValueForKey(std::string_view key) = 0;

    virtual void setHideHotKeyWarning(bool hide) = 0;
    virtual void setHideButtonWarning(bool hide) = 0;
    // Nothing when the hot key works.
    virtual void setHotKeyRefusal(const std::optional<HotKeyRefusal>& refusal) = 0;
    virtual void setBorderNotice(BorderNotice notice) = 0;
    // As a sheet on the window; at once when one is there already, whose answer then counts. The handler gets the
    // answer later.
    virtual void showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) = 0;
};

// Makes preferences windows in one toolkit.
class PreferencesInterface {
public:
    virtual ~PreferencesInterface() = default;

    // The window is hidden, and tells the controller what the user does. It must outlive neither the controller nor
    // this object.
    [[nodiscard]] virtual std::unique_ptr<PreferencesWindow> loadWindow(PreferencesWindowController& controller) = 0;
};

} // namespace tarragon
