#include "platform/qt/QtRunLoop.h"

#include "platform/qt/QtPauseFilter.h"
#include "platform/qt/QtTimer.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

#include <QApplication>
#include <QEventLoop>

namespace tarragon {

namespace {

// How often windows are repainted during a pause: more often than a screen shows a new picture.
constexpr std::chrono::milliseconds RepaintInterval{5};

QEvent::Type postedFunctionEventType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace

bool QtRunLoop::Receiver::event(QEvent* event) {
    if (event->type() != postedFunctionEventType())
        return QObject::event(event);
    _runLoop.callNextPosted();
    return true;
}

QtRunLoop::QtRunLoop()
    : _pauseFilter(std::make_unique<QtPauseFilter>(postedFunctionEventType())) {
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

QtRunLoop::~QtRunLoop() = default;

int QtRunLoop::run() {
    if (!_stopped)
        _exitStatus = QCoreApplication::exec();
    return _exitStatus;
}

void QtRunLoop::stop(int exitStatus) {
    if (_stopped)
        return;
    _stopped = true;
    _exitStatus = exitStatus;
    QCoreApplication::exit(exitStatus);
}

std::unique_ptr<Timer> QtRunLoop::scheduleTimer(double seconds, bool repeats, std::function<void()> handler) {
    return std::make_unique<QtTimer>(seconds, repeats, std::move(handler));
}

void QtRunLoop::post(std::function<void()> function) {
    {
        const std::lock_guard lock(_mutex);
        _posted.push_back(std::move(function));
    }
    QCoreApplication::postEvent(&_receiver, new QEvent(postedFunctionEventType()));
}

// Every event stands for the function that has waited longest, so that a nested event loop, as of a dialog that a
// posted function opens, goes on where the outer one stopped.
void QtRunLoop::callNextPosted() {
    std::function<void()> function;
    {
        const std::lock_guard lock(_mutex);
        if (_posted.empty())
            return;
        function = std::move(_posted.front());
        _posted.pop_front();
    }
    // Once the loop is to end, whatever still waits is about things that are being taken down.
    if (function && !_stopped)
        function();
}

void QtRunLoop::watchDescriptor(int descriptor, std::function<void()> handler) {
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    notifier->setEnabled(!isPaused());
    QObject::connect(notifier.get(), &QSocketNotifier::activated, &_receiver, [this, handler = std::move(handler)] {
        // A descriptor that can be read is reported again after the pause.
        if (!isPaused() && !_stopped)
            handler();
    });
    _notifiers.push_back(std::move(notifier));
}

void QtRunLoop::endPausesFor(int descriptor) {
    _urgentDescriptors.push_back({descriptor, POLLIN, 0});
}

bool QtRunLoop::waitForUrgentDescriptor(std::chrono::nanoseconds time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const timespec atMost{static_cast<time_t>(seconds.count()), static_cast<long>((time - seconds).count())};
    return ::ppoll(_urgentDescriptors.data(), _urgentDescriptors.size(), &atMost, nullptr) > 0;
}

void QtRunLoop::pause(double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now()
        + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(secondsWithinReason(seconds)));

    if (_pauses++ == 0) {
        for (const auto& notifier : _notifiers)
            notifier->setEnabled(false);
        _pauseFilter->install();
    }
    for (auto now = Clock::now(); now < end; now = Clock::now()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        const Clock::duration left = std::max(end - Clock::now(), Clock::duration::zero());
        if (waitForUrgentDescriptor(std::min<Clock::duration>(left, RepaintInterval)))
            break;
    }
    // What waited is called from the run loop, not from here: whoever paused goes on first.
    if (--_pauses == 0) {
        _pauseFilter->remove();
        for (const auto& notifier : _notifiers)
            notifier->setEnabled(true);
    }
}

} // namespace tarragon
