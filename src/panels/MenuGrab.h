#pragma once

#include <QPointer>
#include <QTimer>

class QWidget;

namespace tarragon {

class MenuKeyboard;

// Sees to it that a pop-up has the keyboard and the pointer. Another program may hold one of them at the moment of
// opening, as for as long as a mouse button is down over its window; the pop-up would then not hear of a click beside
// it, or of Escape.
class MenuGrab {
public:
    // The keyboard is taken through menuKeyboard, which outlives this object, where that works; by Qt otherwise, and
    // without one.
    explicit MenuGrab(MenuKeyboard* menuKeyboard);

    // Asks for both again and again until release is called. A pop-up that does not get the keyboard in time is closed,
    // for nobody could be sure to get rid of it. The widget is shown.
    void acquire(QWidget& popup);
    void release();

private:
    bool takeBoth();
    bool takeKeyboard();
    void takeAgain();

    MenuKeyboard* _menuKeyboard;
    QPointer<QWidget> _popup;
    QTimer _timer;
    int _refusals = 0;
};

} // namespace tarragon
