#include "menus/QtCoordinates.h"

#include <limits>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

std::vector<Screen> screens(double width, double height) {
    const Rect frame = {{0, 0}, {width, height}};
    return {{frame, frame}, {{{width, 100}, {500, 500}}, {{width, 100}, {500, 500}}}};
}

TEST(QtCoordinates, TurnsYAround) {
    EXPECT_EQ(qtPointFromNS({10, 900}, screens(1440, 900), {0, 0}), QPoint(10, 0));
    EXPECT_EQ(qtPointFromNS({10, 0}, screens(1440, 900), {0, 0}), QPoint(10, 900));
    EXPECT_EQ(qtPointFromNS({-5, -6}, screens(1440, 900), {0, 0}), QPoint(-5, 906));
}

TEST(QtCoordinates, CountsFromThePrimaryScreen) {
    EXPECT_EQ(qtPointFromNS({10, 900}, screens(1440, 900), {1920, 180}), QPoint(1930, 180));
}

TEST(QtCoordinates, RoundsToTheNearestPixel) {
    EXPECT_EQ(qtPointFromNS({10.4, 899.6}, screens(1440, 900), {0, 0}), QPoint(10, 0));
    EXPECT_EQ(qtPointFromNS({10.6, 898.4}, screens(1440, 900), {0, 0}), QPoint(11, 2));
}

TEST(QtCoordinates, SurvivesNonsense) {
    EXPECT_EQ(qtPointFromNS({1e300, -1e300}, screens(1440, 900), {0, 0}), QPoint(32000, 32000));
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(qtPointFromNS({notANumber, notANumber}, screens(1440, 900), {0, 0}), QPoint(0, 0));
    EXPECT_EQ(qtPointFromNS({10, 10}, {}, {3, 4}), QPoint(3, 4));
}

TEST(QtCoordinates, FindsTheNearestPointInside) {
    const std::vector<QRect> rectangles = {QRect(0, 0, 100, 100), QRect(200, 0, 100, 100)};
    EXPECT_EQ(nearestPointInside({50, 60}, rectangles), QPoint(50, 60));
    EXPECT_EQ(nearestPointInside({0, 106}, rectangles), QPoint(0, 99));
    EXPECT_EQ(nearestPointInside({120, 50}, rectangles), QPoint(99, 50));
    EXPECT_EQ(nearestPointInside({190, -5}, rectangles), QPoint(200, 0));
    EXPECT_EQ(nearestPointInside({7, 8}, {}), QPoint(7, 8));
}

} // namespace

} // namespace tarragon
