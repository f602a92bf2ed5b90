#pragma once

#include <chrono>
#include <thread>

namespace tarragon::e2e {

using Clock = std::chrono::steady_clock;
using Duration = std::chrono::milliseconds;

inline constexpr Duration DefaultDeadline{8000};

// Asks the condition again and again until it holds; false when it did not within the deadline. The interval is only
// how often one looks: nothing depends on its length.
template <typename Condition>
bool waitUntil(Condition condition, Duration deadline = DefaultDeadline) {
    auto end = Clock::now() + deadline;
    while (!condition()) {
        if (Clock::now() >= end)
            return condition();
        std::this_thread::sleep_for(Duration(10));
    }
    return true;
}

// False when the condition failed at any moment of the period.
template <typename Condition>
bool holdsFor(Duration period, Condition condition) {
    return !waitUntil([&] { return !condition(); }, period);
}

} // namespace tarragon::e2e
