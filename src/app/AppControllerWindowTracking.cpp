// What the controller does while the user drags a window about.

#include "app/AppController.h"

#include "panels/TarragonPanel.h"
#include "platform/Displays.h"

namespace tarragon {

void AppController::setupWindowTracking() {
    _windowInfo = std::make_unique<JTWindowInfo>(_platform);
    _windowInfo->setDelegate(this);
    _windowInfo->setScreenEdgeDragMonitorActive(true);
}

void AppController::windowInfoWindowDraggedToScreenEdgeDidStart(
    JTWindowInfo& /*windowInfo*/, std::int64_t /*screenEdge*/) {
    if (!_preferences._tarragonAlwaysVisible) {
        stopTimer();
        return;
    }
    const bool isBusy = checkIfMenuIsShowing() || (_tarragonPanel && _tarragonPanel->mouseIsOnWindow());
    if (!isBusy && !fadeOutForDrag())
        return;
    callsToEndDrag = 0;
    callsToStartDrag = 0;
}

// False when the calls go on being counted. The panel is not moved with the pointer: the places are only compared.
bool AppController::fadeOutForDrag() {
    const double alpha = _tarragonPanel ? _tarragonPanel->alphaValue() : 0;
    if (alpha < 1)
        return false;
    if (++callsToStartDrag < callsToEndDrag) {
        callsToStartDrag = 0;
        callsToEndDrag = 0;
        return false;
    }
    stopTimer();
    const Point pointer = _platform.displays.mouseLocationNS();
    // Always the case: nothing clears the flag.
    if (_firstDrag)
        _lastPanelPoint = _tarragonPanel->frame().origin;
    if (pointer == _lastDragPoint)
        return false;
    constexpr double FirstOffset = 10;
    if (_lastDragPoint == Point())
        _lastDragPoint = {pointer.x + FirstOffset, pointer.y + FirstOffset};
    const Point dragged{
        pointer.x - _lastDragPoint.x + _lastPanelPoint.x, pointer.y - _lastDragPoint.y + _lastPanelPoint.y};
    if (dragged == _lastPanelPoint)
        return false;
    if (alpha == 1.0)
        fadeOutOnce();
    return true;
}

void AppController::windowInfoWindowDraggedToScreenEdgeDidEnd(
    JTWindowInfo& /*windowInfo*/, std::int64_t /*screenEdge*/) {
    if (!_preferences._tarragonAlwaysVisible) {
        turnTimerOnIfNotRunning();
        return;
    }
    // A drag that was shorter than the fade is over like any other; nothing else would bring the panel back.
    if (_tarragonPanel)
        _tarragonPanel->finishFadingOut();
    if (_tarragonPanel && _tarragonPanel->alphaValue() > 0)
        return;
    ++callsToEndDrag;
    performUpdate();
    turnTimerOnIfNotRunning();
    if (_preferences._horizontal && _preferences._enableButton && isOtherThanWindowInFront())
        return;
    if (_preferences._enableButton && closeCheck()) {
        if (_tarragonPanel && _tarragonPanel->alphaValue() == 1.0)
            fadeOutOnce();
        return;
    }
    if (windowIsIgnored())
        return;
    if (!_preferences._showOnPrimaryScreen && windowIsOnFirstScreen())
        return;
    _alreadyFadedOut = false;
    if (_tarragonPanel)
        _tarragonPanel->fadeIntoView();
}

} // namespace tarragon
