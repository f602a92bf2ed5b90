// Where the controller puts the floating panel, and when it hides it.

#include "app/AppController.h"

#include "mirror/ZDScreenTools.h"
#include "panels/TarragonPanel.h"
#include "platform/PreferenceKeys.h"

#include <utility>
#include <vector>

namespace tarragon {

double AppController::primaryScreenHeight() {
    return ZDScreenTools::primaryScreenSize(_platform.displays).height;
}

bool AppController::windowIsOnFirstScreen() {
    const std::vector<Screen> screens = _platform.displays.screens();
    if (screens.empty() || !_appUIElementInfo)
        return false;
    const auto screen = _appUIElementInfo->focusedWindowScreen();
    return screen && screen->frameNS == screens.front().frameNS;
}

Rect AppController::screenRectOfWindowCG() {
    return _tempCGRect.rectToUse(_appUIElementInfo ? _appUIElementInfo->focusedWindowScreenRectCG() : Rect());
}

Point AppController::originOfCurrentWindow() {
    return _appUIElementInfo ? _appUIElementInfo->focusedWindowFrameCG().origin : Point();
}

Point AppController::originOfScreenWithMousePointer() {
    const auto screen = ZDScreenTools::screenWithMousePointer(_platform.displays);
    return screen ? screen->frameNS.origin : Point();
}

bool AppController::isWindowFlushWithScreenEdge() {
    return originOfScreenWithMousePointer().y >= originOfCurrentWindow().y;
}

Rect AppController::convertCGtoNSRectCoords(const Rect& rectCG) {
    const std::vector<Screen> screens = _platform.displays.screens();
    const Rect first = screens.empty() ? Rect() : screens.front().frameNS;
    return tarragon::convertCGtoNSRectCoords(rectCG, first.origin.y + first.size.height);
}

Rect AppController::convertNSToCGRectCoords(const Rect& rectNS) {
    const Rect bounds = _platform.displays.mainDisplayBoundsCG();
    return tarragon::convertNSToCGRectCoords(rectNS, bounds.origin.y + bounds.size.height);
}

void AppController::showTarragonPanel() {
    if (_tarragonPanel)
        _tarragonPanel->orderFrontRegardless();
}

void AppController::hideTarragonPanel() {
    if (_tarragonPanel)
        _tarragonPanel->orderOut();
}

void AppController::orderOut() {
    hideTarragonPanel();
}

// Panels of this level never leave it; a menu of ours may have lain above meanwhile.
void AppController::resetLevels() {
    if (_tarragonPanel)
        _tarragonPanel->setLevel(PanelLevel::FrontWindow);
}

void AppController::addGradient() {
    if (_tarragonPanel)
        _tarragonPanel->setShowGradient(true);
}

void AppController::fadeOutOnce() {
    // A panel that is just fading in would take no notice; the next tick asks again.
    if (_alreadyFadedOut || (_tarragonPanel && _tarragonPanel->isFadingIn()))
        return;
    _alreadyFadedOut = true;
    if (_tarragonPanel)
        _tarragonPanel->fadeOutOfView();
}

bool AppController::isOtherThanWindowInFront() {
    return _appUIElementInfo
        && (_appUIElementInfo->isFinderDesktopWindowActive()
            || (_preferences._smartIgnore && _appUIElementInfo->isAuxiliaryWindowActive()));
}

void AppController::updateTarragonWindowPositionWithPoint(const Point& windowPositionCG) {
    if (!_preferences._enableButton || !_tarragonPanel || !_appUIElementInfo)
        return;
    if (!_preferences._showOnPrimaryScreen && windowIsOnFirstScreen()) {
        hideTarragonPanel();
        return;
    }
    if (windowIsIgnored()) {
        // The ignore list has taken the panel away by itself; a full-screen window has no room for one either.
        if (isFocusedWindowFullScreen())
            hideTarragonPanel();
        return;
    }
    if (isOtherThanWindowInFront()) {
        _alreadyFadedOut = true;
        hideTarragonPanel();
        return;
    }
    // There is nothing to ride on: every window is minimised, hidden, closed or on another workspace.
    if (_appUIElementInfo->isFocusedWindowMinimized() || _appUIElementInfo->isFocusedWindowHidden()) {
        hideTarragonPanel();
        return;
    }
    const Rect windowFrame = _appUIElementInfo->focusedWindowFrameCG();
    const Rect screenRect = screenRectOfWindowCG();
    const PanelPlace place = panelPlace(windowFrame, screenRect, _preferences._tarragonAlwaysRight);
    makeRoomForHiddenBar(place, windowFrame, screenRect);
    if (place == PanelPlace::OnTitleBar)
        placeOnTitleBar(windowPositionCG);
    else
        placeAboveWindow(windowPositionCG);
    // Shown last, so that nobody sees it where it was.
    showTarragonPanel();
    if (std::exchange(_comesBack, false))
        _lastWidth = NoWidth;
    _tarragonPanel->setFadeEffect(!_preferences._tarragonAlwaysVisible);
    if (!_preferences._tarragonAlwaysVisible && !_preferences._horizontal)
        _tarragonPanel->setTempFadeEffect(true);
}

void AppController::placeOnTitleBar(const Point& windowPositionCG) {
    const bool horizontal = _preferences._horizontal;
    if (horizontal)
        _tarragonPanel->setShowGradient(false);
    _tarragonPanel->setFrameTopLeftPoint(
        panelTopLeftNS(PanelPlace::OnTitleBar, horizontal, windowPositionCG, primaryScreenHeight()));
    if (horizontal)
        applyStyleToAllButtonsInPanel(_preferences._buttonStyle);
    else
        changeToButtonTGMenuFont();
}

void AppController::placeAboveWindow(const Point& windowPositionCG) {
    const bool horizontal = _preferences._horizontal;
    _tarragonPanel->setFrameTopLeftPoint(
        panelTopLeftNS(PanelPlace::AboveWindow, horizontal, windowPositionCG, primaryScreenHeight()));
    if (const auto style = buttonStyleInPlace(PanelPlace::AboveWindow, horizontal, _preferences._buttonStyle)) {
        applyStyleToAllButtonsInPanel(style->style);
        if (style->replacesPreference)
            _platform.defaults.setValue(preference::ButtonStyle, style->style);
    }
    if (horizontal)
        addGradient();
    else
        changeToButtonTGMenuFont();
}

bool AppController::windowIsTooCloseToTop() {
    if (!_appUIElementInfo)
        return false;
    const std::vector<Screen> screens = _platform.displays.screens();
    const std::int32_t screenOrder = _appUIElementInfo->focusedWindowScreenArrayOrder();
    const CloseCheck check{
        .horizontal = _preferences._horizontal,
        .hideOnPrimaryTopEdge = _preferences._hideOnPrimaryTopEdge,
        .screenTopEnabled = _preferences._screenTopEnabled,
        .focusedWindowScreenArrayOrder = screenOrder,
        .firstScreenVisibleFrameNS = screens.empty() ? Rect() : screens.front().visibleFrameNS,
        .windowFrameNS = _appUIElementInfo->focusedWindowFrameNS(),
        .bars = barsForCloseCheck(screenOrder),
    };
    return closesPanel(check);
}

bool AppController::closeCheck() {
    if (!windowIsTooCloseToTop())
        return false;
    _comesBack = true;
    if (_tarragonPanel)
        _tarragonPanel->fadeOutOfView();
    return true;
}

} // namespace tarragon
