#include "panels/widgets/GreyColours.h"
#include "PaintedPanel.h"

#include <gtest/gtest.h>

namespace tarragon {

namespace {

TEST(GreyColours, AreAsGivenUnderALightTheme) {
    const GreyColours colours(lightPalette());
    EXPECT_FALSE(colours.isDark());
    EXPECT_NEAR(colours.color({0.45, 1}).redF(), 0.45, 0.001);
    EXPECT_EQ(colours.black(), QColor(Qt::black));
    EXPECT_EQ(colours.white(), QColor(Qt::white));
}

TEST(GreyColours, AreTurnedRoundUnderADarkTheme) {
    const GreyColours colours(darkPalette());
    EXPECT_TRUE(colours.isDark());
    const QColor turned = colours.color({0.45, 0.25});
    EXPECT_NEAR(turned.redF(), 0.55, 0.001);
    EXPECT_NEAR(turned.greenF(), 0.55, 0.001);
    EXPECT_NEAR(turned.blueF(), 0.55, 0.001);
    EXPECT_NEAR(turned.alphaF(), 0.25, 0.001);
    EXPECT_EQ(colours.black(), QColor(Qt::white));
    EXPECT_EQ(colours.white(), QColor(Qt::black));
}

TEST(GreyColours, StayBetweenBlackAndWhite) {
    const GreyColours colours(lightPalette());
    EXPECT_EQ(colours.color({-1, 2}), QColor(Qt::black));
    EXPECT_EQ(colours.color({2, 1}), QColor(Qt::white));
}

} // namespace

} // namespace tarragon
