#pragma once

#include <algorithm>
#include <chrono>

namespace tarragon {

// How long one application may keep a caller waiting: one second without any reply, or five seconds in all, whichever
// comes first. So a slow application whose replies keep coming is heard out, and a hung one is left early.
class AtspiTimeout {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds Silence{1000};
    static constexpr std::chrono::milliseconds Total{5000};

    // Where nobody waits at a menu that opens, several times that.
    explicit AtspiTimeout(Clock::time_point start, int times = 1)
        : _start(start)
        , _lastReply(start)
        , _times(times) { }

    void noteReply(Clock::time_point now) { _lastReply = now; }
    // The moment at which waiting ends unless a reply comes before.
    Clock::time_point deadline() const { return std::min(_lastReply + _times * Silence, _start + _times * Total); }
    bool isExhausted(Clock::time_point now) const { return now >= deadline(); }

private:
    Clock::time_point _start;
    Clock::time_point _lastReply;
    int _times;
};

} // namespace tarragon
