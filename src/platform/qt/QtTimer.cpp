#include "platform/qt/QtTimer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarragon {

double secondsWithinReason(double seconds) {
    constexpr double Most = 1e6; // fits into Qt's milliseconds
    return std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, Most);
}

QtTimer::QtTimer(double seconds, bool repeats, std::function<void()> handler)
    : _handler(std::make_shared<const std::function<void()>>(std::move(handler))) {
    // A repeating timer of no length would leave no time for anything else.
    const int milliseconds = static_cast<int>(std::lround(secondsWithinReason(seconds) * 1000));
    _timer.setInterval(repeats ? std::max(milliseconds, 1) : milliseconds);
    _timer.setSingleShot(!repeats);
    _timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&_timer, &QTimer::timeout, &_timer, [this] {
        // The handler may destroy this timer.
        const auto called = _handler;
        if (*called)
            (*called)();
    });
    _timer.start();
}

} // namespace tarragon
