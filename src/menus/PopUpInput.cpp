#include "menus/PopUpInput.h"

#include "menus/MenuWindow.h"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QTimer>

namespace tarragon {

PopUpInput::PopUpInput(MenuInput& menuInput)
    : _grab(menuInput) {
    QCoreApplication::instance()->installEventFilter(this);
}

PopUpInput::~PopUpInput() {
    _grab.release();
}

bool PopUpInput::eventFilter(QObject* watched, QEvent* event) {
    const bool shows = event->type() == QEvent::Show;
    if ((!shows && event->type() != QEvent::Hide) || !watched->isWidgetType())
        return false;
    auto& widget = static_cast<QWidget&>(*watched);
    if (widget.windowType() != Qt::Popup || dynamic_cast<MenuWindow*>(watched))
        return false;
    if (shows)
        opened(widget);
    else
        closed(widget);
    return false;
}

void PopUpInput::opened(QWidget& popup) {
    _open.emplace_back(&popup);
    if (_open.size() > 1)
        return;
    // The window is put on the screen after the event; only then can it be given the input.
    QTimer::singleShot(0, &popup, [this, self = QPointer(this), &popup] {
        if (self && !_open.empty() && _open.front() == &popup)
            _grab.acquire(popup);
    });
}

void PopUpInput::closed(const QWidget& popup) {
    std::erase_if(_open, [&](const QPointer<QWidget>& open) { return !open || open == &popup; });
    if (_open.empty())
        _grab.release();
}

} // namespace tarragon
