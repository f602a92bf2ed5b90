#include "panels/rules/ButtonStyle.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace tarragon {
namespace {

constexpr Grey FaintWhite{0.7, 0.1};

TEST(ButtonDress, IsARoundedBorderAsMade) {
    EXPECT_EQ(ButtonDress(), (ButtonDress{ButtonBezel::Rounded, true, std::nullopt}));
}

TEST(ButtonStyle, GivesEachOfTheFirstFourItsBorder) {
    const std::initializer_list<std::pair<std::int64_t, ButtonBezel>> borders{{0, ButtonBezel::RoundRect},
        {1, ButtonBezel::Recessed}, {2, ButtonBezel::SmallSquare}, {3, ButtonBezel::ShadowlessSquare}};
    for (const auto& [style, bezel] : borders)
        EXPECT_EQ(applyStyle(style, {}), (ButtonDress{bezel, true, std::nullopt})) << style;
}

TEST(ButtonStyle, HasTheNumbersOfTheBorders) {
    EXPECT_EQ(static_cast<int>(ButtonBezel::RoundRect), 12);
    EXPECT_EQ(static_cast<int>(ButtonBezel::Recessed), 13);
    EXPECT_EQ(static_cast<int>(ButtonBezel::SmallSquare), 10);
    EXPECT_EQ(static_cast<int>(ButtonBezel::ShadowlessSquare), 6);
}

TEST(ButtonStyle, FourTakesTheBorderAwayAndPutsAFaintWhiteBehindTheTitle) {
    EXPECT_EQ(applyStyle(4, {}), (ButtonDress{ButtonBezel::Rounded, false, FaintWhite}));
    EXPECT_EQ(applyStyle(4, applyStyle(2, {})), (ButtonDress{ButtonBezel::SmallSquare, false, FaintWhite}));
}

TEST(ButtonStyle, BringsTheBorderBackWithoutTheBackgroundOfFour) {
    for (const std::int64_t style : {0, 1, 2, 3})
        EXPECT_EQ(applyStyle(style, applyStyle(4, {})), applyStyle(style, {})) << style;
    EXPECT_EQ(applyStyle(7, applyStyle(4, applyStyle(1, {}))), applyStyle(1, {}));
}

TEST(ButtonStyle, LeavesTheBezelAloneWhenItIsNotKnown) {
    for (const std::int64_t style : {std::int64_t{-1}, std::int64_t{5}, std::int64_t{6}, std::int64_t{1} << 32,
             std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_EQ(applyStyle(style, {}), ButtonDress()) << style;
        EXPECT_EQ(applyStyle(style, applyStyle(3, {})), applyStyle(3, {})) << style;
    }
}

TEST(ButtonStyle, GrowsAButtonThatHasNoBorder) {
    EXPECT_EQ(growthOf(applyStyle(4, {})), (Size{5, 10}));
    EXPECT_EQ(growthOf({}), Size());
    for (const std::int64_t style : {-1, 0, 1, 2, 3, 5, 6})
        EXPECT_EQ(growthOf(applyStyle(style, applyStyle(4, {}))), Size()) << style;
}

TEST(ButtonStyle, DependsOnTheLastStyleAndTheLastBezelAlone) {
    RandomValues random;
    ButtonDress dress;
    ButtonBezel bezel = ButtonBezel::Rounded;
    constexpr ButtonBezel Bezels[] = {
        ButtonBezel::RoundRect, ButtonBezel::Recessed, ButtonBezel::SmallSquare, ButtonBezel::ShadowlessSquare};
    for (int round = 0; round < 1000; ++round) {
        const std::int64_t style = random.whole(-2, 7);
        dress = applyStyle(style, dress);
        if (style >= 0 && style <= 3)
            bezel = Bezels[style];
        EXPECT_EQ(dress.bezel, bezel);
        EXPECT_EQ(dress.bordered, style != 4);
        EXPECT_EQ(dress.background.has_value(), style == 4);
        EXPECT_EQ(growthOf(dress) == Size(), style != 4);
    }
}

TEST(MenuBarLook, IsStyleFiveAtThirteenPoints) {
    EXPECT_EQ(MenuBarLook, 5);
    EXPECT_EQ(MenuBarLookFontSize, 13);
    EXPECT_EQ(MenuBarLookExtraWidth, 8);
}

} // namespace
} // namespace tarragon
