#include "ScreenTopFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The bars in the update cycle: switches of applications, ticks, and updates after a drag.
class ScreenTopUpdatesTest : public ScreenTopTest {
protected:
    FakeApplication addNotes() {
        const FakeApplication notes = fake.addApplication("Notes");
        notes.menu("Note").item("Pin");
        notes.window({.title = "List", .positionCG = Point{1500, 300}, .size = Size{800, 300}});
        return notes;
    }
    // Points of the top edge of the second screen, where a hidden bar is called.
    static constexpr Point TopOfSecondScreen{1600, 900};
    static constexpr Point TopOfThirdScreen{2500, 900};
    static constexpr Point BelowTheBars{1600, 500};
    static constexpr Rect HiddenOnSecondScreen{{1440, 928}, {1000, 22}};
    static constexpr Rect HiddenOnThirdScreen{{2440, 928}, {800, 22}};
};

// Switches of applications.

TEST_F(ScreenTopUpdatesTest, ShowTheTitlesOfTheApplicationThatComesToTheFront) {
    setScreenCount(3);
    launchAndSettle();
    const std::size_t pauses = fake.runLoop.pauses().size();
    fake.switchTo(addNotes());
    EXPECT_THAT(bar(0).titles(), ElementsAre("Note", "Tarragon "));
    EXPECT_THAT(bar(1).titles(), ElementsAre("Note", "Tarragon "));
    // The one is for the panel.
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses + 1);
    fake.switchTo(mail);
    EXPECT_THAT(bar(0).titles(), ElementsAre("File", "Edit", "Tarragon "));
}

TEST_F(ScreenTopUpdatesTest, ShowThemBeforeThePanelIsMade) {
    launchAndSettle();
    const std::size_t windows = panelToolkit.windows().size();
    const FakeApplication notes = addNotes();
    set(preference::EnableButton, false);
    fake.switchTo(notes);
    EXPECT_EQ(panelToolkit.windows().size(), windows);
    EXPECT_THAT(bar(0).titles(), ElementsAre("Note", "Tarragon "));
}

TEST_F(ScreenTopUpdatesTest, KeepTheTitlesOfTheApplicationBehindAWindowOfOurOwn) {
    launchAndSettle();
    const FakeApplication ourselves = fake.addApplication("Tarragon");
    ourselves.menu("Own").item("Item");
    fake.switchTo(ourselves);
    EXPECT_THAT(bar(0).titles(), ElementsAre("File", "Edit", "Tarragon "));
}

TEST_F(ScreenTopUpdatesTest, FollowAScreenInAnotherModeAndPlaceWithTheNextSwitch) {
    launchAndSettle();
    std::vector<Screen> changed = screens(2);
    changed[1] = {{{1440, 100}, {1280, 1024}}, {{1440, 100}, {1280, 1024}}};
    fake.displays.setScreens(changed);
    fake.displays.reconfigure(displayReconfiguration::SetMode | displayReconfiguration::Moved);
    tick();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen));
    fake.switchTo(addNotes());
    EXPECT_THAT(barFrames(), ElementsAre(Rect{{1440, 1102}, {1280, 22}}));
}

TEST_F(ScreenTopUpdatesTest, AreMadeByNoSwitch) {
    setScreenCount(1);
    launchAndSettle();
    setScreenCount(2);
    fake.switchTo(addNotes());
    EXPECT_THAT(bars(), IsEmpty());
}

TEST_F(ScreenTopUpdatesTest, AreLeftAsTheyAreByASwitchWhileOneScreenIsLeft) {
    launchAndSettle();
    setScreenCount(1);
    const int drawn = bar(0).timesDisplayed;
    fake.switchTo(addNotes());
    EXPECT_EQ(bar(0).timesDisplayed, drawn);
}

// Applications that publish their menus anew when a window moves.

class ScreenTopBrowserTest : public ScreenTopUpdatesTest {
protected:
    ScreenTopBrowserTest()
        : browser(fake.addApplication("Firefox")) {
        browser.menu("Page").item("New");
        page = browser.window({.title = "Page", .positionCG = Point{1500, 300}, .size = Size{800, 400}});
    }
    // The window moves, and the application has one more menu.
    void changeBrowser() {
        browser.menu("Late").item("Item");
        moveWindow(page, {{1510, 310}, {800, 400}});
        tick();
    }
    void launchAndBringUp() {
        launchAndSettle();
        fake.switchTo(browser);
        tick();
        ASSERT_THAT(bar(0).titles(), ElementsAre("Page", "Tarragon "));
    }
    FakeApplication browser;
    Element page;
};

TEST_F(ScreenTopBrowserTest, GetsItsNewMenusShownWhileThePointerIsOnAnotherScreenThanTheFirst) {
    launchAndBringUp();
    fake.displays.setMouseLocationNS(BelowTheBars);
    const std::size_t pauses = fake.runLoop.pauses().size();
    changeBrowser();
    EXPECT_THAT(bar(0).titles(), ElementsAre("Page", "Late", "Tarragon "));
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses + 1);
}

TEST_F(ScreenTopBrowserTest, GetsItsNewMenusShownWhileThePointerIsOnNoScreen) {
    launchAndBringUp();
    fake.displays.setMouseLocationNS({-5000, -5000});
    changeBrowser();
    EXPECT_THAT(bar(0).titles(), ElementsAre("Page", "Late", "Tarragon "));
}

TEST_F(ScreenTopBrowserTest, GetsBarsForScreensThatCameMeanwhile) {
    launchAndBringUp();
    setScreenCount(3);
    fake.displays.setMouseLocationNS(BelowTheBars);
    changeBrowser();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, FrameOnThirdScreen));
}

TEST_F(ScreenTopBrowserTest, KeepsItsFormerTitlesWhileThePointerIsOnTheFirstScreen) {
    launchAndBringUp();
    fake.displays.setMouseLocationNS({700, 500});
    changeBrowser();
    EXPECT_THAT(bar(0).titles(), ElementsAre("Page", "Tarragon "));
}

TEST_F(ScreenTopBrowserTest, GetsNoBarsWhereTheyAreOff) {
    set(preference::EnableScreenTop, false);
    launchAndSettle();
    fake.switchTo(browser);
    fake.displays.setMouseLocationNS(BelowTheBars);
    changeBrowser();
    EXPECT_THAT(bars(), IsEmpty());
}

// Menus that are open.

TEST_F(ScreenTopUpdatesTest, KeepEverythingInItsPlaceWhileATitleHasItsMenuOpen) {
    launchAndSettle();
    tick();
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
    const Rect panel = panelWindow().frameNS;
    bar(0).press("Edit");
    EXPECT_TRUE(controller().checkIfMenuIsShowing());
    moveWindow({{1600, 0}, {700, 500}});
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    EXPECT_EQ(timesTold([&] {
        tick();
        controller().performUpdate();
    }),
        0U);
    settle();
    EXPECT_EQ(panelWindow().frameNS, panel);
    EXPECT_TRUE(isSeen(0));
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
}

TEST_F(ScreenTopUpdatesTest, KeepThePanelSeenDuringADragWhileATitleHasItsMenuOpen) {
    launchAndSettle();
    bar(0).press("Edit");
    drag({1700, 690});
    settle();
    EXPECT_TRUE(panelWindow().isSeen());
}

// Full screen.

TEST_F(ScreenTopUpdatesTest, HideWhileTheWindowInFrontIsFullScreenAndComeBackAfterIt) {
    setScreenCount(3);
    launchAndSettle();
    // On whichever screen.
    for (const double x : {0.0, 1440.0, 2440.0}) {
        moveWindow({{x, 100}, {700, 400}});
        fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
        tick();
        EXPECT_FALSE(isSeen(0)) << x;
        EXPECT_FALSE(isSeen(1)) << x;
        tick();
        EXPECT_FALSE(isSeen(0)) << x;
        fake.accessibility.setAttribute(inbox, "AXFullScreen", false);
        tick();
        EXPECT_TRUE(isSeen(0)) << x;
        EXPECT_TRUE(isSeen(1)) << x;
    }
}

TEST_F(ScreenTopUpdatesTest, HideAlsoWithoutAPanelAndWithAVerticalOne) {
    launchAndSettle();
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    set(preference::Horizontal, false);
    tick();
    EXPECT_FALSE(isSeen(0));
    set(preference::EnableButton, false);
    fake.accessibility.setAttribute(inbox, "AXFullScreen", false);
    tick();
    EXPECT_TRUE(isSeen(0));
}

TEST_F(ScreenTopUpdatesTest, StayAsTheyAreWhileADialogIsInFront) {
    launchAndSettle();
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    tick();
    ASSERT_FALSE(isSeen(0));
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{1600, 300}, .size = Size{400, 200}});
    tick();
    EXPECT_FALSE(isSeen(0));
}

TEST_F(ScreenTopUpdatesTest, StayAsTheyAreWhileThePanelIsDragged) {
    launchAndSettle();
    controller().tarragonPanel()->setBeingDragged(true);
    fake.accessibility.setAttribute(inbox, "AXFullScreen", true);
    tick();
    EXPECT_TRUE(isSeen(0));
    controller().tarragonPanel()->setBeingDragged(false);
    tick();
    EXPECT_FALSE(isSeen(0));
}

// Bars that hide themselves.

TEST_F(ScreenTopUpdatesTest, SlideInAndOutWithTheTickOnTheScreenOfTheWindowInFront) {
    set(preference::ScreenTopAutoHide, true);
    setScreenCount(3);
    launchAndSettle();
    ASSERT_THAT(barFrames(), ElementsAre(HiddenOnSecondScreen, HiddenOnThirdScreen));
    fake.displays.setMouseLocationNS(TopOfSecondScreen);
    tick();
    settle();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, HiddenOnThirdScreen));
    fake.displays.setMouseLocationNS(BelowTheBars);
    tick();
    settle();
    EXPECT_THAT(barFrames(), ElementsAre(HiddenOnSecondScreen, HiddenOnThirdScreen));
    moveWindow({{2500, 100}, {500, 300}});
    fake.displays.setMouseLocationNS(TopOfThirdScreen);
    tick();
    settle();
    EXPECT_THAT(barFrames(), ElementsAre(HiddenOnSecondScreen, FrameOnThirdScreen));
}

TEST_F(ScreenTopUpdatesTest, StayOutWhileTheWindowInFrontIsOnAnotherScreen) {
    set(preference::ScreenTopAutoHide, true);
    setScreenCount(3);
    launchAndSettle();
    fake.displays.setMouseLocationNS(TopOfSecondScreen);
    for (const double x : {100.0, 2500.0}) {
        moveWindow({{x, 100}, {500, 300}});
        tick();
        settle();
        EXPECT_THAT(barFrames(), ElementsAre(HiddenOnSecondScreen, HiddenOnThirdScreen)) << x;
    }
}

TEST_F(ScreenTopUpdatesTest, StayOutForAWindowOnAScreenThatHasNoBarYet) {
    set(preference::ScreenTopAutoHide, true);
    launchAndSettle();
    setScreenCount(3);
    moveWindow({{2500, 100}, {500, 300}});
    fake.displays.setMouseLocationNS(TopOfThirdScreen);
    tick();
    settle();
    EXPECT_THAT(barFrames(), ElementsAre(HiddenOnSecondScreen));
}

TEST_F(ScreenTopUpdatesTest, StayInWhileATitleHasItsMenuOpenWhereverThePointerIs) {
    set(preference::ScreenTopAutoHide, true);
    launchAndSettle();
    fake.displays.setMouseLocationNS(TopOfSecondScreen);
    tick();
    settle();
    bar(0).press("Edit");
    fake.displays.setMouseLocationNS({1600, 100});
    tick();
    settle();
    EXPECT_EQ(bar(0).frameNS, FrameOnSecondScreen);
    fake.menuPresenter.closeMenus();
    tick();
    settle();
    EXPECT_EQ(bar(0).frameNS, HiddenOnSecondScreen);
}

// A panel close to a bar.

class PanelNearBarTest : public ScreenTopUpdatesTest {
protected:
    // How many points the window's top is below the bottom edge of the bar.
    bool panelStaysAt(double distance) {
        moveWindow({{1500, 22 + distance}, {900, 500}});
        const bool closes = controller().closeCheck();
        settle();
        EXPECT_EQ(panelWindow().isSeen(), !closes);
        return !closes;
    }
};

TEST_F(PanelNearBarTest, FadesOutAt99PointsAndStaysAt100) {
    launchAndSettle();
    EXPECT_TRUE(panelStaysAt(100));
    EXPECT_FALSE(panelStaysAt(99));
}

TEST_F(PanelNearBarTest, ComesBackFurtherDown) {
    launchAndSettle();
    moveWindow({{1500, 121}, {900, 500}});
    tick();
    settle();
    ASSERT_FALSE(panelWindow().isSeen());
    moveWindow({{1500, 122}, {900, 500}});
    tick();
    tick();
    settle();
    EXPECT_TRUE(panelWindow().isSeen());
}

TEST_F(PanelNearBarTest, GoesByTheBarOfItsOwnScreen) {
    // The third screen is 300 points lower.
    std::vector<Screen> screens = ScreenTopTest::screens(3);
    screens[2].frameNS.origin.y = screens[2].visibleFrameNS.origin.y = 0;
    fake.displays.setScreens(screens);
    launchAndSettle();
    moveWindow({{2500, 421}, {500, 300}});
    EXPECT_TRUE(controller().closeCheck());
    moveWindow({{2500, 422}, {500, 300}});
    EXPECT_FALSE(controller().closeCheck());
}

TEST_F(PanelNearBarTest, StaysWhereTheBarsHideThemselves) {
    launchAndSettle();
    // They tell so themselves, also when that has just changed.
    set(preference::ScreenTopAutoHide, true);
    EXPECT_TRUE(panelStaysAt(99));
}

TEST_F(PanelNearBarTest, StaysWhereThereAreNoBars) {
    set(preference::EnableScreenTop, false);
    launchAndSettle();
    EXPECT_TRUE(panelStaysAt(99));
}

TEST_F(PanelNearBarTest, StaysWhenItIsVertical) {
    set(preference::Horizontal, false);
    launchAndSettle();
    EXPECT_TRUE(panelStaysAt(99));
}

TEST_F(PanelNearBarTest, StaysOnTheFirstScreen) {
    launchAndSettle();
    moveWindow({{100, 30}, {900, 500}});
    EXPECT_FALSE(controller().closeCheck());
}

TEST_F(PanelNearBarTest, StaysOnAScreenThatHasNoBarYet) {
    launchAndSettle();
    setScreenCount(3);
    moveWindow({{2500, 50}, {500, 300}});
    EXPECT_FALSE(controller().closeCheck());
}

// What a tick costs.

TEST_F(ScreenTopUpdatesTest, CostATickNothingOnASingleScreen) {
    const auto callsOfTick = [this] {
        fake.accessibility.clearCalls();
        tick();
        return fake.accessibility.calls();
    };
    setScreenCount(1);
    launchAndSettle();
    tick();
    const auto calls = callsOfTick();
    set(preference::EnableScreenTop, false);
    EXPECT_EQ(callsOfTick(), calls);
}

TEST_F(ScreenTopUpdatesTest, LeaveATickWithOneLookAtTheWindow) {
    setScreenCount(3);
    launchAndSettle();
    tick();
    const std::size_t outside = fake.accessibility.callsOutsideBatches();
    const std::size_t batches = fake.accessibility.batchCount();
    tick();
    EXPECT_EQ(fake.accessibility.callsOutsideBatches(), outside);
    EXPECT_EQ(fake.accessibility.batchCount(), batches + 1);
}

TEST_F(ScreenTopUpdatesTest, DoNotAskForThePointerUnlessTheyHideThemselves) {
    launchAndSettle();
    tick();
    const int asked = fake.displays.timesPointerWasAsked();
    tick();
    EXPECT_EQ(fake.displays.timesPointerWasAsked(), asked);
    set(preference::ScreenTopAutoHide, true);
    tick();
    EXPECT_EQ(fake.displays.timesPointerWasAsked(), asked + 1);
}

TEST_F(ScreenTopUpdatesTest, DrawAndMoveNothingWhileNothingChanges) {
    setScreenCount(3);
    launchAndSettle();
    tick();
    settle();
    const int drawn = bar(0).timesDisplayed;
    const std::size_t framesSet = bar(0).frames.size();
    EXPECT_EQ(timesTold([&] { fake.runLoop.advance(5); }), 0U);
    EXPECT_EQ(bar(0).timesDisplayed, drawn);
    EXPECT_EQ(bar(0).frames.size(), framesSet);
    EXPECT_THAT(bars(), SizeIs(2));
}

} // namespace
} // namespace tarragon
