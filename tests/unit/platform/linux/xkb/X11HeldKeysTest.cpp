#include "platform/linux/xkb/X11HeldKeys.h"

#include "platform/ModifierFlags.h"
#include "platform/linux/xkb/KeyCodes.h"

#include <gtest/gtest.h>

#include <vector>

#include <xcb/xproto.h>

namespace tarragon {
namespace {

constexpr std::uint8_t LeftShift = 50;
constexpr std::uint8_t RightShift = 62;
constexpr std::uint8_t LeftControl = 37;
constexpr std::uint8_t LeftAlt = 64;
constexpr std::uint8_t LeftSuper = 133;
constexpr std::uint8_t CapsLock = 66;
constexpr std::uint8_t Level3Shift = 108;
constexpr std::uint8_t Space = 65;
constexpr std::uint8_t Mute = 121; // has a virtual key code of its own
constexpr std::uint8_t Calculator = 148;

// Two keys for each modifier, in the order of the protocol.
X11KeyboardMapping usualMapping() {
    X11KeyboardMapping mapping;
    mapping.keyCodesPerModifier = 2;
    mapping.modifierKeyCodes = {
        LeftShift, RightShift, CapsLock, 0, LeftControl, 0, LeftAlt, 0, 0, 0, 0, 0, LeftSuper, 0, Level3Shift, 0};
    return mapping;
}

class X11HeldKeysTest : public testing::Test {
protected:
    X11HeldKeys keys{usualMapping(), {}};
};

TEST_F(X11HeldKeysTest, NameAKeyByItsPlaceWithTheModifiersThatAreHeld) {
    constexpr std::uint16_t All = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
    constexpr std::uint32_t AllFlags = modifier::Shift | modifier::Command | modifier::Option | modifier::Control;
    EXPECT_EQ(keys.press(Space, All), (RecordedKey{49, AllFlags, true, false}));
    EXPECT_EQ(keys.release(Space, All), (RecordedKey{49, AllFlags, false, false}));
    EXPECT_EQ(keys.press(Space, 0), (RecordedKey{49, 0, true, false}));
}

TEST_F(X11HeldKeysTest, GiveEachModifierTheFlagThatHotKeysGiveIt) {
    EXPECT_EQ(keys.press(LeftShift, 0), (RecordedKey{{}, modifier::Shift, true, true}));
    EXPECT_EQ(keys.press(LeftControl, 0), (RecordedKey{{}, modifier::Command, true, true}));
    EXPECT_EQ(keys.press(LeftAlt, 0), (RecordedKey{{}, modifier::Option, true, true}));
    EXPECT_EQ(keys.press(LeftSuper, 0), (RecordedKey{{}, modifier::Control, true, true}));
}

TEST_F(X11HeldKeysTest, TakeAModifierAwayWithItsRelease) {
    EXPECT_EQ(keys.press(LeftShift, XCB_MOD_MASK_1)->flags, modifier::Shift | modifier::Option);
    EXPECT_EQ(
        keys.release(LeftShift, XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT), (RecordedKey{{}, modifier::Option, false, true}));
}

TEST_F(X11HeldKeysTest, KeepAModifierWhoseOtherKeyIsStillHeld) {
    ASSERT_TRUE(keys.press(LeftShift, 0));
    ASSERT_TRUE(keys.press(RightShift, XCB_MOD_MASK_SHIFT));
    EXPECT_EQ(keys.release(LeftShift, XCB_MOD_MASK_SHIFT).flags, modifier::Shift);
    EXPECT_EQ(keys.release(RightShift, XCB_MOD_MASK_SHIFT).flags, 0U);
}

TEST_F(X11HeldKeysTest, LeaveRepetitionsOut) {
    EXPECT_TRUE(keys.press(Space, 0));
    EXPECT_FALSE(keys.press(Space, 0));
    EXPECT_FALSE(keys.press(Space, 0));
    static_cast<void>(keys.release(Space, 0));
    EXPECT_TRUE(keys.press(Space, 0));
}

TEST_F(X11HeldKeysTest, LeaveOutTheRepetitionsOfAKeyThatWasHeldBefore) {
    X11HeldKeys::Keys held;
    held.set(Space);
    X11HeldKeys others(usualMapping(), held);
    EXPECT_FALSE(others.press(Space, 0));
    EXPECT_EQ(others.release(Space, 0), (RecordedKey{49, 0, false, false}));
    EXPECT_TRUE(others.press(Space, 0));
}

TEST_F(X11HeldKeysTest, CountNeitherLocksNorLayoutsNorButtonsAsModifiers) {
    constexpr std::uint16_t Locks = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2;
    constexpr std::uint16_t SecondLayout = 0x2000;
    EXPECT_EQ(keys.press(Space, Locks | SecondLayout | XCB_BUTTON_MASK_1)->flags, 0U);
    EXPECT_EQ(keys.press(CapsLock, 0), (RecordedKey{{}, 0, true, true}));
    EXPECT_EQ(keys.press(Level3Shift, 0), (RecordedKey{{}, 0, true, true}));
}

TEST_F(X11HeldKeysTest, HaveNoCodeForAKeyThatTheSystemDoesNotKnow) {
    EXPECT_EQ(keys.press(Calculator, XCB_MOD_MASK_SHIFT), (RecordedKey{{}, modifier::Shift, true, false}));
    EXPECT_EQ(keys.press(Mute, 0)->keyCode, virtualKeyCode(Mute));
}

TEST_F(X11HeldKeysTest, DoWithoutAMapping) {
    X11HeldKeys others(X11KeyboardMapping(), {});
    EXPECT_EQ(others.press(Space, XCB_MOD_MASK_1), (RecordedKey{49, modifier::Option, true, false}));
}

} // namespace
} // namespace tarragon
