// The bars at the top of the screens other than the first, and what they mean to the window in front.

#include "app/AppController.h"

#include "mirror/ZDScreenTools.h"
#include "panels/RKMenuBar.h"
#include "panels/TarragonPanel.h"
#include "panels/rules/ScreenTopOverlap.h"
#include "platform/Log.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tarragon {

// The list.

void AppController::setupScreentopTarragonPanel() {
    // A bar blocks while it is made. Whoever wants other bars meanwhile gets them when these are done.
    if (_isSettingUpBars) {
        _barsAreOutdated = true;
        return;
    }
    _isSettingUpBars = true;
    do {
        _barsAreOutdated = false;
        setUpBarsOnce();
    } while (_barsAreOutdated);
    _isSettingUpBars = false;
}

void AppController::setUpBarsOnce() {
    // There is no menu to show without a reader.
    if (!_appUIElementInfo)
        return;
    const std::size_t screenCount = _platform.displays.screens().size();
    if (screenCount < 2)
        return;
    if (!_preferences._screenTopEnabled) {
        dropBars();
        return;
    }
    if (_rkMenuBarArray.empty() || numScreens != screenCount)
        buildBars(screenCount);
    const auto bars = _rkMenuBarArray;
    for (const auto& bar : bars)
        bar->handleAppChange();
}

void AppController::buildBars(std::size_t screenCount) {
    dropBars();
    numScreens = screenCount;
    _appUIElementInfo->appendAuxiliaryMenuTo(*_appUIElementInfo->menu());
    for (std::size_t screen = 1; screen < screenCount; ++screen) {
        const auto bar = std::make_shared<RKMenuBar>(
            RKMenuBar::Surroundings{_panelServices, _platform.defaults, _platform.inputEvents, *this});
        // These bars are not wanted any more, or the program ends.
        if (_barsAreOutdated || !_appUIElementInfo) {
            dropBars();
            return;
        }
        bar->setDisplayScreen(static_cast<int>(screen));
        bar->setMenu(_appUIElementInfo->menu());
        bar->refreshPanel();
        _rkMenuBarArray.push_back(bar);
    }
    log(LogCategory::Panel, [&] { return "bars at the top of screens: " + std::to_string(_rkMenuBarArray.size()); });
}

void AppController::dropBars() {
    // A menu that closes with its bar finds no bars any more.
    const auto bars = std::exchange(_rkMenuBarArray, {});
    for (const auto& bar : bars)
        bar->hideTarragonSTPanel();
}

void AppController::recreateScreentop() {
    dropBars();
    setupScreentopTarragonPanel();
}

void AppController::addGradientScreenTop() {
    if (_appUIElementInfo)
        _appUIElementInfo->update();
    setupScreentopTarragonPanel();
    addButtonsToScreentopTarragonPanel();
}

// The update cycle.

// Another application is in front.
void AppController::showMenuOnBars() {
    const auto bars = _rkMenuBarArray;
    for (const auto& bar : bars) {
        bar->setMenu(_appUIElementInfo->menu());
        bar->handleAppChange();
    }
}

// Its menus were read anew. They are left as they were while the pointer is on the first screen.
void AppController::setupBarsForMovedBrowser() {
    const auto screen = ZDScreenTools::screenWithMousePointer(_platform.displays);
    const bool isFirst = screen && screen->frameNS == _platform.displays.screens().front().frameNS;
    if (!isFirst)
        setupScreentopTarragonPanel();
}

void AppController::slideAndHideBars() {
    if (!_preferences._screenTopEnabled || _rkMenuBarArray.empty() || !_appUIElementInfo)
        return;
    const auto bars = _rkMenuBarArray;
    // The bars begin at the second screen.
    const std::int32_t screenOrder = _appUIElementInfo->focusedWindowScreenArrayOrder();
    if (screenOrder > 0 && static_cast<std::size_t>(screenOrder) <= bars.size())
        bars[static_cast<std::size_t>(screenOrder) - 1]->slideOutCheck();
    const bool isFullScreen = _appUIElementInfo->isFocusedWindowFullScreen();
    for (const auto& bar : bars) {
        if (isFullScreen)
            bar->hideTarragonSTPanel();
        else
            bar->unhideTarragonSTPanel();
    }
}

bool AppController::barMenuIsShowing() const {
    return _preferences._screenTopEnabled
        && std::ranges::any_of(_rkMenuBarArray, [](const auto& bar) { return bar->checkIfMenuIsShowing(); });
}

bool AppController::screenTopEnabledWithAutohide() const {
    return _preferences._screenTopEnabled && !_rkMenuBarArray.empty() && _rkMenuBarArray.front()->screenTopAutoHide();
}

ScreenTopBars AppController::barsForCloseCheck(std::int32_t focusedWindowScreenArrayOrder) const {
    const auto count = static_cast<std::int32_t>(_rkMenuBarArray.size());
    if (count == 0)
        return {};
    ScreenTopBars bars{.exist = true, .firstAutoHides = _rkMenuBarArray.front()->screenTopAutoHide(), .yOfBarNS = 0};
    // A screen that has just been connected has none yet; the first has none at all, and needs none to be told of.
    if (focusedWindowScreenArrayOrder > count)
        bars.exist = false;
    else if (focusedWindowScreenArrayOrder > 0)
        bars.yOfBarNS =
            _rkMenuBarArray[static_cast<std::size_t>(focusedWindowScreenArrayOrder) - 1]->frameOfST().origin.y;
    return bars;
}

// The window in front.

// The window may be in the user's hand: by its title bar or another part of it, or by the panel. The events of a drag
// are no help: after a pause of ours they are still to come.
bool AppController::userMayBeDragging() const {
    return (_platform.inputEvents && _platform.inputEvents->leftButtonIsHeld())
        || (_tarragonPanel && _tarragonPanel->beingDragged());
}

bool AppController::moveAndResizeAppWindowIfOverlappingScreenTop() {
    if (!_preferences._screenTopEnabled || _rkMenuBarArray.empty() || !_appUIElementInfo)
        return false;
    AppAccessibility& reader = *_appUIElementInfo;
    const Rect windowFrameCG = reader.focusedWindowFrameCG();
    ScreenTopOverlap overlap{
        .screenTopEnabled = true,
        .barsExist = true,
        .firstBarAutoHides = _rkMenuBarArray.front()->screenTopAutoHide(),
        .windowIsOnFirstScreen = windowIsOnFirstScreen(),
        .windowFrameCG = windowFrameCG,
        .windowFrameNS = reader.focusedWindowFrameNS(),
        .screenRectCG = _tempSTCGRect.rectToUse(reader.focusedWindowScreenRectCG()),
        .focusedAppName = reader.focusedAppName(),
    };
    WindowChange change = windowChangeBelowBar(overlap);
    // A full-screen window has no bar above it, and the desktop is no window that could go anywhere.
    constexpr const char* DesktopRole = "AXWindow:AXUnknown";
    if (change != WindowChange() && (reader.isFocusedWindowFullScreen() || reader.focusedWindowRole() == DesktopRole))
        change = {};
    return askForWindowChange(_changeBelowBar, windowFrameCG, change);
}

// A bar that hides itself needs room above a window at the very top, on whichever screen that is.
void AppController::makeRoomForHiddenBar(PanelPlace place, const Rect& windowFrameCG, const Rect& screenRectCG) {
    if (!screenTopEnabledWithAutohide())
        return;
    WindowChange change;
    if (place == PanelPlace::OnTitleBar && _preferences._horizontal) {
        change = windowChangeOnTitleBar(windowFrameCG, _appUIElementInfo->focusedWindowFrameNS(), screenRectCG,
            _preferences._tarragonAlwaysRight, _preferences._tarragonAlwaysVisible, true);
    }
    askForWindowChange(_changeForHiddenBar, windowFrameCG, change);
}

bool AppController::askForWindowChange(
    AskedWindowChange& asked, const Rect& windowFrameCG, const WindowChange& change) {
    // A tick after the release does it.
    if (change != WindowChange() && userMayBeDragging())
        return false;
    AppAccessibility& reader = *_appUIElementInfo;
    const WindowChange news = asked.toAskFor(reader.focusedWindow(), windowFrameCG, change);
    if (news == WindowChange())
        return false;
    log(LogCategory::Panel, [] { return "the window in front is to make room for the bar at the top of its screen"; });
    if (news.size)
        reader.setSizeOfFocusedWindow(static_cast<float>(news.size->width), static_cast<float>(news.size->height));
    if (news.positionCG)
        reader.setPositionOfFocusedWindow(
            static_cast<float>(news.positionCG->x), static_cast<float>(news.positionCG->y));
    return true;
}

} // namespace tarragon
