#include "platform/linux/xkb/X11KeyRecorder.h"

#include "fake/PollingRunLoop.h"
#include "fake/RecordingLog.h"
#include "platform/HotKeys.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/X11HotKeys.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint8_t Alt = 64;
constexpr std::uint8_t Shift = 50;
constexpr std::uint8_t F4 = 70;
constexpr std::uint8_t A = 38;
constexpr std::uint16_t F4Code = 118;
constexpr std::uint16_t ACode = 0;

class X11KeyRecorderTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        connection = X11Connection::connect(server.displayName());
        ASSERT_TRUE(connection);
        other = std::make_unique<X11Client>(server.displayName());
        recorder = std::make_unique<X11KeyRecorder>(*connection, runLoop);
    }

    std::unique_ptr<KeyRecording> record() {
        return recorder->recordKeys([this](const RecordedKey& key) { keys.push_back(key); }, [this] { ++ends; });
    }
    // A window of the other program with the focus, which hears its keys and of the focus.
    xcb_window_t focusedWindowOfOther() {
        const xcb_window_t window = other->makeWindow(
            {.overrideRedirect = true, .events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE});
        other->map(window);
        other->focus(window);
        other->takeEvents();
        return window;
    }
    bool hasKeys(std::size_t count) {
        return runLoop.runUntil([&] { return keys.size() >= count; });
    }

    const XkbServer server;
    PollingRunLoop runLoop;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Client> other;
    std::unique_ptr<X11KeyRecorder> recorder;
    std::vector<RecordedKey> keys;
    int ends = 0;
};

TEST_F(X11KeyRecorderTest, HearsACombinationThatAnotherProgramHasGrabbedAndKeepsItFromThere) {
    focusedWindowOfOther();
    ASSERT_TRUE(other->grabKey(F4, XCB_MOD_MASK_1));
    auto recording = record();
    ASSERT_TRUE(recording);
    other->pressKey(Alt);
    other->typeKey(F4);
    other->releaseKey(Alt);
    ASSERT_TRUE(hasKeys(4));
    EXPECT_THAT(keys,
        ElementsAre(RecordedKey{{}, modifier::Option, true, true}, RecordedKey{F4Code, modifier::Option, true, false},
            RecordedKey{F4Code, modifier::Option, false, false}, RecordedKey{{}, 0, false, true}));
    EXPECT_EQ(other->countEvents(XCB_KEY_PRESS), 0);
    recording.reset();
    other->pressKey(Alt);
    other->typeKey(F4);
    other->releaseKey(Alt);
    EXPECT_GT(other->countEvents(XCB_KEY_PRESS), 0);
    runLoop.runReadable();
    EXPECT_EQ(keys.size(), 4U);
}

// It may hear that the focus has left and come back at once.
TEST_F(X11KeyRecorderTest, DoesNotLetTheApplicationInFrontBelieveThatItLostTheFocus) {
    const xcb_window_t window = focusedWindowOfOther();
    auto recording = record();
    ASSERT_TRUE(recording);
    const auto lastEvent = [&] {
        const std::vector<int> events = other->takeEvents();
        return events.empty() ? XCB_FOCUS_IN : events.back();
    };
    EXPECT_EQ(lastEvent(), XCB_FOCUS_IN);
    recording.reset();
    EXPECT_EQ(lastEvent(), XCB_FOCUS_IN);
    EXPECT_EQ(other->focusedWindow(), window);
}

TEST_F(X11KeyRecorderTest, HearsTheKeysAlsoWhereNoWindowHasTheFocus) {
    other->focus(XCB_INPUT_FOCUS_NONE);
    const auto recording = record();
    ASSERT_TRUE(recording);
    other->typeKey(A);
    ASSERT_TRUE(hasKeys(2));
    EXPECT_EQ(keys.front(), (RecordedKey{ACode, 0, true, false}));
    EXPECT_EQ(ends, 0);
}

TEST_F(X11KeyRecorderTest, DoesNotSetOffOurOwnHotKey) {
    const auto toolkit = X11Connection::connect(server.displayName());
    X11HotKeys hotKeys(toolkit->get(), toolkit->rootWindow(), runLoop);
    HotKeyReference reference = 0;
    ASSERT_TRUE(hotKeys.registerHotKey(F4Code, hotkey::OptionKey, {}, reference));
    auto recording = record();
    ASSERT_TRUE(recording);
    other->pressKey(Alt);
    other->typeKey(F4);
    other->releaseKey(Alt);
    ASSERT_TRUE(hasKeys(4));
    const auto pressesHeard = [&] {
        int count = 0;
        const X11Reply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(toolkit->get(), xcb_get_input_focus(toolkit->get()), nullptr));
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(toolkit->get())})
            count += event->response_type == XCB_KEY_PRESS ? 1 : 0;
        return count;
    };
    EXPECT_EQ(pressesHeard(), 0);
    recording.reset();
    other->pressKey(Alt);
    other->typeKey(F4);
    other->releaseKey(Alt);
    EXPECT_EQ(pressesHeard(), 1);
}

TEST_F(X11KeyRecorderTest, MakesOneRecordingAtATime) {
    auto recording = record();
    ASSERT_TRUE(recording);
    EXPECT_FALSE(record());
    other->typeKey(A);
    EXPECT_TRUE(hasKeys(2));
    recording.reset();
    EXPECT_TRUE(record());
}

TEST_F(X11KeyRecorderTest, HasNoKeysWhileAnotherProgramHasAllOfThem) {
    RecordingLog log(LogCategory::Triggers);
    ASSERT_TRUE(other->grabKeyboard());
    EXPECT_FALSE(record());
    EXPECT_EQ(log.takeLines().size(), 1U);
    other->ungrabKeyboard();
    EXPECT_TRUE(record());
}

TEST_F(X11KeyRecorderTest, KeepsTheKeyboardFromOtherProgramsAndGivesItBack) {
    auto recording = record();
    ASSERT_TRUE(recording);
    EXPECT_FALSE(other->grabKeyboard());
    recording.reset();
    EXPECT_TRUE(other->grabKeyboard());
}

TEST_F(X11KeyRecorderTest, TellsOnceWhenTheWindowWithTheFocusGoesAndTheKeysWithIt) {
    const xcb_window_t window = focusedWindowOfOther();
    const auto recording = record();
    ASSERT_TRUE(recording);
    other->unmap(window);
    ASSERT_TRUE(runLoop.runUntil([&] { return ends > 0; }));
    EXPECT_TRUE(other->grabKeyboard());
    other->ungrabKeyboard();
    other->typeKey(A);
    runLoop.runReadable();
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(record());
}

TEST_F(X11KeyRecorderTest, KeepsTheKeysWhenTheFocusMoves) {
    focusedWindowOfOther();
    const auto recording = record();
    ASSERT_TRUE(recording);
    focusedWindowOfOther();
    other->typeKey(A);
    ASSERT_TRUE(hasKeys(2));
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(other->countEvents(XCB_KEY_PRESS), 0);
}

TEST_F(X11KeyRecorderTest, MayBeEndedByAKey) {
    std::unique_ptr<KeyRecording> recording;
    recording = recorder->recordKeys(
        [&](const RecordedKey& key) {
            keys.push_back(key);
            recording.reset();
        },
        [this] { ++ends; });
    ASSERT_TRUE(recording);
    other->typeKey(A);
    other->typeKey(F4);
    ASSERT_TRUE(hasKeys(1));
    runLoop.runReadable();
    EXPECT_EQ(keys.size(), 1U);
    EXPECT_EQ(ends, 0);
}

TEST_F(X11KeyRecorderTest, DoesNotTakeKeysOfAnEarlierRecordingForThoseOfTheNext) {
    auto recording = record();
    ASSERT_TRUE(recording);
    other->typeKey(A);
    recording.reset();
    recording = record();
    ASSERT_TRUE(recording);
    other->typeKey(F4);
    ASSERT_TRUE(hasKeys(2));
    EXPECT_EQ(keys.front().keyCode, F4Code);
}

TEST_F(X11KeyRecorderTest, HearsOfModifiersThatWereHeldBefore) {
    other->pressKey(Shift);
    const auto recording = record();
    ASSERT_TRUE(recording);
    other->typeKey(A);
    other->releaseKey(Shift);
    ASSERT_TRUE(hasKeys(3));
    EXPECT_THAT(keys,
        ElementsAre(RecordedKey{ACode, modifier::Shift, true, false}, RecordedKey{ACode, modifier::Shift, false, false},
            RecordedKey{{}, 0, false, true}));
}

// The other program sees how fast a key repeats; as many repetitions as it saw come while the keys are recorded.
TEST_F(X11KeyRecorderTest, LeavesTheRepetitionsOfAHeldKeyOut) {
    using Clock = std::chrono::steady_clock;
    focusedWindowOfOther();
    const auto begin = Clock::now();
    other->pressKey(A);
    int presses = 0;
    ASSERT_TRUE(runLoop.runUntil([&] { return (presses += other->countEvents(XCB_KEY_PRESS)) >= 4; }));
    const auto timeOfRepetitions = Clock::now() - begin;
    const auto letRepeat = [&] {
        const auto end = Clock::now() + timeOfRepetitions;
        return runLoop.runUntil([&] { return Clock::now() > end; });
    };

    const auto recording = record();
    ASSERT_TRUE(recording);
    ASSERT_TRUE(letRepeat());
    other->releaseKey(A);
    ASSERT_TRUE(hasKeys(1));
    other->pressKey(F4);
    ASSERT_TRUE(letRepeat());
    other->releaseKey(F4);
    ASSERT_TRUE(runLoop.runUntil([&] { return keys.back() == RecordedKey{F4Code, 0, false, false}; }));
    EXPECT_THAT(keys,
        ElementsAre(RecordedKey{ACode, 0, false, false}, RecordedKey{F4Code, 0, true, false},
            RecordedKey{F4Code, 0, false, false}));
}

} // namespace
} // namespace tarragon
