#pragma once

#include "platform/InputEvents.h"

#include <cstdint>
#include <map>
#include <set>
#include <vector>

namespace tarragon {

// Input that tests send. Monitors and taps are kept in the order in which they were made.
class FakeInputEvents : public InputEvents {
public:
    // Neither monitors nor taps can be had from now on.
    void setRefuses(bool refuses) { _refuses = refuses; }
    // Sends an event that goes to another application: monitors and taps of its type get it. False when a tap keeps it
    // from going there.
    bool send(const InputEvent& event) { return deliver(event, false); }
    // The same for an event that goes to this program: taps alone get it.
    bool sendToUs(const InputEvent& event) { return deliver(event, true); }
    void setLeftButtonHeld(bool held) { _leftButtonIsHeld = held; }
    // Every tap is disabled and told so, with TapDisabledByTimeout or TapDisabledByUserInput. False when one of them
    // kept the notification to itself.
    bool disableTaps(InputEventType reason);

    // Of the monitors there are, in order.
    std::vector<InputEventMask> monitorMasks() const;
    std::vector<InputEventMask> enabledTapMasks() const;
    std::size_t tapCount() const;
    // Every monitor that was given back, those included that were not there any more.
    const std::vector<EventMonitor>& removedMonitors() const { return _removed; }

    EventMonitor addGlobalMonitor(InputEventMask mask, std::function<void(const InputEvent& event)> handler) override;
    void removeMonitor(EventMonitor monitor) override;
    bool leftButtonIsHeld() override {
        ++_timesButtonWasAsked;
        return _leftButtonIsHeld;
    }
    int timesButtonWasAsked() const { return _timesButtonWasAsked; }
    std::unique_ptr<EventTap> createEventTap(
        InputEventMask mask, std::function<bool(const InputEvent& event)> handler) override;
    bool isOtherButtonHeld() const override { return !_held.empty(); }

private:
    class Tap;
    struct Watcher {
        InputEventMask mask = 0;
        bool isTap = false;
        bool enabled = true;
        std::function<bool(const InputEvent& event)> handler;
    };

    std::vector<EventMonitor> identifiers() const;
    bool deliver(const InputEvent& event, bool toUs);

    std::map<EventMonitor, Watcher> _watchers;
    EventMonitor _last = 0;
    std::vector<EventMonitor> _removed;
    std::set<std::uint32_t> _held;
    bool _refuses = false;
    bool _leftButtonIsHeld = false;
    int _timesButtonWasAsked = 0;
};

} // namespace tarragon
