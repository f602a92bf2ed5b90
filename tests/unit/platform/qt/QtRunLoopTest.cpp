#include "platform/qt/QtRunLoop.h"

#include "platform/linux/x11/QtNativeEvents.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

#include <QApplication>
#include <QPaintEvent>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QtRunLoopTest : public testing::Test {
protected:
    std::function<void()> note(const std::string& text) {
        return [this, text] { _log.push_back(text); };
    }

    // Runs until the log has so many entries, or a few seconds are over.
    void runUntil(std::size_t entries) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return _log.size() >= entries; }, 5000));
    }

    static double secondsOf(const std::function<void()>& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

    std::vector<std::string> _log;
    QtRunLoop _runLoop;
};

// Calls a function from Qt's event loop, pauses or not.
class Caller : public QObject {
public:
    explicit Caller(std::function<void()> function)
        : _function(std::move(function)) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        _function();
        return true;
    }

private:
    std::function<void()> _function;
};

TEST_F(QtRunLoopTest, FiresASingleTimerOnce) {
    std::unique_ptr<Timer> timer;
    bool wasValid = true;
    timer = _runLoop.scheduleTimer(0.001, false, [&] {
        wasValid = timer->isValid();
        _log.emplace_back("fired");
    });
    EXPECT_TRUE(timer->isValid());
    const auto later = _runLoop.scheduleTimer(0.02, false, note("later"));
    runUntil(2);
    EXPECT_THAT(_log, ElementsAre("fired", "later"));
    EXPECT_FALSE(wasValid);
    EXPECT_FALSE(timer->isValid());
}

TEST_F(QtRunLoopTest, FiresARepeatingTimerUntilItIsInvalidated) {
    std::unique_ptr<Timer> timer;
    timer = _runLoop.scheduleTimer(0.001, true, [&] {
        _log.emplace_back("fired");
        if (_log.size() == 3)
            timer->invalidate();
    });
    const auto later = _runLoop.scheduleTimer(0.05, false, note("later"));
    runUntil(4);
    EXPECT_THAT(_log, ElementsAre("fired", "fired", "fired", "later"));
    EXPECT_FALSE(timer->isValid());
}

TEST_F(QtRunLoopTest, FiresTimersAtTheirTime) {
    const auto timer = _runLoop.scheduleTimer(0.05, false, note("fired"));
    const double seconds = secondsOf([this] { runUntil(1); });
    EXPECT_GE(seconds, 0.045);
    EXPECT_LT(seconds, 1);
}

TEST_F(QtRunLoopTest, LetsAHandlerDestroyItsTimer) {
    std::unique_ptr<Timer> timer;
    timer = _runLoop.scheduleTimer(0, true, [&] {
        timer.reset();
        _log.emplace_back("fired");
    });
    const auto later = _runLoop.scheduleTimer(0.02, false, note("later"));
    runUntil(2);
    EXPECT_THAT(_log, ElementsAre("fired", "later"));
}

TEST_F(QtRunLoopTest, NeverFiresATimerThatIsDestroyed) {
    _runLoop.scheduleTimer(0, false, note("fired")).reset();
    const auto later = _runLoop.scheduleTimer(0.01, false, note("later"));
    runUntil(1);
    EXPECT_THAT(_log, ElementsAre("later"));
}

TEST_F(QtRunLoopTest, TakesNonsenseForNoTime) {
    const auto negative = _runLoop.scheduleTimer(-5, false, note("negative"));
    const auto notANumber = _runLoop.scheduleTimer(std::numeric_limits<double>::quiet_NaN(), false, note("NaN"));
    const auto never = _runLoop.scheduleTimer(1e300, false, note("never"));
    runUntil(2);
    EXPECT_THAT(_log, ElementsAre("negative", "NaN"));
    EXPECT_TRUE(never->isValid());
    EXPECT_LT(secondsOf([this] {
        _runLoop.pause(-1);
        _runLoop.pause(std::numeric_limits<double>::quiet_NaN());
    }),
        1);
}

TEST_F(QtRunLoopTest, CallsPostedFunctionsInOrderAndNeverAtOnce) {
    _runLoop.post([this] {
        _log.emplace_back("1");
        _runLoop.post(note("4"));
    });
    _runLoop.post(note("2"));
    _runLoop.post(note("3"));
    EXPECT_THAT(_log, IsEmpty());
    runUntil(4);
    EXPECT_THAT(_log, ElementsAre("1", "2", "3", "4"));
}

TEST_F(QtRunLoopTest, GoesOnWithPostedFunctionsInANestedEventLoop) {
    _runLoop.post([this] {
        _log.emplace_back("outer");
        runUntil(3);
        _log.emplace_back("outer ends");
    });
    _runLoop.post(note("2"));
    _runLoop.post(note("3"));
    runUntil(4);
    EXPECT_THAT(_log, ElementsAre("outer", "2", "3", "outer ends"));
}

TEST_F(QtRunLoopTest, CallsWhatOtherThreadsPostOnTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    constexpr int Threads = 4;
    constexpr int PostsOfEach = 250;
    std::vector<int> last(Threads, -1);
    int calls = 0;
    bool inOrder = true;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < Threads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int post = 0; post < PostsOfEach; ++post) {
                _runLoop.post([&, thread, post] {
                    inOrder = inOrder && std::this_thread::get_id() == mainThread && last[thread] == post - 1;
                    last[thread] = post;
                    ++calls;
                });
            }
        });
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls == Threads * PostsOfEach; }, 5000));
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(calls, Threads * PostsOfEach);
    EXPECT_TRUE(inOrder);
}

TEST_F(QtRunLoopTest, CallsTheHandlerWhileTheDescriptorCanBeRead) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    _runLoop.watchDescriptor(ends[0], [&] {
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        _log.emplace_back(1, byte);
    });
    ASSERT_EQ(write(ends[1], "ab", 2), 2);
    runUntil(2);
    EXPECT_THAT(_log, ElementsAre("a", "b"));
    close(ends[0]);
    close(ends[1]);
}

TEST_F(QtRunLoopTest, EndsWithTheStatusGiven) {
    _runLoop.post([this] { _runLoop.stop(3); });
    EXPECT_EQ(_runLoop.run(), 3);
}

TEST_F(QtRunLoopTest, DoesNotStartAfterItWasStopped) {
    _runLoop.stop(4);
    _runLoop.stop(5);
    EXPECT_EQ(_runLoop.run(), 4);
}

TEST_F(QtRunLoopTest, GoesOnAfterTheLastWindowHasClosed) {
    QWidget window;
    window.show();
    _runLoop.post([&] { window.close(); });
    const auto timer = _runLoop.scheduleTimer(0.02, false, [this] { _runLoop.stop(7); });
    EXPECT_EQ(_runLoop.run(), 7);
}

TEST_F(QtRunLoopTest, TakesItsTimeForAPause) {
    const double seconds = secondsOf([this] { _runLoop.pause(0.05); });
    EXPECT_GE(seconds, 0.05);
    EXPECT_LT(seconds, 1);
}

TEST_F(QtRunLoopTest, HandlesNothingDuringAPauseAndEverythingAfterItInOrder) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    _runLoop.watchDescriptor(ends[0], [&] {
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        _log.emplace_back("descriptor");
    });
    std::vector<std::uint8_t> event(36, 1);
    QtNativeEvents nativeEvents(
        _runLoop,
        [this](const void*) {
            _log.emplace_back("native event");
            return true;
        },
        [](void*) { return false; });
    ASSERT_EQ(write(ends[1], "a", 1), 1);
    _runLoop.post(note("post before"));
    const auto repeating = _runLoop.scheduleTimer(0.005, true, note("timer"));
    QTimer timerOfAWidget;
    QObject::connect(&timerOfAWidget, &QTimer::timeout, &timerOfAWidget, note("timer of a widget"));
    timerOfAWidget.setSingleShot(true);
    timerOfAWidget.start(15);
    bool seenDuringPause = false;
    const Caller caller([&] {
        seenDuringPause = _runLoop.isPaused() && _log.empty();
        _runLoop.post(note("post during"));
        EXPECT_FALSE(nativeEvents.nativeEventFilter("xcb_generic_event_t", event.data(), nullptr));
    });

    _runLoop.pause(0.05);
    EXPECT_TRUE(seenDuringPause);
    EXPECT_THAT(_log, IsEmpty());
    EXPECT_FALSE(_runLoop.isPaused());

    runUntil(6);
    repeating->invalidate();
    std::vector<std::string> firstTimes;
    for (const std::string& entry : _log) {
        if (entry != "descriptor" && std::find(firstTimes.begin(), firstTimes.end(), entry) == firstTimes.end())
            firstTimes.push_back(entry);
    }
    EXPECT_THAT(_log, testing::Contains("descriptor"));
    EXPECT_THAT(firstTimes, ElementsAre("post before", "post during", "native event", "timer", "timer of a widget"));
    close(ends[0]);
    close(ends[1]);
}

TEST_F(QtRunLoopTest, EndsAPauseEarlyForADescriptorThatCannotWaitAndCallsItsHandlerAfterwards) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    _runLoop.endPausesFor(ends[0]);
    _runLoop.watchDescriptor(ends[0], [&] {
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        _log.emplace_back(1, byte);
    });
    const Caller caller([&] { ASSERT_EQ(write(ends[1], "a", 1), 1); });
    constexpr double TooLong = 30;
    EXPECT_LT(secondsOf([this] {
        _runLoop.pause(TooLong);
        // Until it is read, no pause begins.
        _runLoop.pause(TooLong);
    }),
        TooLong / 2);
    EXPECT_THAT(_log, IsEmpty());
    runUntil(1);
    EXPECT_THAT(_log, ElementsAre("a"));
    EXPECT_GE(secondsOf([this] { _runLoop.pause(0.05); }), 0.05);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(QtRunLoopTest, FiresARepeatingTimerNotManyTimesAfterAPause) {
    const auto timer = _runLoop.scheduleTimer(0.02, true, note("timer"));
    _runLoop.pause(0.1);
    QCoreApplication::processEvents();
    EXPECT_GE(_log.size(), 1U);
    EXPECT_LE(_log.size(), 2U);
}

TEST_F(QtRunLoopTest, FiresNoTimerThatWasInvalidatedDuringThePause) {
    const auto timer = _runLoop.scheduleTimer(0, false, note("timer"));
    const Caller caller([&] { timer->invalidate(); });
    _runLoop.pause(0.02);
    _runLoop.post(note("after"));
    runUntil(1);
    EXPECT_THAT(_log, ElementsAre("after"));
}

TEST_F(QtRunLoopTest, PausesInsideAHandler) {
    _runLoop.post([this] {
        _log.emplace_back("begins");
        _runLoop.post(note("posted inside"));
        _runLoop.pause(0.02);
        _log.emplace_back("ends");
    });
    _runLoop.post(note("next"));
    runUntil(4);
    EXPECT_THAT(_log, ElementsAre("begins", "ends", "next", "posted inside"));
}

TEST_F(QtRunLoopTest, PausesInsideAPause) {
    _runLoop.post(note("posted"));
    bool stillPaused = false;
    const Caller caller([&] {
        _runLoop.pause(0.02);
        stillPaused = _runLoop.isPaused() && _log.empty();
    });
    _runLoop.pause(0.05);
    EXPECT_TRUE(stillPaused);
    EXPECT_THAT(_log, IsEmpty());
    runUntil(1);
    EXPECT_THAT(_log, ElementsAre("posted"));
}

TEST_F(QtRunLoopTest, RepaintsWindowsDuringAPause) {
    class Window : public QWidget {
    public:
        void paintEvent(QPaintEvent*) override { ++paints; }
        int paints = 0;
    };
    Window window;
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.paints > 0; }, 5000));
    window.paints = 0;
    window.update();
    _runLoop.pause(0.03);
    EXPECT_EQ(window.paints, 1);
}

} // namespace

} // namespace tarragon
