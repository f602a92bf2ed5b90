#include "platform/linux/input/X11InputEvents.h"

#include "fake/PollingRunLoop.h"
#include "platform/linux/input/X11PointerOwner.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <memory>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr InputEvent LeftUp{InputEventType::LeftMouseUp, 0};
constexpr InputEvent Drag{InputEventType::LeftMouseDragged, 0};
constexpr InputEventMask LeftUpMask = 4;
constexpr InputEventMask DragMask = 64;
constexpr InputEventMask OtherDownMask = 0x2000000;
constexpr InputEventMask OtherUpMask = 0x4000000;
constexpr InputEventMask OtherDragMask = 0x8000000;
constexpr std::uint32_t ButtonEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;

InputEvent otherDown(std::uint32_t button) {
    return {InputEventType::OtherMouseDown, button};
}

// We and another application, whose window the pointer is over.
class X11InputEventsTest : public testing::Test {
protected:
    void SetUp() override {
        if (_server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        connection = X11Connection::connect(_server.displayName());
        ASSERT_TRUE(connection);
        toolkit = std::make_unique<X11Client>(_server.displayName());
        other = std::make_unique<X11Client>(_server.displayName());
        events = std::make_unique<X11InputEvents>(
            *connection, runLoop, [this] { return pointerIsOverOwnWindow(*connection, toolkit->connection()); });
        window = other->makeWindow({.x = 0, .y = 0, .width = 150, .height = 200, .events = ButtonEvents});
        other->map(window);
        other->movePointer(50, 50);
        other->takeEvents();
    }

    EventMonitor monitor(InputEventMask mask, std::vector<InputEvent>& told) {
        return events->addGlobalMonitor(mask, [&told](const InputEvent& event) { told.push_back(event); });
    }
    std::unique_ptr<EventTap> tap(InputEventMask mask, std::vector<InputEvent>& told) {
        return events->createEventTap(mask, [&told](const InputEvent& event) {
            told.push_back(event);
            return true;
        });
    }
    // Moves the pointer until a drag is told: the server is asked for motions only once the button is down.
    bool drag(X11Client& user, const std::vector<InputEvent>& told) {
        const std::size_t before = told.size();
        int x = 0;
        return runLoop.runUntil([&] {
            user.movePointer(20 + (++x % 100), 60);
            return told.size() > before;
        });
    }

private:
    XkbServer _server; // outlives its clients

protected:
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Client> toolkit;
    std::unique_ptr<X11Client> other;
    PollingRunLoop runLoop;
    std::unique_ptr<X11InputEvents> events;
    xcb_window_t window = 0;
};

TEST_F(X11InputEventsTest, TellsEveryReleaseOverAnotherApplicationOnce) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(LeftUpMask, told), 0U);
    other->click();
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return told.size() >= 2; }));
    runLoop.runReadable();
    EXPECT_THAT(told, ElementsAre(LeftUp, LeftUp));
}

// Nobody has to watch, and no event has to have come.
TEST_F(X11InputEventsTest, KnowsWhetherTheLeftButtonIsHeld) {
    EXPECT_FALSE(events->leftButtonIsHeld());
    other->press();
    EXPECT_TRUE(events->leftButtonIsHeld());
    other->release();
    EXPECT_FALSE(events->leftButtonIsHeld());
    other->press(3);
    EXPECT_FALSE(events->leftButtonIsHeld());
    other->release(3);
}

TEST_F(X11InputEventsTest, TakesNothingFromTheOtherApplication) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(LeftUpMask, told), 0U);
    const auto buttons = tap(OtherDownMask, told);
    other->click();
    other->click(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return told.size() == 2; }));
    EXPECT_THAT(
        other->takeEvents(), ElementsAre(XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE, XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE));
}

TEST_F(X11InputEventsTest, HearsPressesWhileAnotherApplicationHasThePointerGrabbed) {
    std::vector<InputEvent> ups;
    std::vector<InputEvent> presses;
    ASSERT_NE(monitor(LeftUpMask, ups), 0U);
    const auto buttons = tap(OtherDownMask, presses);
    ASSERT_TRUE(other->grabPointer());
    other->click();
    other->click(8);
    ASSERT_TRUE(runLoop.runUntil([&] { return !presses.empty(); }));
    runLoop.runReadable();
    EXPECT_THAT(ups, ElementsAre(LeftUp));
    EXPECT_THAT(presses, ElementsAre(otherDown(3)));
    EXPECT_EQ(other->countEvents(XCB_BUTTON_PRESS), 2);
    other->ungrabPointer();
}

TEST_F(X11InputEventsTest, TellsATapOfButtonsBeyondTheRightOneByTheirNumbersAndOfNoWheel) {
    std::vector<InputEvent> told;
    const auto buttons = tap(OtherDownMask, told);
    ASSERT_TRUE(buttons);
    for (const std::uint8_t button : {1, 3, 4, 5, 6, 7, 2, 8, 9})
        other->click(button);
    ASSERT_TRUE(runLoop.runUntil([&] { return told.size() >= 3; }));
    runLoop.runReadable();
    EXPECT_THAT(told, ElementsAre(otherDown(2), otherDown(3), otherDown(4)));
}

TEST_F(X11InputEventsTest, TellsDragsAndReleasesOfEveryOtherButtonByItsNumber) {
    std::vector<InputEvent> told;
    const auto buttons = tap(OtherUpMask | OtherDragMask, told);
    for (const std::uint8_t button : {1, 3, 4}) {
        other->press(button);
        other->movePointer(60, 60 + button);
        other->release(button);
    }
    for (const auto& [button, number] : {std::pair<std::uint8_t, std::uint32_t>{2, 2}, {8, 3}, {9, 4}}) {
        told.clear();
        other->press(button);
        ASSERT_TRUE(drag(*other, told));
        EXPECT_EQ(told.front(), (InputEvent{InputEventType::OtherMouseDragged, number}));
        runLoop.runReadable();
        told.clear();
        other->release(button);
        ASSERT_TRUE(runLoop.runUntil([&] { return !told.empty(); }));
        EXPECT_THAT(told, ElementsAre(InputEvent{InputEventType::OtherMouseUp, number}));
    }
}

// As a menu does that opens on the press.
TEST_F(X11InputEventsTest, TellsATapThatIsMadeDuringAPressOfTheDragAndTheRelease) {
    std::vector<InputEvent> told;
    std::unique_ptr<EventTap> later;
    const auto first = events->createEventTap(OtherDownMask, [&](const InputEvent&) {
        later = tap(OtherDownMask | OtherUpMask | OtherDragMask, told);
        return true;
    });
    EXPECT_FALSE(events->isOtherButtonHeld());
    other->press(1);
    other->press(8);
    ASSERT_TRUE(runLoop.runUntil([&] { return later != nullptr; }));
    EXPECT_TRUE(events->isOtherButtonHeld());
    EXPECT_THAT(told, IsEmpty());
    ASSERT_TRUE(drag(*other, told));
    other->release(8);
    ASSERT_TRUE(runLoop.runUntil([&] { return told.back().type == InputEventType::OtherMouseUp; }));
    EXPECT_FALSE(events->isOtherButtonHeld());
    other->release(1);
}

TEST_F(X11InputEventsTest, LetsATapEndItselfWhenItIsTold) {
    int calls = 0;
    std::vector<InputEvent> witness;
    std::unique_ptr<EventTap> once;
    once = events->createEventTap(OtherDownMask, [&](const InputEvent&) {
        ++calls;
        once = nullptr;
        return true;
    });
    const auto second = tap(OtherDownMask, witness);
    other->click(2);
    other->click(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return witness.size() == 2; }));
    EXPECT_EQ(calls, 1);
}

TEST_F(X11InputEventsTest, DoesNotWakeForAnotherButtonsDragThatNobodyCaresFor) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(DragMask, told), 0U);
    const auto buttons = tap(OtherDownMask, told);
    other->press(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return !told.empty(); }));
    runLoop.runReadable();
    const int before = runLoop.wakeUps();
    for (int x = 0; x < 50; ++x)
        other->movePointer(20 + x, 80);
    runLoop.runReadable();
    EXPECT_EQ(runLoop.wakeUps(), before);
    EXPECT_EQ(told.size(), 1U);
    other->release(2);
}

TEST_F(X11InputEventsTest, TellsADragOnlyWhileTheLeftButtonIsHeld) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(DragMask, told), 0U);
    other->press(3);
    other->movePointer(60, 60);
    other->release(3);
    runLoop.runReadable();
    EXPECT_THAT(told, IsEmpty());

    other->press();
    ASSERT_TRUE(drag(*other, told));
    EXPECT_EQ(told.front(), Drag);
    std::vector<InputEvent> ups;
    ASSERT_NE(monitor(LeftUpMask, ups), 0U);
    other->release();
    ASSERT_TRUE(runLoop.runUntil([&] { return !ups.empty(); }));
    const std::size_t count = told.size();
    other->movePointer(70, 70);
    runLoop.runReadable();
    EXPECT_EQ(told.size(), count);
}

TEST_F(X11InputEventsTest, TellsDragsThatCameTogetherOnce) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(DragMask, told), 0U);
    other->press();
    ASSERT_TRUE(drag(*other, told));
    runLoop.runReadable();
    told.clear();
    for (int x = 0; x < 50; ++x)
        other->movePointer(20 + x, 80);
    ASSERT_TRUE(runLoop.runUntil([&] { return !told.empty(); }));
    runLoop.runReadable();
    EXPECT_LT(told.size(), 50U);
    other->release();
}

TEST_F(X11InputEventsTest, DoesNotWakeForAPointerThatMovesWithoutAButton) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(DragMask | LeftUpMask, told), 0U);
    const auto buttons = tap(OtherDownMask, told);
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return !told.empty(); }));
    runLoop.runReadable();
    // The server has heard that motions are of no interest any more.
    connection->atom("TARRAGON_TEST_BARRIER");
    other->movePointer(10, 10);
    runLoop.runReadable();
    const int before = runLoop.wakeUps();
    for (int x = 0; x < 50; ++x)
        other->movePointer(20 + x, 80);
    runLoop.runReadable();
    EXPECT_EQ(runLoop.wakeUps(), before);
}

TEST_F(X11InputEventsTest, TellsMonitorsNothingOfWindowsOfOurs) {
    std::vector<InputEvent> monitored;
    std::vector<InputEvent> tapped;
    ASSERT_NE(monitor(LeftUpMask | DragMask | OtherDownMask, monitored), 0U);
    const auto buttons = tap(OtherDownMask, tapped);
    const xcb_window_t ours = toolkit->makeWindow({.x = 160, .y = 0, .width = 100, .height = 100});
    toolkit->map(ours);
    other->movePointer(200, 50);
    other->press();
    other->movePointer(210, 50);
    other->movePointer(50, 50); // a drag that leaves our window is still ours
    other->release();
    other->movePointer(200, 50);
    other->click(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return !tapped.empty(); }));
    EXPECT_THAT(monitored, IsEmpty());
    EXPECT_THAT(tapped, ElementsAre(otherDown(2)));

    other->movePointer(50, 50);
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return !monitored.empty(); }));
    EXPECT_THAT(monitored, ElementsAre(LeftUp));
}

TEST_F(X11InputEventsTest, KnowsOurWindowsInsideOfAFrame) {
    const xcb_window_t frame = other->makeWindow({.x = 160, .y = 0, .width = 100, .height = 100});
    const xcb_window_t ours = toolkit->makeWindow({.width = 100, .height = 80});
    xcb_reparent_window(toolkit->connection(), ours, frame, 0, 20);
    toolkit->map(ours);
    other->map(frame);
    other->movePointer(200, 10);
    EXPECT_FALSE(pointerIsOverOwnWindow(*connection, toolkit->connection()));
    other->movePointer(200, 50);
    EXPECT_TRUE(pointerIsOverOwnWindow(*connection, toolkit->connection()));
    EXPECT_FALSE(pointerIsOverOwnWindow(*connection, nullptr));
}

TEST_F(X11InputEventsTest, TellsARemovedMonitorNothing) {
    std::vector<InputEvent> removed;
    std::vector<InputEvent> kept;
    const EventMonitor first = monitor(LeftUpMask, removed);
    const EventMonitor second = monitor(LeftUpMask, kept);
    EXPECT_NE(first, second);
    events->removeMonitor(first);
    events->removeMonitor(first);
    events->removeMonitor(0);
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return !kept.empty(); }));
    EXPECT_THAT(removed, IsEmpty());
    events->removeMonitor(second);
    other->click();
    runLoop.runReadable();
    EXPECT_EQ(kept.size(), 1U);
}

TEST_F(X11InputEventsTest, LetsAHandlerRemoveItselfAndOthers) {
    std::vector<InputEvent> later;
    EventMonitor second = 0;
    EventMonitor first = 0;
    int calls = 0;
    first = events->addGlobalMonitor(LeftUpMask, [&](const InputEvent&) {
        ++calls;
        events->removeMonitor(first);
        events->removeMonitor(second);
    });
    second = monitor(LeftUpMask, later);
    std::vector<InputEvent> last;
    ASSERT_NE(monitor(LeftUpMask, last), 0U);
    other->click();
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return last.size() == 2; }));
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(later, IsEmpty());
}

// To ask the server for motions also reads what it has told by then.
TEST_F(X11InputEventsTest, TellsAReleaseThatCameWhileMoreWasAskedFor) {
    std::vector<InputEvent> ups;
    std::vector<InputEvent> presses;
    std::vector<InputEvent> drags;
    ASSERT_NE(monitor(LeftUpMask, ups), 0U);
    const auto buttons = tap(OtherDownMask, presses);
    const auto dragging = tap(DragMask, drags);
    dragging->setEnabled(false);
    other->press();
    other->click(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return !presses.empty(); }));
    runLoop.runReadable();
    other->release();
    // The server has told of it by then.
    connection->atom("TARRAGON_TEST_BARRIER");
    dragging->setEnabled(true);
    EXPECT_TRUE(runLoop.runUntil([&] { return !ups.empty(); }));
}

TEST_F(X11InputEventsTest, TellsNoDragAfterAReleaseThatNobodyListenedFor) {
    std::vector<InputEvent> drags;
    auto dragging = tap(DragMask, drags);
    other->press();
    ASSERT_TRUE(drag(*other, drags));
    dragging.reset();
    other->release();
    runLoop.runReadable();
    drags.clear();

    std::vector<InputEvent> presses;
    dragging = tap(DragMask, drags);
    const auto buttons = tap(OtherDownMask, presses);
    other->movePointer(30, 30);
    other->click(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return !presses.empty(); }));
    EXPECT_THAT(drags, IsEmpty());
}

TEST_F(X11InputEventsTest, TellsATapNothingWhileItIsDisabledAndAfterItsEnd) {
    std::vector<InputEvent> told;
    std::vector<InputEvent> witness;
    auto first = tap(OtherDownMask, told);
    const auto second = tap(OtherDownMask, witness);
    first->setEnabled(false);
    other->click(2);
    ASSERT_TRUE(runLoop.runUntil([&] { return witness.size() == 1; }));
    EXPECT_THAT(told, IsEmpty());
    first->setEnabled(true);
    other->click(8);
    ASSERT_TRUE(runLoop.runUntil([&] { return witness.size() == 2; }));
    EXPECT_THAT(told, ElementsAre(otherDown(3)));
    first.reset();
    other->click(9);
    ASSERT_TRUE(runLoop.runUntil([&] { return witness.size() == 3; }));
    EXPECT_EQ(told.size(), 1U);
}

// A second pointer with devices of its own, plugged in and pulled while somebody listens.
TEST_F(X11InputEventsTest, HearsOnAfterDevicesCameAndWent) {
    std::vector<InputEvent> told;
    ASSERT_NE(monitor(LeftUpMask, told), 0U);
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return told.size() == 1; }));
    other->addAndRemoveMasterDevice();
    other->click();
    ASSERT_TRUE(runLoop.runUntil([&] { return told.size() == 2; }));
}

TEST(X11InputEventsWithoutServer, CannotBeHad) {
    auto server = std::make_unique<XkbServer>();
    if (server->displayName().empty())
        GTEST_SKIP() << "Xvfb is not installed";
    const auto connection = X11Connection::connect(server->displayName());
    ASSERT_TRUE(connection);
    server.reset();
    PollingRunLoop runLoop;
    X11InputEvents events(*connection, runLoop, [] { return false; });
    EXPECT_EQ(events.addGlobalMonitor(LeftUpMask, [](const InputEvent&) {}), 0U);
    EXPECT_FALSE(events.createEventTap(OtherDownMask, [](const InputEvent&) { return true; }));
    events.removeMonitor(0);
}

} // namespace
} // namespace tarragon
