#include "menus/MenuGrab.h"

#include "platform/MenuInput.h"

#include <chrono>

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace tarragon {

namespace {

// Another program may take what we have, so there is no knowing when to stop. To take what one has already changes
// nothing.
constexpr std::chrono::milliseconds Interval{50};
constexpr int MostRefusals = 40;

// Elsewhere the window system itself tells a pop-up when to close.
bool grabsMayBeRefused() {
    return QGuiApplication::platformName() == "xcb";
}

} // namespace

MenuGrab::MenuGrab(MenuInput* menuInput)
    : _menuInput(menuInput) {
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
    if (!_timer.isActive())
        return;
    _timer.stop();
    if (_menuInput) {
        _menuInput->release();
    } else if (QWindow* window = _popup ? _popup->windowHandle() : nullptr) {
        // Qt releases only what it took by itself.
        window->setMouseGrabEnabled(false);
        window->setKeyboardGrabEnabled(false);
    }
    _popup = nullptr;
}

// False when the keyboard was refused.
bool MenuGrab::takeBoth() {
    QWindow* window = _popup->windowHandle();
    if (window && _menuInput)
        return _menuInput->take(window->winId());
    if (!window || !window->setKeyboardGrabEnabled(true))
        return false;
    window->setMouseGrabEnabled(true);
    return true;
}

void MenuGrab::takeAgain() {
    if (!_popup) {
        release();
        return;
    }
    _refusals = takeBoth() ? 0 : _refusals + 1;
    if (_refusals == MostRefusals)
        _popup->close();
}

} // namespace tarragon
