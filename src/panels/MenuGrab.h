#pragma once

#include <QPointer>
#include <QTimer>

class QWidget;

namespace tarragon {

// Sees to it that a pop-up has the keyboard and the pointer. Another program may hold one of them at the moment of
// opening, as for as long as a mouse button is down; the pop-up would then not hear of a click beside it or of Escape.
class MenuGrab {
public:
    MenuGrab();

    // Tries now and then again for a while; a pop-up that still has not got both is closed. The widget is shown.
    void acquire(QWidget& popup);
    void release();

private:
    bool tryOnce();
    void tryAgain();

    QPointer<QWidget> _popup;
    QTimer _timer;
    int _triesLeft = 0;
};

} // namespace tarragon
