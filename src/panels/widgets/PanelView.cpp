#include "panels/widgets/PanelView.h"

#include "menus/QtCoordinates.h"
#include "panels/widgets/ButtonPlace.h"
#include "panels/widgets/PanelGeometry.h"
#include "panels/widgets/PanelPainter.h"

#include <utility>

#include <QMouseEvent>
#include <QPainter>

namespace tarragon {

PanelView::PanelView(Displays& displays, PanelWindowHandler& handler)
    : QWidget(nullptr,
        Qt::Tool | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus
            | Qt::NoDropShadowWindowHint)
    , _displays(displays)
    , _handler(&handler) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11DoNotAcceptFocus);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
}

void PanelView::retire(std::unique_ptr<PanelView> view) {
    view->_handler = nullptr;
    view->hide();
    // An event that is being handled deletes the view when it is done with it.
    if (view->_eventsBeingHandled > 0)
        (void)view.release();
}

bool PanelView::event(QEvent* event) {
    // Nothing is left of the view after this one.
    if (event->type() == QEvent::DeferredDelete)
        return QWidget::event(event);
    ++_eventsBeingHandled;
    const bool handled = QWidget::event(event);
    --_eventsBeingHandled;
    // The window system's part of the toolkit may still use the view for this event.
    if (!_handler && _eventsBeingHandled == 0)
        deleteLater();
    return handled;
}

void PanelView::display(const PanelContent& content) {
    if (content == _content)
        return;
    _content = content;
    update();
}

void PanelView::setOpaque(bool opaque) {
    if (std::exchange(_opaque, opaque) != opaque)
        update();
}

void PanelView::tellPointer(const std::optional<Point>& location) {
    if (!_handler)
        return;
    if (!location)
        _handler->pointerMoved(std::nullopt);
    else
        _handler->pointerMoved(Point{location->x, height() - location->y});
}

void PanelView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (_opaque) {
        for (const Rect& rect : paintedRegion(_content, size()))
            painter.fillRect(
                QRectF(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height), palette().window());
    }
    paintPanel(painter, _content, size(), palette());
}

PanelMouseEvent PanelView::mouseEvent(const QMouseEvent& event) const {
    return {.locationInPanel = {event.position().x(), height() - event.position().y()},
        .locationNS = pointNSFromQt(event.globalPosition(), _displays.screens(), qtPrimaryOrigin()),
        .controlKey = event.modifiers().testFlag(Qt::ControlModifier)};
}

void PanelView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (!_handler)
        return;
    const PanelMouseEvent press = mouseEvent(*event);
    if (event->button() == Qt::LeftButton) {
        _dragStart = press;
        _handler->mouseDown(press);
    } else if (event->button() == Qt::RightButton) {
        _handler->rightMouseDown(press);
    }
}

void PanelView::mouseDoubleClickEvent(QMouseEvent* event) {
    // Every press is one.
    mousePressEvent(event);
}

void PanelView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    // The first movement may have come together with many others, and would be no good place to count from.
    if (const auto start = std::exchange(_dragStart, std::nullopt); start && _handler)
        _handler->mouseDragged(*start);
    if (_handler)
        _handler->mouseDragged(mouseEvent(*event));
}

void PanelView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (_handler && event->button() == Qt::LeftButton)
        _handler->mouseUp(mouseEvent(*event));
}

} // namespace tarragon
