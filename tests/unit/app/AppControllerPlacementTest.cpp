#include "FloatingPanelFixture.h"

#include <algorithm>

namespace tarragon {
namespace {

using testing::IsEmpty;

// What it takes away, and what brings it back.

TEST_F(FloatingPanelTest, IsNotMadeWithoutItsSetting) {
    set(preference::EnableButton, false);
    launchAndSettle();
    tick();
    EXPECT_THAT(panelToolkit.windows(), IsEmpty());
}

TEST_F(FloatingPanelTest, IsHiddenOverAFullScreenWindow) {
    launchAndSettle();
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    tick();
    EXPECT_FALSE(window().visible);
    fake.accessibility.setAttribute(inbox, "AXFullScreen", false);
    tick();
    EXPECT_TRUE(window().isSeen());
}

TEST_F(FloatingPanelTest, IsHiddenWhileNoWindowIsThere) {
    launchAndSettle();
    mail.removeFocusedWindow();
    tick();
    settle();
    EXPECT_FALSE(window().isSeen());
    mail.setFocusedWindow(inbox);
    tick();
    settle();
    EXPECT_TRUE(window().isSeen());
}

TEST_F(FloatingPanelTest, IsHiddenForAnIgnoredWindow) {
    launchAndSettle();
    controller().ignoreApp();
    EXPECT_FALSE(window().visible);
    tick();
    EXPECT_FALSE(window().visible);
}

TEST_F(FloatingPanelTest, IsLaidOutUnseenForAnIgnoredWindow) {
    launch();
    controller().ignoreApp();
    moveWindow({{100, 200}, {700, 500}});
    tick();
    settle();
    EXPECT_FALSE(window().isSeen());
    EXPECT_EQ(window().alpha, 0);
    EXPECT_EQ(panelFrame().size.width, 700);
}

TEST_F(FloatingPanelTest, ComesBackForAnotherWindowOfTheSameWidthThatIsNotIgnored) {
    launchAndSettle();
    controller().ignoreTitle();
    const FakeApplication notes = fake.addApplication("Notes");
    fake.switchTo(notes);
    fake.switchTo(mail);
    settle();
    EXPECT_FALSE(window().isSeen());
    mail.window({.title = "Outbox", .positionCG = Point{200, 300}, .size = Size{900, 500}});
    tick();
    tick();
    settle();
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(window().alpha, 1);
    // Once is enough.
    tick();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, ComesBackWhenTheWindowLeavesTheVeryTopOfThePrimaryScreen) {
    set(preference::HideOnPrimaryTopEdge, true);
    moveWindow({{100, 22}, {900, 500}});
    launchAndSettle();
    tick();
    settle();
    ASSERT_EQ(window().alpha, 0);
    moveWindow({{100, 100}, {900, 500}});
    tick();
    tick();
    settle();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, IsNotSeenForAMomentAtTheTopOfThePrimaryScreenWhereItIsAboutToGo) {
    moveWindow({{100, 22}, {900, 500}});
    launchAndSettle();
    ASSERT_EQ(window().alpha, 1);
    const auto isSeenWithin = [&](double seconds) {
        double most = 0;
        for (double passed = 0; passed < seconds; passed += 0.02) {
            fake.runLoop.advance(0.02);
            most = std::max(most, window().alpha);
        }
        return most > 0;
    };
    set(preference::HideOnPrimaryTopEdge, true);
    EXPECT_FALSE(isSeenWithin(1));
    moveWindow({{100, 22}, {700, 500}});
    EXPECT_FALSE(isSeenWithin(1));
    set(preference::HideOnPrimaryTopEdge, false);
    EXPECT_TRUE(isSeenWithin(1));
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, ComesBackInOneGoWhenTheWindowLeavesTheFullScreen) {
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    moveWindow({{0, 0}, {1440, 900}});
    launchAndSettle();
    EXPECT_FALSE(window().isSeen());
    fake.accessibility.setAttribute(inbox, "AXFullScreen", false);
    moveWindow({{100, 200}, {900, 500}});
    tick();
    settle();
    EXPECT_EQ(window().alpha, 1);
    tick();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, StepsBackForADialogThatOpensWhileItFadesIn) {
    launchAndSettle();
    moveWindow({{100, 200}, {700, 500}});
    // The titles are laid out for the new width, and fade in.
    controller().performTimerBasedUpdateOnce();
    fake.runLoop.advance(0.05);
    ASSERT_LT(window().alpha, 1);
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    // Sooner than a tick comes by itself.
    controller().performTimerBasedUpdateOnce();
    settle();
    tick();
    settle();
    EXPECT_FALSE(window().isSeen());
}

TEST_F(FloatingPanelTest, StepsBackForADialogAndComesBackAfterIt) {
    launchAndSettle();
    const Element dialog = mail.window(
        {.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    tick();
    settle();
    EXPECT_FALSE(window().isSeen());
    mail.setFocusedWindow(inbox);
    tick();
    settle();
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(window().alpha, 1);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, IsTakenAwayForADialogThatIsInFrontFromTheStart) {
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    launchAndSettle();
    controller().stopTimer();
    fake.switchTo(mail);
    settle();
    EXPECT_FALSE(window().visible);
    controller().performTimerBasedUpdateOnce();
    settle();
    // It counts as faded out already, and is not faded as well.
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, StepsBackForTheDesktop) {
    launchAndSettle();
    fake.accessibility.setAttribute(mail.element(), "AXTitle", std::string("Finder"));
    fake.accessibility.setAttribute(inbox, "AXRoleDescription", std::string("scroll area"));
    tick();
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(FloatingPanelTest, GoesByTheFirstScreenForAWindowOnNone) {
    // Its top is 100 points below that of the main display, by which windows are measured.
    fake.displays.setScreens({{{{0, 0}, {1440, 800}}, {{0, 0}, {1440, 800}}}});
    moveWindow({{5000, 10}, {900, 500}});
    launchAndSettle();
    tick();
    EXPECT_EQ(panelFrame().origin.x, 5068);
    moveWindow({{5000, 23}, {900, 500}});
    tick();
    EXPECT_EQ(panelFrame().origin.x, 5000);
}

TEST_F(FloatingPanelTest, StaysOffThePrimaryScreenWhereTheSettingSaysSo) {
    set(preference::ShowOnPrimaryScreen, false);
    launchAndSettle();
    tick();
    EXPECT_FALSE(window().isSeen());
    fake.displays.setScreens(
        {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}, {{{1440, 0}, {1000, 900}}, {{1440, 0}, {1000, 900}}}});
    moveWindow({{1500, 300}, {900, 500}});
    tick();
    settle();
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(panelTopLeftCG(), (Point{1500, 276}));
}

TEST_F(FloatingPanelTest, FadesAwayFromTheVeryTopOfThePrimaryScreenWhereTheSettingSaysSo) {
    set(preference::HideOnPrimaryTopEdge, true);
    moveWindow({{100, 23}, {900, 500}});
    launchAndSettle();
    tick();
    settle();
    EXPECT_EQ(window().alpha, 1);
    moveWindow({{100, 22}, {900, 500}});
    tick();
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(FloatingPanelTest, FadesAwayWhenAMirroredMenuHasClosedUnlessItIsAlwaysVisible) {
    set(preference::TarragonAlwaysVisible, false);
    launchAndSettle();
    EXPECT_EQ(window().alpha, 0);
    fake.displays.setMouseLocationNS({300, panelFrame().origin.y + 10});
    window().movePointer(Point{200, 10});
    settle();
    EXPECT_EQ(window().alpha, 1);
    tick();
    EXPECT_EQ(window().alpha, 1);
    window().press("Edit");
    fake.menuPresenter.choose(*fake.menuPresenter.openMenus().front()->items()[0]);
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(FloatingPanelTest, StaysAfterAMirroredMenuHasClosedWhereItIsAlwaysVisible) {
    launchAndSettle();
    window().press("Edit");
    fake.menuPresenter.choose(*fake.menuPresenter.openMenus().front()->items()[0]);
    settle();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, IsDroppedWithTheReaderAtTheEnd) {
    launchAndSettle();
    controller().clearAll();
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
    const std::size_t pauses = fake.runLoop.pauses().size();
    tick();
    fake.switchTo(mail);
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses);
}

// Screens that come and go.

TEST_F(FloatingPanelTest, IsPlacedAtOnceWhenAScreenIsConnectedOrRemoved) {
    launchAndSettle();
    EXPECT_EQ(fake.displays.reconfigurationHandlerCount(), 1U);
    for (const std::uint32_t flag : {displayReconfiguration::Added, displayReconfiguration::Removed}) {
        moveWindow({{100.0 + flag, 200}, {900, 500}});
        fake.displays.reconfigure(flag | displayReconfiguration::Moved);
        EXPECT_EQ(panelTopLeftCG(), (Point{100.0 + flag, 176}));
    }
}

TEST_F(FloatingPanelTest, IsLeftToTheNextTickWhenAScreenOnlyChanges) {
    launchAndSettle();
    moveWindow({{300, 200}, {900, 500}});
    fake.displays.reconfigure(
        displayReconfiguration::Moved | displayReconfiguration::SetMain | displayReconfiguration::SetMode);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{300, 176}));
}

TEST_F(FloatingPanelTest, StaysUnderItsOpenMenuWhenAScreenIsRemoved) {
    launchAndSettle();
    window().press("Edit");
    moveWindow({{300, 200}, {900, 500}});
    fake.displays.reconfigure(displayReconfiguration::Removed);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

} // namespace
} // namespace tarragon
