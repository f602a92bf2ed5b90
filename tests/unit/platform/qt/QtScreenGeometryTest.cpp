#include "platform/qt/QtScreenGeometry.h"

#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"

#include <gtest/gtest.h>

namespace tarragon {

bool operator==(const Screen& left, const Screen& right) {
    return left.frameNS == right.frameNS && left.visibleFrameNS == right.visibleFrameNS;
}

namespace {

Rect rect(double x, double y, double width, double height) {
    return {{x, y}, {width, height}};
}

TEST(QtScreenGeometry, HasItsOriginAtThePrimaryScreensBottomLeftCorner) {
    const Rect primary = rect(0, 0, 1440, 900);
    EXPECT_EQ(rectNSFromQt(primary, primary), rect(0, 0, 1440, 900));
    EXPECT_EQ(rectNSFromQt(rect(10, 20, 30, 40), primary), rect(10, 840, 30, 40));
    EXPECT_EQ(pointNSFromQt({0, 0}, primary), (Point{0, 900}));
    EXPECT_EQ(pointNSFromQt({5, 900}, primary), (Point{5, 0}));
}

TEST(QtScreenGeometry, CountsFromThePrimaryScreenWhereverItIs) {
    const Rect primary = rect(1920, 180, 1440, 900);
    EXPECT_EQ(rectNSFromQt(primary, primary), rect(0, 0, 1440, 900));
    EXPECT_EQ(rectNSFromQt(rect(0, 0, 1920, 1200), primary), rect(-1920, -120, 1920, 1200));
    EXPECT_EQ(rectCGFromQt(primary, primary), rect(0, 0, 1440, 900));
    EXPECT_EQ(rectCGFromQt(rect(0, 0, 1920, 1200), primary), rect(-1920, -180, 1920, 1200));
    EXPECT_EQ(pointNSFromQt({1920, 180}, primary), (Point{0, 900}));
}

TEST(QtScreenGeometry, KeepsThePrimaryScreenFirst) {
    const std::vector<QtScreenGeometry> screens = {
        {rect(0, 0, 1440, 900), rect(0, 30, 1440, 830)},
        {rect(1440, -100, 1000, 1000), rect(1440, -100, 1000, 1000)},
    };
    const std::vector<Screen> expected = {
        {rect(0, 0, 1440, 900), rect(0, 40, 1440, 830)},
        {rect(1440, 0, 1000, 1000), rect(1440, 0, 1000, 1000)},
    };
    EXPECT_EQ(screensFromQt(screens), expected);
    EXPECT_TRUE(screensFromQt({}).empty());
}

TEST(QtScreenGeometry, TakesMonitorsThatShowTheSameForOneScreen) {
    const QtScreenGeometry laptop = {rect(0, 0, 1440, 900), rect(0, 30, 1440, 870)};
    const QtScreenGeometry projector = {rect(0, 0, 1440, 900), rect(0, 0, 1440, 900)};
    const QtScreenGeometry smaller = {rect(0, 0, 1024, 768), rect(0, 0, 1024, 768)};
    EXPECT_EQ(screensFromQt({laptop, projector}), screensFromQt({laptop}));
    EXPECT_EQ(screensFromQt({laptop, smaller, projector, smaller}), screensFromQt({laptop, smaller}));
}

TEST(QtDisplays, KnowsTheScreenWithoutADisplay) {
    QtRunLoop runLoop;
    QtDisplays displays(runLoop);
    ASSERT_EQ(displays.screens().size(), 1U);
    EXPECT_EQ(displays.screens().front().frameNS, rect(0, 0, 800, 800));
    EXPECT_EQ(displays.mainDisplayBoundsCG(), rect(0, 0, 800, 800));
}

} // namespace

} // namespace tarragon
