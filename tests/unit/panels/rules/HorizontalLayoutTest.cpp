#include "panels/rules/HorizontalLayout.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarragon {
namespace {

using Positions = std::vector<std::int32_t>;

constexpr RightOfButtons WholeWidth{};
constexpr RightOfButtons AlwaysRight{.tarragonAlwaysRight = true};
constexpr RightOfButtons Suspended{.tempAboveTrafficLights = true};

TEST(HorizontalLayout, PutsTitlesBesideEachOtherWithFifteenPointsBetween) {
    EXPECT_EQ(layOutHorizontally(1000, {40, 50.5, 60.75}, WholeWidth),
        (HorizontalLayout{{0, 55, 120}, std::nullopt, WholeWidth}));
}

TEST(HorizontalLayout, PutsThemTenPointsCloserAtTheRightOfTheButtons) {
    EXPECT_EQ(layOutHorizontally(1000, {40, 50.5, 60.75}, AlwaysRight),
        (HorizontalLayout{{0, 45, 100}, std::nullopt, AlwaysRight}));
}

TEST(HorizontalLayout, CutsTheFractionOffAtEveryTitle) {
    EXPECT_EQ(layOutHorizontally(1000, {10.9, 10.9, 10.9, 0}, WholeWidth).positions, (Positions{0, 25, 50, 75}));
}

TEST(HorizontalLayout, PutsATitleThatReachesTheLimitIntoTheBunch) {
    // The limit is 955, and 20 points more: a title of 960 reaches 975.
    EXPECT_EQ(layOutHorizontally(1000, {959, 1}, WholeWidth).firstInBunch, 1U);
    EXPECT_EQ(layOutHorizontally(1000, {959.9}, WholeWidth).firstInBunch, std::nullopt);
    EXPECT_EQ(layOutHorizontally(1000, {960}, WholeWidth).firstInBunch, 0U);
    EXPECT_EQ(layOutHorizontally(1001, {960}, WholeWidth).firstInBunch, std::nullopt);
}

TEST(HorizontalLayout, KeepsToTheLeftHalfAtTheRightOfTheButtons) {
    // The limit is 500 - 260 = 240, and 20 points more: a title of 255 reaches 260.
    EXPECT_EQ(layOutHorizontally(1000, {254.9}, AlwaysRight).firstInBunch, std::nullopt);
    EXPECT_EQ(layOutHorizontally(1000, {255}, AlwaysRight).firstInBunch, 0U);
    // Half an odd width loses its fraction.
    EXPECT_EQ(layOutHorizontally(1001, {255}, AlwaysRight).firstInBunch, 0U);
    EXPECT_EQ(layOutHorizontally(1002, {255}, AlwaysRight).firstInBunch, std::nullopt);
}

TEST(HorizontalLayout, PutsEveryTitleAfterTheFirstInTheBunchThereToo) {
    const HorizontalLayout layout = layOutHorizontally(300, {100, 100, 100, 0, 1, 0}, WholeWidth);
    EXPECT_EQ(layout, (HorizontalLayout{{0, 115}, 2, WholeWidth}));
}

TEST(HorizontalLayout, SuspendsTheRightOfTheButtonsInAWindowOf565Points) {
    for (const std::int32_t width : {564, 565}) {
        // 565 / 2 - 260 = 22; the limit is 520, and 20 points more.
        const HorizontalLayout layout = layOutHorizontally(width, {100, 200, 100}, AlwaysRight);
        EXPECT_EQ(layout, (HorizontalLayout{{0, 105, 310}, std::nullopt, Suspended})) << width;
    }
    EXPECT_EQ(layOutHorizontally(565, {534.9}, AlwaysRight).firstInBunch, std::nullopt);
    EXPECT_EQ(layOutHorizontally(565, {535}, AlwaysRight).firstInBunch, 0U);
}

TEST(HorizontalLayout, KeepsToTheRightOfTheButtonsInAWindowOf566Points) {
    // 566 / 2 - 260 = 23, and 20 points more.
    EXPECT_EQ(layOutHorizontally(566, {37.9, 100}, AlwaysRight), (HorizontalLayout{{0}, 1, AlwaysRight}));
    EXPECT_EQ(layOutHorizontally(566, {38}, AlwaysRight), (HorizontalLayout{{}, 0, AlwaysRight}));
}

TEST(HorizontalLayout, RestoresTheSuspendedSettingOnTheNextPass) {
    const RightOfButtons narrow = layOutHorizontally(500, {40, 40}, AlwaysRight).settings;
    EXPECT_EQ(narrow, Suspended);
    EXPECT_EQ(layOutHorizontally(1000, {40, 40}, narrow), (HorizontalLayout{{0, 45}, std::nullopt, AlwaysRight}));
    // As long as the window is narrow, each pass suspends it anew, with the smaller distances.
    EXPECT_EQ(layOutHorizontally(500, {40, 40}, narrow), (HorizontalLayout{{0, 45}, std::nullopt, Suspended}));
}

TEST(HorizontalLayout, LeavesTheSettingsOfAWindowOfAnyWidthThatKeepsTheWholeWidth) {
    for (const std::int32_t width : {-10, 0, 500, 565, 566, 3000})
        EXPECT_EQ(layOutHorizontally(width, {40, 40}, WholeWidth).settings, WholeWidth) << width;
}

TEST(HorizontalLayout, TakesTheSuspendedSettingForTheSettingWhenBothAreOn) {
    EXPECT_EQ(layOutHorizontally(1000, {40}, {true, true}).settings, AlwaysRight);
    EXPECT_EQ(layOutHorizontally(500, {40}, {true, true}).settings, Suspended);
}

TEST(HorizontalLayout, OfNoTitlesChangesNothing) {
    for (const RightOfButtons& settings : {WholeWidth, AlwaysRight, Suspended, RightOfButtons{true, true}})
        EXPECT_EQ(layOutHorizontally(500, {}, settings), (HorizontalLayout{{}, std::nullopt, settings}));
}

TEST(HorizontalLayout, OfAWindowWithoutWidthHasNoRoomForATitle) {
    for (const std::int32_t width : {0, -1, -500, std::numeric_limits<std::int32_t>::min()}) {
        for (const RightOfButtons& settings : {WholeWidth, AlwaysRight})
            EXPECT_EQ(layOutHorizontally(width, {0, 40}, settings).firstInBunch, 0U) << width;
    }
    EXPECT_EQ(layOutHorizontally(0, {40}, AlwaysRight).settings, Suspended);
    // The tolerance alone makes room in a window of few points.
    EXPECT_EQ(layOutHorizontally(41, {0, 0}, WholeWidth), (HorizontalLayout{{0}, 1, WholeWidth}));
    EXPECT_EQ(layOutHorizontally(40, {0, 0}, WholeWidth), (HorizontalLayout{{}, 0, WholeWidth}));
}

TEST(HorizontalLayout, PutsATitleWiderThanTheWindowIntoTheBunch) {
    EXPECT_EQ(layOutHorizontally(1000, {40, 5000, 40}, WholeWidth), (HorizontalLayout{{0}, 1, WholeWidth}));
    EXPECT_EQ(layOutHorizontally(1000, {40, 5000, 40}, AlwaysRight), (HorizontalLayout{{0}, 1, AlwaysRight}));
}

TEST(HorizontalLayout, HoldsTwoHundredTitlesInAWindowOfThirtyThousandPoints) {
    const std::vector<double> widths(200, 100.5);
    const HorizontalLayout wide = layOutHorizontally(30000, widths, WholeWidth);
    EXPECT_EQ(wide.firstInBunch, std::nullopt);
    ASSERT_EQ(wide.positions.size(), 200U);
    EXPECT_EQ(wide.positions.back(), 199 * 115);

    // Each takes 105 points of 15000 - 260 + 20 at the right of the buttons, of 1000 - 45 + 20 points in a smaller one.
    EXPECT_EQ(layOutHorizontally(30000, widths, AlwaysRight).firstInBunch, 140U);
    EXPECT_EQ(layOutHorizontally(1000, widths, WholeWidth).firstInBunch, 8U);
    EXPECT_EQ(layOutHorizontally(1000, widths, WholeWidth).positions.size(), 8U);
}

TEST(HorizontalLayout, ComparesInSinglePrecision) {
    // 16777217 and 16777216 are the same there, so that a title which reaches the latter reaches the former.
    EXPECT_EQ(layOutHorizontally(16777217 + 25, {16777216.0 - 15}, WholeWidth).firstInBunch, 0U);
    EXPECT_EQ(layOutHorizontally(16777217 + 25, {16777215.0 - 15}, WholeWidth).firstInBunch, std::nullopt);
    EXPECT_EQ(layOutHorizontally(2 * (16777217 + 240), {16777216.0 - 5}, AlwaysRight).firstInBunch, 0U);
    EXPECT_EQ(layOutHorizontally(2 * (16777217 + 240), {16777215.0 - 5}, AlwaysRight).firstInBunch, std::nullopt);
}

TEST(HorizontalLayout, EndsWithTheRangeForTitlesOfHugeWidth) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();
    for (const double width : {2147483640.0, 1e10, 1e300, Infinity}) {
        for (const RightOfButtons& settings : {WholeWidth, AlwaysRight}) {
            EXPECT_EQ(layOutHorizontally(1000, {40, width, width, 40}, settings).firstInBunch, 1U) << width;
            EXPECT_EQ(layOutHorizontally(Highest, {40, width, width, 40}, settings).firstInBunch, 1U) << width;
        }
    }
}

TEST(HorizontalLayout, CountsAWidthBelowZeroAsNone) {
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double width : {-0.5, -40.0, -1e300, NotANumber}) {
        EXPECT_EQ(layOutHorizontally(1000, {40, width, 40}, WholeWidth),
            (HorizontalLayout{{0, 55, 70}, std::nullopt, WholeWidth}))
            << width;
        EXPECT_EQ(layOutHorizontally(100, {100, width}, AlwaysRight).firstInBunch, 0U) << width;
    }
}

// The same row told as a whole: the flags settle with the first title and stay.
HorizontalLayout layOutAtOnce(std::int32_t windowWidth, const std::vector<double>& widths, RightOfButtons settings) {
    HorizontalLayout layout;
    const bool right = settings.tarragonAlwaysRight || settings.tempAboveTrafficLights;
    const bool narrow = windowWidth / 2 <= 282;
    const std::int32_t end = right && !narrow ? windowWidth / 2 - 240 : windowWidth - 25;
    if (!widths.empty() && right)
        settings = narrow ? Suspended : AlwaysRight;
    layout.settings = settings;
    double x = 0;
    for (std::size_t index = 0; index < widths.size(); ++index) {
        const double next = std::floor(x + widths[index]) + (right ? 5 : 15);
        if (next >= end) {
            layout.firstInBunch = index;
            break;
        }
        layout.positions.push_back(static_cast<std::int32_t>(x));
        x = next;
    }
    return layout;
}

TEST(HorizontalLayout, IsThatOfARowWhoseSettingsAreSettledAtTheFirstTitle) {
    RandomValues random;
    int bunches = 0;
    for (int round = 0; round < 20000; ++round) {
        const auto windowWidth = static_cast<std::int32_t>(random.whole(-100, round % 2 == 0 ? 700 : 3000));
        std::vector<double> widths(static_cast<std::size_t>(random.whole(0, 14)));
        for (double& width : widths)
            width = random.quarters(0, 150);
        const RightOfButtons settings{random.truth(), random.truth()};
        const HorizontalLayout layout = layOutHorizontally(windowWidth, widths, settings);
        EXPECT_EQ(layout, layOutAtOnce(windowWidth, widths, settings)) << windowWidth;
        if (layout.firstInBunch)
            ++bunches;
    }
    EXPECT_GT(bunches, 5000);
    EXPECT_LT(bunches, 18000);
}

TEST(HorizontalLayout, AlwaysShowsTitlesFromTheFirstToTheBunch) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        std::vector<double> widths(static_cast<std::size_t>(random.whole(0, 20)));
        for (double& width : widths)
            width = std::exp2(random.real(-5, 80)) * (random.truth() ? 1 : -1);
        const auto windowWidth =
            static_cast<std::int32_t>(random.whole(std::numeric_limits<std::int32_t>::min(), 0x7FFFFFFF));
        const HorizontalLayout layout = layOutHorizontally(windowWidth, widths, {random.truth(), random.truth()});
        EXPECT_EQ(layout.positions.size(), layout.firstInBunch.value_or(widths.size()));
        for (std::size_t index = 1; index < layout.positions.size(); ++index)
            EXPECT_GE(layout.positions[index], layout.positions[index - 1] + 5);
    }
}

TEST(BunchButton, IsMadeSeventyPointsFromTheEnd) {
    EXPECT_EQ(bunchButtonPosition(1000), 930);
    EXPECT_EQ(bunchButtonPosition(0), -70);
    EXPECT_EQ(bunchButtonPosition(std::numeric_limits<std::int32_t>::min()), -2147483648.0 - 70);
}

TEST(BunchButton, IsPutFivePointsBehindTheLastTitle) {
    EXPECT_EQ(bunchButtonOrigin({{105.5, 7}, {60.25, 25}}), (Point{170.75, 3}));
    EXPECT_EQ(bunchButtonOrigin({{-5, -7}, {0, 0}}), (Point{0, 3}));
}

TEST(HorizontalPanel, IsTwentyFourPointsHigh) {
    EXPECT_EQ(HorizontalPanelHeight, 24);
}

} // namespace
} // namespace tarragon
