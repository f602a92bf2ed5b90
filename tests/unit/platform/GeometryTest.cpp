#include "platform/Geometry.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

constexpr Rect Box{{10, 20}, {100, 50}};

TEST(Rectangles, ContainThePointsInsideAndOnTheirLowerEdges) {
    EXPECT_TRUE(contains(Box, {50, 40}));
    EXPECT_TRUE(contains(Box, {10, 20}));
    EXPECT_TRUE(contains(Box, {109.999, 69.999}));
}

TEST(Rectangles, DoNotContainTheirUpperEdges) {
    EXPECT_FALSE(contains(Box, {110, 40}));
    EXPECT_FALSE(contains(Box, {50, 70}));
}

TEST(Rectangles, DoNotContainThePointsAround) {
    EXPECT_FALSE(contains(Box, {9.999, 40}));
    EXPECT_FALSE(contains(Box, {50, 19.999}));
}

TEST(Rectangles, ContainNothingWhenTheyAreEmpty) {
    EXPECT_FALSE(contains(Rect(), {0, 0}));
    EXPECT_FALSE(contains(Rect{{5, 5}, {0, 10}}, {5, 7}));
}

} // namespace
} // namespace tarragon
