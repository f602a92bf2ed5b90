#include "X11PanelSurfacesFixture.h"

#include <optional>
#include <vector>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;

// A panel on a screen whose pixels are smaller than points; those of the screen below are points.
class X11PanelScaleTest : public X11PanelSurfacesTest {
protected:
    void setScale(double pixelsPerPoint) {
        scale.set(PixelScale({{{{0, 0}, {320, 120}}, pixelsPerPoint}, {{{0, 120}, {320, 120}}, 1}}));
        surfaces->scaleMayHaveChanged();
        settle();
    }
};

TEST_F(X11PanelScaleTest, TakesTheClickableRegionInPoints) {
    setScale(2);
    surface->setClickableRegion({{{15, 1}, {10, 5}}});
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 20 * 10);
    EXPECT_EQ(pressesAfterClick(20 + 29, 30 + 2), ToOther);
    EXPECT_EQ(pressesAfterClick(20 + 30, 30 + 2), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 49, 30 + 11), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 50, 30 + 11), ToOther);
}

TEST_F(X11PanelScaleTest, TakesEveryPixelThatTheClickableRegionTouches) {
    setScale(1.5);
    // From 4.5 to 13.5 pixels across, and from 1.5 to 9.
    surface->setClickableRegion({{{3, 1}, {6, 5}}});
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 10 * 8);
    EXPECT_EQ(pressesAfterClick(20 + 4, 30 + 1), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 13, 30 + 8), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 14, 30 + 8), ToOther);
    EXPECT_EQ(pressesAfterClick(20 + 13, 30 + 9), ToOther);
}

TEST_F(X11PanelScaleTest, KnowsItsScaleBeforeItIsShown) {
    setScale(2);
    toolkit->unmap(panel);
    settle();
    surface->setClickableRegion({{{15, 1}, {10, 5}}});
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 20 * 10);
}

TEST_F(X11PanelScaleTest, FollowsTheScaleOfTheScreenThatItIsOn) {
    surface->setClickableRegion({{{15, 1}, {10, 5}}});
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 10 * 5);
    setScale(2);
    EXPECT_EQ(toolkit->shapeArea(panel), 20 * 10);
    toolkit->move(panel, 20, 130);
    ASSERT_TRUE(runLoop.runUntil([&] { return toolkit->shapeArea(panel) == 10 * 5; }));
    toolkit->move(panel, 20, 30);
    EXPECT_TRUE(runLoop.runUntil([&] { return toolkit->shapeArea(panel) == 20 * 10; }));
}

TEST_F(X11PanelScaleTest, TellsWhereThePointerIsInPoints) {
    setScale(2);
    std::vector<std::optional<Point>> locations;
    surface->setPointerHandler([&](const std::optional<Point>& location) { locations.push_back(location); });
    settle();
    other->movePointer(20 + 37, 30 + 14);
    ASSERT_TRUE(runLoop.runUntil([&] { return locations.size() == 1; }));
    toolkit->move(panel, 20, 130);
    ASSERT_TRUE(runLoop.runUntil([&] { return locations.size() == 2; }));
    other->movePointer(20 + 37, 130 + 14);
    ASSERT_TRUE(runLoop.runUntil([&] { return locations.size() == 3; }));
    EXPECT_THAT(locations, ElementsAre(Point{18.5, 7}, std::nullopt, Point{37, 14}));
}

TEST_F(X11PanelScaleTest, ReservesTheRoomOfADockInPixels) {
    setScale(2);
    toolkit->unmap(panel);
    settle();
    surface->setLevel(PanelLevel::Dock);
    toolkit->move(panel, 0, 0);
    toolkit->map(panel);
    ASSERT_TRUE(runLoop.runUntil([&] { return strut().size() == 12; }));
    EXPECT_EQ(strut()[2], 20U);
}

} // namespace
} // namespace tarragon
