#pragma once

#include "app/AskedWindowChange.h"
#include "app/ControllerPreferences.h"
#include "app/UserInterface.h"
#include "ignore/IgnoreList.h"
#include "mirror/AppAccessibility.h"
#include "mirror/MenuReaderOwner.h"
#include "panels/PanelServices.h"
#include "panels/RKMenuBarOwner.h"
#include "panels/TarragonHackButton.h"
#include "panels/rules/PanelPlacement.h"
#include "panels/rules/PanelVisibility.h"
#include "platform/Platform.h"
#include "triggers/JTMouseHotKeyDelegate.h"
#include "triggers/JTWindowInfo.h"
#include "triggers/JTWindowInfoDelegate.h"
#include "triggers/ZDAppChangeNotifier.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class AppDelegate;
class RKMenuBar;
class TarragonPanel;
class TarragonPanelController;

// The central controller: owns the menu reader and the panel, follows the front application, its window and the
// settings, and puts the mirrored menu on the screen. Implemented in one file per area. Main thread only; lives as long
// as the process, for its observers are never removed.
class AppController : public MenuReaderOwner,
                      public JTMouseHotKeyDelegate,
                      private WindowInFront,
                      private IgnoredPanel,
                      private RKMenuBarOwner,
                      private JTWindowInfoDelegate {
public:
    // The services, the user interface and the delegate outlive the controller.
    AppController(Platform platform, const UserInterface& userInterface, AppDelegate& appDelegate);
    ~AppController() override;
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    // Start-up and shutdown.

    // The start-up sequence. Without word of front-application changes the controller stays idle on purpose: it then
    // observes nothing and builds nothing.
    void init();
    // Builds the reader and what depends on it. Without a reader (no access, or no application in front) nothing is
    // built, until a later call succeeds. Blocks for a second, so that the front application's menu bar has settled.
    void accessibilityCreation();
    // Closes open menus and drops the bars, the panel and the reader.
    void clearAll();

    // The update cycle.

    // Observes application switches and the settings. Once, after the notifier was made.
    void setupNotificationsToReceive();
    // Another application came to the front: rebuilds the mirror and the panel, with pauses for applications that
    // publish their menu bar late. When none is in front any more, the mirror is that of no application: the own menu
    // at most.
    void handleAppChange(const Notification& notification);
    // The window of an application that publishes its menus anew has moved: rebuilds likewise.
    void fireFoxSpecial();
    // True when the reader's menu holds an item.
    bool menuPopulated() const;
    // True while a title of the panel or of a bar has its menu open.
    bool checkIfMenuIsShowing() const;
    // The tick of the update cycle, until stopTimer.
    void startTimer();
    void stopTimer();
    // The watchdog, which is never stopped.
    void checkTimer();
    void turnTimerOnIfNotRunning();
    void performTimerBasedUpdateOnce();
    // One update after the drag of a window has ended.
    void performUpdate();
    // Fades the panel out where the window in front has come too close to the top of its screen; true when it did.
    bool closeCheck();
    // Notices windows that the user has moved.
    void mouseUpMonitor();
    // A workaround for one application, which empties its menus while it works. Nothing sets it up.
    void setupPhotoshopTimer();
    void photoshopcs5special();

    // Putting menus on the screen.

    // Opens the mirrored menu at the pointer, with the system's own menu at its end unless that is switched off. Where
    // the front application has no menus, and where no application is in front, the own menu is all there is.
    void popUpMenuAtMouseLocation();
    // The same below the panel; at the bottom-left corner of the primary screen when there is no panel.
    void popUpMenu() override;
    // The menu that offers to ignore the window in front, at the same place.
    void popUpIgnoreMenu() override;
    // The system's own menu, built afresh.
    std::shared_ptr<Menu> addTarragonMenuToMenu() override;
    // The file URL of the program; empty when its path is unknown.
    std::string appURL() const;

    // The floating panel.

    // Creates the panel unless there is one, and fits it out; nothing without "EnableButton".
    void setupTarragonPanel();
    void setupHorizontalTarragonPanel();
    // Creates, fills and places the panel of the kind that is set.
    void setupPanel();
    // Drops the panel and makes another one. A horizontal one gets the single button at first.
    void refreshPanel();
    void addButtonsToTarragonPanel();
    void addButtonsToHorizontalTarragonPanel();
    void changeToButtonTGMenuFont();
    void applyStyle(std::int64_t style, PanelButton& button);
    void applyStyleToAllButtonsInPanel(std::int64_t style);
    // Moves every button 5 points to the right, each time.
    void setSpacingBetweenButtons(double spacing);
    // windowPositionCG is the top-left corner of the window in front.
    void updateTarragonWindowPositionWithPoint(const Point& windowPositionCG);
    void resetLevels() override;
    void addGradient();
    // To the front without becoming active, and off the screen.
    void showTarragonPanel();
    void hideTarragonPanel() override;
    Point originOfCurrentWindow();
    Point originOfScreenWithMousePointer();
    // Compares a y of Cocoa space with one of screen space, on purpose.
    bool isWindowFlushWithScreenEdge();
    Rect convertCGtoNSRectCoords(const Rect& rectCG);
    Rect convertNSToCGRectCoords(const Rect& rectNS);
    // nullptr while there is none.
    TarragonPanel* tarragonPanel() const { return _tarragonPanel.get(); }

    // The bars at the top of the screens other than the first.

    // Makes one for each of these screens, anew where their number has changed, and lets all show the titles of the
    // application in front. Takes them away where the setting is off; leaves everything as it is on a single screen.
    // Blocks for a second for every bar that it makes.
    void setupScreentopTarragonPanel();
    // Makes all of them anew.
    void recreateScreentop();
    // The first bar hides itself.
    bool screenTopEnabledWithAutohide() const;
    // Puts the window in front below a bar that stays, unless the user is dragging it or it has refused that before.
    // True when the window was told to change, which it does in its own time.
    bool moveAndResizeAppWindowIfOverlappingScreenTop();
    // Reads the menus again and lets the bars show them: the gradient is drawn by the bars themselves.
    void addGradientScreenTop();
    // What the bars do by themselves. These do nothing, on purpose.
    void addButtonsToScreentopTarragonPanel() { }
    void updateTarragonSTWindowPositionWithPoint(const Point& /*windowPositionCG*/) { }
    void setSpacingBetweenSTPanelButtons(double /*spacing*/) { }
    void slideOutScreenTopMenubar() { }
    void slideInScreenTopMenubar() { }

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
    std::shared_ptr<Menu> contextMenu() override;

    // The hot key: registers it anew from the settings, or unregisters it.
    void installCarbonHotKeyHandler();
    // Opens the mirrored menu at the pointer, where the trigger is switched on and this is its button.
    void mouseHotKeyMouseButtonActioned(JTMouseHotKey& mouseHotKey, std::uint32_t buttonNumber) override;

    // The settings.

    // Reads every setting in its order, hands the reader its options and registers the hot key. Needs the reader.
    void loadDefaults();
    // keyPath is "values." followed by the key that has changed.
    void observeValueForKeyPath(const std::string& keyPath);
    const ControllerPreferences& preferences() const { return _preferences; }

    // nullptr while there is none.
    AppAccessibility* reader() const { return _appUIElementInfo.get(); }

private:
    // What the ignore list asks, and what it does to the panel.
    std::optional<std::string> focusedWindowTitle() override;
    bool isFocusedWindowFullScreen() override;
    void orderOut() override;
    void setStartAtLogin(bool startsAtLogin) override;
    // A mirrored menu has closed.
    void menuHasClosed() override;
    // The user drags a window, and has released the button.
    void windowInfoWindowDraggedToScreenEdgeDidStart(JTWindowInfo& windowInfo, std::int64_t screenEdge) override;
    void windowInfoWindowDraggedToScreenEdgeDidEnd(JTWindowInfo& windowInfo, std::int64_t screenEdge) override;
    // flags are bits of displayReconfiguration.
    void screensHaveChanged(std::uint32_t flags);
    void setupWindowTracking();
    bool fadeOutForDrag();

    // These need the reader.
    void updateAtInit();
    // The pauses of the update cycle, which no handler of ours interrupts.
    void pauseForMenuBar(double seconds);
    // Shows the menu of the application itself in bold.
    void boldenAppTitleMenu();
    void setMenuFont();
    bool ownWindowIsInFront();
    // Reads the menu bar of the application in front anew. False when an own window has come before it meanwhile: the
    // mirror stays as it is then.
    bool readMenusInFront();
    // Once more after a pause, and twice more for applications that publish their menu bar in pieces.
    void readAgainIfEmpty(double pause, const std::vector<std::string>& applicationsReadTwiceMore);

    // The panel.
    void dropPanel();
    void rebuildPanel();
    void applyChangeToPanel();
    void buildAndPlacePanel();
    void fadeOutOnce();
    bool isOtherThanWindowInFront();
    bool windowIsOnFirstScreen();
    bool windowIsTooCloseToTop();
    Rect screenRectOfWindowCG();
    double primaryScreenHeight();
    Point panelMenuLocationNS() const;
    TarragonHackButton::Surroundings titleSurroundings();
    std::shared_ptr<TarragonHackButton> makeTitle(const MenuItem& item, double x);
    void dressTitle(TarragonHackButton& title);
    MenuFont menuBarFont() const;
    MenuFont titleFont(const std::string& title);
    void placeOnTitleBar(const Point& windowPositionCG);
    void placeAboveWindow(const Point& windowPositionCG);
    [[nodiscard]] bool browserHasMoved(const std::vector<std::string>& appNames);
    // False when the panel was faded out, or is being dragged, so that nothing more is to be done.
    bool updateHorizontalPanel(PanelTickOutcome (*decide)(const PanelTick&));

    // The bars.
    void setUpBarsOnce();
    void buildBars(std::size_t screenCount);
    void dropBars();
    void showMenuOnBars();
    ScreenTopBars barsForCloseCheck(std::int32_t focusedWindowScreenArrayOrder) const;
    void slideAndHideBars();
    bool barMenuIsShowing() const;
    void setupBarsForMovedBrowser();
    void makeRoomForHiddenBar(PanelPlace place, const Rect& windowFrameCG, const Rect& screenRectCG);
    bool userMayBeDragging() const;
    bool askForWindowChange(AskedWindowChange& asked, const Rect& windowFrameCG, const WindowChange& change);

    bool readBool(std::string_view key);
    std::int8_t readFontSize(std::string_view key);
    void readFoldAlternate();
    void readShowKeyEquivalents();
    void readShowAppleMenu();
    void readShowTarragonMenu();
    void readShowApplicationMenu();
    void readButtonStyle();

    // No window has it, so that the titles are laid out at the next tick.
    static constexpr std::int32_t NoWidth = std::numeric_limits<std::int32_t>::min();

    Platform _platform;
    MenuPresenter& _presenter;
    PanelServices _panelServices;
    AppDelegate& _appDelegate;
    std::unique_ptr<ZDAppChangeNotifier> _appChangeNotifier;
    std::shared_ptr<AppAccessibility> _appUIElementInfo;
    ControllerPreferences _preferences;
    IgnoreList _ignoreList;
    std::unique_ptr<StatusItem> _statusItem; // nullptr while there is none
    bool _isCleared = false; // nothing is built any more
    HotKeyReference _myHotKeyRef = 0; // 0 until the first registration, then never again
    std::int64_t _appPID = 0; // kept for reference only

    // The panel outlives its controller.
    std::unique_ptr<TarragonPanel> _tarragonPanel;
    std::unique_ptr<TarragonPanelController> _tarragonPanelController;
    std::shared_ptr<Menu> _horizontalBunch; // the titles that did not fit
    std::shared_ptr<TarragonHackButton> _bunchButton;
    std::int32_t _currentWidth = 0; // of the window in front, in whole points
    std::int32_t _lastWidth = 0; // for which the panel was last laid out
    bool _alreadyFadedOut = false;
    bool _comesBack = false; // it is invisible for a window that has none, and is shown with the next that has one
    bool _tempAboveTrafficLights = false; // the window was too narrow for "TarragonAlwaysRight"
    ScreenRectMemory _tempCGRect;
    Point _currentPoint; // of the window in front, Cocoa space
    Point _lastPoint;
    Point _lastPanelPoint;
    bool _firstDrag = true;
    Point _lastDragPoint;
    std::int32_t callsToStartDrag = 0;
    std::int32_t callsToEndDrag = 0;
    std::unique_ptr<JTWindowInfo> _windowInfo;

    // In the order of their screens, from the second screen on; empty while there are none. Shared, so that a walk over
    // a copy goes on safely when the bars are made anew meanwhile.
    std::vector<std::shared_ptr<RKMenuBar>> _rkMenuBarArray;
    std::size_t numScreens = 0; // when they were made
    bool _isSettingUpBars = false;
    bool _barsAreOutdated = false; // they are to be set up once more after that
    ScreenRectMemory _tempSTCGRect;
    AskedWindowChange _changeBelowBar;
    AskedWindowChange _changeForHiddenBar;

    EventMonitor _mouseUpMonitor = 0;
    std::unique_ptr<Timer> _mainTimer;
    std::unique_ptr<Timer> _checkTimer;
    std::unique_ptr<Timer> _photoshopTimer;
};

} // namespace tarragon
