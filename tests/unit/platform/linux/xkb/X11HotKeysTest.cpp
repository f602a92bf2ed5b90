#include "platform/linux/xkb/X11HotKeys.h"

#include "fake/FakeRunLoop.h"
#include "fake/RecordingLog.h"
#include "platform/HotKeys.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/KeyCodes.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {
namespace {

using hotkey::CommandKey;
using hotkey::OptionKey;

constexpr std::uint32_t F4 = 118;

class X11HotKeysTest : public testing::Test {
protected:
    static void SetUpTestSuite() { server = std::make_unique<XkbServer>(); }
    static void TearDownTestSuite() { server.reset(); }

    void SetUp() override {
        if (server->displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        connection = X11Connection::connect(server->displayName());
        otherProgram = X11Connection::connect(server->displayName());
        ASSERT_TRUE(connection && otherProgram);
        hotKeys = std::make_unique<X11HotKeys>(connection->get(), connection->rootWindow(), runLoop);
    }

    bool grabByOtherProgram(std::uint32_t keyCode, std::uint16_t modifiers) {
        // The server need not serve two programs in the order in which they asked, so the first one's turn comes first.
        std::free(xcb_get_input_focus_reply(connection->get(), xcb_get_input_focus(connection->get()), nullptr));
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(otherProgram->get(),
            xcb_grab_key_checked(otherProgram->get(), 0, otherProgram->rootWindow(), modifiers, x11KeyCode(keyCode),
                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        return !error;
    }

    // Gives the keys of Mod1, Alt, to Mod4, and those of Mod4, Super, to Mod1.
    void swapAltAndSuper() {
        xcb_connection_t* other = otherProgram->get();
        const X11Reply<xcb_get_modifier_mapping_reply_t> mapping(
            xcb_get_modifier_mapping_reply(other, xcb_get_modifier_mapping(other), nullptr));
        ASSERT_TRUE(mapping);
        const xcb_keycode_t* first = xcb_get_modifier_mapping_keycodes(mapping.get());
        std::vector<xcb_keycode_t> keyCodes(first, first + xcb_get_modifier_mapping_keycodes_length(mapping.get()));
        const int count = mapping->keycodes_per_modifier;
        constexpr int Mod1 = 3;
        constexpr int Mod4 = 6;
        std::swap_ranges(
            keyCodes.begin() + Mod1 * count, keyCodes.begin() + (Mod1 + 1) * count, keyCodes.begin() + Mod4 * count);
        const X11Reply<xcb_set_modifier_mapping_reply_t> answer(xcb_set_modifier_mapping_reply(
            other, xcb_set_modifier_mapping(other, mapping->keycodes_per_modifier, keyCodes.data()), nullptr));
        ASSERT_TRUE(answer);
        ASSERT_EQ(answer->status, XCB_MAPPING_STATUS_SUCCESS);
        xcb_generic_event_t event{};
        event.response_type = XCB_MAPPING_NOTIFY;
        hotKeys->handleEvent(&event);
    }

    static std::unique_ptr<XkbServer> server;
    FakeRunLoop runLoop;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Connection> otherProgram;
    std::unique_ptr<X11HotKeys> hotKeys;
    RecordingLog log;
};

std::unique_ptr<XkbServer> X11HotKeysTest::server;

TEST_F(X11HotKeysTest, KnowTheCombinationsThatAreTheirs) {
    HotKeyReference reference = 0;
    EXPECT_FALSE(hotKeys->isOwnCombination(F4, OptionKey));
    ASSERT_TRUE(hotKeys->registerHotKey(F4, OptionKey, {}, reference));
    EXPECT_TRUE(hotKeys->isOwnCombination(F4, OptionKey));
    EXPECT_FALSE(hotKeys->isOwnCombination(F4, OptionKey | CommandKey));
    EXPECT_FALSE(hotKeys->isOwnCombination(122, OptionKey));
    ASSERT_TRUE(hotKeys->unregisterHotKey(reference));
    EXPECT_FALSE(hotKeys->isOwnCombination(F4, OptionKey));
}

TEST_F(X11HotKeysTest, KeepACombinationUntilItsLastRegistrationIsGone) {
    HotKeyReference first = 0;
    HotKeyReference second = 0;
    ASSERT_TRUE(hotKeys->registerHotKey(F4, OptionKey, {}, first));
    ASSERT_TRUE(hotKeys->registerHotKey(F4, OptionKey, {}, second));
    ASSERT_TRUE(hotKeys->unregisterHotKey(first));
    EXPECT_TRUE(hotKeys->isOwnCombination(F4, OptionKey));
    EXPECT_FALSE(grabByOtherProgram(F4, XCB_MOD_MASK_1));
    ASSERT_TRUE(hotKeys->unregisterHotKey(second));
    EXPECT_FALSE(hotKeys->isOwnCombination(F4, OptionKey));
}

TEST_F(X11HotKeysTest, DoNotTakeACombinationForTheirsThatTheyWereRefused) {
    // With Caps Lock on; the plain combination would be granted.
    ASSERT_TRUE(grabByOtherProgram(F4, XCB_MOD_MASK_1 | XCB_MOD_MASK_LOCK));
    HotKeyReference reference = 0;
    EXPECT_FALSE(hotKeys->registerHotKey(F4, OptionKey, {}, reference));
    EXPECT_FALSE(hotKeys->isOwnCombination(F4, OptionKey));
    // Nothing is kept of what was granted.
    EXPECT_TRUE(grabByOtherProgram(F4, XCB_MOD_MASK_1));
}

TEST_F(X11HotKeysTest, TellTheUserOnceOfEachCombinationThatAnotherProgramHasTaken) {
    ASSERT_TRUE(grabByOtherProgram(F4, XCB_MOD_MASK_1));
    HotKeyReference reference = 0;
    for (int time = 0; time < 2; ++time)
        EXPECT_FALSE(hotKeys->registerHotKey(F4, OptionKey, {}, reference));
    EXPECT_THAT(log.takeLines(),
        testing::ElementsAre("triggers error: the hot key Alt+F4 does not work: another program, most likely the "
                             "window manager, has taken it"));
    ASSERT_TRUE(hotKeys->registerHotKey(F4, CommandKey, {}, reference));
    EXPECT_THAT(log.takeLines(), testing::IsEmpty());
}

TEST_F(X11HotKeysTest, TellTheUserOfAKeyThatTheKeyboardDoesNotHave) {
    constexpr std::uint32_t NoSuchKey = 200;
    HotKeyReference reference = 0;
    EXPECT_FALSE(hotKeys->registerHotKey(NoSuchKey, CommandKey, {}, reference));
    EXPECT_THAT(log.takeLines(),
        testing::ElementsAre("triggers error: the hot key Ctrl+key 200 does not work: this keyboard has no such key"));
}

TEST_F(X11HotKeysTest, LoseACombinationToAnotherProgramWithANewMapping) {
    ASSERT_TRUE(grabByOtherProgram(F4, XCB_MOD_MASK_4 | XCB_MOD_MASK_LOCK));
    HotKeyReference reference = 0;
    ASSERT_TRUE(hotKeys->registerHotKey(F4, OptionKey, {}, reference));
    swapAltAndSuper();
    EXPECT_FALSE(hotKeys->isOwnCombination(F4, OptionKey));
    EXPECT_TRUE(hotKeys->isRefused());
    EXPECT_EQ(log.takeLines().size(), 1U);
    EXPECT_TRUE(grabByOtherProgram(F4, XCB_MOD_MASK_4));
    swapAltAndSuper();
    EXPECT_TRUE(hotKeys->isOwnCombination(F4, OptionKey));
}

} // namespace
} // namespace tarragon
