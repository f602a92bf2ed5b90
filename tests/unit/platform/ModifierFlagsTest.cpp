#include "platform/ModifierFlags.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tarragon {
namespace {

const std::vector<std::pair<std::uint32_t, std::uint32_t>> CocoaAndCarbon{
    {0x100000, 0x100}, {0x80000, 0x800}, {0x40000, 0x1000}, {0x20000, 0x200}, {0x800000, 0x800000}};

TEST(ModifierFlags, ConvertEachModifierBothWays) {
    for (const auto& [cocoa, carbon] : CocoaAndCarbon) {
        EXPECT_EQ(cocoaToCarbonFlags(cocoa), carbon);
        EXPECT_EQ(carbonToCocoaFlags(carbon), cocoa);
    }
}

TEST(ModifierFlags, ConvertEveryCombinationThereAndBack) {
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

TEST(ModifierFlags, DropEveryOtherBit) {
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

} // namespace
} // namespace tarragon
