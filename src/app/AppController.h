#pragma once

#include "app/ControllerPreferences.h"
#include "ignore/IgnoreList.h"
#include "mirror/AppAccessibility.h"
#include "mirror/MenuReaderOwner.h"
#include "platform/Platform.h"
#include "triggers/ZDAppChangeNotifier.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class AppDelegate;
class MenuPresenter;

// The central controller: owns the menu reader, follows the front application and the settings, and puts the mirrored
// menu on the screen. Implemented in one file per area. Main thread only; lives as long as the process, for its
// observers are never removed.
class AppController : public MenuReaderOwner, private WindowInFront {
public:
    // The services, the presenter and the delegate outlive the controller.
    AppController(Platform platform, MenuPresenter& presenter, AppDelegate& appDelegate);
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    // Start-up and shutdown.

    // The start-up sequence. Without word of front-application changes the controller stays idle on purpose: it then
    // observes nothing and builds nothing.
    void init();
    // Builds the reader and what depends on it. Without a reader (no access, or no application in front) nothing is
    // built, until a later call succeeds. Blocks for a second, so that the front application's menu bar has settled.
    void accessibilityCreation();
    // Closes open menus and drops the reader.
    void clearAll();

    // The update cycle.

    // Observes application switches and the settings. Once, after the notifier was made.
    void setupNotificationsToReceive();
    // Another application came to the front: rebuilds the mirror, with pauses for applications that publish their menu
    // bar late. When none is in front any more, the mirror is that of no application: the own menu at most.
    void handleAppChange(const Notification& notification);
    // True when the reader's menu holds an item.
    bool menuPopulated() const;

    // Putting menus on the screen.

    // Opens the mirrored menu at the pointer, with the system's own menu at its end unless that is switched off. Where
    // the front application has no menus, and where no application is in front, the own menu is all there is.
    void popUpMenuAtMouseLocation();
    // The system's own menu, built afresh.
    std::shared_ptr<Menu> addTarragonMenuToMenu();

    // The status item.

    // Puts the item into the status bar, or takes it away, as the setting says; leaves it where it is as wanted.
    void setupStatusItem();
    void removeStatusItem();
    // The items of the system's own menu, built afresh.
    std::vector<StatusMenuItem> statusItemMenu();

    // The ignore list.

    // True when the floating panel is to stay hidden for the window in front: it is full-screen or on the list, which
    // is read anew every time.
    bool windowIsIgnored();
    // Puts the application in front on the list, to be ignored as the code says.
    void ignoreCurrentWindow(IgnoreCode code);
    // Every window of the application.
    void ignoreApp();
    // Lists the application without ignoring any of its windows; no menu offers it.
    void ignoreRole();
    // Every window of the application with the title of the window in front.
    void ignoreTitle();
    // The menu that offers them for the application in front, built afresh.
    std::shared_ptr<Menu> contextMenu();

    // The hot key: registers it anew from the settings, or unregisters it.
    void installCarbonHotKeyHandler();

    // The settings.

    // Reads every setting in its order, hands the reader its options and registers the hot key. Needs the reader.
    void loadDefaults();
    // keyPath is "values." followed by the key that has changed.
    void observeValueForKeyPath(const std::string& keyPath);
    const ControllerPreferences& preferences() const { return _preferences; }

    // nullptr while there is none.
    AppAccessibility* reader() const { return _appUIElementInfo.get(); }

private:
    // What the ignore list asks.
    std::optional<std::string> focusedWindowTitle() override;
    bool isFocusedWindowFullScreen() override;

    // These need the reader.
    void updateAtInit();
    // The pauses of the update cycle, which no handler of ours interrupts.
    void pauseForMenuBar(double seconds);
    // Shows the menu of the application itself in bold.
    void boldenAppTitleMenu();
    void setMenuFont();
    bool readBool(std::string_view key);
    std::int8_t readFontSize(std::string_view key);
    void readFoldAlternate();
    void readShowKeyEquivalents();
    void readShowAppleMenu();
    void readShowTarragonMenu();
    void readShowApplicationMenu();
    void readButtonStyle();

    Platform _platform;
    MenuPresenter& _presenter;
    AppDelegate& _appDelegate;
    std::unique_ptr<ZDAppChangeNotifier> _appChangeNotifier;
    std::shared_ptr<AppAccessibility> _appUIElementInfo;
    ControllerPreferences _preferences;
    IgnoreList _ignoreList;
    std::unique_ptr<StatusItem> _statusItem; // nullptr while there is none
    HotKeyReference _myHotKeyRef = 0; // 0 until the first registration, then never again
    std::int64_t _appPID = 0; // kept for reference only
};

} // namespace tarragon
