#include "platform/qt/QtPauseFilter.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QTimerEvent>

namespace tarragon {

void QtPauseFilter::install() {
    QCoreApplication::instance()->installEventFilter(this);
}

void QtPauseFilter::remove() {
    QCoreApplication::instance()->removeEventFilter(this);
    for (const HeldBack& held : std::exchange(_heldBack, {})) {
        if (!held.receiver)
            continue;
        // A timer that was stopped meanwhile does not know its number any more and lets the event pass.
        QEvent* event = held.timerId != 0 ? new QTimerEvent(held.timerId) : new QEvent(_heldBackType);
        QCoreApplication::postEvent(held.receiver, event);
    }
}

bool QtPauseFilter::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == _heldBackType) {
        _heldBack.push_back({.receiver = receiver});
        return true;
    }
    if (event->type() == QEvent::Timer && !receiver->isWindowType()) {
        holdBackTimer(receiver, static_cast<QTimerEvent*>(event)->timerId());
        return true;
    }
    return false;
}

void QtPauseFilter::holdBackTimer(QObject* receiver, int timerId) {
    const bool known = std::any_of(_heldBack.begin(), _heldBack.end(),
        [&](const HeldBack& held) { return held.receiver == receiver && held.timerId == timerId; });
    if (!known)
        _heldBack.push_back({.receiver = receiver, .timerId = timerId});
}

} // namespace tarragon
