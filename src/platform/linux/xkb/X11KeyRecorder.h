#pragma once

#include "platform/KeyRecorder.h"

#include <cstdint>
#include <functional>
#include <memory>

#include <xcb/xcb.h>

namespace tarragon {

class RunLoop;
class X11Connection;

// Hears every key by grabbing the keyboard. An active grab goes before the combinations that others, window managers
// among them, have grabbed one by one, and nobody but its client gets the keys.
//
// The connection is one of its own, since the toolkit's has to lose the keyboard as well: our own hot key is to be
// recorded and not to open menus. It is made with the first recording. Other connection and run loop outlive this
// object.
class X11KeyRecorder : public KeyRecorder {
public:
    X11KeyRecorder(const X11Connection& connection, RunLoop& runLoop);
    ~X11KeyRecorder() override;
    X11KeyRecorder(const X11KeyRecorder&) = delete;
    X11KeyRecorder& operator=(const X11KeyRecorder&) = delete;

    [[nodiscard]] std::unique_ptr<KeyRecording> recordKeys(
        std::function<void(const RecordedKey& key)> handler, std::function<void()> ended) override;

private:
    class Recording;

    bool connect();
    void letGo(const Recording& recording);
    void takeEvents();
    void handle(const xcb_generic_event_t& event);
    void handleFocusOut(const xcb_focus_out_event_t& focus);

    const X11Connection& _otherConnection;
    RunLoop& _runLoop;
    std::unique_ptr<X11Connection> _connection; // nullptr before the first recording
    Recording* _recording = nullptr; // the one that has the keyboard
};

} // namespace tarragon
