#pragma once

#include "platform/RunLoop.h"

#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

namespace tarragon {

// A run loop on a virtual clock: nothing happens unless the test lets time pass.
class FakeRunLoop : public RunLoop {
public:
    // Seconds since the start.
    double now() const { return _now; }
    // Lets time pass: posted calls run at once, timers when they are due, in order.
    void advance(double seconds);
    // Runs what is due or posted at this moment.
    void runPending() { advance(0); }
    // As if the descriptor could be read.
    void signalDescriptor(int descriptor);

    // Called in the middle of every pause with its length.
    void setPauseHook(std::function<void(double seconds)> hook) { _pauseHook = std::move(hook); }
    // The lengths of all pauses so far.
    const std::vector<double>& pauses() const { return _pauses; }
    // Seconds between the firings of each valid timer, in order of scheduling.
    std::vector<double> validTimers() const;
    // Set once stop was called.
    const std::optional<int>& exitStatus() const { return _exitStatus; }

    std::unique_ptr<Timer> scheduleTimer(double seconds, bool repeats, std::function<void()> handler) override;
    void pause(double seconds) override;
    // A pause takes no real time here.
    void endPausesFor(int /*descriptor*/) override { }
    void post(std::function<void()> function) override;
    void watchDescriptor(int descriptor, std::function<void()> handler) override;
    void stop(int exitStatus) override;

private:
    struct State {
        double interval = 0;
        double nextFiring = 0;
        bool repeats = false;
        bool valid = true;
        std::function<void()> handler;
    };
    class FakeTimer;

    void runPosted();
    std::shared_ptr<State> nextDueTimer(double latest);
    void fire(const std::shared_ptr<State>& timer) const;

    double _now = 0;
    std::vector<std::shared_ptr<State>> _timers;
    std::map<int, std::function<void()>> _descriptors;
    std::vector<double> _pauses;
    std::function<void(double)> _pauseHook;
    std::optional<int> _exitStatus;
    std::mutex _postedMutex;
    std::deque<std::function<void()>> _posted;
};

} // namespace tarragon
