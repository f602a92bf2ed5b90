#include "panels/MenuGrab.h"

#include <chrono>

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace tarragon {

namespace {

constexpr std::chrono::milliseconds RetryInterval{20};
constexpr int MostTries = 100;

// Elsewhere the window system itself tells a pop-up when to close.
bool grabsMayBeRefused() {
    return QGuiApplication::platformName() == "xcb";
}

} // namespace

MenuGrab::MenuGrab() {
    _timer.setInterval(RetryInterval);
    QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] { tryAgain(); });
}

void MenuGrab::acquire(QWidget& popup) {
    release();
    _popup = &popup;
    if (!grabsMayBeRefused() || tryOnce())
        return;
    _triesLeft = MostTries;
    _timer.start();
}

void MenuGrab::release() {
    _timer.stop();
    if (!_popup || !grabsMayBeRefused())
        return;
    // Qt releases only what it got by itself.
    if (QWindow* window = _popup->windowHandle()) {
        window->setMouseGrabEnabled(false);
        window->setKeyboardGrabEnabled(false);
    }
    _popup = nullptr;
}

bool MenuGrab::tryOnce() {
    QWindow* window = _popup->windowHandle();
    return window && window->setKeyboardGrabEnabled(true) && window->setMouseGrabEnabled(true);
}

void MenuGrab::tryAgain() {
    if (!_popup || tryOnce()) {
        _timer.stop();
    } else if (--_triesLeft == 0) {
        _timer.stop();
        _popup->close();
    }
}

} // namespace tarragon
