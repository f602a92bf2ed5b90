#include "recorder/SRModifierFlags.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

TEST(SRModifierFlags, HaveTheirValues) {
    EXPECT_EQ(DefaultAllowedFlags, 0x9E0000U);
    EXPECT_EQ(DefaultRequiredFlags, 0U);
}

TEST(SRModifierFlags, ShowGlyphsInTheOrderControlOptionShiftCommand) {
    EXPECT_EQ(stringForCocoaModifierFlags(0), "");
    EXPECT_EQ(stringForCocoaModifierFlags(0x40000), "\u2303");
    EXPECT_EQ(stringForCocoaModifierFlags(0x80000), "\u2325");
    EXPECT_EQ(stringForCocoaModifierFlags(0x20000), "\u21E7");
    EXPECT_EQ(stringForCocoaModifierFlags(0x100000), "\u2318");
    EXPECT_EQ(stringForCocoaModifierFlags(0x9E0000), "\u2303\u2325\u21E7\u2318");
    EXPECT_EQ(stringForCocoaModifierFlags(0x800000), "");
}

TEST(SRModifierFlags, ShowTheSameGlyphsInBothConventions) {
    EXPECT_EQ(stringForCarbonModifierFlags(0x1000), "\u2303");
    EXPECT_EQ(stringForCarbonModifierFlags(0x800), "\u2325");
    EXPECT_EQ(stringForCarbonModifierFlags(0x200), "\u21E7");
    EXPECT_EQ(stringForCarbonModifierFlags(0x100), "\u2318");
    EXPECT_EQ(stringForCarbonModifierFlags(0x1B00), "\u2303\u2325\u21E7\u2318");
    // The bits of the other convention mean nothing.
    EXPECT_EQ(stringForCarbonModifierFlags(0x9E0000), "");
    EXPECT_EQ(stringForCocoaModifierFlags(0x1B00), "");
}

TEST(SRModifierFlags, ReadInWordsInTheOrderCommandOptionControlShift) {
    EXPECT_EQ(readableStringForCarbonModifierFlags(0, "K"), "K");
    EXPECT_EQ(readableStringForCarbonModifierFlags(hotkey::CommandKey, "K"), "Command + K");
    EXPECT_EQ(readableStringForCarbonModifierFlags(hotkey::OptionKey, "K"), "Option + K");
    EXPECT_EQ(readableStringForCarbonModifierFlags(hotkey::ControlKey, "K"), "Control + K");
    EXPECT_EQ(readableStringForCarbonModifierFlags(hotkey::ShiftKey, "K"), "Shift + K");
    EXPECT_EQ(readableStringForCarbonModifierFlags(0x1B00, "Space"), "Command + Option + Control + Shift + Space");
}

} // namespace
} // namespace tarragon
