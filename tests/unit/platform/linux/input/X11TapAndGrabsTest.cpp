#include "platform/linux/input/X11InputEvents.h"

#include "fake/PollingRunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <xcb/xinput.h>

namespace tarragon {
namespace {

using testing::ElementsAre;

constexpr InputEventMask OtherDownMask = 0x2000000;
constexpr std::uint32_t ButtonEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
constexpr std::uint8_t FourthButton = 8; // of X
constexpr std::uint32_t FourthNumber = 3;
// The device that synthetic input comes from.
constexpr std::uint8_t SyntheticPointer = 4;
constexpr std::uint8_t SyntheticButtons = 10;

// A tap on presses, while other programs take devices, the pointer or the whole server for themselves. The pointer is
// over the window of another program.
class X11TapAndGrabsTest : public testing::Test {
protected:
    void SetUp() override {
        if (_server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        _connection = X11Connection::connect(_server.displayName());
        ASSERT_TRUE(_connection);
        user = std::make_unique<X11Client>(_server.displayName());
        other = std::make_unique<X11Client>(_server.displayName());
        _events = std::make_unique<X11InputEvents>(*_connection, runLoop, [] { return false; });
        window = other->makeWindow({.x = 0, .y = 0, .width = 150, .height = 200, .events = ButtonEvents});
        other->map(window);
        user->movePointer(50, 50);
        other->takeEvents();
        _tap = _events->createEventTap(OtherDownMask, [this](const InputEvent& event) {
            told.push_back(event.buttonNumber);
            return true;
        });
        ASSERT_TRUE(_tap);
    }

    const std::string& displayName() const { return _server.displayName(); }
    // Every press so far has been told once by now.
    bool hasBeenTold(std::size_t presses) {
        const bool inTime = runLoop.runUntil([&] { return told.size() >= presses; });
        runLoop.runReadable();
        return inTime && told.size() == presses;
    }

    // The pointer of the server that devices move, taken by the input extension's own kind of grab.
    std::uint8_t grabDevice(X11Client& client, bool frozen) {
        constexpr std::uint16_t MasterPointer = 2;
        const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE;
        const auto mode = frozen ? XCB_INPUT_GRAB_MODE_22_SYNC : XCB_INPUT_GRAB_MODE_22_ASYNC;
        xcb_input_xi_grab_device_reply_t* reply = xcb_input_xi_grab_device_reply(client.connection(),
            xcb_input_xi_grab_device(client.connection(), client.root(), XCB_CURRENT_TIME, XCB_CURSOR_NONE,
                MasterPointer, mode, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, 1, &events),
            nullptr);
        const std::uint8_t status = reply ? reply->status : std::uint8_t{XCB_GRAB_STATUS_FROZEN};
        std::free(reply);
        return status;
    }

    // The device of the input is pulled, or plugged in again.
    void plug(bool in) {
        const std::array<std::uint8_t, 4> value{
            in ? std::uint8_t{1} : std::uint8_t{0}}; // the library reads whole units
        xcb_input_xi_change_property(other->connection(), SyntheticPointer, XCB_PROP_MODE_REPLACE, 8,
            other->atom("Device Enabled"), XCB_ATOM_INTEGER, 1, value.data());
        other->takeEvents();
    }

    // map[n] is what button n + 1 counts as. Buttons beyond it stay as they are.
    void arrangeButtons(std::vector<std::uint8_t> map) {
        map.resize(SyntheticButtons);
        for (std::uint8_t button = 9; button <= SyntheticButtons; ++button)
            map[button - 1] = button;
        std::free(xcb_set_pointer_mapping_reply(other->connection(),
            xcb_set_pointer_mapping(other->connection(), static_cast<std::uint8_t>(map.size()), map.data()), nullptr));
    }
    void arrangeButtonsOfDevice(std::vector<std::uint8_t> map) {
        map.resize(SyntheticButtons);
        for (std::uint8_t button = 9; button <= SyntheticButtons; ++button)
            map[button - 1] = button;
        xcb_connection_t* connection = other->connection();
        std::free(xcb_input_set_device_button_mapping_reply(connection,
            xcb_input_set_device_button_mapping(
                connection, SyntheticPointer, static_cast<std::uint8_t>(map.size()), map.data()),
            nullptr));
    }

    // The buttons of the presses and releases that the other program has got since the last call.
    std::vector<int> buttonsOfOther() {
        std::vector<int> buttons;
        std::free(xcb_get_input_focus_reply(other->connection(), xcb_get_input_focus(other->connection()), nullptr));
        while (xcb_generic_event_t* event = xcb_poll_for_event(other->connection())) {
            const int kind = event->response_type & 0x7F;
            if (kind == XCB_BUTTON_PRESS || kind == XCB_BUTTON_RELEASE)
                buttons.push_back(reinterpret_cast<const xcb_button_press_event_t*>(event)->detail);
            std::free(event);
        }
        return buttons;
    }

private:
    XkbServer _server; // outlives its clients
    std::unique_ptr<X11Connection> _connection;

protected:
    std::unique_ptr<X11Client> user;
    std::unique_ptr<X11Client> other;
    PollingRunLoop runLoop;
    std::vector<std::uint32_t> told;
    xcb_window_t window = 0;

private:
    std::unique_ptr<X11InputEvents> _events;
    std::unique_ptr<EventTap> _tap;
};

TEST_F(X11TapAndGrabsTest, HearsAPressOnceThatTheOtherProgramGetsToo) {
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(1));
    EXPECT_THAT(told, ElementsAre(FourthNumber));
    EXPECT_THAT(other->takeEvents(), ElementsAre(XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE));
}

TEST_F(X11TapAndGrabsTest, HearsPressesWhileAnotherProgramHasThePointerByTheInputExtension) {
    ASSERT_EQ(grabDevice(*other, false), XCB_GRAB_STATUS_SUCCESS);
    user->click(2);
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(2));
}

TEST_F(X11TapAndGrabsTest, HearsPressesOnAfterAnotherProgramHasFrozenThePointer) {
    ASSERT_EQ(grabDevice(*other, true), XCB_GRAB_STATUS_SUCCESS);
    user->click(FourthButton);
    xcb_ungrab_pointer(other->connection(), XCB_CURRENT_TIME);
    xcb_input_xi_ungrab_device(other->connection(), XCB_CURRENT_TIME, 2);
    other->takeEvents();
    user->click(2);
    EXPECT_TRUE(hasBeenTold(2));
    EXPECT_THAT(told, ElementsAre(FourthNumber, 2U));
}

// So window managers notice presses in windows that are not active yet: they hold a press up, and let it go on.
TEST_F(X11TapAndGrabsTest, HearsAPressOnceThatAWindowManagerHoldsUpAndLetsGoOn) {
    X11Client manager(displayName());
    xcb_grab_button(manager.connection(), 1, window, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC,
        XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, FourthButton, XCB_MOD_MASK_ANY);
    manager.takeEvents();
    user->press(FourthButton);
    EXPECT_EQ(manager.countEvents(XCB_BUTTON_PRESS), 1);
    EXPECT_EQ(other->countEvents(XCB_BUTTON_PRESS), 0);
    xcb_allow_events(manager.connection(), XCB_ALLOW_REPLAY_POINTER, XCB_CURRENT_TIME);
    manager.takeEvents();
    user->release(FourthButton);
    EXPECT_TRUE(hasBeenTold(1));
    EXPECT_THAT(other->takeEvents(), ElementsAre(XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE));
}

TEST_F(X11TapAndGrabsTest, HearsPressesThatCameWhileAnotherProgramHadTheServerForItself) {
    xcb_grab_server(other->connection());
    other->takeEvents();
    // Nobody else is served now, not even the user.
    other->click(FourthButton);
    other->click(2);
    xcb_ungrab_server(other->connection());
    other->takeEvents();
    EXPECT_TRUE(hasBeenTold(2));
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(3));
    EXPECT_THAT(told, ElementsAre(FourthNumber, 2U, FourthNumber));
}

TEST_F(X11TapAndGrabsTest, HearsOnAfterTheDeviceWasPulledAndPluggedInAgain) {
    user->click(FourthButton);
    ASSERT_TRUE(hasBeenTold(1));
    EXPECT_EQ(other->countEvents(XCB_BUTTON_PRESS), 1);
    for (int round = 0; round < 5; ++round) {
        plug(false);
        plug(true);
    }
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(2));
    EXPECT_EQ(other->countEvents(XCB_BUTTON_PRESS), 1);
}

TEST_F(X11TapAndGrabsTest, HearsOnAfterTheDeviceWasPulledWhileAButtonWasHeld) {
    user->press(FourthButton);
    ASSERT_TRUE(hasBeenTold(1));
    plug(false);
    plug(true);
    user->release(FourthButton);
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(2));
}

TEST_F(X11TapAndGrabsTest, HearsOnAfterFurtherPointersCameAndWent) {
    for (int round = 0; round < 5; ++round)
        user->addAndRemoveMasterDevice();
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(1));
}

// A left-handed user swaps buttons; applications hear of the swapped ones.
TEST_F(X11TapAndGrabsTest, HearsTheButtonsAsTheUserHasArrangedThem) {
    arrangeButtons({1, FourthButton, 3, 4, 5, 6, 7, 2});
    user->click(FourthButton);
    ASSERT_TRUE(hasBeenTold(1));
    user->click(2);
    ASSERT_TRUE(hasBeenTold(2));
    EXPECT_THAT(told, ElementsAre(2U, FourthNumber));
    EXPECT_EQ(buttonsOfOther(), (std::vector<int>{2, 2, FourthButton, FourthButton}));

    arrangeButtons({1, 2, 3, 4, 5, 6, 7, FourthButton});
    user->click(FourthButton);
    EXPECT_TRUE(hasBeenTold(3));
    EXPECT_EQ(told.back(), FourthNumber);
}

TEST_F(X11TapAndGrabsTest, HearsTheButtonsAsTheUserHasArrangedThemOnOneDevice) {
    arrangeButtonsOfDevice({1, FourthButton, 3, 4, 5, 6, 7, 2});
    user->click(FourthButton);
    ASSERT_TRUE(hasBeenTold(1));
    EXPECT_THAT(told, ElementsAre(2U));
    EXPECT_EQ(buttonsOfOther(), (std::vector<int>{2, 2}));
    // Both arrangements count, one after the other.
    arrangeButtons({1, FourthButton, 3, 4, 5, 6, 7, 2});
    user->click(FourthButton);
    ASSERT_TRUE(hasBeenTold(2));
    EXPECT_EQ(told.back(), FourthNumber);
    EXPECT_EQ(buttonsOfOther(), (std::vector<int>{FourthButton, FourthButton}));
}

TEST_F(X11TapAndGrabsTest, HearsNothingOfAButtonThatTheUserHasSwitchedOff) {
    arrangeButtons({1, 2, 3, 4, 5, 6, 7, 0});
    user->click(FourthButton);
    user->click(2);
    EXPECT_TRUE(hasBeenTold(1));
    EXPECT_THAT(told, ElementsAre(2U));
    EXPECT_EQ(buttonsOfOther(), (std::vector<int>{2, 2}));
}

} // namespace
} // namespace tarragon
