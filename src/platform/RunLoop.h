#pragma once

#include <functional>
#include <memory>

namespace tarragon {

// A scheduled call. Destroying the timer invalidates it. Main thread only.
class Timer {
public:
    virtual ~Timer() = default;
    // False once a one-shot timer has fired or the timer was invalidated.
    virtual bool isValid() const = 0;
    virtual void invalidate() = 0;
};

// The main thread's run loop: every handler of the program is called from it.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    [[nodiscard]] virtual std::unique_ptr<Timer> scheduleTimer(
        double seconds, bool repeats, std::function<void()> handler) = 0;

    // Blocks the main thread: no timer, posted call, watched descriptor, event or notification of ours is handled
    // before the time is over; they wait their turn. Our own windows are still repainted.
    virtual void pause(double seconds) = 0;

    // From now on a pause is over early, or does not begin, while the descriptor can be read. Its handler is called
    // after the pause like all others; it only need not wait for the whole of it. The descriptor stays the caller's.
    virtual void endPausesFor(int descriptor) = 0;

    // Calls the function from the run loop, in order of posting. May be called from any thread.
    virtual void post(std::function<void()> function) = 0;

    // Calls the handler whenever the descriptor can be read, until the program ends. The descriptor stays the caller's.
    virtual void watchDescriptor(int descriptor, std::function<void()> handler) = 0;

    // Ends the run loop, and with it the program, with an exit status.
    virtual void stop(int exitStatus) = 0;
};

} // namespace tarragon
