#include "platform/qt/ScreenConfiguration.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

const ConfiguredScreen Left{"left", {{0, 0}, {1000, 800}}};
const ConfiguredScreen Right{"right", {{1000, 0}, {1000, 800}}};

TEST(ScreenConfiguration, TellsOfScreensThatCameAndWent) {
    EXPECT_EQ(reconfigurationFlags({Left}, {Left, Right}), 16U);
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Left}), 32U);
    EXPECT_EQ(reconfigurationFlags({}, {Left}), 16U);
    EXPECT_EQ(reconfigurationFlags({Left}, {}), 32U);
}

TEST(ScreenConfiguration, TellsOfOneScreenInThePlaceOfAnotherAsBoth) {
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Left, {"third", Right.frame}}), 48U);
}

TEST(ScreenConfiguration, TellsAnotherModeAndAnotherPlaceApartFromScreensThatComeAndGo) {
    EXPECT_EQ(reconfigurationFlags({Left}, {{"left", {{0, 0}, {800, 600}}}}), 8U);
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Left, {"right", {{1000, 200}, {1000, 800}}}}), 2U);
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Left, {"right", {{1000, 200}, {800, 600}}}}), 10U);
}

TEST(ScreenConfiguration, TellsOfAnotherPrimaryScreen) {
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Right, Left}), 4U);
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Right}), 36U);
}

TEST(ScreenConfiguration, TakesMonitorsThatShowTheSameForOneScreen) {
    const ConfiguredScreen mirror{"mirror", Left.frame};
    EXPECT_EQ(reconfigurationFlags({Left}, {Left, mirror}), 0U);
    EXPECT_EQ(reconfigurationFlags({Left, mirror}, {Left}), 0U);
    EXPECT_EQ(reconfigurationFlags({Left, mirror}, {Left, {"mirror", Right.frame}}), 16U);
    EXPECT_EQ(reconfigurationFlags({Left, {"mirror", Right.frame}}, {Left, mirror}), 32U);
}

TEST(ScreenConfiguration, TellsNothingWhenNothingHasChanged) {
    EXPECT_EQ(reconfigurationFlags({Left, Right}, {Left, Right}), 0U);
    EXPECT_EQ(reconfigurationFlags({}, {}), 0U);
}

} // namespace
} // namespace tarragon
