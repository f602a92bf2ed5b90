#include "panels/rules/PanelVisibility.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarragon {
namespace {

// The primary screen's visible frame ends at 1050; its window's top lies exactly there.
CloseCheck atTopOfPrimaryScreen() {
    return {.horizontal = true,
        .hideOnPrimaryTopEdge = true,
        .screenTopEnabled = false,
        .focusedWindowScreenArrayOrder = 0,
        .firstScreenVisibleFrameNS = {{0, 40}, {1920, 1010}},
        .windowFrameNS = {{100, 449.5}, {800, 600.5}},
        .bars = {}};
}

// The other screen at the left ends at 1079.5; its bar lies at 1057.5, the window 99.5 points below.
CloseCheck closeToBar() {
    return {.horizontal = true,
        .hideOnPrimaryTopEdge = true,
        .screenTopEnabled = true,
        .focusedWindowScreenArrayOrder = 1,
        .firstScreenVisibleFrameNS = {{0, 40}, {1920, 1010}},
        .windowFrameNS = {{-1500.5, -100}, {800, 1058}},
        .bars = {.exist = true, .firstAutoHides = false, .yOfBarNS = 1057.5}};
}

TEST(CloseCheck, ClosesThePanelOfAWindowExactlyAtTheTopOfThePrimaryScreen) {
    EXPECT_TRUE(closesPanel(atTopOfPrimaryScreen()));
    for (const double distance : {1.0, 0.5, -0.5, -1.0}) {
        CloseCheck check = atTopOfPrimaryScreen();
        check.windowFrameNS.origin.y -= distance;
        EXPECT_FALSE(closesPanel(check)) << distance;
    }
}

TEST(CloseCheck, ComparesThatTopExactly) {
    CloseCheck check = atTopOfPrimaryScreen();
    check.windowFrameNS = {{0, 0}, {800, std::nextafter(1050, 0)}};
    EXPECT_FALSE(closesPanel(check));
    check.windowFrameNS.size.height = 1050;
    EXPECT_TRUE(closesPanel(check));
}

TEST(CloseCheck, ClosesThereOnlyAHorizontalPanelWithTheSettingOnThatScreen) {
    CloseCheck check = atTopOfPrimaryScreen();
    check.horizontal = false;
    EXPECT_FALSE(closesPanel(check));
    check = atTopOfPrimaryScreen();
    check.hideOnPrimaryTopEdge = false;
    EXPECT_FALSE(closesPanel(check));
    for (const std::int32_t order : {1, 2}) {
        check = atTopOfPrimaryScreen();
        check.focusedWindowScreenArrayOrder = order;
        EXPECT_FALSE(closesPanel(check)) << order;
    }
}

TEST(CloseCheck, LooksAtThePrimaryTopBeforeTheBars) {
    for (const bool autoHides : {true, false}) {
        CloseCheck check = atTopOfPrimaryScreen();
        check.screenTopEnabled = true;
        check.bars = {.exist = true, .firstAutoHides = autoHides, .yOfBarNS = 5000};
        EXPECT_TRUE(closesPanel(check)) << autoHides;
    }
}

TEST(CloseCheck, ClosesThePanelOfAWindowWithinAHundredPointsOfABar) {
    for (const double distance : {99.0, 99.5, 99.99, 0.0, -0.5, -500.0}) {
        CloseCheck check = closeToBar();
        check.bars.yOfBarNS = 958 + distance;
        EXPECT_TRUE(closesPanel(check)) << distance;
    }
    for (const double distance : {100.0, 100.5, 101.0, 800.0}) {
        CloseCheck check = closeToBar();
        check.bars.yOfBarNS = 958 + distance;
        EXPECT_FALSE(closesPanel(check)) << distance;
    }
}

TEST(CloseCheck, ClosesNothingUnderABarThatHides) {
    CloseCheck check = closeToBar();
    check.bars.firstAutoHides = true;
    EXPECT_FALSE(closesPanel(check));
    // One that is no longer wanted does not hide itself either.
    check.screenTopEnabled = false;
    EXPECT_TRUE(closesPanel(check));
}

TEST(CloseCheck, ClosesNothingWithoutBars) {
    CloseCheck check = closeToBar();
    check.bars.exist = false;
    EXPECT_FALSE(closesPanel(check));
}

TEST(CloseCheck, ClosesNoVerticalPanel) {
    CloseCheck check = closeToBar();
    check.horizontal = false;
    EXPECT_FALSE(closesPanel(check));
}

TEST(CloseCheck, ClosesNothingForABarOnTheFirstScreenWhichHasNone) {
    CloseCheck check = closeToBar();
    check.focusedWindowScreenArrayOrder = 0;
    EXPECT_FALSE(closesPanel(check));
    check.focusedWindowScreenArrayOrder = 2;
    EXPECT_TRUE(closesPanel(check));
}

TEST(CloseCheck, NeedsNeitherSettingForABarThatStays) {
    CloseCheck check = closeToBar();
    check.hideOnPrimaryTopEdge = false;
    check.screenTopEnabled = false;
    EXPECT_TRUE(closesPanel(check));
}

// The answers in their order, one after the other.
bool closesOneByOne(const CloseCheck& check) {
    const double windowTop = check.windowFrameNS.origin.y + check.windowFrameNS.size.height;
    const bool onFirstScreen = check.focusedWindowScreenArrayOrder == 0;
    if (check.horizontal && check.hideOnPrimaryTopEdge) {
        const Rect& visible = check.firstScreenVisibleFrameNS;
        if (onFirstScreen && visible.origin.y + visible.size.height == windowTop)
            return true;
    }
    const bool enabledWithAutoHide = check.screenTopEnabled && check.bars.exist && check.bars.firstAutoHides;
    if (enabledWithAutoHide)
        return false;
    if (!check.bars.exist)
        return false;
    if (check.screenTopEnabled && check.bars.firstAutoHides)
        return false;
    if (!check.horizontal)
        return false;
    if (onFirstScreen)
        return false;
    return windowTop > check.bars.yOfBarNS - 100;
}

TEST(CloseCheck, GivesTheFirstAnswerThatApplies) {
    RandomValues random;
    int closed = 0;
    for (int round = 0; round < 20000; ++round) {
        CloseCheck check{.horizontal = random.truth(),
            .hideOnPrimaryTopEdge = random.truth(),
            .screenTopEnabled = random.truth(),
            .focusedWindowScreenArrayOrder = static_cast<std::int32_t>(random.whole(0, 2)),
            .firstScreenVisibleFrameNS = random.rect(2000, 2000),
            .windowFrameNS = random.rect(2000, 2000),
            .bars = {.exist = random.truth(), .firstAutoHides = random.truth(), .yOfBarNS = 0}};
        const double windowTop = check.windowFrameNS.origin.y + check.windowFrameNS.size.height;
        check.bars.yOfBarNS = windowTop + random.quarters(98, 102);
        check.firstScreenVisibleFrameNS.size.height =
            windowTop - check.firstScreenVisibleFrameNS.origin.y + random.quarters(0, 1);
        EXPECT_EQ(closesPanel(check), closesOneByOne(check));
        if (closesPanel(check))
            ++closed;
    }
    EXPECT_GT(closed, 1000);
}

constexpr PanelTickOutcome Nothing{};

// A panel that stays above the window in front with nothing to be done about it.
constexpr PanelTick Quiet{.tarragonAlwaysVisible = true, .enableButton = true};
// One that comes and goes with the pointer, which is on it.
constexpr PanelTick UnderPointer{.mouseIsOnWindow = true, .enableButton = true, .pointerIsInFrame = true};

TEST(Tick, LeavesAPanelThatStaysOrIsUnderThePointer) {
    EXPECT_EQ(tickOutcome(Quiet), Nothing);
    EXPECT_EQ(tickOutcome(UnderPointer), Nothing);
}

TEST(Tick, EndsWhileThePanelIsDragged) {
    EXPECT_EQ(tickOutcome({.beingDragged = true, .enableButton = true}), (PanelTickOutcome{.endsTick = true}));
    EXPECT_EQ(
        tickOutcome(
            {.beingDragged = true, .otherThanWindowInFront = true, .widthHasChanged = true, .enableButton = true}),
        (PanelTickOutcome{.endsTick = true}));
}

TEST(Tick, FadesOnceAndEndsWhenSomethingElseThanAWindowIsInFront) {
    constexpr PanelTickOutcome Expected{.endsTick = true, .fadesOutOnce = true};
    for (PanelTick tick : {Quiet, UnderPointer, PanelTick{.enableButton = true}}) {
        tick.otherThanWindowInFront = true;
        EXPECT_EQ(tickOutcome(tick), Expected);
        tick.widthHasChanged = true;
        EXPECT_EQ(tickOutcome(tick), Expected);
    }
}

TEST(Tick, FadesAPanelThatThePointerHasLeftAndGoesOn) {
    PanelTick tick = UnderPointer;
    tick.mouseIsOnWindow = false;
    EXPECT_EQ(tickOutcome(tick), (PanelTickOutcome{.fadesOut = true}));
    tick.widthHasChanged = true;
    EXPECT_EQ(tickOutcome(tick), (PanelTickOutcome{.fadesOut = true, .laysOutAgain = true}));
    tick.tarragonAlwaysVisible = true;
    EXPECT_EQ(tickOutcome(tick), (PanelTickOutcome{.laysOutAgain = true}));
}

TEST(Tick, LaysOutAgainForANewWidthAndThenFadesNothing) {
    PanelTick tick{.mouseIsOnWindow = true, .widthHasChanged = true, .enableButton = true};
    EXPECT_EQ(tickOutcome(tick), (PanelTickOutcome{.laysOutAgain = true}));
    tick.widthHasChanged = false;
    EXPECT_EQ(tickOutcome(tick), (PanelTickOutcome{.fadesOutOnce = true}));
}

TEST(Tick, FadesOnceWhenThePointerIsOutsideTheFrameAndNoMenuIsShowing) {
    constexpr PanelTick Left{.mouseIsOnWindow = true, .enableButton = true};
    EXPECT_EQ(tickOutcome(Left), (PanelTickOutcome{.fadesOutOnce = true}));
    for (bool PanelTick::*reason :
        {&PanelTick::tarragonAlwaysVisible, &PanelTick::titleMenuIsShowing, &PanelTick::pointerIsInFrame}) {
        PanelTick tick = Left;
        tick.*reason = true;
        EXPECT_EQ(tickOutcome(tick), Nothing);
    }
    PanelTick tick = Left;
    tick.enableButton = false;
    EXPECT_EQ(tickOutcome(tick), Nothing);
}

TEST(Tick, FadesByBothWaysAPanelThatThePointerIsFarFrom) {
    EXPECT_EQ(tickOutcome({.enableButton = true}), (PanelTickOutcome{.fadesOut = true, .fadesOutOnce = true}));
    EXPECT_EQ(tickOutcome({}), (PanelTickOutcome{.fadesOut = true}));
}

TEST(EndOfAWindowDrag, EndsWhileThePanelIsDragged) {
    EXPECT_EQ(outcomeAfterDrag({.beingDragged = true, .enableButton = true}), (PanelTickOutcome{.endsTick = true}));
    EXPECT_EQ(
        outcomeAfterDrag({.beingDragged = true, .otherThanWindowInFront = true}), (PanelTickOutcome{.endsTick = true}));
}

TEST(EndOfAWindowDrag, FadesOnceAndEndsWhenSomethingElseThanAWindowIsInFront) {
    EXPECT_EQ(outcomeAfterDrag({.otherThanWindowInFront = true, .widthHasChanged = true, .enableButton = true}),
        (PanelTickOutcome{.endsTick = true, .fadesOutOnce = true}));
}

TEST(EndOfAWindowDrag, DoesNotFadeForThePointerThatHasLeft) {
    EXPECT_EQ(outcomeAfterDrag({.enableButton = true, .pointerIsInFrame = true}), Nothing);
    EXPECT_EQ(
        outcomeAfterDrag({.widthHasChanged = true, .enableButton = true}), (PanelTickOutcome{.laysOutAgain = true}));
}

TEST(EndOfAWindowDrag, EndsWithAFade) {
    EXPECT_EQ(outcomeAfterDrag({.enableButton = true}), (PanelTickOutcome{.endsTick = true, .fadesOutOnce = true}));
    EXPECT_EQ(outcomeAfterDrag({.enableButton = true, .titleMenuIsShowing = true}), Nothing);
    EXPECT_EQ(outcomeAfterDrag(Quiet), Nothing);
}

PanelTick tickOfBits(unsigned bits) {
    const auto bit = [&](unsigned index) { return (bits >> index & 1U) != 0; };
    return {.beingDragged = bit(0),
        .otherThanWindowInFront = bit(1),
        .tarragonAlwaysVisible = bit(2),
        .mouseIsOnWindow = bit(3),
        .widthHasChanged = bit(4),
        .enableButton = bit(5),
        .titleMenuIsShowing = bit(6),
        .pointerIsInFrame = bit(7)};
}

// One step after the other; the steps after the first two differ in the fade of the pointer that has left.
PanelTickOutcome stepByStep(const PanelTick& tick, bool afterDrag) {
    PanelTickOutcome outcome;
    if (tick.beingDragged) {
        outcome.endsTick = true;
        return outcome;
    }
    if (tick.otherThanWindowInFront) {
        outcome.fadesOutOnce = true;
        outcome.endsTick = true;
        return outcome;
    }
    if (!afterDrag && !tick.tarragonAlwaysVisible) {
        if (!tick.mouseIsOnWindow)
            outcome.fadesOut = true;
    }
    if (tick.widthHasChanged) {
        outcome.laysOutAgain = true;
        return outcome;
    }
    if (tick.tarragonAlwaysVisible)
        return outcome;
    if (tick.enableButton && !tick.titleMenuIsShowing) {
        if (!tick.pointerIsInFrame) {
            outcome.fadesOutOnce = true;
            outcome.endsTick = afterDrag;
        }
    }
    return outcome;
}

TEST(Tick, TakesItsStepsInTheirOrderWhateverHolds) {
    for (unsigned bits = 0; bits < 256; ++bits)
        EXPECT_EQ(tickOutcome(tickOfBits(bits)), stepByStep(tickOfBits(bits), false)) << bits;
}

TEST(EndOfAWindowDrag, TakesItsStepsInTheirOrderWhateverHolds) {
    for (unsigned bits = 0; bits < 256; ++bits)
        EXPECT_EQ(outcomeAfterDrag(tickOfBits(bits)), stepByStep(tickOfBits(bits), true)) << bits;
}

} // namespace
} // namespace tarragon
