#include "mirror/ZDScreenTools.h"

#include "fake/FakeDisplays.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class ZDScreenToolsTest : public testing::Test {
protected:
    ZDScreenToolsTest() { displays.setScreens({left, right}); }
    std::optional<Rect> screenAt(const Point& point) {
        const auto screen = ZDScreenTools::screenWithPoint(displays, point);
        return screen ? std::optional(screen->frameNS) : std::nullopt;
    }
    std::optional<Rect> screenUnderPointerAt(const Point& point) {
        displays.setMouseLocationNS(point);
        const auto screen = ZDScreenTools::screenWithMousePointer(displays);
        return screen ? std::optional(screen->frameNS) : std::nullopt;
    }

    FakeDisplays displays;
    Screen left{{{0, 0}, {100, 80}}, {{0, 0}, {100, 70}}};
    Screen right{{{100, 0}, {50, 60}}, {{100, 0}, {50, 55}}};
};

TEST_F(ZDScreenToolsTest, FindTheScreenOfAPoint) {
    EXPECT_EQ(screenAt({50, 40}), left.frameNS);
    EXPECT_EQ(screenAt({120, 40}), right.frameNS);
    EXPECT_EQ(screenAt({100, 40}), right.frameNS);
    EXPECT_EQ(screenAt({0, 0}), left.frameNS);
    EXPECT_EQ(screenAt({0, 80}), std::nullopt);
    EXPECT_EQ(screenAt({120, 70}), std::nullopt);
}

TEST_F(ZDScreenToolsTest, GiveTheFirstOfTwoScreensThatOverlap) {
    const Screen mirrored{{{0, 0}, {200, 200}}, {}};
    displays.setScreens({left, mirrored});
    EXPECT_EQ(screenAt({50, 40}), left.frameNS);
    EXPECT_EQ(screenUnderPointerAt({50, 40}), left.frameNS);
    EXPECT_EQ(screenUnderPointerAt({150, 40}), mirrored.frameNS);
}

TEST_F(ZDScreenToolsTest, FindTheScreenUnderThePointer) {
    EXPECT_EQ(screenUnderPointerAt({120, 40}), right.frameNS);
    EXPECT_EQ(screenUnderPointerAt({-1, 40}), std::nullopt);
}

TEST_F(ZDScreenToolsTest, CountThePointerInAtTheTopEdgeAndOutAtTheBottom) {
    EXPECT_EQ(screenUnderPointerAt({50, 80}), left.frameNS);
    EXPECT_EQ(screenUnderPointerAt({50, 0}), std::nullopt);
    EXPECT_EQ(screenUnderPointerAt({0, 40}), left.frameNS);
    EXPECT_EQ(screenUnderPointerAt({100, 40}), right.frameNS);
    EXPECT_EQ(screenUnderPointerAt({150, 40}), std::nullopt);
}

TEST_F(ZDScreenToolsTest, NumberTheScreensAndAnswerZeroOutside) {
    EXPECT_EQ(ZDScreenTools::numberOrderOfScreenWithPoint(displays, {50, 40}), 0);
    EXPECT_EQ(ZDScreenTools::numberOrderOfScreenWithPoint(displays, {120, 40}), 1);
    EXPECT_EQ(ZDScreenTools::numberOrderOfScreenWithPoint(displays, {500, 40}), 0);
    displays.setScreens({left, {{{0, 0}, {200, 200}}, {}}});
    EXPECT_EQ(ZDScreenTools::numberOrderOfScreenWithPoint(displays, {50, 40}), 0);
    EXPECT_EQ(ZDScreenTools::numberOrderOfScreenWithPoint(displays, {150, 40}), 1);
}

TEST_F(ZDScreenToolsTest, NumberAPointInAtTheBottomEdgeAndOutAtTheTop) {
    const auto orderOf = [&](const Point& point) {
        return ZDScreenTools::numberOrderOfScreenWithPoint(displays, point);
    };
    EXPECT_EQ(orderOf({120, 0}), 1);
    EXPECT_EQ(orderOf({120, 60}), 0);
    EXPECT_EQ(orderOf({100, 40}), 1);
    EXPECT_EQ(orderOf({150, 40}), 0);
    displays.setScreens({left, {{{0, 80}, {100, 80}}, {}}});
    EXPECT_EQ(orderOf({50, 80}), 1);
}

TEST_F(ZDScreenToolsTest, FindNothingWithoutScreens) {
    displays.setScreens({});
    EXPECT_EQ(screenUnderPointerAt({50, 40}), std::nullopt);
    EXPECT_EQ(ZDScreenTools::numberOrderOfScreenWithPoint(displays, {50, 40}), 0);
}

TEST_F(ZDScreenToolsTest, GiveTheSizeOfTheFirstScreen) {
    EXPECT_EQ(ZDScreenTools::primaryScreenSize(displays), (Size{100, 80}));
    displays.setScreens({});
    EXPECT_EQ(ZDScreenTools::primaryScreenSize(displays), Size());
    EXPECT_EQ(screenAt({50, 40}), std::nullopt);
}

} // namespace
} // namespace tarragon
