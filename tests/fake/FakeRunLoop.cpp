#include "fake/FakeRunLoop.h"

#include <algorithm>
#include <utility>

namespace tarragon {

class FakeRunLoop::FakeTimer : public Timer {
public:
    explicit FakeTimer(std::shared_ptr<State> state)
        : _state(std::move(state)) { }
    FakeTimer(const FakeTimer&) = delete;
    FakeTimer& operator=(const FakeTimer&) = delete;
    ~FakeTimer() override { _state->valid = false; }

    bool isValid() const override { return _state->valid; }
    void invalidate() override { _state->valid = false; }

private:
    std::shared_ptr<State> _state;
};

void FakeRunLoop::advance(double seconds) {
    const double end = _now + seconds;
    runPosted();
    // A handler may pause, so that the clock is past the end already; what has become due by then is fired late.
    while (const auto timer = nextDueTimer(std::max(end, _now))) {
        _now = std::max(_now, timer->nextFiring);
        fire(timer);
        runPosted();
    }
    _now = std::max(_now, end);
}

void FakeRunLoop::fire(const std::shared_ptr<State>& timer) const {
    if (!timer->repeats) {
        timer->valid = false;
    } else {
        // Firings that were missed are not made up for. A length of 0 fires as often as the clock can tell apart.
        const double interval = std::max(timer->interval, 0.0001);
        while (timer->nextFiring <= _now)
            timer->nextFiring += interval;
    }
    timer->handler();
}

std::shared_ptr<FakeRunLoop::State> FakeRunLoop::nextDueTimer(double latest) {
    std::erase_if(_timers, [](const auto& timer) { return !timer->valid; });
    const auto first = std::ranges::min_element(_timers, {}, &State::nextFiring);
    return first == _timers.end() || (*first)->nextFiring > latest ? nullptr : *first;
}

void FakeRunLoop::runPosted() {
    for (;;) {
        std::function<void()> function;
        {
            const std::lock_guard lock(_postedMutex);
            if (_posted.empty())
                return;
            function = std::move(_posted.front());
            _posted.pop_front();
        }
        function();
    }
}

void FakeRunLoop::signalDescriptor(int descriptor) {
    if (const auto found = _descriptors.find(descriptor); found != _descriptors.end())
        found->second();
}

std::vector<double> FakeRunLoop::validTimers() const {
    std::vector<double> intervals;
    for (const auto& timer : _timers) {
        if (timer->valid)
            intervals.push_back(timer->interval);
    }
    return intervals;
}

std::unique_ptr<Timer> FakeRunLoop::scheduleTimer(double seconds, bool repeats, std::function<void()> handler) {
    auto state = std::make_shared<State>();
    state->interval = seconds;
    state->nextFiring = _now + seconds;
    state->repeats = repeats;
    state->handler = std::move(handler);
    _timers.push_back(state);
    return std::make_unique<FakeTimer>(std::move(state));
}

void FakeRunLoop::pause(double seconds) {
    _pauses.push_back(seconds);
    _now += seconds;
    if (_pauseHook)
        _pauseHook(seconds);
}

void FakeRunLoop::post(std::function<void()> function) {
    const std::lock_guard lock(_postedMutex);
    _posted.push_back(std::move(function));
}

void FakeRunLoop::watchDescriptor(int descriptor, std::function<void()> handler) {
    _descriptors[descriptor] = std::move(handler);
}

void FakeRunLoop::stop(int exitStatus) {
    _exitStatus = exitStatus;
}

} // namespace tarragon
