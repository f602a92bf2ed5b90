#include "panels/rules/PanelFade.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarragon {
namespace {

TEST(Fade, StartsFromItsOppositeEndAlone) {
    EXPECT_TRUE(mayFadeIn(0.0));
    EXPECT_TRUE(mayFadeOut(1.0));
    for (const double alpha : {0.5, 1e-9, 1 - 1e-9}) {
        EXPECT_FALSE(mayFadeIn(alpha)) << alpha;
        EXPECT_FALSE(mayFadeOut(alpha)) << alpha;
    }
    EXPECT_FALSE(mayFadeIn(1.0));
    EXPECT_FALSE(mayFadeOut(0.0));
}

TEST(Fade, TakesAQuarterOfASecondAndAResizeLess) {
    EXPECT_EQ(FadeDuration, 0.25);
    EXPECT_EQ(ResizeDuration, 0.15);
    EXPECT_EQ(AnimationInterval, 1.0 / 60);
}

TEST(EasedProgress, IsExactAtTheEndsAndBeyondThem) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    for (const double part : {0.0, -0.001, -1.0, -1e300, -Infinity})
        EXPECT_EQ(easedProgress(part), 0.0) << part;
    for (const double part : {1.0, 1.001, 2.0, 1e300, Infinity})
        EXPECT_EQ(easedProgress(part), 1.0) << part;
}

TEST(EasedProgress, IsSlowAtBothEndsAndFastBetween) {
    EXPECT_EQ(easedProgress(0.5), 0.5);
    EXPECT_LT(easedProgress(0.1), 0.05);
    EXPECT_GT(easedProgress(0.9), 0.95);
    EXPECT_GT(easedProgress(0.55) - easedProgress(0.45), 0.13);
}

TEST(EasedProgress, NeverGoesBack) {
    double before = 0;
    for (int step = 1; step <= 10000; ++step) {
        const double now = easedProgress(step / 10000.0);
        EXPECT_GT(now, before) << step;
        before = now;
    }
    EXPECT_EQ(before, 1.0);
}

TEST(EasedProgress, IsTheSameFromEitherEndAndBetweenItsEnds) {
    RandomValues random;
    for (int round = 0; round < 5000; ++round) {
        const double part = random.real(0, 1);
        const double eased = easedProgress(part);
        EXPECT_NEAR(eased + easedProgress(1 - part), 1, 1e-12) << part;
        EXPECT_NEAR(eased, 3 * std::pow(part, 2) - 2 * std::pow(part, 3), 1e-12) << part;
        EXPECT_GE(eased, 0);
        EXPECT_LE(eased, 1);
    }
    EXPECT_LE(easedProgress(std::nextafter(1.0, 0.0)), 1.0);
}

constexpr PanelEntering HiddenPanel{.fadeEffect = true, .alpha = 0};

TEST(EnteringThePanel, ShowsOneThatFades) {
    EXPECT_TRUE(fadesInOnEntering(HiddenPanel));
    PanelEntering entering = HiddenPanel;
    entering.fadeEffect = false;
    EXPECT_FALSE(fadesInOnEntering(entering));
}

TEST(EnteringThePanel, ShowsOneThatIsNotFullyShown) {
    PanelEntering entering = HiddenPanel;
    for (const double alpha : {0.0, 0.5, std::nextafter(1.0, 0.0)}) {
        entering.alpha = alpha;
        EXPECT_TRUE(fadesInOnEntering(entering)) << alpha;
    }
    for (const double alpha : {1.0, 1.5}) {
        entering.alpha = alpha;
        EXPECT_FALSE(fadesInOnEntering(entering)) << alpha;
    }
}

TEST(EnteringThePanel, ShowsNothingForAWindowThatIsNotThere) {
    for (bool PanelEntering::*reason :
        {&PanelEntering::windowIsMinimized, &PanelEntering::windowIsHidden, &PanelEntering::desktopIsActive}) {
        PanelEntering entering = HiddenPanel;
        entering.*reason = true;
        EXPECT_FALSE(fadesInOnEntering(entering));
    }
}

TEST(LeavingThePanel, HidesItWhenBothEffectsAreOn) {
    EXPECT_TRUE(fadesOutOnLeaving(true, true));
    EXPECT_FALSE(fadesOutOnLeaving(true, false));
    EXPECT_FALSE(fadesOutOnLeaving(false, true));
    EXPECT_FALSE(fadesOutOnLeaving(false, false));
}

} // namespace
} // namespace tarragon
