#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace tarragon {

class RunLoop;
class X11Connection;

struct X11RawEvent {
    enum class Kind : std::uint8_t { ButtonPress, ButtonRelease, Motion };
    Kind kind = Kind::Motion;
    std::uint32_t button = 0; // as applications hear of it, from 1; 0 for a motion and a switched-off one
};

// What all pointing devices do, wherever the pointer is, without taking anything from anybody: raw events on the root
// window, on a connection of its own. They come as well while another client has grabbed the pointer. Devices that are
// plugged in later are heard too.
//
// Main thread only. The run loop watches the connection until the program ends, so this object outlives the run loop.
class X11RawInput {
public:
    using Handler = std::function<void(const X11RawEvent& event)>;

    // nullptr when the server has no input extension, or one that keeps raw events from us while others grab. Nothing
    // is heard yet.
    static std::unique_ptr<X11RawInput> create(const X11Connection& connection, RunLoop& runLoop, Handler handler);
    ~X11RawInput();
    X11RawInput(const X11RawInput&) = delete;
    X11RawInput& operator=(const X11RawInput&) = delete;

    // Returns after the server has heard of it. Motions that follow one another and are read together are told as one.
    void listen(bool toButtons, bool toMotion);

private:
    X11RawInput(std::unique_ptr<X11Connection> connection, RunLoop& runLoop, std::uint8_t extension, Handler handler);
    void handleEvents();

    std::unique_ptr<X11Connection> _connection;
    RunLoop& _runLoop;
    std::uint8_t _extension; // opcode
    std::uint32_t _mask = 0;
    Handler _handler;
};

} // namespace tarragon
