#pragma once

#include "platform/linux/windows/WindowDescription.h"
#include "platform/linux/x11/X11MonitorEvents.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;

// What the server has told of the active window, kept for as long as it tells of no change. May be called from any
// thread.
//
// The events come on the connection that carries the questions. The smallest question that there is goes ahead of
// every answer: its reply has all events before it of what the server has done until then, whoever asked for it, so
// that an answer from here is as fresh as one that was asked for, with one request in place of sixteen.
class X11ActiveWindowCache {
public:
    // How to ask the server; nothing when no window is active, or the window is gone.
    struct Questions {
        std::function<std::optional<std::uint32_t>()> activeWindow;
        std::function<std::optional<WindowDescription>(std::uint32_t window)> description;
    };

    // The connection outlives the cache.
    X11ActiveWindowCache(X11Connection& connection, Questions questions);
    X11ActiveWindowCache(const X11ActiveWindowCache&) = delete;
    X11ActiveWindowCache& operator=(const X11ActiveWindowCache&) = delete;

    std::optional<std::uint32_t> activeWindow();
    // Of any window; kept for the active one.
    std::optional<WindowDescription> describe(std::uint32_t window);
    // Both at once.
    std::optional<WindowDescription> describeActiveWindow();

    // Until the end of the calling thread's look, what the server has told by its first answer is enough: it is not
    // asked whether that is all. What it happens to tell meanwhile counts nevertheless. Looks nest.
    void beginLook();
    void endLook();
    // The number of the calling thread's look, another one for each; nothing while it has none.
    std::optional<std::uint64_t> currentLook();

    // Takes what the server has told meanwhile, without waiting for it. For whoever knows that there may be something,
    // lest it pile up while nobody asks.
    void takeEvents();

private:
    void takeAllEvents();
    void takeArrivedEvents();
    void takeQueuedEvents();
    void takeEvent(const xcb_generic_event_t& event);
    std::optional<std::uint32_t> knownActiveWindow();
    std::optional<WindowDescription> knownDescription(std::uint32_t window);
    [[nodiscard]] bool watch(std::uint32_t window);
    void unwatch();
    [[nodiscard]] bool selectEvents(std::uint32_t window, std::uint32_t mask);

    // What one thread sees from the beginning of its outermost look to the end.
    struct Look {
        std::uint64_t number = 0;
        int nesting = 0;
        bool hasBegun = false; // what had arrived when the look was first used was taken
    };

    X11Connection& _connection;
    Questions _questions;
    std::mutex _mutex;
    std::uint32_t _activeWindowAtom;
    X11MonitorEvents _monitorEvents;
    // Absent when it has to be asked for.
    std::optional<std::optional<std::uint32_t>> _activeWindow;
    std::optional<WindowDescription> _description;
    // The window that is described and those around it, which move with it; empty when they have to be found again.
    std::vector<std::uint32_t> _watched;
    std::map<std::thread::id, Look> _looks;
    std::uint64_t _lastLook = 0;
};

} // namespace tarragon
