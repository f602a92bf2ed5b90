#include "platform/linux/input/X11ButtonNumber.h"

#include <gtest/gtest.h>

namespace tarragon {

TEST(X11ButtonNumber, CountsTheButtonsOfAMouseAndLeavesTheWheelOut) {
    EXPECT_EQ(buttonNumberFromX11(1), 0U);
    EXPECT_EQ(buttonNumberFromX11(2), 2U);
    EXPECT_EQ(buttonNumberFromX11(3), 1U);
    for (const std::uint32_t wheel : {4U, 5U, 6U, 7U})
        EXPECT_EQ(buttonNumberFromX11(wheel), std::nullopt);
    EXPECT_EQ(buttonNumberFromX11(8), 3U);
    EXPECT_EQ(buttonNumberFromX11(9), 4U);
    EXPECT_EQ(buttonNumberFromX11(24), 19U);
    EXPECT_EQ(buttonNumberFromX11(0), std::nullopt);
}

} // namespace tarragon
