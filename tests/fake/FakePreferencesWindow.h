#pragma once

#include "prefs/PreferencesWindow.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// What a preferences window in memory was told, in order, and what the user has done to its controls. Panes are 100
// points high and 20 more for each one before them in the toolbar.
struct PreferencesWindowRecord {
    PreferencesWindowController* controller = nullptr;
    std::vector<std::string> told;
    bool isAlive = true;
    bool isVisible = false;
    std::string title;
    std::optional<std::size_t> selectedItem;
    std::optional<PreferencePane> pane; // nothing while the content is empty
    std::optional<PreferenceHelpText> helpText;
    Rect frameNS{{100, 400}, {640, 260}};
    Size contentSize{640, 200};
    Size paneSize;
    bool joinsAllSpaces = false;
    bool launchCheckBoxIsOn = false;
    ShortcutRecorderValue recorder;
    bool isRecording = false;
    std::uint32_t mouseButtonNumber = 0;
    bool tapIsOn = false;
    bool hotKeyWarningIsHidden = false;
    bool buttonWarningIsHidden = false;
    std::optional<HotKeyRefusal> refusal;
    BorderNotice borderNotice = BorderNotice::None;
    std::function<void(AccessibilityAlertAnswer)> answerAlert; // empty while no alert was shown
    std::function<void()> whenAlertIsShown;
};

class FakePreferencesWindow : public PreferencesWindow {
public:
    explicit FakePreferencesWindow(PreferencesWindowRecord& record)
        : _record(record) { }
    ~FakePreferencesWindow() override { _record.isAlive = false; }
    FakePreferencesWindow(const FakePreferencesWindow&) = delete;
    FakePreferencesWindow& operator=(const FakePreferencesWindow&) = delete;

    void setCanJoinAllSpaces() override;
    void orderFrontRegardless() override;
    void activateIgnoringOtherApps() override;
    void close() override;
    void setTitle(const std::string& title) override;
    std::vector<PreferenceItem> toolbarItems() const override;
    void setSelectedItem(std::size_t index) override;
    Rect frameNS() const override { return _record.frameNS; }
    void setFrame(const Rect& frameNS, bool animate) override;
    Size contentSize() const override { return _record.contentSize; }
    double paneHeight(PreferencePane pane) const override { return 100 + 20 * static_cast<double>(pane); }
    void removeSubviewsOfContent() override;
    void addPane(PreferencePane pane, const Size& size) override;
    void setHelpText(PreferenceHelpText text, bool animate) override;
    bool launchCheckBoxIsOn() const override { return _record.launchCheckBoxIsOn; }
    void setShortcutRecorderValue(const ShortcutRecorderValue& value) override;
    void startRecording() override;
    void setMouseButtonNumber(std::uint32_t buttonNumber) override;
    std::uint32_t mouseButtonNumber() const override { return _record.mouseButtonNumber; }
    void setupTap() override;
    void disableAndReleaseTap() override;
    void willChangeValueForKey(std::string_view key) override;
    void didChangeValueForKey(std::string_view key) override;
    void setHideHotKeyWarning(bool hide) override { _record.hotKeyWarningIsHidden = hide; }
    void setHideButtonWarning(bool hide) override { _record.buttonWarningIsHidden = hide; }
    void setHotKeyRefusal(const std::optional<HotKeyRefusal>& refusal) override { _record.refusal = refusal; }
    void setBorderNotice(BorderNotice notice) override { _record.borderNotice = notice; }
    void showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) override;

private:
    PreferencesWindowRecord& _record;
};

// Makes them, and keeps what the last one was told.
class FakePreferencesInterface : public PreferencesInterface {
public:
    std::unique_ptr<PreferencesWindow> loadWindow(PreferencesWindowController& controller) override;

    PreferencesWindowRecord window;
    int timesLoaded = 0;
};

} // namespace tarragon
