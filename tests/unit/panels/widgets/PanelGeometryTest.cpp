#include "panels/widgets/PanelGeometry.h"

#include <limits>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr int LargestSide = 32000;

// The primary one, then one at its right that is higher, then one at its left.
std::vector<Screen> threeScreens() {
    const Rect frames[] = {{{0, 0}, {1440, 900}}, {{1440, -180}, {1920, 1080}}, {{-1280, 100}, {1280, 800}}};
    std::vector<Screen> screens;
    for (const Rect& frame : frames)
        screens.push_back({frame, frame});
    return screens;
}

struct FrameRow {
    Rect frameNS;
    QPoint primaryOrigin;
    QRect expected;
};

TEST(PanelGeometry, TurnsFramesToTheScreensOfTheToolkit) {
    const FrameRow rows[] = {
        {{{0, 876}, {600, 24}}, {0, 0}, {0, 0, 600, 24}},
        {{{100, 500}, {56, 25}}, {0, 0}, {100, 375, 56, 25}},
        // Above and beside the primary screen.
        {{{1500, 876}, {600, 24}}, {0, 0}, {1500, 0, 600, 24}},
        {{{-1280, 950}, {600, 24}}, {0, 0}, {-1280, -74, 600, 24}},
        {{{10, -100}, {600, 24}}, {0, 0}, {10, 976, 600, 24}},
        // The primary screen lies right of another one.
        {{{0, 876}, {600, 24}}, {1280, 50}, {1280, 50, 600, 24}},
        {{{-1280, 876}, {600, 24}}, {1280, 50}, {0, 50, 600, 24}},
    };
    for (const FrameRow& row : rows)
        EXPECT_EQ(qtFrameFromNS(row.frameNS, threeScreens(), row.primaryOrigin, LargestSide), row.expected)
            << row.frameNS.origin.x << ' ' << row.frameNS.origin.y;
}

TEST(PanelGeometry, PutsEachEdgeAtTheNearestWholePoint) {
    const FrameRow rows[] = {
        {{{10.4, 500.4}, {100.3, 24.4}}, {}, {10, 375, 101, 25}},
        {{{10.6, 500}, {100.3, 24}}, {}, {11, 376, 100, 24}},
        {{{-10.5, 500}, {21, 24}}, {}, {-10, 376, 21, 24}}, // moved, not resized
        {{{10.5, 500}, {21, 24}}, {}, {11, 376, 21, 24}},
    };
    for (const FrameRow& row : rows)
        EXPECT_EQ(qtFrameFromNS(row.frameNS, threeScreens(), {}, LargestSide), row.expected) << row.frameNS.origin.x;
}

TEST(PanelGeometry, KeepsWithinWhatWindowSystemsCanDo) {
    const auto frame = [](const Rect& frameNS) { return qtFrameFromNS(frameNS, threeScreens(), {}, LargestSide); };
    EXPECT_EQ(frame({{0, 876}, {30000, 24}}), QRect(0, 0, 30000, 24));
    EXPECT_EQ(frame({{0, 876}, {1e9, 24}}).width(), LargestSide);
    EXPECT_EQ(frame({{0, 899}, {1, 1}}), QRect(0, 0, 1, 1));
    EXPECT_EQ(frame({{0, 900}, {0, 0}}).size(), QSize(1, 1));
    EXPECT_EQ(frame({{0, 900}, {-5, -5}}).size(), QSize(1, 1));
    EXPECT_EQ(frame({{1e12, -1e12}, {10, 10}}).topLeft(), QPoint(32000, 32000));
    EXPECT_EQ(frame({{-1e12, 1e12}, {10, 10}}).topLeft(), QPoint(-32000, -32000));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(frame({{nan, nan}, {nan, nan}}).size(), QSize(1, 1));
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(frame({{0, 876}, {infinity, 24}}).width(), LargestSide);
}

TEST(PanelGeometry, TakesFramesAsTheyAreWithoutScreens) {
    EXPECT_EQ(qtFrameFromNS({{10, -34}, {100, 24}}, {}, {}, LargestSide), QRect(10, 10, 100, 24));
}

TEST(PanelGeometry, FindsTheWayBack) {
    EXPECT_EQ(pointNSFromQt({10.5, 20}, threeScreens(), {}), (Point{10.5, 880}));
    EXPECT_EQ(pointNSFromQt({10.5, 20}, threeScreens(), {1280, 50}), (Point{-1269.5, 930}));
    EXPECT_EQ(pointNSFromQt({10, 20}, {}, {}), (Point{10, -20}));
}

TEST(PanelGeometry, TurnsButtonsUpsideDown) {
    EXPECT_EQ(frameInWidget({{5, 3}, {40, 18}}, 24), QRect(5, 3, 40, 18));
    EXPECT_EQ(frameInWidget({{5, 1}, {40, 18}}, 22), QRect(5, 3, 40, 18));
    EXPECT_EQ(frameInWidget({{5, 3}, {40, 28}}, 24), QRect(5, -7, 40, 28));
    EXPECT_EQ(frameInWidget({{5.5, 3}, {40.2, 18}}, 24), QRect(6, 3, 40, 18));
}

} // namespace

} // namespace tarragon
