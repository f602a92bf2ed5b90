#include "AppFixture.h"

#include "panels/TarragonPanel.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarragon {
namespace {

using testing::ElementsAre;

constexpr double TickInterval = 0.45;

// The user drags the window in front by its title bar.
class WindowDragTest : public AppTest {
protected:
    WindowDragTest() {
        fake.accessibility.addHitArea({{0, 0}, {2440, 900}}, fake.accessibility.addElement(100, "AXWindow"));
        fake.accessibility.addHitArea({{0, 0}, {50, 50}}, fake.accessibility.addElement(100, "AXButton"));
    }
    FakePanelToolkit::Window& window() { return panelToolkit.latest(); }
    TarragonPanel& panel() { return *controller().tarragonPanel(); }
    void settle() { fake.runLoop.advance(0.3); }
    void launchAndSettle() {
        launch();
        settle();
    }
    // Events that go to another application, with the pointer there, in Cocoa space.
    void drag(const Point& pointerNS) {
        fake.displays.setMouseLocationNS(pointerNS);
        fake.inputEvents.send({InputEventType::LeftMouseDragged, 0});
    }
    void release() { fake.inputEvents.send({InputEventType::LeftMouseUp, 0}); }
    void moveWindow(const Rect& frameCG) {
        fake.accessibility.setAttribute(inbox, "AXPosition", frameCG.origin);
        fake.accessibility.setAttribute(inbox, "AXSize", frameCG.size);
    }
    bool isTicking() {
        const auto timers = fake.runLoop.validTimers();
        return std::ranges::find(timers, TickInterval) != timers.end();
    }
    Point panelTopLeftCG() {
        const Rect frame = window().frameNS;
        return {frame.origin.x, 900 - frame.origin.y - frame.size.height};
    }
};

TEST_F(WindowDragTest, FadesThePanelOutOnceAndStopsTheTick) {
    launchAndSettle();
    drag({600, 690});
    EXPECT_FALSE(isTicking());
    drag({610, 690});
    settle();
    EXPECT_EQ(window().alpha, 0);
    EXPECT_TRUE(window().visible);
    drag({620, 690});
    drag({630, 690});
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(WindowDragTest, BringsThePanelBackToTheWindowAfterIt) {
    launchAndSettle();
    drag({600, 690});
    settle();
    moveWindow({{130, 260}, {900, 500}});
    release();
    EXPECT_TRUE(isTicking());
    EXPECT_EQ(panelTopLeftCG(), (Point{130, 236}));
    settle();
    EXPECT_EQ(window().alpha, 1);
    // It is free to fade for the next one.
    drag({700, 690});
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(WindowDragTest, BringsThePanelBackAlsoWhenItWasShorterThanTheFade) {
    launchAndSettle();
    drag({600, 690});
    fake.runLoop.advance(0.1);
    ASSERT_GT(window().alpha, 0);
    moveWindow({{130, 260}, {900, 500}});
    release();
    EXPECT_EQ(panelTopLeftCG(), (Point{130, 236}));
    EXPECT_TRUE(isTicking());
    settle();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(WindowDragTest, LeavesAPanelThatFadesInAloneWhenTheButtonIsReleased) {
    launchAndSettle();
    panel().setAlphaValue(0);
    panel().fadeIntoView();
    fake.runLoop.advance(0.1);
    const double alpha = window().alpha;
    release();
    EXPECT_EQ(window().alpha, alpha);
}

TEST_F(WindowDragTest, IsNoneOverOtherPartsOfWindows) {
    launchAndSettle();
    drag({20, 880});
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, LeavesAPanelThatIsNotFadedOutAloneWhenTheButtonIsReleased) {
    launchAndSettle();
    controller().stopTimer();
    moveWindow({{130, 260}, {900, 500}});
    release();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    EXPECT_FALSE(isTicking());
}

TEST_F(WindowDragTest, OnlyStopsTheTickOfAPanelThatComesAndGoes) {
    set(preference::TarragonAlwaysVisible, false);
    launchAndSettle();
    panel().setAlphaValue(1);
    drag({600, 690});
    drag({610, 690});
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_FALSE(isTicking());
    release();
    EXPECT_TRUE(isTicking());
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(WindowDragTest, StartsNoSecondTick) {
    set(preference::TarragonAlwaysVisible, false);
    launchAndSettle();
    release();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(TickInterval, 8.0));
}

TEST_F(WindowDragTest, LeavesAPanelUnderThePointerAlone) {
    launchAndSettle();
    window().movePointer(Point{600, 10});
    drag({600, 690});
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, LeavesAPanelWithAnOpenMenuAlone) {
    launchAndSettle();
    window().press("Edit");
    drag({600, 690});
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, DoesNotStopTheTickOfAPanelThatIsFading) {
    launchAndSettle();
    panel().setAlphaValue(0.5);
    drag({600, 690});
    EXPECT_TRUE(isTicking());
}

// The place of the first drag event, moved by ten points each way, is what the later ones are compared with.
TEST_F(WindowDragTest, TakesThePlaceTenPointsFromItsFirstForNoMovement) {
    launchAndSettle();
    drag({600, 690});
    settle();
    release();
    settle();
    ASSERT_EQ(window().alpha, 1);
    drag({610, 700});
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_FALSE(isTicking());
    drag({611, 700});
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(WindowDragTest, BeginsToCountAnewWhereMoreEndedThanBegan) {
    launchAndSettle();
    // Each release over a faded panel counts as an end.
    panel().setAlphaValue(0);
    release();
    panel().setAlphaValue(0);
    release();
    panel().setAlphaValue(1);
    drag({600, 690});
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_TRUE(isTicking());
    drag({601, 690});
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(WindowDragTest, CountsNoEndOfAPanelThatIsSeen) {
    launchAndSettle();
    release();
    release();
    drag({600, 690});
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(WindowDragTest, BeginsToCountAnewAfterEveryFade) {
    launchAndSettle();
    for (double x = 600; x < 640; x += 10) {
        drag({x, 690});
        settle();
        ASSERT_EQ(window().alpha, 0) << x;
        release();
        settle();
        ASSERT_EQ(window().alpha, 1) << x;
    }
}

TEST_F(WindowDragTest, ForgetsWithAFadeHowManyBeganBefore) {
    launchAndSettle();
    drag({600, 690});
    settle();
    for (int end = 0; end < 2; ++end) {
        panel().setAlphaValue(0);
        release();
    }
    panel().setAlphaValue(1);
    drag({620, 690});
    settle();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(WindowDragTest, FadesAPanelThatHadSteppedBackForADialog) {
    launchAndSettle();
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    fake.runLoop.advance(TickInterval);
    settle();
    mail.setFocusedWindow(inbox);
    fake.runLoop.advance(TickInterval);
    settle();
    ASSERT_EQ(window().alpha, 1);
    drag({600, 690});
    settle();
    EXPECT_EQ(window().alpha, 0);
}

// After which it stays away.

TEST_F(WindowDragTest, BringsNoPanelBackToAnIgnoredWindow) {
    launchAndSettle();
    drag({600, 690});
    settle();
    controller().ignoreApp();
    release();
    settle();
    EXPECT_FALSE(window().isSeen());
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, BringsNoPanelBackToADialog) {
    launchAndSettle();
    drag({600, 690});
    settle();
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    release();
    settle();
    EXPECT_FALSE(window().isSeen());
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, BringsNoPanelBackOnThePrimaryScreenWhereItStaysOffThat) {
    set(preference::EnableScreenTop, false);
    fake.displays.setScreens(
        {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}, {{{1440, 0}, {1000, 900}}, {{1440, 0}, {1000, 900}}}});
    set(preference::ShowOnPrimaryScreen, false);
    moveWindow({{1500, 300}, {900, 500}});
    launchAndSettle();
    ASSERT_TRUE(window().isSeen());
    drag({1600, 590});
    settle();
    moveWindow({{100, 300}, {900, 500}});
    release();
    settle();
    EXPECT_EQ(window().alpha, 0);
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, BringsNoPanelBackToAWindowAtTheVeryTopWhereItStaysOffThat) {
    set(preference::HideOnPrimaryTopEdge, true);
    launchAndSettle();
    drag({600, 690});
    settle();
    moveWindow({{100, 22}, {900, 500}});
    release();
    settle();
    EXPECT_EQ(window().alpha, 0);
    EXPECT_TRUE(isTicking());
}

TEST_F(WindowDragTest, DoesNothingOnceThePanelIsGone) {
    launchAndSettle();
    controller().clearAll();
    drag({600, 690});
    release();
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
}

TEST_F(WindowDragTest, IsWatchedForWithThreeMonitors) {
    launch();
    EXPECT_THAT(fake.inputEvents.monitorMasks(), ElementsAre(64U, 4U, 4U));
}

TEST_F(WindowDragTest, AsksForTheWindowTwiceWithEveryRelease) {
    launchAndSettle();
    fake.accessibility.clearCalls();
    release();
    const auto calls = fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue);
    EXPECT_EQ(std::ranges::count(calls, std::string("AXFocusedWindow"), &FakeCall::name), 2);
}

} // namespace
} // namespace tarragon
