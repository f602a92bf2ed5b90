#include "triggers/HotKeyModifiers.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

TEST(HotKeyModifiers, ConvertsEachFlagOfItsOwn) {
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x40000), 0x1000U);
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x100000), 0x100U);
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x20000), 0x200U);
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x80000), 0x800U);
}

TEST(HotKeyModifiers, CombinesFlags) {
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x40000 | 0x100000 | 0x20000 | 0x80000), 0x1B00U);
}

TEST(HotKeyModifiers, DropsAllOtherFlags) {
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0), 0U);
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x10000), 0U); // Caps Lock
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0x800000), 0U); // Function
    EXPECT_EQ(carbonModifiersFromCocoaFlags(0xFFFF), 0U); // device bits
    EXPECT_EQ(carbonModifiersFromCocoaFlags(-1), 0x1B00U);
}

} // namespace
} // namespace tarragon
