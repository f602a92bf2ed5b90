#include "panels/rules/Measures.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace tarragon {
namespace {

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();

TEST(WholePoints, LoseTheirFractionTowardsZero) {
    for (const auto& [length, whole] : std::initializer_list<std::pair<double, std::int32_t>>{
             {0, 0}, {0.9, 0}, {-0.9, 0}, {1, 1}, {564.99, 564}, {-1.5, -1}, {-2, -2}, {30000.5, 30000}})
        EXPECT_EQ(wholePoints(length), whole) << length;
}

TEST(WholePoints, EndWithTheRange) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    for (const double length : {2147483647.0, 2147483647.5, 2147483648.0, 1e300, Infinity})
        EXPECT_EQ(wholePoints(length), Highest) << length;
    for (const double length : {-2147483648.0, -2147483648.5, -2147483649.0, -1e300, -Infinity})
        EXPECT_EQ(wholePoints(length), Lowest) << length;
    EXPECT_EQ(wholePoints(2147483646.5), Highest - 1);
    EXPECT_EQ(wholePoints(-2147483647.5), Lowest + 1);
}

TEST(WholePoints, AreNoneForWhatIsNotANumber) {
    EXPECT_EQ(wholePoints(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(WholePoints, AreThoseOfTheFloorBelowZeroTurnedRound) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        const double length = random.real(-2e9, 2e9);
        const double whole = length < 0 ? -std::floor(-length) : std::floor(length);
        EXPECT_EQ(wholePoints(length), whole) << length;
    }
}

TEST(TopOfARectangle, IsItsHighestY) {
    EXPECT_EQ(topNS({{-3, -120.5}, {7, 1200}}), 1079.5);
}

TEST(SinglePrecision, LosesWhatItCannotHold) {
    EXPECT_EQ(roundedToSinglePrecision(16777217), 16777216);
    EXPECT_EQ(roundedToSinglePrecision(-700.5), -700.5);
    EXPECT_EQ(roundedToSinglePrecision(0.1), 0.1F);
    EXPECT_NE(roundedToSinglePrecision(0.1), 0.1);
}

TEST(FontSize, KeepsTheLowByteReadAsASignedNumber) {
    EXPECT_EQ(fontSizeForStoredValue(12), 12);
    EXPECT_EQ(fontSizeForStoredValue(127), 127);
    EXPECT_EQ(fontSizeForStoredValue(128), -128);
    EXPECT_EQ(fontSizeForStoredValue(-128), -128);
    EXPECT_EQ(fontSizeForStoredValue(-129), 127);
    EXPECT_EQ(fontSizeForStoredValue(256 + 12), 12);
}

} // namespace
} // namespace tarragon
