#include "panels/MenuGrab.h"

#include "platform/MenuKeyboard.h"

#include <chrono>

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace tarragon {

namespace {

// Under X Qt is told that the pointer is not to be had and answers that all is well, so there is no knowing when to
// stop. To take what one has already changes nothing.
constexpr std::chrono::milliseconds Interval{50};
constexpr int MostRefusals = 40;

// Elsewhere the window system itself tells a pop-up when to close.
bool grabsMayBeRefused() {
    return QGuiApplication::platformName() == "xcb";
}

} // namespace

MenuGrab::MenuGrab(MenuKeyboard* menuKeyboard)
    : _menuKeyboard(menuKeyboard) {
    _timer.setInterval(Interval);
    QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] { takeAgain(); });
}

void MenuGrab::acquire(QWidget& popup) {
    release();
    if (!grabsMayBeRefused())
        return;
    _popup = &popup;
    _refusals = 0;
    takeBoth();
    _timer.start();
}

void MenuGrab::release() {
    _timer.stop();
    if (!_popup)
        return;
    if (_menuKeyboard)
        _menuKeyboard->release();
    // Qt releases only what it took by itself.
    if (QWindow* window = _popup->windowHandle()) {
        window->setMouseGrabEnabled(false);
        window->setKeyboardGrabEnabled(false);
    }
    _popup = nullptr;
}

// False when the keyboard was refused.
bool MenuGrab::takeBoth() {
    QWindow* window = _popup->windowHandle();
    if (!window || !takeKeyboard())
        return false;
    window->setMouseGrabEnabled(true);
    return true;
}

bool MenuGrab::takeKeyboard() {
    QWindow* window = _popup->windowHandle();
    return (_menuKeyboard && _menuKeyboard->take(window->winId())) || window->setKeyboardGrabEnabled(true);
}

void MenuGrab::takeAgain() {
    if (!_popup) {
        _timer.stop();
        return;
    }
    _refusals = takeBoth() ? 0 : _refusals + 1;
    if (_refusals == MostRefusals)
        _popup->close();
}

} // namespace tarragon
