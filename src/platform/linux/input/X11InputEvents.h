#pragma once

#include "platform/InputEvents.h"
#include "platform/linux/input/X11RawInput.h"

#include <functional>
#include <map>
#include <memory>

namespace tarragon {

// Monitors and taps on raw events of the server, which observe and swallow nothing.
//
// A press goes to another application unless pointerIsOurs answers true at that moment: the pointer is over a window of
// ours, or a menu of ours has it. Drags and the release go where the press went.
//
// A tap is never told that it was disabled: the server tells of raw events whoever has grabbed the pointer, a device or
// the server itself, and of devices that come and go, so that nothing is lost. Only a server that ends does not go on,
// and with it ends the program. What is passed in outlives this object, which outlives the run loop.
class X11InputEvents : public InputEvents {
public:
    X11InputEvents(const X11Connection& connection, RunLoop& runLoop, std::function<bool()> pointerIsOurs);
    ~X11InputEvents() override;

    EventMonitor addGlobalMonitor(InputEventMask mask, std::function<void(const InputEvent& event)> handler) override;
    void removeMonitor(EventMonitor monitor) override;
    bool leftButtonIsHeld() override;
    std::unique_ptr<EventTap> createEventTap(
        InputEventMask mask, std::function<bool(const InputEvent& event)> handler) override;
    bool isOtherButtonHeld() const override;

private:
    class Tap;
    struct Watcher {
        InputEventMask mask = 0;
        bool seesOurOwn = false; // events that go to this program
        bool enabled = true;
        std::function<void(const InputEvent& event)> handler;
    };

    // 0 when the server does not tell of input.
    EventMonitor watch(Watcher watcher);
    void setEnabled(EventMonitor watcher, bool enabled);
    void listen();
    void handle(const X11RawEvent& event);
    void handlePress(std::uint32_t button);
    void handleRelease(std::uint32_t button);
    void handleMotion();
    void tell(const InputEvent& event, bool goesToUs);

    const X11Connection& _connection;
    RunLoop& _runLoop;
    std::function<bool()> _pointerIsOurs;
    std::unique_ptr<X11RawInput> _input; // made for the first watcher
    std::map<EventMonitor, Watcher> _watchers; // in the order in which they were added
    EventMonitor _lastWatcher = 0;
    // The buttons that are held, with whether their press went to this program.
    std::map<std::uint32_t, bool> _held;
};

} // namespace tarragon
