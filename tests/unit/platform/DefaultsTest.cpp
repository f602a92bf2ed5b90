#include "platform/Defaults.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarragon {
namespace {

using Some = std::optional<DefaultsValue>;

Some text(const char* words) {
    return Some(std::string(words));
}

TEST(DefaultsValues, AreTrueWhenTheyAreABooleanOrANumberOtherThanZero) {
    EXPECT_TRUE(boolValue(Some(true)));
    EXPECT_FALSE(boolValue(Some(false)));
    EXPECT_TRUE(boolValue(Some(std::int64_t{-2})));
    EXPECT_FALSE(boolValue(Some(std::int64_t{0})));
    EXPECT_TRUE(boolValue(Some(0.25)));
    EXPECT_FALSE(boolValue(Some(0.0)));
}

TEST(DefaultsValues, AreTrueWhenTheTextStartsLikeYesTrueOrANumberOtherThanZero) {
    for (const char* words : {"YES", "yes", "Y", "true", "T", "1", "9", "  2", "+3", "-4", "007", "0y"})
        EXPECT_TRUE(boolValue(text(words))) << words;
    for (const char* words : {"", "NO", "no", "false", "0", "000", "  ", "off", "on", "-0", "x1"})
        EXPECT_FALSE(boolValue(text(words))) << words;
}

TEST(DefaultsValues, AreFalseAndZeroWhenTheyAreMissingOrData) {
    EXPECT_FALSE(boolValue(std::nullopt));
    EXPECT_FALSE(boolValue(Some(Data{1, 2})));
    EXPECT_EQ(integerValue(std::nullopt), 0);
    EXPECT_EQ(integerValue(Some(Data{1, 2})), 0);
}

TEST(DefaultsValues, ConvertToIntegersTowardsZero) {
    EXPECT_EQ(integerValue(Some(true)), 1);
    EXPECT_EQ(integerValue(Some(false)), 0);
    EXPECT_EQ(integerValue(Some(std::int64_t{-7})), -7);
    EXPECT_EQ(integerValue(Some(2.9)), 2);
    EXPECT_EQ(integerValue(Some(-2.9)), -2);
}

TEST(DefaultsValues, ConvertTextToItsLeadingInteger) {
    EXPECT_EQ(integerValue(text("42 apples")), 42);
    EXPECT_EQ(integerValue(text("  -5")), -5);
    EXPECT_EQ(integerValue(text("apples")), 0);
    EXPECT_EQ(integerValue(text("99999999999999999999")), std::numeric_limits<std::int64_t>::max());
}

TEST(DefaultsValues, ConvertNumbersThatNoIntegerHoldsToZero) {
    EXPECT_EQ(integerValue(Some(std::numeric_limits<double>::quiet_NaN())), 0);
    EXPECT_EQ(integerValue(Some(std::numeric_limits<double>::infinity())), 0);
    EXPECT_EQ(integerValue(Some(1e300)), 0);
    EXPECT_EQ(integerValue(Some(-1e300)), 0);
}

TEST(DefaultsValues, AreTextOnlyWhenTheyAreAString) {
    EXPECT_EQ(stringValue(text("words")), "words");
    EXPECT_EQ(stringValue(text("")), "");
    EXPECT_EQ(stringValue(Some(std::int64_t{1})), std::nullopt);
    EXPECT_EQ(stringValue(Some(true)), std::nullopt);
    EXPECT_EQ(stringValue(std::nullopt), std::nullopt);
}

} // namespace
} // namespace tarragon
