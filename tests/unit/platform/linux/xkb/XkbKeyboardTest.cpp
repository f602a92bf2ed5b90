#include "platform/linux/xkb/XkbKeyboard.h"

#include "fake/FakeRunLoop.h"
#include "platform/HotKeys.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/KeyCodes.h"
#include "platform/linux/xkb/X11HotKeys.h"
#include "platform/linux/xkb/XcbXkb.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>
#include <string>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace tarragon {
namespace {

using hotkey::CommandKey;
using hotkey::ControlKey;
using hotkey::OptionKey;
using hotkey::ShiftKey;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;
using testing::UnorderedElementsAre;

constexpr std::uint32_t Y = 16;
constexpr std::uint32_t F4 = 118;
constexpr std::uint32_t Space = 49;

class XkbKeyboardTest : public testing::Test {
protected:
    static void SetUpTestSuite() { server = std::make_unique<XkbServer>(); }
    static void TearDownTestSuite() { server.reset(); }

    void SetUp() override {
        if (server->displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        otherProgram = X11Connection::connect(server->displayName());
        ASSERT_TRUE(otherProgram);
        ASSERT_TRUE(server->run("setxkbmap us"));
    }

    std::unique_ptr<XkbKeyboard> keyboard(
        XkbKeyboard::IsOwnCombination isOwn = {}, XkbKeyboard::ReadSettings read = {}) {
        return std::make_unique<XkbKeyboard>(
            X11Connection::connect(server->displayName()), runLoop, std::move(isOwn), std::move(read));
    }
    bool grab(std::uint32_t keyCode, std::uint16_t modifiers) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(otherProgram->get(),
            xcb_grab_key_checked(otherProgram->get(), 0, otherProgram->rootWindow(), modifiers, x11KeyCode(keyCode),
                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        return !error;
    }

    bool grabThroughInputExtension(std::uint32_t keyCode, xcb_input_device_id_t device, std::uint32_t modifiers) {
        xcb_connection_t* connection = otherProgram->get();
        std::free(xcb_input_xi_query_version_reply(connection, xcb_input_xi_query_version(connection, 2, 0), nullptr));
        const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
        const X11Reply<xcb_input_xi_passive_grab_device_reply_t> reply(xcb_input_xi_passive_grab_device_reply(
            connection,
            xcb_input_xi_passive_grab_device(connection, XCB_CURRENT_TIME, otherProgram->rootWindow(), XCB_CURSOR_NONE,
                x11KeyCode(keyCode), device, 1, 1, XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC,
                XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, &modifiers),
            nullptr));
        return reply && reply->num_modifiers == 0;
    }

    void lockLayout(std::uint8_t number) {
        xcb_connection_t* connection = otherProgram->get();
        std::free(xcb_xkb_use_extension_reply(connection, xcb_xkb_use_extension(connection, 1, 0), nullptr));
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection,
            xcb_xkb_latch_lock_state_checked(connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, number, 0, 0, 0)));
        EXPECT_FALSE(error);
    }

    static std::unique_ptr<XkbServer> server;
    FakeRunLoop runLoop;
    std::unique_ptr<X11Connection> otherProgram;
};

std::unique_ptr<XkbServer> XkbKeyboardTest::server;

TEST_F(XkbKeyboardTest, FollowsTheLayoutOfTheServer) {
    const auto keys = keyboard();
    EXPECT_THAT(keys->translateKeyCode(Y), Optional(std::string("y")));
    ASSERT_TRUE(server->run("setxkbmap de"));
    EXPECT_THAT(keys->translateKeyCode(Y), Optional(std::string("z")));
    ASSERT_TRUE(server->run("setxkbmap fr"));
    EXPECT_THAT(keys->translateKeyCode(0), Optional(std::string("q")));
    EXPECT_THAT(keys->translateKeyCode(19), Optional(std::string("é")));
    EXPECT_THAT(keys->translateKeyCode(83), Optional(std::string("1")));
}

TEST_F(XkbKeyboardTest, FollowsASwitchBetweenLayouts) {
    ASSERT_TRUE(server->run("setxkbmap -layout us,ru"));
    const auto keys = keyboard();
    EXPECT_THAT(keys->translateKeyCode(12), Optional(std::string("q")));
    lockLayout(1);
    EXPECT_THAT(keys->translateKeyCode(12), Optional(std::string("й")));
    lockLayout(0);
    EXPECT_THAT(keys->translateKeyCode(12), Optional(std::string("q")));
}

TEST_F(XkbKeyboardTest, TypesNothingForKeysThatAreNotThere) {
    const auto keys = keyboard();
    EXPECT_EQ(keys->translateKeyCode(52), std::nullopt);
    EXPECT_EQ(keys->translateKeyCode(128), std::nullopt);
    EXPECT_EQ(keys->translateKeyCode(65535), std::nullopt);
}

TEST_F(XkbKeyboardTest, KnowsTheCombinationsThatOthersHaveGrabbed) {
    EXPECT_THAT(keyboard()->copySymbolicHotKeys(), Optional(IsEmpty()));
    ASSERT_TRUE(grab(F4, XCB_MOD_MASK_1));
    ASSERT_TRUE(grab(Space, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
    ASSERT_TRUE(grab(Y, XCB_MOD_MASK_CONTROL));
    ASSERT_TRUE(grab(122, 0));
    EXPECT_THAT(keyboard()->copySymbolicHotKeys(),
        Optional(UnorderedElementsAre(SymbolicHotKey{true, F4, OptionKey},
            SymbolicHotKey{true, Space, ControlKey | ShiftKey}, SymbolicHotKey{true, Y, CommandKey},
            SymbolicHotKey{true, 122, 0})));
}

// Window managers of one family grab keys in this way, which is no obstacle to grabs of the other.
TEST_F(XkbKeyboardTest, KnowsTheCombinationsThatOthersHaveGrabbedThroughTheInputExtension) {
    constexpr xcb_input_device_id_t CoreKeyboard = 3;
    ASSERT_TRUE(grabThroughInputExtension(F4, CoreKeyboard, XCB_MOD_MASK_1));
    ASSERT_TRUE(grabThroughInputExtension(Space, XCB_INPUT_DEVICE_ALL_MASTER, XCB_MOD_MASK_4));
    ASSERT_TRUE(grab(Space, XCB_MOD_MASK_4));
    EXPECT_THAT(keyboard()->copySymbolicHotKeys(),
        Optional(UnorderedElementsAre(SymbolicHotKey{true, F4, OptionKey}, SymbolicHotKey{true, Space, ControlKey})));
    ASSERT_TRUE(grabThroughInputExtension(Y, CoreKeyboard, XCB_INPUT_MODIFIER_MASK_ANY));
    EXPECT_THAT(keyboard()->copySymbolicHotKeys(), Optional(testing::SizeIs(18)));
}

TEST_F(XkbKeyboardTest, LeavesTheCombinationsThatItTried) {
    EXPECT_THAT(keyboard()->copySymbolicHotKeys(), Optional(IsEmpty()));
    const auto keys = keyboard();
    EXPECT_THAT(keys->copySymbolicHotKeys(), Optional(IsEmpty()));
    EXPECT_TRUE(grab(Space, XCB_MOD_MASK_1));
    EXPECT_TRUE(grab(F4, XCB_MOD_MASK_ANY));
    EXPECT_TRUE(grab(F4, XCB_MOD_MASK_1));
    EXPECT_TRUE(grabThroughInputExtension(Y, XCB_INPUT_DEVICE_ALL_MASTER, XCB_INPUT_MODIFIER_MASK_ANY));
}

TEST_F(XkbKeyboardTest, DoesNotCountWhatThisProgramHasGrabbed) {
    ASSERT_TRUE(grab(F4, XCB_MOD_MASK_1));
    ASSERT_TRUE(grab(Space, XCB_MOD_MASK_1));
    const auto isOwn = [](std::uint32_t keyCode, std::uint32_t modifiers) {
        return keyCode == Space && modifiers == OptionKey;
    };
    EXPECT_THAT(
        keyboard(isOwn)->copySymbolicHotKeys(), Optional(UnorderedElementsAre(SymbolicHotKey{true, F4, OptionKey})));
}

TEST_F(XkbKeyboardTest, KnowsTheCombinationsOfTheDesktopsSettingsByTheLayout) {
    const auto settings = [] {
        return std::vector<DesktopShortcut>{
            {true, CommandKey, "y"}, {false, OptionKey, "F4"}, {true, 0, "no such key"}, {true, 0, "XF86HomePage"}};
    };
    const auto keys = keyboard({}, settings);
    EXPECT_THAT(keys->copySymbolicHotKeys(),
        Optional(UnorderedElementsAre(SymbolicHotKey{true, Y, CommandKey}, SymbolicHotKey{false, F4, OptionKey})));
    ASSERT_TRUE(server->run("setxkbmap de"));
    EXPECT_THAT(keys->copySymbolicHotKeys(),
        Optional(UnorderedElementsAre(SymbolicHotKey{true, 6, CommandKey}, SymbolicHotKey{false, F4, OptionKey})));
}

TEST_F(XkbKeyboardTest, NamesTheOwnerThatTheSettingsNameOfWhatIsGrabbed) {
    ASSERT_TRUE(grab(F4, XCB_MOD_MASK_1));
    ASSERT_TRUE(grab(Space, XCB_MOD_MASK_1));
    const auto settings = [] {
        return std::vector<DesktopShortcut>{{true, OptionKey, "F4", "Xfce: Close window"},
            {true, OptionKey, "F4", "Xfce: Another"}, {false, OptionKey, "space"}, {true, CommandKey, "y", "Xfce: y"}};
    };
    EXPECT_THAT(keyboard({}, settings)->copySymbolicHotKeys(),
        Optional(UnorderedElementsAre(SymbolicHotKey{true, F4, OptionKey, "Xfce: Close window"},
            SymbolicHotKey{true, Space, OptionKey, ""}, SymbolicHotKey{false, Space, OptionKey, ""},
            SymbolicHotKey{true, Y, CommandKey, "Xfce: y"})));
}

TEST_F(XkbKeyboardTest, TellsNothingOnceTheServerHasGone) {
    auto dying = std::make_unique<XkbServer>();
    XkbKeyboard keys(X11Connection::connect(dying->displayName()), runLoop, {}, {});
    EXPECT_TRUE(keys.translateKeyCode(Y));
    EXPECT_TRUE(keys.copySymbolicHotKeys());
    dying.reset();
    EXPECT_EQ(keys.translateKeyCode(Y), std::nullopt);
    EXPECT_EQ(keys.copySymbolicHotKeys(), std::nullopt);
}

TEST_F(XkbKeyboardTest, TellsNothingWithoutAServer) {
    XkbKeyboard keys(nullptr, runLoop, {}, {});
    EXPECT_EQ(keys.translateKeyCode(Y), std::nullopt);
    EXPECT_EQ(keys.copySymbolicHotKeys(), std::nullopt);
}

TEST_F(XkbKeyboardTest, TakesTheEventsThatNobodyElseTakes) {
    std::unique_ptr<X11Connection> connection = X11Connection::connect(server->displayName());
    xcb_connection_t* events = connection->get();
    XkbKeyboard keys(std::move(connection), runLoop, {}, {});
    EXPECT_THAT(keys.translateKeyCode(Y), Optional(std::string("y")));
    ASSERT_TRUE(server->run("setxkbmap de"));
    // The server has sent them before it answers, and the answer brings them here.
    std::free(xcb_get_input_focus_reply(events, xcb_get_input_focus(events), nullptr));
    runLoop.signalDescriptor(xcb_get_file_descriptor(events));
    const X11Reply<xcb_generic_event_t> left(xcb_poll_for_queued_event(events));
    EXPECT_FALSE(left);
    EXPECT_THAT(keys.translateKeyCode(Y), Optional(std::string("z")));
}

TEST_F(XkbKeyboardTest, DoesNotCountTheHotKeyOfThisProgramWhileItHasIt) {
    X11HotKeys hotKeys(otherProgram->get(), otherProgram->rootWindow(), runLoop);
    const auto keys = keyboard([&hotKeys](std::uint32_t keyCode, std::uint32_t modifiers) {
        return hotKeys.isOwnCombination(keyCode, modifiers);
    });
    HotKeyReference reference = 0;
    ASSERT_TRUE(hotKeys.registerHotKey(Space, OptionKey, {}, reference));
    ASSERT_TRUE(grab(F4, XCB_MOD_MASK_1));
    EXPECT_THAT(keys->copySymbolicHotKeys(), Optional(UnorderedElementsAre(SymbolicHotKey{true, F4, OptionKey})));
    ASSERT_TRUE(hotKeys.unregisterHotKey(reference));
    ASSERT_TRUE(grab(Space, XCB_MOD_MASK_1));
    EXPECT_THAT(keys->copySymbolicHotKeys(), Optional(Contains(SymbolicHotKey{true, Space, OptionKey})));
}

} // namespace
} // namespace tarragon
