#pragma once

#include <QPointer>
#include <QTimer>

class QWidget;

namespace tarragon {

class MenuInput;

// Sees to it that a pop-up has the keyboard and the pointer. Another program may hold one of them at the moment of
// opening, as for as long as a mouse button is down over its window; the pop-up would then not hear of a click beside
// it, or of Escape. Main thread only.
class MenuGrab {
public:
    // The menu input outlives this object.
    explicit MenuGrab(MenuInput& menuInput);

    // Asks for both again and again until release is called. A pop-up that does not get the keyboard in time is closed,
    // for nobody could be sure to get rid of it. The widget is shown.
    void acquire(QWidget& popup);
    void release();

private:
    bool takeBoth();
    void takeAgain();

    MenuInput& _menuInput;
    QPointer<QWidget> _popup;
    QTimer _timer;
    int _refusals = 0; // in a row
};

} // namespace tarragon
