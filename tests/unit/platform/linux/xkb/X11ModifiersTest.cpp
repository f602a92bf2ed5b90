#include "platform/linux/xkb/X11Modifiers.h"

#include "platform/HotKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {

namespace {

using testing::UnorderedElementsAre;

constexpr std::uint32_t AltLeft = 0xFFE9;
constexpr std::uint32_t AltRight = 0xFFEA;
constexpr std::uint32_t MetaLeft = 0xFFE7;
constexpr std::uint32_t SuperLeft = 0xFFEB;
constexpr std::uint32_t NumLock = 0xFF7F;
constexpr std::uint32_t ScrollLock = 0xFF14;

// Key codes from 10 on, two symbols each; one key code for each modifier.
X11KeyboardMapping mapping(std::vector<std::uint8_t> modifierKeyCodes, std::vector<std::uint32_t> symbols) {
    return {.modifierKeyCodes = std::move(modifierKeyCodes),
        .keyCodesPerModifier = 1,
        .firstKeyCode = 10,
        .symbolsPerKeyCode = 2,
        .symbols = std::move(symbols)};
}

} // namespace

TEST(X11Modifiers, AreFoundInTheUsualMapping) {
    const auto modifiers =
        modifiersOfMapping(mapping({0, 0, 0, 10, 11, 0, 12, 0}, {AltLeft, MetaLeft, NumLock, 0, SuperLeft, 0}));
    EXPECT_EQ(modifiers.alt, 0x08);
    EXPECT_EQ(modifiers.super, 0x40);
    EXPECT_THAT(modifiers.lockCombinations, UnorderedElementsAre(0, 0x02, 0x10, 0x12));
}

TEST(X11Modifiers, AreFoundWhereverTheMappingHasThem) {
    const auto modifiers = modifiersOfMapping(
        mapping({0, 0, 0, 12, 13, 11, 0, 10}, {0, AltRight, NumLock, 0, 0, SuperLeft, 0, ScrollLock}));
    EXPECT_EQ(modifiers.alt, 0x80);
    EXPECT_EQ(modifiers.super, 0x08);
    EXPECT_THAT(modifiers.lockCombinations, UnorderedElementsAre(0, 0x02, 0x20, 0x22, 0x10, 0x12, 0x30, 0x32));
}

TEST(X11Modifiers, AreTheUsualOnesWhenTheMappingTellsNothing) {
    for (const X11KeyboardMapping& strange : {X11KeyboardMapping(), mapping({}, {}), mapping({1, 2, 3}, {AltLeft}),
             mapping({0, 0, 0, 9, 200, 0, 0, 0}, {AltLeft, SuperLeft})}) {
        const auto modifiers = modifiersOfMapping(strange);
        EXPECT_EQ(modifiers.alt, 0x08);
        EXPECT_EQ(modifiers.super, 0x40);
        EXPECT_THAT(modifiers.lockCombinations, UnorderedElementsAre(0, 0x02));
    }
}

TEST(X11Modifiers, NeverTakeALockForTheBitOfAnotherModifier) {
    // Alt and Num Lock share Mod4.
    const auto shared = mapping({0, 0, 0, 0, 0, 0, 10, 11}, {AltLeft, NumLock, SuperLeft, 0});
    const auto modifiers = modifiersOfMapping(shared);
    EXPECT_EQ(modifiers.alt, 0x40);
    EXPECT_THAT(modifiers.lockCombinations, UnorderedElementsAre(0, 0x02));
}

TEST(X11Modifiers, TranslateThoseOfAHotKey) {
    const X11Modifiers modifiers = {.alt = 0x08, .super = 0x40, .lockCombinations = {0, 2}};
    EXPECT_EQ(modifiers.bitsOfHotKey(0), 0);
    EXPECT_EQ(modifiers.bitsOfHotKey(hotkey::CommandKey), 0x04);
    EXPECT_EQ(modifiers.bitsOfHotKey(hotkey::OptionKey), 0x08);
    EXPECT_EQ(modifiers.bitsOfHotKey(hotkey::ControlKey), 0x40);
    EXPECT_EQ(modifiers.bitsOfHotKey(hotkey::ShiftKey), 0x01);
    EXPECT_EQ(modifiers.bitsOfHotKey(0x1B00), 0x4D);
}

TEST(X11Modifiers, LeaveLocksButtonsAndLayoutOutOfAState) {
    const X11Modifiers modifiers = {.alt = 0x08, .super = 0x40, .lockCombinations = {0, 0x02, 0x10, 0x12}};
    EXPECT_EQ(modifiers.withoutLocks(0x08 | 0x12 | 0x100 | 0x2000), 0x08);
    EXPECT_EQ(modifiers.withoutLocks(0x88), 0x88);
}

TEST(X11Modifiers, NameAHotKey) {
    EXPECT_EQ(nameOfHotKey(49, hotkey::OptionKey), "Alt+Space");
    EXPECT_EQ(nameOfHotKey(40, 0x1B00), "Ctrl+Alt+Super+Shift+K");
    EXPECT_EQ(nameOfHotKey(122, 0), "F1");
    EXPECT_EQ(nameOfHotKey(200, hotkey::CommandKey), "Ctrl+key 200");
}

} // namespace tarragon
