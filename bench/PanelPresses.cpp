#include "PanelPresses.h"

#include "MenuWatcher.h"
#include "Wait.h"

#include <X11/keysym.h>

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace tarragon {

namespace {

using e2e::Duration;
using e2e::waitUntil;

std::size_t openMenusOf(e2e::Desktop& desktop, pid_t process) {
    return static_cast<std::size_t>(std::ranges::count_if(
        desktop.display().openMenus(), [&](const e2e::XWindow& menu) { return menu.process == process; }));
}

void closeMenu(e2e::Desktop& desktop, pid_t process) {
    const bool closed = waitUntil([&] {
        desktop.input().tap(XK_Escape);
        return waitUntil([&] { return openMenusOf(desktop, process) == 0 && !desktop.display().keyboardIsGrabbed(); },
            Duration(1000));
    });
    if (!closed)
        throw std::runtime_error("the menu does not close");
}

} // namespace

Samples measurePresses(e2e::Desktop& desktop, pid_t process, const std::vector<TitlePlace>& titles, int presses) {
    Samples times;
    for (int press = 0; press < presses; ++press) {
        const TitlePlace& place = titles[static_cast<std::size_t>(press) % titles.size()];
        desktop.input().moveTo(place.x, place.y);
        // That the title takes notice of the pointer is no part of what the press does.
        std::this_thread::sleep_for(Duration(50));
        {
            MenuWatcher watcher(desktop.display());
            times.add(watcher.timeToMenuOfButton());
            watcher.releaseButton();
        }
        // A menu that was just mapped may have no ear for a key yet.
        if (!waitUntil([&] { return desktop.display().keyboardIsGrabbed(); }))
            throw std::runtime_error("the menu does not take the keyboard");
        closeMenu(desktop, process);
    }
    return times;
}

} // namespace tarragon
