#pragma once

#include <chrono>

namespace tarragon {

// Whether an application that timed out may be asked again. It is not asked while suspended; instead a probe, one
// request that nobody waits for, is sent at once and again every five seconds until one of them is answered.
class AtspiBackOff {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::seconds ProbeInterval{5};

    bool isSuspended() const { return _suspended; }
    void noteTimeout() { _suspended = true; }
    void noteReply() {
        _suspended = false;
        _probed = false;
    }

    // True when a probe is to be sent now; the caller sends it and then calls noteProbe.
    bool needsProbe(Clock::time_point now) const {
        return _suspended && (!_probed || now >= _lastProbe + ProbeInterval);
    }
    void noteProbe(Clock::time_point now) {
        _probed = true;
        _lastProbe = now;
    }

private:
    bool _suspended = false;
    bool _probed = false;
    Clock::time_point _lastProbe;
};

} // namespace tarragon
