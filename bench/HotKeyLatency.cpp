#include "HotKeyLatency.h"

#include "MenuWatcher.h"
#include "Wait.h"

#include <X11/keysym.h>

#include <stdexcept>
#include <thread>

namespace tarragon {

namespace {

using e2e::Duration;
using e2e::waitUntil;

// A user who opens and leaves the mirrored menu again and again.
class User {
public:
    User(e2e::Desktop& desktop, e2e::Agent& agent)
        : _desktop(desktop)
        , _agent(agent) {
        // The program notices by itself that the application came to the front; until then there is nothing to show.
        if (!waitUntil([&] {
                agent.pressHotKey();
                return waitUntil([&] { return !agent.openMenus().empty(); }, Duration(1000));
            }))
            throw std::runtime_error("the hot key opens no pop-up");
    }
    ~User() { _desktop.input().releaseAll(); }
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    double openPopUp(int round) {
        e2e::SyntheticInput& input = _desktop.input();
        const e2e::HotKey& hotKey = _agent.hotKey();
        input.moveTo(200 + 7 * round, 150 + 5 * round);
        MenuWatcher watcher(_desktop.display());
        for (const xcb_keysym_t modifier : hotKey.modifierSymbols)
            watcher.press(input.keyCodeOf(modifier));
        const double time = watcher.timeToMenu(input.keyCodeOf(hotKey.symbol));
        watcher.release(input.keyCodeOf(hotKey.symbol));
        for (const xcb_keysym_t modifier : hotKey.modifierSymbols)
            watcher.release(input.keyCodeOf(modifier));
        return time;
    }

    double openFirstSubmenu() {
        if (!waitUntil([&] { return _desktop.display().keyboardIsGrabbed(); }))
            throw std::runtime_error("the pop-up does not take the keyboard");
        _desktop.input().tap(XK_Down);
        // Marking the title, and the painting of it, is no part of what the next key does.
        std::this_thread::sleep_for(Duration(50));
        MenuWatcher watcher(_desktop.display());
        const xcb_keycode_t right = _desktop.input().keyCodeOf(XK_Right);
        const double time = watcher.timeToMenu(right);
        watcher.release(right);
        return time;
    }

    void close() {
        // Pressed again when the menu that was just mapped had no ear for it yet; each press leaves one menu.
        const bool closed = waitUntil([&] {
            const std::size_t before = _agent.openMenus().size();
            if (before > 0) {
                _desktop.input().tap(XK_Escape);
                waitUntil([&] { return _agent.openMenus().size() < before; }, Duration(500));
            }
            // The keyboard is given back a moment after the menu has gone.
            return _agent.openMenus().empty()
                && waitUntil([&] { return !_desktop.display().keyboardIsGrabbed(); }, Duration(500));
        });
        if (!closed)
            throw std::runtime_error("the pop-up does not close");
    }

    // Fillings follow one another, and a rebuild of the menus starts more of them.
    void waitForFillings(Duration rest) {
        if (!waitUntil([&] { return e2e::holdsFor(rest, [&] { return !_agent.isReadingAhead(); }); }, Duration(60000)))
            throw std::runtime_error("the menu cache is not filled");
    }

private:
    e2e::Desktop& _desktop;
    e2e::Agent& _agent;
};

} // namespace

OpeningTimes measureHotKeyLatency(e2e::Desktop& desktop, e2e::Agent& agent, int presses) {
    User user(desktop, agent);
    OpeningTimes times;
    for (int press = 0; press < presses; ++press) {
        user.close();
        times.whileReadingAhead += agent.isReadingAhead() ? 1 : 0;
        times.popUp.add(user.openPopUp(press));
    }
    user.close();
    return times;
}

OpeningTimes measureFilledOpenings(e2e::Desktop& desktop, e2e::Agent& agent, int openings) {
    User user(desktop, agent);
    // A program that has just started rebuilds its menus once more after a second.
    user.waitForFillings(Duration(1500));
    OpeningTimes times;
    for (int opening = 0; opening < openings; ++opening) {
        user.close();
        user.waitForFillings(Duration(0));
        times.popUp.add(user.openPopUp(opening));
        times.submenu.add(user.openFirstSubmenu());
    }
    user.close();
    return times;
}

} // namespace tarragon
