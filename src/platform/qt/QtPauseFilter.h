#pragma once

#include <vector>

#include <QEvent>
#include <QObject>
#include <QPointer>

namespace tarragon {

// Holds back, while it is installed, every timer of Qt's (of widgets, animations and menus as well as our own) and the
// events of one more type, and sends them again in order when it is removed. A timer that comes due several times
// is sent once. Timers of windows go through, for they repaint.
class QtPauseFilter : public QObject {
public:
    explicit QtPauseFilter(QEvent::Type heldBackType)
        : _heldBackType(heldBackType) { }

    void install();
    void remove();

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct HeldBack {
        QPointer<QObject> receiver;
        int timerId = 0; // 0 for an event of the held back type
    };
    void holdBackTimer(QObject* receiver, int timerId);

    QEvent::Type _heldBackType;
    std::vector<HeldBack> _heldBack;
};

} // namespace tarragon
