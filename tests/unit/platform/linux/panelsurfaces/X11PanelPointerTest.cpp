#include "X11PanelSurfacesFixture.h"

#include <vector>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class X11PanelPointerTest : public X11PanelSurfacesTest {
protected:
    void SetUp() override {
        X11PanelSurfacesTest::SetUp();
        if (IsSkipped())
            return;
        surface->setPointerHandler([this](const std::optional<Point>& location) {
            locations.push_back(location);
            if (told.empty() || told.back() != location.has_value())
                told.push_back(location.has_value());
        });
        settle();
    }
    bool isTold(const std::vector<bool>& expected) {
        const bool done = runLoop.runUntil([&] { return told.size() >= expected.size(); });
        settle();
        return done && told == expected;
    }
    std::vector<bool> told; // each entering and leaving
    std::vector<std::optional<Point>> locations;
};

TEST_F(X11PanelPointerTest, TellsWhereThePointerIsFromTheTopLeftCorner) {
    other->movePointer(20, 30);
    EXPECT_TRUE(isTold({true}));
    other->movePointer(57, 44);
    EXPECT_TRUE(runLoop.runUntil([&] { return locations.size() >= 2; }));
    EXPECT_THAT(locations, testing::ElementsAre(Point{0, 0}, Point{37, 14}));
}

TEST_F(X11PanelPointerTest, TellsThatThePointerEntersAndLeavesTheFrame) {
    other->movePointer(20, 30);
    EXPECT_TRUE(isTold({true}));
    other->movePointer(119, 49);
    settle();
    EXPECT_EQ(told.size(), 1U);
    other->movePointer(120, 49);
    EXPECT_TRUE(isTold({true, false}));
    other->movePointer(50, 29);
    settle();
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(X11PanelPointerTest, TellsOfThePointerWhileThePanelIsInvisible) {
    surface->setAlpha(0);
    settle();
    other->movePointer(50, 40);
    EXPECT_TRUE(isTold({true}));
    other->movePointer(300, 200);
    EXPECT_TRUE(isTold({true, false}));
}

TEST_F(X11PanelPointerTest, TellsOfThePointerWhileAnotherClientHasIt) {
    ASSERT_TRUE(other->grabPointer());
    other->movePointer(50, 40);
    EXPECT_TRUE(isTold({true}));
    other->ungrabPointer();
}

TEST_F(X11PanelPointerTest, TellsOfAFrameThatMovesUnderAPointerAtRest) {
    other->movePointer(200, 150);
    settle();
    EXPECT_THAT(told, IsEmpty());
    toolkit->move(panel, 190, 140);
    EXPECT_TRUE(isTold({true}));
    toolkit->move(panel, 0, 0);
    EXPECT_TRUE(isTold({true, false}));
}

TEST_F(X11PanelPointerTest, TakesAHiddenPanelForLeft) {
    other->movePointer(50, 40);
    EXPECT_TRUE(isTold({true}));
    toolkit->unmap(panel);
    EXPECT_TRUE(isTold({true, false}));
    other->movePointer(51, 40);
    settle();
    EXPECT_EQ(told.size(), 2U);
    toolkit->map(panel);
    EXPECT_TRUE(isTold({true, false, true}));
}

TEST_F(X11PanelPointerTest, DoesNotWakeForThePointerWithoutAVisiblePanel) {
    toolkit->unmap(panel);
    settle();
    const int before = runLoop.wakeUps();
    for (int x = 0; x < 50; ++x)
        other->movePointer(20 + x, 150);
    settle();
    EXPECT_EQ(runLoop.wakeUps(), before);
}

TEST_F(X11PanelPointerTest, TellsNothingAfterTheSurfacesEnd) {
    surface.reset();
    other->movePointer(50, 40);
    settle();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(X11PanelPointerTest, LetsTheHandlerEndTheSurface) {
    surface->setPointerHandler([this](const std::optional<Point>&) { surface.reset(); });
    other->movePointer(50, 40);
    ASSERT_TRUE(runLoop.runUntil([&] { return !surface; }));
    other->movePointer(300, 200);
    settle();
}

} // namespace
} // namespace tarragon
