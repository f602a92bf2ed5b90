#include "platform/linux/x11/QtNativeEvents.h"

#include "platform/qt/QtRunLoop.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include <QTest>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

using Event = std::vector<std::uint8_t>;

// An event as XCB keeps it, with so many bytes behind the fixed ones.
Event genericEvent(std::uint32_t more) {
    Event event(36 + more);
    for (std::size_t position = 0; position < event.size(); ++position)
        event[position] = static_cast<std::uint8_t>(position);
    event[0] = 35;
    const std::uint32_t length = more / 4;
    std::memcpy(event.data() + 4, &length, sizeof length);
    return event;
}

class QtNativeEventsTest : public testing::Test {
protected:
    bool filter(Event& event, const char* type = "xcb_generic_event_t") {
        return _nativeEvents->nativeEventFilter(type, event.data(), nullptr);
    }

    // Filters the event as if it came during a pause.
    void filterDuringPause(Event& event) {
        class Caller : public QObject {
        public:
            bool event(QEvent*) override {
                function();
                return true;
            }
            std::function<void()> function;
        };
        Caller caller;
        caller.function = [&] { EXPECT_FALSE(filter(event)); };
        QCoreApplication::postEvent(&caller, new QEvent(QEvent::User));
        _runLoop.pause(0.01);
    }

    QtRunLoop _runLoop;
    bool _answer = false;
    std::size_t _size = 36;
    std::vector<Event> _seen;
    std::unique_ptr<QtNativeEvents> _nativeEvents = std::make_unique<QtNativeEvents>(
        _runLoop,
        [this](const void* event) {
            const auto* bytes = static_cast<const std::uint8_t*>(event);
            _seen.emplace_back(bytes, bytes + _size);
            return _answer;
        },
        [](void*) { return false; });
};

TEST_F(QtNativeEventsTest, HandsEventsToTheHandlerAndItsAnswerToQt) {
    Event event(36, 2);
    EXPECT_FALSE(filter(event));
    _answer = true;
    EXPECT_TRUE(filter(event));
    EXPECT_EQ(_seen, (std::vector{event, event}));
}

TEST_F(QtNativeEventsTest, HandsOverNoEventsOfOtherWindowSystems) {
    Event event(36, 2);
    _answer = true;
    EXPECT_FALSE(filter(event, "windows_generic_MSG"));
    EXPECT_TRUE(_seen.empty());
}

TEST_F(QtNativeEventsTest, HandsOverTheWholeEventAfterAPause) {
    Event small(36, 2);
    filterDuringPause(small);
    const Event copyOfSmall = small;
    small.assign(36, 0);
    EXPECT_TRUE(_seen.empty());
    EXPECT_TRUE(QTest::qWaitFor([this] { return _seen.size() == 1; }, 5000));
    EXPECT_EQ(_seen, std::vector<Event>(1, copyOfSmall));

    Event large = genericEvent(400);
    _size = large.size();
    filterDuringPause(large);
    EXPECT_TRUE(QTest::qWaitFor([this] { return _seen.size() == 2; }, 5000));
    EXPECT_EQ(_seen.back(), genericEvent(400));
}

TEST_F(QtNativeEventsTest, ForgetsWhatItStillHasWhenItGoes) {
    Event event(36, 2);
    filterDuringPause(event);
    _nativeEvents.reset();
    bool after = false;
    _runLoop.post([&] { after = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return after; }, 5000));
    EXPECT_TRUE(_seen.empty());
}

TEST(QtX11Connection, IsNothingWhereQtDoesNotDrawThroughX) {
    EXPECT_EQ(qtX11Connection(), nullptr);
}

TEST_F(QtNativeEventsTest, AreAdjustedBeforeAnybodySeesThem) {
    QtNativeEvents adjusted(
        _runLoop,
        [this](const void* event) { return (_seen.push_back({*static_cast<const std::uint8_t*>(event)}), true); },
        [](void* event) {
            *static_cast<std::uint8_t*>(event) = 7;
            return false;
        });
    Event event(36, 2);
    EXPECT_TRUE(adjusted.nativeEventFilter("xcb_generic_event_t", event.data(), nullptr));
    EXPECT_EQ(_seen, std::vector<Event>{{7}});
}

TEST_F(QtNativeEventsTest, ThatTheAdjustmentKeepsReachNobody) {
    QtNativeEvents adjusted(
        _runLoop, [this](const void*) { return (_seen.emplace_back(), true); }, [](void*) { return true; });
    Event event(36, 2);
    EXPECT_TRUE(adjusted.nativeEventFilter("xcb_generic_event_t", event.data(), nullptr));
    EXPECT_TRUE(_seen.empty());
}

} // namespace

} // namespace tarragon
