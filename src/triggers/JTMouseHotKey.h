#pragma once

#include "platform/InputEvents.h"

#include <cstdint>
#include <iosfwd>
#include <memory>

namespace tarragon {

class JTMouseHotKeyDelegate;
class RunLoop;

// The mouse-button trigger: hears every press of the middle button and of those beyond it, wherever it goes, and tells
// the delegate, who decides whether the button is the one that the user has chosen. The press is never kept from the
// application below the pointer.
//
// There is one of them, from the start of the program to its end. Main thread only.
class JTMouseHotKey {
public:
    // nullptr for a desktop that does not tell of input. standardError is where a person learns why the program ends.
    // What is passed in outlives this object.
    JTMouseHotKey(InputEvents* inputEvents, RunLoop& runLoop, std::ostream& standardError);
    ~JTMouseHotKey();
    JTMouseHotKey(const JTMouseHotKey&) = delete;
    JTMouseHotKey& operator=(const JTMouseHotKey&) = delete;

    // Sets up the tap.
    [[nodiscard]] bool awakeFromNib();
    // Listens from now on, to presses in spite of the name. A program without its trigger would be a riddle to its
    // user: where presses cannot be had, it says so and ends with status 1. False then: nothing more is to be done.
    [[nodiscard]] bool setupMouseUpEventTap();

    // These do nothing while there is no tap.
    void enableTap();
    void disableTap();
    // For good.
    void killTap();

    void _mouseButtonActioned(std::uint32_t buttonNumber);

    // Not owned; nullptr, as at first, for nobody.
    JTMouseHotKeyDelegate* delegate() const { return _delegate; }
    void setDelegate(JTMouseHotKeyDelegate* delegate) { _delegate = delegate; }

private:
    // True when the event is to go on to where it was going.
    bool handle(const InputEvent& event);
    void setTapEnabled(bool enabled);

    InputEvents* _inputEvents;
    RunLoop& _runLoop;
    std::ostream& _standardError;
    JTMouseHotKeyDelegate* _delegate = nullptr;
    std::unique_ptr<EventTap> _tap;
    std::uint32_t _lastButton = 0; // that was pressed
};

} // namespace tarragon
