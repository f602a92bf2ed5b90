#include "panels/TarragonPanel.h"

#include "mirror/AppAccessibility.h"
#include "mirror/MenuPresenter.h"
#include "panels/TarragonPanelController.h"
#include "panels/rules/Measures.h"
#include "panels/rules/PanelDrag.h"
#include "panels/rules/PanelFade.h"
#include "platform/Displays.h"

#include <algorithm>
#include <utility>

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
    : _services(services)
    , _window(services.toolkit.makeWindow(*this))
    , _frame(contentRectNS)
    , _shownSize(contentRectNS.size)
    , _contentView(panelBackground()) {
    applyFrame();
    display();
}

TarragonPanel::~TarragonPanel() {
    for (const auto& button : _subviews)
        button->setWindow(nullptr);
}

// Place and size.

void TarragonPanel::setFrame(const Rect& frameNS) {
    _resizing = nullptr;
    _frame = frameNS;
    _shownSize = frameNS.size;
    applyFrame();
}

void TarragonPanel::setFrameAnimated(const Rect& frameNS) {
    const Size start = _shownSize;
    const bool isSeen = _visible && _alpha > 0 && start.width > 0;
    if (!isSeen || start == frameNS.size) {
        setFrame(frameNS);
        return;
    }
    _frame = frameNS;
    _resizing = std::make_unique<Animation>(_services.runLoop, ResizeDuration, [this, start](double progress) {
        const Size& end = _frame.size;
        _shownSize = {
            start.width + (end.width - start.width) * progress, start.height + (end.height - start.height) * progress};
        applyFrame();
    });
    applyFrame();
}

void TarragonPanel::setFrameOrigin(const Point& originNS) {
    _frame.origin = originNS;
    applyFrame();
}

void TarragonPanel::setFrameTopLeftPoint(const Point& pointNS) {
    setFrameOrigin({pointNS.x, pointNS.y - _frame.size.height});
}

void TarragonPanel::applyFrame() {
    _window->setFrame({{_frame.origin.x, topNS(_frame) - _shownSize.height}, _shownSize});
    applyVisibility();
}

// On the screen or not.

void TarragonPanel::orderFrontRegardless() {
    _visible = true;
    applyVisibility();
}

void TarragonPanel::orderOut() {
    _visible = false;
    applyVisibility();
}

void TarragonPanel::applyVisibility() {
    if (_visible && _shownSize.width > 0 && _shownSize.height > 0)
        _window->orderFront();
    else
        _window->orderOut();
}

void TarragonPanel::setLevel(PanelLevel level) {
    _window->setLevel(level);
}

// Fading.

void TarragonPanel::setAlphaValue(double alpha) {
    _fading = nullptr;
    _alpha = alpha;
    _window->setAlpha(alpha);
}

void TarragonPanel::fadeIntoView() {
    if (_fading || !mayFadeIn(_alpha))
        return;
    orderFrontRegardless();
    fade(0, 1);
}

void TarragonPanel::fadeOutOfView() {
    if (!_fading && mayFadeOut(_alpha))
        fade(1, 0);
}

void TarragonPanel::finishFadingOut() {
    if (_fading && _fadesOut)
        setAlphaValue(0);
}

void TarragonPanel::fade(double from, double to) {
    _fadesOut = to < from;
    _fading = std::make_unique<Animation>(_services.runLoop, FadeDuration, [this, from, to](double progress) {
        _alpha = from + (to - from) * progress;
        _window->setAlpha(_alpha);
        if (progress == 1)
            _fading = nullptr;
    });
}

// Content.

void TarragonPanel::setShowGradient(bool show) {
    _contentView.showGradient = show;
    display();
}

void TarragonPanel::setSubviews(std::vector<std::shared_ptr<PanelButton>> subviews) {
    for (const auto& button : _subviews)
        button->setWindow(nullptr);
    _subviews = std::move(subviews);
    for (const auto& button : _subviews)
        button->setWindow(this);
    _hovered = nullptr;
    display();
}

void TarragonPanel::display() {
    PanelContent content{_contentView, {}};
    content.buttons.reserve(_subviews.size());
    for (const auto& button : _subviews)
        content.buttons.push_back(button->content());
    if (content == _displayed)
        return;
    _displayed = std::move(content);
    _window->display(_displayed);
}

// The pointer over the panel.

std::shared_ptr<PanelButton> TarragonPanel::buttonAt(const Point& locationInPanel) const {
    const auto found = std::find_if(_subviews.rbegin(), _subviews.rend(),
        [&](const auto& button) { return contains(button->frame(), locationInPanel); });
    return found == _subviews.rend() ? nullptr : *found;
}

void TarragonPanel::pointerMoved(const std::optional<Point>& locationInPanel) {
    const bool isInside = locationInPanel.has_value();
    if (std::exchange(_pointerIsInside, isInside) != isInside) {
        if (isInside)
            mouseEntered();
        else
            mouseExited();
    }
    if (!isInside) {
        hover(nullptr);
        return;
    }
    // An open menu may lie over the panel.
    const Point locationNS{_frame.origin.x + locationInPanel->x, _frame.origin.y + locationInPanel->y};
    hover(_services.menuPresenter.isMenuAt(locationNS) ? nullptr : buttonAt(*locationInPanel));
}

void TarragonPanel::hover(const std::shared_ptr<PanelButton>& button) {
    if (button == _hovered)
        return;
    const std::shared_ptr<PanelButton> former = std::exchange(_hovered, button);
    if (former)
        former->mouseExited();
    if (button)
        button->mouseEntered();
}

void TarragonPanel::mouseEntered() {
    _mouseIsOnWindow = true;
    PanelEntering entering{.fadeEffect = _fadeEffect, .alpha = _alpha};
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

// Buttons and drags.

void TarragonPanel::mouseDown(const PanelMouseEvent& event) {
    const std::shared_ptr<PanelButton> button = buttonAt(event.locationInPanel);
    _pressBeganOnButton = button != nullptr;
    if (button)
        button->mouseDown(event);
}

void TarragonPanel::rightMouseDown(const PanelMouseEvent& event) {
    if (const std::shared_ptr<PanelButton> button = buttonAt(event.locationInPanel))
        button->rightMouseDown(event);
}

void TarragonPanel::recordDragStart(const Point& locationNS) {
    _initialLocationOnScreen = locationNS;
    _shouldRedoInitials = false;
    const std::vector<Screen> screens = _services.displays.screens();
    _screenFrame = screens.empty() ? Rect() : screens.front().frameNS;
    if (_screenFrame.size.height == 0)
        _screenFrame = _tempRect;
    else
        _tempRect = _screenFrame;
    _windowFrame = _frame;
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
    const Point position = windowPositionBelowPanelCG(reader->convertNSToCGRectCoords(_frame));
    reader->setPositionOfFocusedWindow(static_cast<float>(position.x), static_cast<float>(position.y));
}

void TarragonPanel::mouseUp(const PanelMouseEvent& /*event*/) {
    _shouldRedoInitials = true;
    _beingDragged = false;
}

} // namespace tarragon
