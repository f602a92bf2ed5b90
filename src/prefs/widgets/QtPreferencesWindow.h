#pragma once

#include "platform/Platform.h"
#include "prefs/PreferencesWindow.h"
#include "prefs/widgets/PreferenceBindings.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/control/SRRecorderControl.h"

#include <QList>
#include <QMainWindow>
#include <QTimer>

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QAction;
class QVariantAnimation;

namespace Ui {
class ZDPreferences;
}

namespace tarragon {

class PreferencesWindowController;

// The preferences window, from the interface file "ZDPreferences". It is as high as the pane that it shows, or as the
// screen allows, and at least as wide as the widest of them. Main thread only.
class QtPreferencesWindow : public QMainWindow, public PreferencesWindow, private SRRecorderControlDelegate {
    Q_OBJECT

public:
    // Everything outlives the window. version is that of the program; standardError is where a person learns why the
    // program ends.
    QtPreferencesWindow(Platform platform, PreferencesWindowController& controller, const std::string& version,
        std::ostream& standardError);
    ~QtPreferencesWindow() override;

    void setCanJoinAllSpaces() override;
    void orderFrontRegardless() override;
    void activateIgnoringOtherApps() override;
    void close() override;
    void setTitle(const std::string& title) override;
    std::vector<PreferenceItem> toolbarItems() const override;
    void setSelectedItem(std::size_t index) override;
    Rect frameNS() const override;
    void setFrame(const Rect& frameNS, bool animate) override;
    Size contentSize() const override;
    double paneHeight(PreferencePane pane) const override;
    void removeSubviewsOfContent() override;
    void addPane(PreferencePane pane, const Size& size) override;
    void setHelpText(PreferenceHelpText text, bool animate) override;
    bool launchCheckBoxIsOn() const override;
    void setShortcutRecorderValue(const ShortcutRecorderValue& value) override;
    void startRecording() override;
    void setMouseButtonNumber(std::uint32_t buttonNumber) override;
    std::uint32_t mouseButtonNumber() const override;
    void setupTap() override;
    void disableAndReleaseTap() override;
    void willChangeValueForKey(std::string_view key) override;
    void didChangeValueForKey(std::string_view key) override;
    void setHideHotKeyWarning(bool hide) override;
    void setHideButtonWarning(bool hide) override;
    void setHotKeyRefusal(const std::optional<HotKeyRefusal>& refusal) override;
    void setBorderNotice(BorderNotice notice) override;
    void showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool shortcutRecorderIsKeyCodeAndFlagsTaken(
        SRRecorderControl& control, std::int16_t keyCode, std::uint32_t flags, std::string& reason) override;
    void shortcutRecorderKeyComboDidChange(SRRecorderControl& control, const KeyCombo& combination) override;

    void setUpToolbar();
    void setUpControls(std::ostream& standardError);
    void setUpAbout(const std::string& version);
    void setUpActions();
    void followSettings();
    void hideSettingsWithoutEffect();
    void describeControls();
    void setUpHeadings();
    void alignWords();
    void watchPanes();
    void keepWheelForPanes();
    void showPopUpHelp();
    QWidget& paneView(PreferencePane pane) const;
    QList<QAction*> items() const;
    void focusSelectedItem();
    int toolbarHeight() const;
    int wholeHeight(PreferencePane pane) const;
    void scrollWhereNeeded();
    void fitWidth();
    void fitHeight();

    Platform _platform;
    PreferencesWindowController& _controller;
    std::unique_ptr<Ui::ZDPreferences> _ui;
    std::optional<SRKeyCodeTransformer> _transformer; // nothing without a keyboard
    PreferenceBindings _bindings;
    PreferencePane _pane = PreferencePane::General;
    bool _hotKeyIsRefused = false;
    bool _joinsAllSpaces = false;
    QSize _size; // at the end of the animation
    std::optional<QPoint> _place; // where it was when it was closed
    QVariantAnimation* _animation;
    QTimer _fitting; // has the window fit its words once all that change together have changed
};

} // namespace tarragon
