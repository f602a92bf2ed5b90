#include "app/AskedWindowChange.h"

#include "fake/FakeElement.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class AskedWindowChangeTest : public testing::Test {
protected:
    const Element window = FakeElement::make(1);
    const Element other = FakeElement::make(2);
    const Rect frame{{1500, 0}, {900, 900}};
    const Rect elsewhere{{1500, 5}, {900, 900}};
    const WindowChange change{.size = Size{900, 878}, .positionCG = Point{1500, 22}};
    const WindowChange nothing;
    AskedWindowChange asked;
};

TEST_F(AskedWindowChangeTest, AsksOnceAndNotAgainWhileTheWindowStaysAsItIs) {
    EXPECT_EQ(asked.toAskFor(window, frame, change), change);
    EXPECT_EQ(asked.toAskFor(window, frame, change), nothing);
    EXPECT_EQ(asked.toAskFor(window, frame, change), nothing);
}

TEST_F(AskedWindowChangeTest, AsksAgainOnceTheWindowIsElsewhereOrOfAnotherSize) {
    ASSERT_EQ(asked.toAskFor(window, frame, change), change);
    EXPECT_EQ(asked.toAskFor(window, elsewhere, change), change);
    EXPECT_EQ(asked.toAskFor(window, elsewhere, change), nothing);
    const Rect larger{elsewhere.origin, {950, 900}};
    EXPECT_EQ(asked.toAskFor(window, larger, change), change);
}

TEST_F(AskedWindowChangeTest, AsksAgainForAnotherWindowInTheSamePlace) {
    ASSERT_EQ(asked.toAskFor(window, frame, change), change);
    EXPECT_EQ(asked.toAskFor(other, frame, change), change);
}

TEST_F(AskedWindowChangeTest, AsksAgainForSomethingElse) {
    ASSERT_EQ(asked.toAskFor(window, frame, change), change);
    const WindowChange further{.size = Size{900, 800}, .positionCG = Point{1500, 100}};
    EXPECT_EQ(asked.toAskFor(window, frame, further), further);
}

TEST_F(AskedWindowChangeTest, AsksAgainAfterTheWindowWasFine) {
    ASSERT_EQ(asked.toAskFor(window, frame, change), change);
    ASSERT_EQ(asked.toAskFor(window, {{1500, 22}, {900, 878}}, nothing), nothing);
    EXPECT_EQ(asked.toAskFor(window, frame, change), change);
}

TEST_F(AskedWindowChangeTest, AsksForNothingThatIsSoAlready) {
    EXPECT_EQ(asked.toAskFor(window, {{1500, 0}, {900, 878}}, change), (WindowChange{std::nullopt, Point{1500, 22}}));
    EXPECT_EQ(asked.toAskFor(window, {{1500, 22}, {900, 900}}, change), (WindowChange{Size{900, 878}, std::nullopt}));
    EXPECT_EQ(asked.toAskFor(window, {{1500, 22}, {900, 878}}, change), nothing);
}

TEST_F(AskedWindowChangeTest, AsksNobodyWhereThereIsNoWindow) {
    EXPECT_EQ(asked.toAskFor({}, frame, change), nothing);
}

} // namespace
} // namespace tarragon
