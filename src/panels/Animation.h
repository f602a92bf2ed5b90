#pragma once

#include <functional>
#include <memory>

namespace tarragon {

class RunLoop;
class Timer;

// Something on the screen that changes bit by bit, on the run loop. Destroying it leaves the change where it is. Main
// thread only.
class Animation {
public:
    // The step is called with how far the change is, above 0 and at last exactly 1. It may end the animation. The run
    // loop outlives it.
    Animation(RunLoop& runLoop, double duration, std::function<void(double progress)> step);
    ~Animation();
    Animation(const Animation&) = delete;
    Animation& operator=(const Animation&) = delete;

private:
    struct State;
    std::shared_ptr<State> _state;
};

} // namespace tarragon
