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

    // Asks for both again and again until hold or release is called. A pop-up that does not get the keyboard in time is
    // closed, for nobody could be sure to get rid of it. The widget is shown. What another pop-up has goes over to this
    // one directly, so that no key reaches an application in between.
    void acquire(QWidget& popup);
    // Keeps what there is, without asking for it again, while the pop-up closes for another one.
    void hold();
    // Nothing happens when there is nothing to give back.
    void release();

private:
    bool takeBoth();
    void takeAgain();

    MenuInput& _menuInput;
    QPointer<QWidget> _popup;
    QTimer _timer;
    int _refusals = 0; // in a row
    bool _isTaken = false; // or asked for
};

} // namespace tarragon
