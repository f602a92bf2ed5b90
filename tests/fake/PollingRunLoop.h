#pragma once

#include "fake/FakeRunLoop.h"

#include <chrono>
#include <vector>

#include <poll.h>

namespace tarragon {

// A run loop on a virtual clock that hears of real descriptors, for services that talk to a real server.
class PollingRunLoop : public FakeRunLoop {
public:
    void watchDescriptor(int descriptor, std::function<void()> handler) override {
        _descriptors.push_back({descriptor, POLLIN, 0});
        FakeRunLoop::watchDescriptor(descriptor, std::move(handler));
    }

    // Handles what can be read and what is posted until the condition holds; false when it still does not after a time
    // that only a hang takes.
    template <typename Condition>
    bool runUntil(Condition condition) {
        constexpr std::chrono::seconds Patience{20};
        const auto end = std::chrono::steady_clock::now() + Patience;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            handleReadable(10);
            runPending();
        }
        return true;
    }

    // Handles what can be read at this moment, and what comes of it.
    void runReadable() {
        while (handleReadable(0)) { }
        runPending();
    }

    // How often a descriptor could be read.
    int wakeUps() const { return _wakeUps; }

private:
    bool handleReadable(int milliseconds) {
        const int ready = poll(_descriptors.data(), _descriptors.size(), milliseconds);
        if (ready <= 0)
            return false;
        ++_wakeUps;
        const std::vector<pollfd> descriptors = _descriptors;
        for (const pollfd& descriptor : descriptors) {
            if (descriptor.revents != 0)
                signalDescriptor(descriptor.fd);
        }
        return true;
    }

    std::vector<pollfd> _descriptors;
    int _wakeUps = 0;
};

} // namespace tarragon
