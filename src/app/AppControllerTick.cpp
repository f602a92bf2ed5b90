// What the controller does again and again, and what it notices in between.

#include "app/AppController.h"
#include "app/AppDelegate.h"
#include "mirror/MenuPresenter.h"
#include "mirror/ProxyMenuItem.h"
#include "panels/TarragonPanel.h"
#include "panels/TarragonPanelController.h"
#include "panels/rules/Measures.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

void AppController::startTimer() {
    constexpr double TickInterval = 0.45;
    _mainTimer = _platform.runLoop.scheduleTimer(TickInterval, true, [this] { performTimerBasedUpdateOnce(); });
}

void AppController::stopTimer() {
    if (_mainTimer)
        _mainTimer->invalidate();
}

void AppController::checkTimer() {
    constexpr double WatchInterval = 8.0;
    _checkTimer = _platform.runLoop.scheduleTimer(WatchInterval, true, [this] { turnTimerOnIfNotRunning(); });
}

void AppController::turnTimerOnIfNotRunning() {
    if (!_mainTimer || !_mainTimer->isValid())
        startTimer();
}

// One tick, and one update after a drag.

bool AppController::browserHasMoved(const std::vector<std::string>& appNames) {
    const auto appName = _appUIElementInfo->focusedAppName();
    if (!appName || std::ranges::find(appNames, *appName) == appNames.end())
        return false;
    _currentPoint = _appUIElementInfo->focusedWindowPosition();
    return std::exchange(_lastPoint, _currentPoint) != _currentPoint;
}

bool AppController::updateHorizontalPanel(PanelTickOutcome (*decide)(const PanelTick&)) {
    if (!_preferences._horizontal || !_preferences._enableButton || !_tarragonPanel)
        return true;
    PanelTick tick{
        .beingDragged = _tarragonPanel->beingDragged(),
        .otherThanWindowInFront = isOtherThanWindowInFront(),
        .tarragonAlwaysVisible = _preferences._tarragonAlwaysVisible,
        .mouseIsOnWindow = _tarragonPanel->mouseIsOnWindow(),
        .enableButton = _preferences._enableButton,
        .titleMenuIsShowing = _tarragonPanelController && _tarragonPanelController->bShowing(),
    };
    _currentWidth = wholePoints(_appUIElementInfo->focusedWindowFrameCG().size.width);
    tick.widthHasChanged = _currentWidth != _lastWidth;
    // Where the pointer is has to be asked for, and matters only to a panel that comes and goes.
    tick.pointerIsInFrame =
        !tick.tarragonAlwaysVisible && contains(_tarragonPanel->frame(), _platform.displays.mouseLocationNS());
    const PanelTickOutcome outcome = decide(tick);
    if (outcome.fadesOut) {
        _alreadyFadedOut = true;
        _tarragonPanel->fadeOutOfView();
    }
    if (outcome.fadesOutOnce)
        fadeOutOnce();
    if (outcome.laysOutAgain)
        addButtonsToHorizontalTarragonPanel();
    // The titles are laid out, and shown, again as soon as the window itself is back.
    if (tick.otherThanWindowInFront && !tick.beingDragged)
        _lastWidth = NoWidth;
    return !outcome.endsTick;
}

void AppController::performTimerBasedUpdateOnce() {
    if (!_appUIElementInfo)
        accessibilityCreation();
    // Nothing may move while a menu of ours is open.
    if (!_appUIElementInfo || checkIfMenuIsShowing() || _presenter.isMenuOpen())
        return;
    constexpr std::uint64_t MemoryCeiling = 180'000'001; // bytes
    if (_appDelegate.memoryUsed() >= MemoryCeiling) {
        _appDelegate.restartAppUsingSUUpdater();
        return;
    }
    // One look at the window in front serves all questions about it.
    std::optional<ReadBatch> look(std::in_place, _platform.accessibility, ReadBatchDepth::AsAsked);
    // What was read of a window that changes is no longer true.
    if (moveAndResizeAppWindowIfOverlappingScreenTop()) {
        look.reset();
        look.emplace(_platform.accessibility, ReadBatchDepth::AsAsked);
    }
    // This one moves its menus about too, and yet is left to the update after a drag: Thunderbird.
    if (browserHasMoved({"Firefox", "Camino"})) {
        // Which takes a while.
        look.reset();
        fireFoxSpecial();
        look.emplace(_platform.accessibility, ReadBatchDepth::AsAsked);
    }
    // While the panel is dragged, and while it steps back for the desktop or a dialog, the bars stay as they are, too.
    if (!updateHorizontalPanel(tickOutcome))
        return;
    if (_preferences._enableButton && !closeCheck())
        updateTarragonWindowPositionWithPoint(_appUIElementInfo->focusedWindowPositionCG());
    slideAndHideBars();
}

void AppController::performUpdate() {
    if (!_appUIElementInfo)
        return;
    const bool suppressed = _preferences._horizontal && _preferences._enableButton && isOtherThanWindowInFront();
    if (!_preferences._showOnPrimaryScreen && windowIsOnFirstScreen())
        return;
    if (windowIsIgnored() || suppressed || checkIfMenuIsShowing())
        return;
    if (browserHasMoved({"Firefox", "Camino", "Thunderbird"}))
        fireFoxSpecial();
    if (!updateHorizontalPanel(outcomeAfterDrag))
        return;
    if (_preferences._enableButton && !closeCheck())
        updateTarragonWindowPositionWithPoint(_appUIElementInfo->focusedWindowPositionCG());
}

// What the mirror and the user tell.

void AppController::menuHasClosed() {
    if (_tarragonPanel && _preferences._enableButton && !_preferences._tarragonAlwaysVisible)
        _tarragonPanel->fadeOutOfView();
}

void AppController::mouseUpMonitor() {
    if (!_platform.inputEvents)
        return;
    _mouseUpMonitor =
        _platform.inputEvents->addGlobalMonitor(inputEventMask(InputEventType::LeftMouseUp), [this](const InputEvent&) {
            if (!_appUIElementInfo)
                return;
            if (_appUIElementInfo->focusedWindowPosition() != _lastPanelPoint && _preferences._horizontal)
                _firstDrag = true;
            _lastPanelPoint = _appUIElementInfo->focusedWindowPosition();
        });
}

void AppController::setupPhotoshopTimer() {
    constexpr double LookInterval = 1.0;
    if (_photoshopTimer)
        _photoshopTimer->invalidate();
    if (_appUIElementInfo && _appUIElementInfo->focusedAppName() == "Photoshop")
        _photoshopTimer = _platform.runLoop.scheduleTimer(LookInterval, true, [this] { photoshopcs5special(); });
}

void AppController::photoshopcs5special() {
    constexpr const char* Photoshop = "Photoshop";
    if (!_appUIElementInfo || _appUIElementInfo->focusedAppName() != Photoshop)
        return;
    const auto fileItem = _appUIElementInfo->menu()->itemWithTitle("File");
    const auto proxy = fileItem ? std::dynamic_pointer_cast<ProxyMenuItem>(fileItem->target()) : nullptr;
    const Element file = proxy ? proxy->itemAXUIElementRef() : Element();
    const auto readEverythingAgain = [this] {
        _appUIElementInfo->clearCacheForAppKey(Photoshop);
        pauseForMenuBar(0.5);
        handleAppChange({});
    };
    if (_appUIElementInfo->menuItemsCleared(file))
        readEverythingAgain();
    if (_appUIElementInfo->menuItemsAllDisabled(file))
        readEverythingAgain();
}

} // namespace tarragon
