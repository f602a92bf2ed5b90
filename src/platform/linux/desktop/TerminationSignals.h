#pragma once

#include <functional>

namespace tarragon {

class RunLoop;

// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a call from the run loop. One object at a
// time; main thread only.
class TerminationSignals {
public:
    TerminationSignals(RunLoop& runLoop, std::function<void()> handler);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
};

} // namespace tarragon
