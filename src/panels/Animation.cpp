#include "panels/Animation.h"

#include "panels/rules/PanelFade.h"
#include "platform/RunLoop.h"

namespace tarragon {

// Lives as long as the step that is being carried out, for that one may end the animation.
struct Animation::State {
    std::function<void(double)> step;
    int steps = 0;
    std::unique_ptr<Timer> timer;
};

Animation::Animation(RunLoop& runLoop, double duration, std::function<void(double progress)> step)
    : _state(std::make_shared<State>()) {
    _state->step = std::move(step);
    _state->timer = runLoop.scheduleTimer(AnimationInterval, true, [weak = std::weak_ptr(_state), duration] {
        const auto state = weak.lock();
        if (!state)
            return;
        const double part = ++state->steps * AnimationInterval / duration;
        if (part >= 1)
            state->timer->invalidate();
        state->step(easedProgress(part));
    });
}

Animation::~Animation() {
    _state->timer->invalidate();
}

} // namespace tarragon
