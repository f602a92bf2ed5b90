#include "recorder/SRModifierFlags.h"

#include "platform/HotKeys.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tarragon {
namespace {

const std::vector<std::pair<std::uint32_t, std::uint32_t>> CocoaAndCarbon{
    {0x100000, 0x100}, {0x80000, 0x800}, {0x40000, 0x1000}, {0x20000, 0x200}, {0x800000, 0x800000}};

TEST(SRModifierFlags, ConvertEachModifierBothWays) {
    for (const auto& [cocoa, carbon] : CocoaAndCarbon) {
        EXPECT_EQ(cocoaToCarbonFlags(cocoa), carbon);
        EXPECT_EQ(carbonToCocoaFlags(carbon), cocoa);
    }
}

TEST(SRModifierFlags, ConvertEveryCombinationThereAndBack) {
    for (unsigned subset = 0; subset < 32; ++subset) {
        std::uint32_t cocoa = 0;
        std::uint32_t carbon = 0;
        for (unsigned index = 0; index < CocoaAndCarbon.size(); ++index) {
            if (subset & (1U << index)) {
                cocoa |= CocoaAndCarbon[index].first;
                carbon |= CocoaAndCarbon[index].second;
            }
        }
        EXPECT_EQ(cocoaToCarbonFlags(cocoa), carbon);
        EXPECT_EQ(carbonToCocoaFlags(carbon), cocoa);
    }
}

TEST(SRModifierFlags, DropEveryOtherBit) {
    for (unsigned bit = 0; bit < 32; ++bit) {
        const std::uint32_t flag = std::uint32_t{1} << bit;
        bool isCocoa = false;
        bool isCarbon = false;
        for (const auto& [cocoa, carbon] : CocoaAndCarbon) {
            isCocoa |= flag == cocoa;
            isCarbon |= flag == carbon;
        }
        if (!isCocoa) {
            EXPECT_EQ(cocoaToCarbonFlags(flag), 0U) << bit;
        }
        if (!isCarbon) {
            EXPECT_EQ(carbonToCocoaFlags(flag), 0U) << bit;
        }
    }
}

TEST(SRModifierFlags, HaveTheirValues) {
    EXPECT_EQ(cocoa::ShiftKeyMask | cocoa::ControlKeyMask | cocoa::AlternateKeyMask | cocoa::CommandKeyMask
            | cocoa::FunctionKeyMask,
        DefaultAllowedFlags);
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
