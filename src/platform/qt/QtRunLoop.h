#pragma once

#include "platform/RunLoop.h"

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include <poll.h>

#include <QObject>
#include <QSocketNotifier>

namespace tarragon {

class QtPauseFilter;

// The run loop on Qt's event loop. Made on the main thread, after the QApplication, and destroyed before it.
class QtRunLoop : public RunLoop {
public:
    QtRunLoop();
    ~QtRunLoop() override;
    QtRunLoop(const QtRunLoop&) = delete;
    QtRunLoop& operator=(const QtRunLoop&) = delete;

    // Runs until stop is called and answers its exit status; at once when it was called before. Closing the last window
    // does not end the program.
    int run();

    std::unique_ptr<Timer> scheduleTimer(double seconds, bool repeats, std::function<void()> handler) override;
    void pause(double seconds) override;
    void endPausesFor(int descriptor) override;
    void post(std::function<void()> function) override;
    void watchDescriptor(int descriptor, std::function<void()> handler) override;
    void stop(int exitStatus) override;

    // True while pause blocks the main thread. Whoever is called by Qt meanwhile hands the work to post.
    bool isPaused() const { return _pauses > 0; }

private:
    // Lives on the main thread and hears of posted functions, one event for each.
    class Receiver : public QObject {
    public:
        explicit Receiver(QtRunLoop& runLoop)
            : _runLoop(runLoop) { }
        bool event(QEvent* event) override;

    private:
        QtRunLoop& _runLoop;
    };

    void callNextPosted();
    // False when the time is over before one of them can be read.
    [[nodiscard]] bool waitForUrgentDescriptor(std::chrono::nanoseconds time);

    Receiver _receiver{*this};
    std::mutex _mutex; // guards _posted
    std::deque<std::function<void()>> _posted;
    std::vector<std::unique_ptr<QSocketNotifier>> _notifiers;
    std::vector<pollfd> _urgentDescriptors;
    std::unique_ptr<QtPauseFilter> _pauseFilter;
    int _pauses = 0;
    bool _stopped = false;
    int _exitStatus = 0;
};

} // namespace tarragon
