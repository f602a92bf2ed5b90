#include "ScreenTopFixture.h"

namespace tarragon {
namespace {

// What the bars do to the window in front.
class WindowUnderBarTest : public ScreenTopTest { };

TEST_F(WindowUnderBarTest, IsMovedBelowABarThatStays) {
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 500}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 500}}));
}

TEST_F(WindowUnderBarTest, IsShortenedWhereItWouldReachBeyondTheScreen) {
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 878}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 878}}));
    moveWindow({{1500, 0}, {900, 900}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 878}}));
    moveWindow({{1500, 0}, {900, 877}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 877}}));
}

TEST_F(WindowUnderBarTest, IsToldOnceAndNeverMovedTwice) {
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 2U);
    EXPECT_EQ(timesTold([&] { fake.runLoop.advance(5); }), 0U);
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 878}}));
}

TEST_F(WindowUnderBarTest, IsOneThatBeginsLessThan22PointsBelowTheTopOfItsScreen) {
    launchAndSettle();
    moveWindow({{1500, 22}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    moveWindow({{1500, 21.5}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 1U);
    EXPECT_EQ(windowFrame().origin.y, 22);
}

TEST_F(WindowUnderBarTest, IsMovedOnEveryScreenThatHasABar) {
    std::vector<Screen> screens = ScreenTopTest::screens(3);
    screens[2].frameNS.origin.y = screens[2].visibleFrameNS.origin.y = 0;
    fake.displays.setScreens(screens);
    launchAndSettle();
    moveWindow({{2500, 300}, {500, 600}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{2500, 322}, {500, 578}}));
}

TEST_F(WindowUnderBarTest, IsMovedAsSoonAsItsApplicationComesToTheFront) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    const Element list = notes.window({.title = "List", .positionCG = Point{1500, 10}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(frameOf(list), (Rect{{1500, 22}, {800, 300}}));
    // The panel is made for where it is now.
    settle();
    EXPECT_EQ(panelWindow().frameNS.origin.x, 1568);
}

TEST_F(WindowUnderBarTest, StaysOnTheFirstScreenWhichHasNone) {
    launchAndSettle();
    moveWindow({{100, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderBarTest, StaysWhereThereAreNoBars) {
    set(preference::EnableScreenTop, false);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderBarTest, StaysWhereTheBarsHideThemselves) {
    set(preference::ScreenTopAutoHide, true);
    set(preference::TarragonAlwaysVisible, false);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderBarTest, OfOneApplicationIsShortenedWhereItIs) {
    launchAndSettle();
    const FakeApplication games = fake.addApplication("Steam");
    games.menu("Game").item("Play");
    const Element library = games.window({.title = "Library", .positionCG = Point{1500, 0}, .size = Size{900, 900}});
    fake.switchTo(games);
    EXPECT_EQ(frameOf(library), (Rect{{1500, 0}, {900, 878}}));
    EXPECT_EQ(timesTold([&] { fake.runLoop.advance(5); }), 0U);
}

TEST_F(WindowUnderBarTest, StaysWhileItIsFullScreen) {
    launchAndSettle();
    moveWindow({{1440, 0}, {1000, 900}});
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    fake.accessibility.setAttribute(inbox, "AXFullScreen", false);
    EXPECT_EQ(timesTold([&] { tick(); }), 2U);
}

TEST_F(WindowUnderBarTest, IsNotTheDesktop) {
    launchAndSettle();
    moveWindow({{0, 0}, {2440, 900}});
    moveWindow({{1440, 0}, {1000, 900}});
    fake.accessibility.setAttribute(inbox, "AXRoleDescription", std::string("AXWindow:AXUnknown"));
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderBarTest, IsNoneWhereNoWindowIsThere) {
    // The place of a window that is not there is on the second screen.
    std::vector<Screen> screens = ScreenTopTest::screens(2);
    screens[0] = {{{-1440, -900}, {1440, 900}}, {{-1440, -900}, {1440, 900}}};
    screens[1] = {{{0, -900}, {1440, 910}}, {{0, -900}, {1440, 910}}};
    fake.displays.setScreens(screens);
    launchAndSettle();
    mail.removeFocusedWindow();
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderBarTest, GoesByTheLastGoodRectangleOfAScreenThatHasNone) {
    std::vector<Screen> screens = ScreenTopTest::screens(2);
    screens[1].visibleFrameNS.size.height = 1;
    fake.displays.setScreens(screens);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 878}}));
}

TEST_F(WindowUnderBarTest, GoesByTheSecondScreenBeforeAnyGoodRectangleWasSeen) {
    std::vector<Screen> screens = ScreenTopTest::screens(2);
    // Its top is 100 points below that of the first.
    screens[1] = {{{1440, -100}, {1000, 900}}, {{1440, -100}, {1000, 1}}};
    fake.displays.setScreens(screens);
    launchAndSettle();
    moveWindow({{1500, 100}, {900, 900}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 122}, {900, 878}}));
}

TEST_F(WindowUnderBarTest, IsMovedBelowABarThatLiesUnderOneOfTheDesktop) {
    std::vector<Screen> screens = ScreenTopTest::screens(2);
    screens[1].visibleFrameNS.size.height = 870;
    fake.displays.setScreens(screens);
    launchAndSettle();
    moveWindow({{1500, 30}, {900, 870}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 52}, {900, 848}}));
    EXPECT_EQ(bar(0).frameNS, (Rect{{1440, 848}, {1000, 22}}));
}

// In the user's hand.

TEST_F(WindowUnderBarTest, StaysInTheUsersHandAndIsMovedWithTheTickAfterTheRelease) {
    launchAndSettle();
    drag({1900, 690});
    moveWindow({{1500, 0}, {900, 500}});
    EXPECT_EQ(timesTold([&] {
        tick();
        // The watchdog starts the tick again during a long drag.
        fake.runLoop.advance(20);
        drag({1910, 690});
        release();
    }),
        0U);
    EXPECT_EQ(timesTold([&] { fake.runLoop.advance(TickInterval + 0.01); }), 1U);
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 500}}));
}

TEST_F(WindowUnderBarTest, StaysInTheUsersHandAlsoBeforeTheEventsOfTheDragHaveCome) {
    launchAndSettle();
    fake.inputEvents.setLeftButtonHeld(true);
    moveWindow({{1500, 0}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    release();
    EXPECT_EQ(timesTold([&] { tick(); }), 1U);
}

TEST_F(WindowUnderBarTest, StaysInTheUsersHandWhenItsApplicationComesToTheFrontByTheDrag) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    const Element list = notes.window({.title = "List", .positionCG = Point{1500, 10}, .size = Size{800, 300}});
    drag({1900, 880});
    EXPECT_EQ(timesTold([&] { fake.switchTo(notes); }), 0U);
    release();
    tick();
    EXPECT_EQ(frameOf(list).origin.y, 22);
}

TEST_F(WindowUnderBarTest, StaysInTheUsersHandWhileItIsDraggedByThePanel) {
    launchAndSettle();
    controller().tarragonPanel()->setBeingDragged(true);
    moveWindow({{1500, 0}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    controller().tarragonPanel()->setBeingDragged(false);
    EXPECT_EQ(timesTold([&] { tick(); }), 1U);
}

TEST_F(WindowUnderBarTest, IsTheOnlyReasonToAskForTheButton) {
    launchAndSettle();
    fake.runLoop.advance(5);
    moveWindow({{100, 0}, {900, 900}});
    tick();
    EXPECT_EQ(fake.inputEvents.timesButtonWasAsked(), 0);
    moveWindow({{1500, 0}, {900, 900}});
    tick();
    EXPECT_EQ(fake.inputEvents.timesButtonWasAsked(), 1);
}

TEST_F(WindowUnderBarTest, IsMovedAgainWhenTheUserPutsItThereAgain) {
    launchAndSettle();
    for (int time = 0; time < 3; ++time) {
        moveWindow({{1500, 0}, {900, 900}});
        EXPECT_EQ(timesTold([&] { tick(); }), 2U) << time;
        EXPECT_EQ(timesTold([&] { tick(); }), 0U) << time;
    }
}

TEST_F(WindowUnderBarTest, IsMovedWhereNobodyTellsOfDrags) {
    fake.inputEvents.setRefuses(true);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 500}});
    tick();
    EXPECT_EQ(windowFrame().origin.y, 22);
}

// Windows that do not do as they are told.

TEST_F(WindowUnderBarTest, ThatRefusesIsNotAskedAgainUntilItHasChanged) {
    launchAndSettle();
    holdWindow(true);
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 2U);
    EXPECT_EQ(timesTold([&] {
        fake.runLoop.advance(60);
        fake.switchTo(mail);
    }),
        0U);
    moveWindow({{1510, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 2U);
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    holdWindow(false);
    moveWindow({{1500, 0}, {900, 900}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 22}, {900, 878}}));
}

TEST_F(WindowUnderBarTest, ThatRefusesDoesNotSpeakForAnotherInTheSamePlace) {
    launchAndSettle();
    holdWindow(true);
    moveWindow({{1500, 0}, {900, 900}});
    tick();
    const Element outbox = mail.window({.title = "Outbox", .positionCG = Point{1500, 0}, .size = Size{900, 900}});
    tick();
    EXPECT_EQ(frameOf(outbox), (Rect{{1500, 22}, {900, 878}}));
}

// Room for a bar that hides itself.

class WindowUnderHiddenBarTest : public ScreenTopTest {
protected:
    WindowUnderHiddenBarTest() { set(preference::ScreenTopAutoHide, true); }
};

TEST_F(WindowUnderHiddenBarTest, IsMovedDownBy23PointsFromTheTopOfItsScreen) {
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 500}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 23}, {900, 500}}));
    EXPECT_EQ(timesTold([&] { fake.runLoop.advance(5); }), 0U);
    // Where the panel has room above it.
    EXPECT_EQ(panelWindow().frameNS.origin.x, 1500);
    moveWindow({{1500, 22.5}, {900, 500}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 45.5}, {900, 500}}));
}

TEST_F(WindowUnderHiddenBarTest, IsShortenedWhereItWouldReachBeyondTheScreen) {
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 877}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 23}, {900, 877}}));
    moveWindow({{1500, 0}, {900, 900}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 23}, {900, 877}}));
    moveWindow({{1500, 0}, {900, 876}});
    tick();
    EXPECT_EQ(windowFrame(), (Rect{{1500, 23}, {900, 876}}));
}

TEST_F(WindowUnderHiddenBarTest, IsMovedOnTheFirstScreenToo) {
    launchAndSettle();
    // Its visible part begins 22 points down.
    moveWindow({{100, 30}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 1U);
    EXPECT_EQ(windowFrame(), (Rect{{100, 53}, {900, 500}}));
}

TEST_F(WindowUnderHiddenBarTest, StaysWhereTheBarsStay) {
    set(preference::ScreenTopAutoHide, false);
    set(preference::HideOnPrimaryTopEdge, false);
    launchAndSettle();
    moveWindow({{100, 30}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderHiddenBarTest, StaysWherePanelsAreAlwaysOnTheTitleBar) {
    set(preference::TarragonAlwaysRight, true);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderHiddenBarTest, StaysUnderAPanelThatComesAndGoes) {
    set(preference::TarragonAlwaysVisible, false);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderHiddenBarTest, StaysUnderAVerticalPanel) {
    set(preference::Horizontal, false);
    launchAndSettle();
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderHiddenBarTest, StaysInTheUsersHand) {
    launchAndSettle();
    drag({1900, 690});
    moveWindow({{1500, 0}, {900, 500}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    release();
    settle();
    tick();
    EXPECT_EQ(windowFrame().origin.y, 23);
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
}

TEST_F(WindowUnderHiddenBarTest, ThatRefusesIsNotAskedAgainUntilItHasChanged) {
    launchAndSettle();
    holdWindow(true);
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 2U);
    EXPECT_EQ(timesTold([&] { fake.runLoop.advance(60); }), 0U);
    // Further down it is fine, and may then be asked again in its former place.
    moveWindow({{1500, 100}, {900, 700}});
    EXPECT_EQ(timesTold([&] { tick(); }), 0U);
    moveWindow({{1500, 0}, {900, 900}});
    EXPECT_EQ(timesTold([&] { tick(); }), 2U);
}

} // namespace
} // namespace tarragon
