#include "MenuViewOnX11.h"

#include "platform/linux/input/X11InputEvents.h"
#include "platform/linux/x11/X11Connection.h"

#include <cstdlib>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

constexpr std::uint8_t FourthButton = 8;

// A pop-up that opens on the press of a button over another program, as that of the mouse-button trigger does.
class HeldButtonOnX11 : public MenuViewOnX11 {
protected:
    HeldButtonOnX11() {
        _tap = _events.createEventTap(inputEventMask(InputEventType::OtherMouseDown), [this](const InputEvent&) {
            _following.popUpMenu(_root, _displays.mouseLocationNS());
            return true;
        });
    }
    ~HeldButtonOnX11() override { _following.closeMenus(); }

    std::unique_ptr<X11Connection> _connection = X11Connection::connect();
    X11InputEvents _events{*_connection, _input.runLoop, [] { return false; }};
    MenuView _following{_displays, _notificationCenter, _input.menuInput, &_events};
    std::unique_ptr<EventTap> _tap;
};

// What a window manager does with presses on windows that are not active.
class HoldingManager {
public:
    explicit HoldingManager(std::uint8_t button)
        : _connection(xcb_connect(nullptr, nullptr)) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
        xcb_grab_button(_connection, 1, root, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_SYNC, XCB_GRAB_MODE_ASYNC,
            XCB_NONE, XCB_NONE, button, XCB_MOD_MASK_ANY);
        synchronize();
    }
    ~HoldingManager() { xcb_disconnect(_connection); }
    HoldingManager(const HoldingManager&) = delete;
    HoldingManager& operator=(const HoldingManager&) = delete;

    void letGoOn() {
        xcb_allow_events(_connection, XCB_ALLOW_REPLAY_POINTER, XCB_CURRENT_TIME);
        synchronize();
    }

private:
    void synchronize() { std::free(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr)); }
    xcb_connection_t* _connection;
};

TEST_F(HeldButtonOnX11, LeavesAPressToTheOtherProgramThatAWindowManagerHasHeldUp) {
    HoldingManager manager(FourthButton);
    _user.press(FourthButton);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    ASSERT_TRUE(waitUntil([this] { return _user.isMapped(static_cast<xcb_window_t>(openMenu()->winId())); }));
    EXPECT_EQ(_user.told().buttonPresses, 0);
    manager.letGoOn();
    EXPECT_EQ(_user.told().buttonPresses, 1);
    _user.release(FourthButton);
    // The menu has the pointer again.
    EXPECT_TRUE(waitUntil([this] {
        moveOver("Quit");
        return isHighlighted("Quit");
    }));
}

TEST_F(HeldButtonOnX11, ChoosesTheItemOnWhichTheButtonIsLetGo) {
    _user.press(FourthButton);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    ASSERT_TRUE(waitUntil([this] {
        moveOver("Quit");
        return isHighlighted("Quit");
    }));
    _user.release(FourthButton);
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
    EXPECT_EQ(_target->chosen, "Quit");
    EXPECT_EQ(_user.told().buttonPresses, 1);
    EXPECT_TRUE(waitUntil([this] { return _user.grabsAreFree(); }));
}

TEST_F(HeldButtonOnX11, StaysOpenForAClickWhenTheButtonIsLetGoInItsPlace) {
    _user.click(FourthButton);
    ASSERT_TRUE(waitUntil([] { return isOpen(); }));
    ASSERT_TRUE(waitUntil([this] {
        const bool taken = !_user.grabPointer();
        if (!taken)
            _user.releaseGrabs();
        return taken;
    }));
    EXPECT_TRUE(isOpen());
    moveOver("Quit");
    _user.click();
    ASSERT_TRUE(waitUntil([this] { return !_target->chosen.empty(); }));
}

} // namespace

} // namespace tarragon
