#include "platform/linux/windows/PixelScale.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

// One screen of 3000 by 1800 pixels.
PixelScale oneScreen(double scale) {
    return PixelScale({{{{0, 0}, {3000, 1800}}, scale}});
}

// The primary screen at the right, of scale 1, and one of scale 2 at its left that begins below the root's corner.
PixelScale twoScreens() {
    return PixelScale({{{{3000, 0}, {1600, 1200}}, 1}, {{{0, 100}, {3000, 1800}}, 2}});
}

struct Case {
    const char* name;
    PixelScale scale;
    Point pixel;
    Point point;
};

class PixelScaleOfPlaces : public testing::TestWithParam<Case> { };

TEST_P(PixelScaleOfPlaces, TurnsAPixelIntoAPointAndBack) {
    EXPECT_EQ(GetParam().scale.pointFromPixel(GetParam().pixel), GetParam().point);
    EXPECT_EQ(GetParam().scale.pixelFromPoint(GetParam().point), GetParam().pixel);
}

INSTANTIATE_TEST_SUITE_P(OfScreens, PixelScaleOfPlaces,
    testing::Values(Case{"NoScreens", PixelScale(), {33, -7}, {33, -7}},
        Case{"ScaleOfOne", oneScreen(1), {33.5, 1700}, {33.5, 1700}},
        Case{"ScaleOfOneAndAHalf", oneScreen(1.5), {300, 1500}, {200, 1000}},
        Case{"ScaleOfTwo", oneScreen(2), {301, 1500}, {150.5, 750}},
        Case{"CornerOfTheRoot", oneScreen(2), {0, 0}, {0, 0}},
        Case{"LeftOfTheOnlyScreen", oneScreen(2), {-40, -20}, {-20, -10}},
        Case{"RightOfTheOnlyScreen", oneScreen(2), {3100, 900}, {1550, 450}},
        Case{"PrimaryAtTheRight", twoScreens(), {3010, 500}, {3010, 500}},
        Case{"TopLeftOfTheSecond", twoScreens(), {0, 100}, {0, 100}},
        Case{"MiddleOfTheSecond", twoScreens(), {1500, 1000}, {750, 550}},
        Case{"LastPixelOfTheSecond", twoScreens(), {2999, 1899}, {1499.5, 999.5}},
        Case{"AboveTheSecond", twoScreens(), {100, 0}, {50, 50}},
        Case{"NegativeOrigin", PixelScale({{{{-2000, -1000}, {2000, 1000}}, 2}, {{{0, 0}, {800, 600}}, 1}}),
            {-1000, -500}, {-1500, -750}},
        Case{"ScreenWithoutAScale", PixelScale({{{{0, 0}, {800, 600}}, 0}, {{{800, 0}, {800, 600}}, 2}}), {900, 10},
            {850, 5}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(PixelScale, GivesARectangleTheScaleOfTheScreenThatHoldsItsMiddle) {
    const PixelScale scale = twoScreens();
    EXPECT_EQ(scale.pointsFromPixels({{100, 300}, {400, 200}}), (Rect{{50, 200}, {200, 100}}));
    EXPECT_EQ(scale.pixelsFromPoints({{50, 200}, {200, 100}}), (Rect{{100, 300}, {400, 200}}));
    // Of one that lies across both, most is on the primary screen, and then on the other.
    EXPECT_EQ(scale.pointsFromPixels({{2900, 300}, {400, 200}}), (Rect{{2900, 300}, {400, 200}}));
    EXPECT_EQ(scale.pointsFromPixels({{2700, 300}, {400, 200}}), (Rect{{1350, 200}, {200, 100}}));
    EXPECT_EQ(scale.pixelsFromPoints({{2900, 300}, {400, 200}}), (Rect{{2900, 300}, {400, 200}}));
    EXPECT_EQ(scale.pixelsFromPoints({{1350, 200}, {200, 100}}), (Rect{{2700, 300}, {400, 200}}));
    EXPECT_EQ(scale.scaleOfPixels({{2900, 300}, {400, 200}}), 1);
    EXPECT_EQ(scale.scaleOfPixels({{2700, 300}, {400, 200}}), 2);
}

TEST(PixelScale, LeavesRectanglesAsTheyAreWhereEveryScaleIsOne) {
    const Rect rect{{-3.25, 7}, {0.1, 12}};
    for (const PixelScale& scale : {PixelScale(), oneScreen(1)}) {
        EXPECT_TRUE(scale.isOne());
        EXPECT_EQ(scale.pointsFromPixels(rect), rect);
        EXPECT_EQ(scale.pixelsFromPoints(rect), rect);
        EXPECT_EQ(scale.scaleOfPixels(rect), 1);
    }
    EXPECT_FALSE(oneScreen(1.5).isOne());
}

TEST(PixelScale, IsReadWhileItChanges) {
    CurrentPixelScale current;
    EXPECT_TRUE(current.get().isOne());
    std::atomic<bool> stops = false;
    std::thread reader([&] {
        while (!stops) {
            const double x = current.get().pointFromPixel({600, 0}).x;
            EXPECT_TRUE(x == 600 || x == 300 || x == 400) << x;
        }
    });
    for (int count = 0; count < 1000; ++count)
        current.set(oneScreen(count % 2 == 0 ? 2 : 1.5));
    stops = true;
    reader.join();
    EXPECT_EQ(current.get().pointFromPixel({600, 0}), (Point{400, 0}));
}

} // namespace
} // namespace tarragon
