#include "panels/ButtonPanel.h"

#include "mirror/MenuPresenter.h"
#include "panels/rules/Measures.h"
#include "panels/rules/PanelFade.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarragon {

ButtonPanel::ButtonPanel(const PanelServices& services, const std::string& title, const Rect& contentRectNS,
    const ZDGradientView& contentView)
    : _services(services)
    , _window(services.toolkit.makeWindow(*this, title))
    , _frame(contentRectNS)
    , _shownSize(contentRectNS.size)
    , _contentView(contentView) {
    applyFrame();
    display();
}

ButtonPanel::~ButtonPanel() {
    for (const auto& button : _subviews)
        button->setWindow(nullptr);
}

// Place and size.

void ButtonPanel::setFrame(const Rect& frameNS) {
    _resizing = nullptr;
    _frame.size = frameNS.size;
    _shownSize = frameNS.size;
    setFrameOrigin(frameNS.origin);
}

void ButtonPanel::setFrameAnimated(const Rect& frameNS) {
    const Size start = _shownSize;
    if (!isSeen() || start == frameNS.size) {
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

void ButtonPanel::setFrameOrigin(const Point& originNS) {
    _moving = nullptr;
    _shownOffset = {};
    _frame.origin = originNS;
    applyFrame();
}

void ButtonPanel::setFrameOriginAnimated(const Point& originNS, const std::function<void()>& arrived) {
    if (!isSeen()) {
        setFrameOrigin(originNS);
        arrived();
        return;
    }
    const Point start{_frame.origin.x + _shownOffset.x - originNS.x, _frame.origin.y + _shownOffset.y - originNS.y};
    _frame.origin = originNS;
    _shownOffset = start;
    _moving = std::make_unique<Animation>(_services.runLoop, ResizeDuration, [this, start, arrived](double progress) {
        _shownOffset = {start.x * (1 - progress), start.y * (1 - progress)};
        applyFrame();
        if (progress == 1)
            arrived();
    });
    applyFrame();
}

void ButtonPanel::setFrameTopLeftPoint(const Point& pointNS) {
    setFrameOrigin({pointNS.x, pointNS.y - _frame.size.height});
}

bool ButtonPanel::isSeen() const {
    return _visible && !_outOfSight && _alpha > 0 && _shownSize.width > 0;
}

void ButtonPanel::applyFrame() {
    const double top = topNS(_frame) + _shownOffset.y;
    _window->setFrame({{_frame.origin.x + _shownOffset.x, top - _shownSize.height}, _shownSize});
    applyVisibility();
}

// On the screen or not.

void ButtonPanel::orderFrontRegardless() {
    _visible = true;
    applyVisibility();
}

void ButtonPanel::orderOut() {
    _visible = false;
    applyVisibility();
}

void ButtonPanel::setOutOfSight(bool outOfSight) {
    if (std::exchange(_outOfSight, outOfSight) != outOfSight)
        applyVisibility();
}

void ButtonPanel::applyVisibility() {
    if (_visible && !_outOfSight && _shownSize.width > 0 && _shownSize.height > 0)
        _window->orderFront();
    else
        _window->orderOut();
}

void ButtonPanel::setLevel(PanelLevel level) {
    const PanelLevel former = std::exchange(_level, level);
    // The desktop takes a window for a dock, or for none, when it is shown.
    const bool isShownAnew = former != level && (former == PanelLevel::Dock || level == PanelLevel::Dock);
    if (isShownAnew)
        _window->orderOut();
    _window->setLevel(level);
    if (isShownAnew)
        applyVisibility();
}

void ButtonPanel::setAlphaValue(double alpha) {
    _alpha = alpha;
    _window->setAlpha(alpha);
}

// Content.

void ButtonPanel::setContentView(const ZDGradientView& contentView) {
    _contentView = contentView;
    display();
}

void ButtonPanel::setShowGradient(bool show) {
    _contentView.showGradient = show;
    display();
}

void ButtonPanel::setSubviews(std::vector<std::shared_ptr<PanelButton>> subviews) {
    for (const auto& button : _subviews)
        button->setWindow(nullptr);
    _subviews = std::move(subviews);
    for (const auto& button : _subviews)
        button->setWindow(this);
    _hovered = nullptr;
    display();
}

void ButtonPanel::display() {
    PanelContent content{_contentView, {}};
    content.buttons.reserve(_subviews.size());
    for (const auto& button : _subviews)
        content.buttons.push_back(button->content());
    if (content == _displayed)
        return;
    _displayed = std::move(content);
    _window->display(_displayed);
}

std::string ButtonPanel::describeTitles() const {
    std::string titles;
    for (const auto& subview : _subviews) {
        const Rect& frame = subview->frame();
        titles += titles.empty() ? "titles: " : ", ";
        titles += '"' + subview->title() + "\" " + std::to_string(std::lround(frame.origin.x)) + " to ";
        titles += std::to_string(std::lround(frame.origin.x + frame.size.width));
    }
    return titles.empty() ? "no titles" : titles;
}

// The pointer over the panel.

std::shared_ptr<PanelButton> ButtonPanel::buttonAt(const Point& locationInPanel) const {
    const auto found = std::find_if(_subviews.rbegin(), _subviews.rend(),
        [&](const auto& button) { return contains(button->frame(), locationInPanel); });
    return found == _subviews.rend() ? nullptr : *found;
}

void ButtonPanel::pointerMoved(const std::optional<Point>& locationInPanel) {
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

void ButtonPanel::hover(const std::shared_ptr<PanelButton>& button) {
    if (button == _hovered)
        return;
    const std::shared_ptr<PanelButton> former = std::exchange(_hovered, button);
    if (former)
        former->mouseExited();
    if (button)
        button->mouseEntered();
}

void ButtonPanel::mouseDown(const PanelMouseEvent& event) {
    if (const std::shared_ptr<PanelButton> button = buttonAt(event.locationInPanel))
        button->mouseDown(event);
}

void ButtonPanel::rightMouseDown(const PanelMouseEvent& event) {
    if (const std::shared_ptr<PanelButton> button = buttonAt(event.locationInPanel))
        button->rightMouseDown(event);
}

} // namespace tarragon
