#include "platform/linux/x11/X11FrontWindow.h"

#include <utility>

namespace tarragon {

namespace {

// Stands in for the window whose menu bar was shown once that window is gone. No window of any server has it.
constexpr std::uint32_t GoneWindow = 0xFFFFFFFF;

// A window without a process is an application by itself, together with the dialogs that belong to it.
std::uint32_t windowServed(const X11ActiveWindow& active) {
    return active.isPassing && active.transientFor != 0 ? active.transientFor : active.window;
}

} // namespace

bool X11FrontWindow::isSameApplication(const X11ActiveWindow& active) const {
    if (!_front || _front->active.processIdentifier != active.processIdentifier)
        return false;
    if (active.processIdentifier == 0)
        return windowServed(_front->active) == windowServed(active);
    // Dialogs often say less of their application than its other windows.
    return active.isPassing || _front->active.application == active.application;
}

bool X11FrontWindow::needsMenuBar(const X11ActiveWindow& active) const {
    return active.processIdentifier != 0 && isSameApplication(active)
        && (_front->active.window != active.window || _front->menuBar == GoneWindow);
}

X11FrontWindowChange X11FrontWindow::update(const X11ActiveWindow& active, std::optional<std::uint32_t> menuBar) {
    X11FrontWindowChange change;
    change.systemUIModeChanged = std::exchange(_fullScreen, active.fullScreen) != active.fullScreen;
    if (!isSameApplication(active)) {
        _reason = _front ? "another application" : "no window was in front";
        _front = {active, menuBar};
        change.frontSwitched = true;
        return change;
    }
    const std::string application = std::move(_front->active.application);
    const std::uint32_t formerWindow = _front->active.window;
    _front->active = active;
    if (active.isPassing)
        _front->active.application = application;
    if (menuBar) {
        change.frontSwitched = showsOtherMenuBar(formerWindow, *menuBar);
    } else {
        _reason = "the same window";
    }
    return change;
}

bool X11FrontWindow::showsOtherMenuBar(std::uint32_t formerWindow, std::uint32_t menuBar) {
    const std::optional<std::uint32_t> former = _front->menuBar;
    if (former == menuBar) {
        _reason = "the same menu bar";
        return false;
    }
    // A menu bar does not go while its window is there: this application does not answer now.
    if (menuBar == 0 && former && *former != GoneWindow) {
        _reason = "its menu bar is not told";
        return false;
    }
    _front->menuBar = menuBar;
    if (!former && (_front->active.isPassing || formerWindow == _front->active.window)) {
        _reason = "the first menu bar that is told";
        return false;
    }
    _reason = former == GoneWindow ? "the window with the menu bar is gone" : "another menu bar";
    return true;
}

X11FrontWindowChange X11FrontWindow::lose() {
    _reason = "no window is active";
    X11FrontWindowChange change;
    change.frontSwitched = std::exchange(_front, std::nullopt).has_value();
    change.systemUIModeChanged = std::exchange(_fullScreen, false);
    return change;
}

std::optional<std::uint32_t> X11FrontWindow::windowWithUnknownMenuBar() const {
    const bool isUnknown =
        _front && !_front->menuBar && _front->active.window != 0 && _front->active.processIdentifier != 0;
    return isUnknown ? std::optional(_front->active.window) : std::nullopt;
}

void X11FrontWindow::learnMenuBar(std::uint32_t menuBar) {
    if (_front && !_front->menuBar)
        _front->menuBar = menuBar;
}

void X11FrontWindow::forgetWindow(std::uint32_t window) {
    if (!_front)
        return;
    if (_front->active.window == window) {
        _front->active.window = 0;
        // Nobody can tell any more whether the next window shows the same menu bar.
        if (!_front->menuBar)
            _front->menuBar = GoneWindow;
    }
    if (_front->active.transientFor == window)
        _front->active.transientFor = 0;
    if (_front->menuBar == window)
        _front->menuBar = GoneWindow;
}

std::uint32_t X11FrontWindow::menuBar() const {
    const std::uint32_t window = _front ? _front->menuBar.value_or(0) : 0;
    return window == GoneWindow ? 0 : window;
}

} // namespace tarragon
