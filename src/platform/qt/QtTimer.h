#pragma once

#include "platform/RunLoop.h"

#include <functional>
#include <memory>

#include <QTimer>

namespace tarragon {

// Seconds from 0 to 1,000,000; what is not a number is 0.
double secondsWithinReason(double seconds);

// A timer of Qt. May be destroyed by its own handler.
class QtTimer : public Timer {
public:
    QtTimer(double seconds, bool repeats, std::function<void()> handler);

    bool isValid() const override { return _timer.isActive(); }
    void invalidate() override { _timer.stop(); }

private:
    std::shared_ptr<const std::function<void()>> _handler;
    QTimer _timer;
};

} // namespace tarragon
