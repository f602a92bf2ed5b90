#include "platform/linux/atspi/AtspiFrame.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

AtspiFrame frame(std::string title, bool active, double x) {
    return {std::move(title), active, true, Rect{{x, 0}, {100, 100}}};
}

AtspiFrameQuery window(std::string title, bool active, double x) {
    return {std::move(title), active, Rect{{x, 0}, {100, 100}}};
}

TEST(AtspiFrame, IsNothingWithoutFrames) {
    EXPECT_FALSE(matchingFrame({}, window("A", true, 0)));
}

TEST(AtspiFrame, TheOnlyOneIsTakenWhateverItSays) {
    const auto match = matchingFrame({frame("Other", false, 500)}, window("A", true, 0));
    ASSERT_TRUE(match);
    EXPECT_EQ(match->index, 0U);
    EXPECT_TRUE(match->certain);
}

TEST(AtspiFrame, TheTitleTellsEvenWhenAnotherStillCallsItselfActive) {
    const auto match = matchingFrame({frame("A", true, 0), frame("B", false, 0)}, window("B", true, 0));
    ASSERT_TRUE(match);
    EXPECT_EQ(match->index, 1U);
    EXPECT_TRUE(match->certain);
}

TEST(AtspiFrame, TheActiveOneIsTakenAmongThoseOfOneTitle) {
    const auto match = matchingFrame({frame("A", false, 0), frame("A", true, 300)}, window("A", true, 0));
    ASSERT_TRUE(match);
    EXPECT_EQ(match->index, 1U);
    EXPECT_FALSE(match->certain);
}

TEST(AtspiFrame, TheActiveOneIsTakenWhenNoTitleFits) {
    const auto match = matchingFrame({frame("A", false, 0), frame("B", true, 300)}, window("C", true, 0));
    ASSERT_TRUE(match);
    EXPECT_EQ(match->index, 1U);
    EXPECT_FALSE(match->certain);
}

TEST(AtspiFrame, TheNearestIsTakenWhenNothingElseTells) {
    const auto match =
        matchingFrame({frame("A", false, 0), frame("A", false, 200), frame("A", false, 400)}, window("A", false, 190));
    ASSERT_TRUE(match);
    EXPECT_EQ(match->index, 1U);
}

TEST(AtspiFrame, HiddenOnesComeLast) {
    AtspiFrame hidden = frame("A", true, 0);
    hidden.visible = false;
    EXPECT_EQ(matchingFrame({hidden, frame("B", false, 300)}, window("A", true, 0))->index, 1U);
}

} // namespace
} // namespace tarragon
