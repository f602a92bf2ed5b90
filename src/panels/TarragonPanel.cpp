#include "panels/TarragonPanel.h"

#include "mirror/AppAccessibility.h"
#include "panels/TarragonPanelController.h"
#include "panels/rules/PanelDrag.h"
#include "panels/rules/PanelFade.h"
#include "platform/Displays.h"

#include <vector>

namespace tarragon {

namespace {

ZDGradientView panelBackground() {
    ZDGradientView view;
    view.startingColor = {0.45, 1};
    view.endingColor = Grey{0.95, 1};
    view.angle = 90;
    view.showGradient = true;
    return view;
}

} // namespace

TarragonPanel::TarragonPanel(const PanelServices& services, const Rect& contentRectNS)
    : ButtonPanel(services, "TarragonPanel", contentRectNS, panelBackground()) { }

// Fading.

void TarragonPanel::setAlphaValue(double alpha) {
    _fading = nullptr;
    ButtonPanel::setAlphaValue(alpha);
}

void TarragonPanel::fadeIntoView() {
    if (_fading || !mayFadeIn(alphaValue()))
        return;
    orderFrontRegardless();
    fade(0, 1);
}

void TarragonPanel::fadeOutOfView() {
    if (!_fading && mayFadeOut(alphaValue()))
        fade(1, 0);
}

void TarragonPanel::finishFadingOut() {
    if (_fading && _fadesOut)
        setAlphaValue(0);
}

void TarragonPanel::fade(double from, double to) {
    _fadesOut = to < from;
    _fading = std::make_unique<Animation>(services().runLoop, FadeDuration, [this, from, to](double progress) {
        ButtonPanel::setAlphaValue(from + (to - from) * progress);
        if (progress == 1)
            _fading = nullptr;
    });
}

// The pointer over the panel.

void TarragonPanel::mouseEntered() {
    _mouseIsOnWindow = true;
    PanelEntering entering{.fadeEffect = _fadeEffect, .alpha = alphaValue()};
    const auto reader = _appAccess.lock();
    // The window is asked about only where it matters.
    if (reader && fadesInOnEntering(entering)) {
        entering.windowIsMinimized = reader->isFocusedWindowMinimized();
        entering.windowIsHidden = reader->isFocusedWindowHidden();
        entering.desktopIsActive = reader->isFinderDesktopWindowActive();
    }
    if (fadesInOnEntering(entering))
        fadeIntoView();
}

void TarragonPanel::mouseExited() {
    if (fadesOutOnLeaving(_fadeEffect, _tempFadeEffect))
        fadeOutOfView();
    _mouseIsOnWindow = false;
}

// Drags.

void TarragonPanel::mouseDown(const PanelMouseEvent& event) {
    _pressBeganOnButton = buttonAt(event.locationInPanel) != nullptr;
    ButtonPanel::mouseDown(event);
}

void TarragonPanel::recordDragStart(const Point& locationNS) {
    _initialLocationOnScreen = locationNS;
    _shouldRedoInitials = false;
    const std::vector<Screen> screens = services().displays.screens();
    _screenFrame = screens.empty() ? Rect() : screens.front().frameNS;
    if (_screenFrame.size.height == 0)
        _screenFrame = _tempRect;
    else
        _tempRect = _screenFrame;
    _windowFrame = frame();
}

void TarragonPanel::mouseDragged(const PanelMouseEvent& event) {
    if (_pressBeganOnButton || (_windowController && _windowController->bShowing()))
        return;
    const auto reader = _appAccess.lock();
    _mouseIsOnWindow = true;
    if (_shouldRedoInitials)
        recordDragStart(event.locationNS);
    _beingDragged = true;
    const std::optional<Screen> screen = reader ? reader->focusedWindowScreen() : std::nullopt;
    _screenFrame = screen ? screen->visibleFrameNS : Rect();
    if (_screenFrame.size.height == 0)
        _screenFrame = _tempRect;
    setFrameOrigin(draggedPanelOriginNS(_windowFrame, _initialLocationOnScreen, event.locationNS, _screenFrame));
    if (!reader)
        return;
    const Point position = windowPositionBelowPanelCG(reader->convertNSToCGRectCoords(frame()));
    reader->setPositionOfFocusedWindow(static_cast<float>(position.x), static_cast<float>(position.y));
}

void TarragonPanel::mouseUp(const PanelMouseEvent& /*event*/) {
    _shouldRedoInitials = true;
    _beingDragged = false;
}

} // namespace tarragon
