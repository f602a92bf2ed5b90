#include "menus/MenuGrab.h"

#include "platform/Log.h"
#include "platform/MenuInput.h"

#include <chrono>
#include <utility>

#include <QWidget>
#include <QWindow>

namespace tarragon {

namespace {

// Another program may take what we have, so there is no knowing when to stop. To take what one has already changes
// nothing.
constexpr std::chrono::milliseconds Interval{50};
constexpr int MostRefusals = 40;

} // namespace

MenuGrab::MenuGrab(MenuInput& menuInput)
    : _menuInput(menuInput) {
    _timer.setInterval(Interval);
    QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] { takeAgain(); });
}

void MenuGrab::acquire(QWidget& popup) {
    _popup = &popup;
    _refusals = 0;
    _isTaken = true;
    _timer.start();
    takeAgain();
}

void MenuGrab::hold() {
    _timer.stop();
    _popup = nullptr;
}

void MenuGrab::release() {
    hold();
    if (std::exchange(_isTaken, false))
        _menuInput.release();
}

// False when the keyboard was refused.
bool MenuGrab::takeBoth() {
    const QWindow* window = _popup->windowHandle();
    return window && _menuInput.take(window->winId());
}

void MenuGrab::takeAgain() {
    if (!_popup) {
        release();
        return;
    }
    _refusals = takeBoth() ? 0 : _refusals + 1;
    if (_refusals == 1)
        log(LogCategory::Menus, [] { return "another program holds the keyboard; an open menu waits for it"; });
    if (_refusals == MostRefusals) {
        log(LogCategory::Menus, [] { return "a menu is closed: another program kept the keyboard"; });
        _popup->close();
    }
}

} // namespace tarragon
