// Start-up and shutdown of the controller.

#include "app/AppController.h"

#include "app/AppDelegate.h"
#include "mirror/MenuPresenter.h"
#include "panels/RKMenuBar.h"
#include "panels/TarragonPanel.h"
#include "panels/TarragonPanelController.h"
#include "platform/Log.h"

#include <utility>
#include <vector>

namespace tarragon {

namespace {

// No window is ever there, so that the first comparison sees a change.
constexpr Point ImpossiblePosition{7434, 8333};

} // namespace

AppController::AppController(Platform platform, const UserInterface& userInterface, AppDelegate& appDelegate)
    : _platform(std::move(platform))
    , _presenter(userInterface.menuPresenter)
    , _panelServices{userInterface.panelToolkit, userInterface.menuPresenter, _platform.displays, _platform.runLoop}
    , _appDelegate(appDelegate)
    , _ignoreList(_platform.defaults, _platform.workspace, *this, this) { }

AppController::~AppController() = default;

void AppController::init() {
    _appChangeNotifier = std::make_unique<ZDAppChangeNotifier>(_platform.workspace, _platform.notificationCenter);
    if (!_appChangeNotifier->setupAppFrontSwitchedHandler()) {
        log(LogCategory::Front, [] { return "the desktop does not tell of application switches: staying idle"; });
        return;
    }
    setupNotificationsToReceive();
    _appDelegate.accessibilityCheck();
    // Bars take a while to be made, and screens may come and go meanwhile.
    _platform.displays.installReconfigurationHandler([this](std::uint32_t flags) { screensHaveChanged(flags); });
    accessibilityCreation();
}

void AppController::screensHaveChanged(std::uint32_t flags) {
    // To a screen in another mode, or in another place, the panel goes with the next tick, and the bars with the next
    // application in front.
    if (!(flags & (displayReconfiguration::Added | displayReconfiguration::Removed)))
        return;
    log(LogCategory::Panel, [] { return "a screen was connected or removed"; });
    recreateScreentop();
    // Nothing may move while a menu of ours is open.
    if (_appUIElementInfo && !_presenter.isMenuOpen())
        updateTarragonWindowPositionWithPoint(_appUIElementInfo->focusedWindowPositionCG());
}

void AppController::accessibilityCreation() {
    // A tick or a switch may still be due before the program ends.
    if (_isCleared)
        return;
    _appUIElementInfo = AppAccessibility::initWithFocusedApp(_platform);
    if (!_appUIElementInfo) {
        log(LogCategory::Accessibility, [] {
            return "no menu reader: no application in front can be reached through the accessibility interface";
        });
        return;
    }
    _appUIElementInfo->setAppController(this);
    _appDelegate.accessibilityWasCreated();
    setupWindowTracking();
    mouseUpMonitor();
    _lastDragPoint = {};
    _firstDrag = true;
    setupStatusItem();
    loadDefaults();
    updateAtInit();
    constexpr double SettlingTime = 1.0;
    pauseForMenuBar(SettlingTime);
    setupPanel();
    _lastPoint = ImpossiblePosition;
    callsToStartDrag = 0;
    callsToEndDrag = 0;
    _alreadyFadedOut = false;
    const std::vector<Screen> screens = _platform.displays.screens();
    _tempCGRect = ScreenRectMemory(
        screens.empty() ? Rect() : _appUIElementInfo->convertNSToCGRectCoords(screens.front().frameNS));
    if (screens.size() >= 2) {
        _tempSTCGRect = ScreenRectMemory(_appUIElementInfo->convertNSToCGRectCoords(screens[1].frameNS));
        setupScreentopTarragonPanel();
    }
    startTimer();
    checkTimer();
}

void AppController::updateAtInit() {
    _appUIElementInfo->update();
    setMenuFont();
}

void AppController::clearAll() {
    _isCleared = true;
    _presenter.closeMenus();
    dropBars();
    dropPanel();
    _appUIElementInfo = nullptr;
}

} // namespace tarragon
