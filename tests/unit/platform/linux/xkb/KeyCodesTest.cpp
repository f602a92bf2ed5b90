#include "platform/linux/xkb/KeyCodes.h"

#include <set>
#include <string>
#include <tuple>
#include <utility>

#include <gtest/gtest.h>

namespace tarragon {

class KeyCodePosition : public testing::TestWithParam<std::pair<std::uint32_t, int>> { };

TEST_P(KeyCodePosition, HasTheKeyCodeOfX) {
    const auto [code, x11] = GetParam();
    EXPECT_EQ(x11KeyCode(code), x11) << keyName(code);
}

// The letters, in the order of the rows on the keyboard.
INSTANTIATE_TEST_SUITE_P(FirstRow, KeyCodePosition,
    testing::Values(std::pair(12, 24), std::pair(13, 25), std::pair(14, 26), std::pair(15, 27), std::pair(17, 28),
        std::pair(16, 29), std::pair(32, 30), std::pair(34, 31), std::pair(31, 32), std::pair(35, 33),
        std::pair(33, 34), std::pair(30, 35), std::pair(42, 51)));
INSTANTIATE_TEST_SUITE_P(SecondRow, KeyCodePosition,
    testing::Values(std::pair(0, 38), std::pair(1, 39), std::pair(2, 40), std::pair(3, 41), std::pair(5, 42),
        std::pair(4, 43), std::pair(38, 44), std::pair(40, 45), std::pair(37, 46), std::pair(41, 47),
        std::pair(39, 48)));
INSTANTIATE_TEST_SUITE_P(ThirdRow, KeyCodePosition,
    testing::Values(std::pair(6, 52), std::pair(7, 53), std::pair(8, 54), std::pair(9, 55), std::pair(11, 56),
        std::pair(45, 57), std::pair(46, 58), std::pair(43, 59), std::pair(47, 60), std::pair(44, 61)));
INSTANTIATE_TEST_SUITE_P(Digits, KeyCodePosition,
    testing::Values(std::pair(50, 49), std::pair(18, 10), std::pair(19, 11), std::pair(20, 12), std::pair(21, 13),
        std::pair(23, 14), std::pair(22, 15), std::pair(26, 16), std::pair(28, 17), std::pair(25, 18),
        std::pair(29, 19), std::pair(27, 20), std::pair(24, 21)));
INSTANTIATE_TEST_SUITE_P(Editing, KeyCodePosition,
    testing::Values(std::pair(49, 65), std::pair(36, 36), std::pair(48, 23), std::pair(51, 22), std::pair(53, 9),
        std::pair(114, 118), std::pair(117, 119), std::pair(115, 110), std::pair(119, 115), std::pair(116, 112),
        std::pair(121, 117), std::pair(123, 113), std::pair(124, 114), std::pair(125, 116), std::pair(126, 111)));
INSTANTIATE_TEST_SUITE_P(FunctionKeys, KeyCodePosition,
    testing::Values(std::pair(122, 67), std::pair(120, 68), std::pair(99, 69), std::pair(118, 70), std::pair(96, 71),
        std::pair(97, 72), std::pair(98, 73), std::pair(100, 74), std::pair(101, 75), std::pair(109, 76),
        std::pair(103, 95), std::pair(111, 96), std::pair(105, 191), std::pair(107, 192), std::pair(113, 193),
        std::pair(106, 194), std::pair(64, 195), std::pair(79, 196), std::pair(80, 197), std::pair(90, 198)));
INSTANTIATE_TEST_SUITE_P(Keypad, KeyCodePosition,
    testing::Values(std::pair(82, 90), std::pair(83, 87), std::pair(84, 88), std::pair(85, 89), std::pair(86, 83),
        std::pair(87, 84), std::pair(88, 85), std::pair(89, 79), std::pair(91, 80), std::pair(92, 81),
        std::pair(65, 91), std::pair(67, 63), std::pair(69, 86), std::pair(71, 77), std::pair(75, 106),
        std::pair(76, 104), std::pair(78, 82), std::pair(81, 125)));
INSTANTIATE_TEST_SUITE_P(OtherKeyboards, KeyCodePosition,
    testing::Values(std::pair(10, 94), std::pair(93, 132), std::pair(94, 97), std::pair(95, 129), std::pair(102, 102),
        std::pair(104, 100), std::pair(110, 135)));
INSTANTIATE_TEST_SUITE_P(ModifiersByRole, KeyCodePosition,
    testing::Values(std::pair(55, 37), std::pair(54, 105), std::pair(58, 64), std::pair(61, 108), std::pair(59, 133),
        std::pair(62, 134), std::pair(56, 50), std::pair(60, 62), std::pair(57, 66)));

TEST(KeyCodes, StandForOneKeyEach) {
    std::set<std::uint8_t> seen;
    for (std::uint32_t code = 0; code < 128; ++code) {
        const std::uint8_t x11 = x11KeyCode(code);
        if (x11 == 0) {
            EXPECT_EQ(keyName(code), "") << code;
            continue;
        }
        EXPECT_TRUE(seen.insert(x11).second) << code;
        EXPECT_EQ(virtualKeyCode(x11), code);
    }
    EXPECT_EQ(seen.size(), 120U);
}

TEST(KeyCodes, AreNamedForMessages) {
    for (const auto& [code, name] : std::initializer_list<std::pair<std::uint32_t, const char*>>{{0, "A"}, {18, "1"},
             {33, "["}, {50, "`"}, {49, "Space"}, {36, "Return"}, {48, "Tab"}, {51, "BackSpace"}, {53, "Escape"},
             {122, "F1"}, {111, "F12"}, {123, "Left"}, {117, "Delete"}, {83, "KP_1"}, {76, "KP_Enter"}, {82, "KP_0"},
             {58, "Alt_L"}, {57, "Caps_Lock"}})
        EXPECT_EQ(keyName(code), name) << code;
    int named = 0;
    for (std::uint32_t code = 0; code < 128; ++code)
        named += keyName(code).empty() ? 0 : 1;
    EXPECT_GE(named, 110);
}

TEST(KeyCodes, KnowNoKeysBeyondTheTable) {
    EXPECT_EQ(x11KeyCode(128), 0);
    EXPECT_EQ(x11KeyCode(0xFFFFFFFF), 0);
    EXPECT_EQ(keyName(128), "");
    EXPECT_EQ(virtualKeyCode(0), std::nullopt);
    EXPECT_EQ(virtualKeyCode(255), std::nullopt);
    EXPECT_EQ(x11KeyCode(63), 0);
}

} // namespace tarragon
