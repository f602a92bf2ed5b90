#include "menus/HeldButton.h"

#include "menus/MenuTracking.h"
#include "menus/QtCoordinates.h"
#include "platform/Displays.h"

#include <utility>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace tarragon {

namespace {

constexpr InputEventMask OtherButtons = inputEventMask(InputEventType::OtherMouseDown)
    | inputEventMask(InputEventType::OtherMouseUp) | inputEventMask(InputEventType::OtherMouseDragged);

} // namespace

HeldButton::HeldButton(
    InputEvents& inputEvents, Displays& displays, std::shared_ptr<const MenuTracking> tracking, QWidget& window)
    : QObject(&window)
    , _displays(displays)
    , _tracking(std::move(tracking))
    , _window(window)
    , _tap(inputEvents.createEventTap(OtherButtons, [this](const InputEvent& event) {
        handle(event);
        return true;
    })) {
    if (_tap)
        _window.setWindowFlag(Qt::WindowTransparentForInput);
}

HeldButton::~HeldButton() = default;

void HeldButton::handle(const InputEvent& event) {
    // A menu that is choosing or closing has nothing to learn any more.
    if (!_window.isVisible())
        return;
    switch (event.type) {
    case InputEventType::OtherMouseDragged:
        moved();
        break;
    case InputEventType::OtherMouseUp:
        stop();
        letGo();
        break;
    case InputEventType::OtherMouseDown:
        // From now on the menus have the pointer, and hear of this button themselves.
        stop();
        break;
    default:
        break;
    }
}

// The window itself, for the widget would take it off the screen to change this.
void HeldButton::stop() {
    _tap = nullptr;
    if (QWindow* window = _window.windowHandle())
        window->setFlag(Qt::WindowTransparentForInput, false);
}

void HeldButton::moved() {
    const QPoint point = pointer();
    if (!_hasLeft && !_tracking->hasOpenedAt(point)) {
        _hasLeft = true;
        // The toolkit ignores the first movements near the place where it last saw the pointer, for it takes them for
        // the tremble of a hand. That place may be anywhere: the pointer was over other applications since.
        constexpr int MovementsIgnored = 6;
        for (int movement = 0; movement < MovementsIgnored; ++movement)
            send(QEvent::MouseMove, point, true);
    }
    if (_hasLeft)
        send(QEvent::MouseMove, point, true);
}

// A movement that nobody saw because the menu was still opening was not meant for it.
void HeldButton::letGo() {
    const QPoint point = pointer();
    if (!_hasLeft || _tracking->hasOpenedAt(point))
        return;
    send(QEvent::MouseMove, point, true);
    send(QEvent::MouseButtonRelease, point, false);
}

QPoint HeldButton::pointer() const {
    return qtPointFromNS(_displays.mouseLocationNS(), _displays.screens(), qtPrimaryOrigin());
}

// To the innermost menu, which hands on what is meant for those above it, as the toolkit does with events of its own.
void HeldButton::send(QEvent::Type type, const QPoint& point, bool isHeld) const {
    QWidget* menu = QApplication::activePopupWidget();
    if (!menu)
        return;
    const Qt::MouseButton button = type == QEvent::MouseButtonRelease ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, menu->mapFromGlobal(QPointF(point)), QPointF(point), button,
        isHeld ? Qt::LeftButton : Qt::NoButton, QGuiApplication::queryKeyboardModifiers());
    QCoreApplication::sendEvent(menu, &event);
}

} // namespace tarragon
