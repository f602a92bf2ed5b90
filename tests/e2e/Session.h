#pragma once

#include "Agent.h"
#include "Desktop.h"
#include "MenuObserver.h"

#include <memory>

namespace tarragon::e2e {

// A desktop with the program running in it.
class Session {
public:
    explicit Session(
        WindowManager windowManager, Compositor compositor = Compositor::Off, Screens screens = Screens::Virtual);

    Desktop& desktop() { return _desktop; }
    Agent& agent() { return *_agent; }
    MenuObserver& observer() { return *_observer; }
    bool isAlive();
    // Ends the program and starts it anew, with the same or another combination and additions to its environment.
    void restartAgent(const HotKey& hotKey = usualHotKey(), const Environment& additions = {});

    // The one session of a kind of desktop that tests share, since starting one takes seconds. A test finds it with the
    // program running and nothing else; one that has broken it discards it, and the next test gets a new one.
    static Session& shared(
        WindowManager windowManager, Compositor compositor = Compositor::Off, Screens screens = Screens::Virtual);
    static void discard(
        WindowManager windowManager, Compositor compositor = Compositor::Off, Screens screens = Screens::Virtual);
    static void discardAll();

private:
    Desktop _desktop;
    std::unique_ptr<Agent> _agent;
    std::unique_ptr<MenuObserver> _observer;
};

} // namespace tarragon::e2e
