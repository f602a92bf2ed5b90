#pragma once

#include "platform/Geometry.h"
#include "platform/linux/x11/X11MonitorEvents.h"
#include "platform/linux/x11/X11Struts.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class RunLoop;
class X11Connection;

// What the panels and docks of other programs keep free of a desktop, in pixels of the root window.
struct X11Room {
    Point primaryOrigin; // the top-left corner of the primary monitor
    std::vector<X11Strut> struts;
};

// The room of a desktop, kept for as long as the server tells of no change: of the monitors, of the list of managed
// windows, and of what each of these keeps free. Main thread only.
//
// As in X11ActiveWindowCache the smallest question that there is goes ahead of every answer outside a look, so that an
// answer from here is as fresh as one that was asked for. The connection is of the cache alone: it hears of every
// managed window.
class X11RoomCache {
public:
    // The number of the look that the calling thread has at the desktop, another one each time; nothing while it has
    // none. Within a look the server is not asked whether it has told all.
    using CurrentLook = std::function<std::optional<std::uint64_t>()>;

    // Without a connection there is nothing that keeps room. An empty function stands for no look at any time.
    explicit X11RoomCache(std::unique_ptr<X11Connection> connection, CurrentLook currentLook = {});
    ~X11RoomCache();
    X11RoomCache(const X11RoomCache&) = delete;
    X11RoomCache& operator=(const X11RoomCache&) = delete;

    const X11Room& room();

    // Takes what the server tells also while nobody asks, lest it pile up. The run loop ends first.
    void takeEventsIn(RunLoop& runLoop);

private:
    void takeEventsForAnswer();
    void waitForServer();
    void takeArrivedEvents();
    void takeEvent(const xcb_generic_event_t& event);
    X11Room readRoom();
    std::vector<X11Strut> readStruts();
    void selectEvents(xcb_window_t window, std::uint32_t mask);

    std::unique_ptr<X11Connection> _connection;
    CurrentLook _currentLook;
    std::optional<std::uint64_t> _lastLook;
    std::optional<X11MonitorEvents> _monitorEvents;
    // Absent when it has to be asked for.
    std::optional<X11Room> _room;
    // A panel keeps room free where it lies, which nothing tells of.
    bool _dependsOnPlaces = false;
    std::vector<xcb_window_t> _watched;
};

} // namespace tarragon
