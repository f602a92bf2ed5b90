#include "AppFixture.h"

#include "panels/TarragonPanel.h"
#include "panels/rules/PanelFade.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The screen has 1440 by 900 points; the window's top-left corner is at (100, 200), its width is 900.
class FloatingPanelTest : public AppTest {
protected:
    FakePanelToolkit::Window& window() { return panelToolkit.latest(); }
    TarragonPanel& panel() { return *controller().tarragonPanel(); }
    void settle() { fake.runLoop.advance(0.3); }
    void tick() { fake.runLoop.advance(0.45); }
    void launchAndSettle() {
        launch();
        settle();
    }
    void moveWindow(const Rect& frameCG) {
        fake.accessibility.setAttribute(inbox, "AXPosition", frameCG.origin);
        fake.accessibility.setAttribute(inbox, "AXSize", frameCG.size);
    }
    Rect panelFrame() { return panelToolkit.latest().frameNS; }
    // The panel's left edge and top edge, measured from the top of the screen as windows are.
    Point panelTopLeftCG() {
        const Rect frame = panelFrame();
        return {frame.origin.x, 900 - frame.origin.y - frame.size.height};
    }
};

TEST_F(FloatingPanelTest, ShowsTheTitlesOfTheApplicationAboveItsWindow) {
    launchAndSettle();
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "Tarragon"));
    EXPECT_EQ(panelFrame().size, (Size{900, 24}));
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(window().alpha, 1);
    EXPECT_TRUE(window().content.background.showGradient);
}

TEST_F(FloatingPanelTest, LaysTheTitlesOutBesideEachOther) {
    launchAndSettle();
    // 8 points a character and 10 more; 15 points between one title and the next.
    EXPECT_EQ(window().button("File")->frame, (Rect{{5, 3}, {42, 18}}));
    EXPECT_EQ(window().button("Edit")->frame, (Rect{{62, 3}, {42, 18}}));
    EXPECT_EQ(window().button("Tarragon")->frame, (Rect{{119, 3}, {74, 18}}));
}

TEST_F(FloatingPanelTest, RidesOnTheTitleBarOfAWindowAtTheTopOfTheScreen) {
    moveWindow({{100, 22}, {900, 500}});
    launchAndSettle();
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 22}));
    EXPECT_FALSE(window().content.background.showGradient);
}

TEST_F(FloatingPanelTest, GoesAboveTheWindowExactly23PointsBelowTheTop) {
    fake.displays.setScreens({{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 900}}}});
    moveWindow({{100, 23}, {900, 500}});
    launchAndSettle();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, -1}));
    moveWindow({{100, 22.9}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG().x, 168);
}

TEST_F(FloatingPanelTest, StaysBelowABarOfTheDesktopThatIsHigherThanUsual) {
    fake.displays.setScreens({{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 870}}}});
    moveWindow({{100, 30}, {900, 500}});
    launchAndSettle();
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 30}));
    moveWindow({{100, 53}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 29}));
}

TEST_F(FloatingPanelTest, RidesOnTheTitleBarWhereTheSettingSaysSo) {
    set(preference::TarragonAlwaysRight, true);
    launchAndSettle();
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 200}));
}

TEST_F(FloatingPanelTest, FollowsTheWindowWithTheNextTick) {
    launchAndSettle();
    moveWindow({{-300.5, 333}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{-300.5, 309}));
}

TEST_F(FloatingPanelTest, LaysTheTitlesOutAnewForAnotherWidth) {
    launchAndSettle();
    moveWindow({{100, 200}, {150, 500}});
    tick();
    settle();
    EXPECT_EQ(panelFrame().size.width, 150);
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "\u25BF"));
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FloatingPanelTest, KeepsTheTitlesThatDoNotFitInItsBunchMenu) {
    moveWindow({{100, 200}, {80, 500}});
    launchAndSettle();
    EXPECT_THAT(window().titles(), ElementsAre("\u25BF"));
    window().press("\u25BF");
    ASSERT_THAT(fake.menuPresenter.openMenus(), SizeIs(1));
    const Menu& bunch = *fake.menuPresenter.openMenus().front();
    EXPECT_EQ(bunch.title(), "");
    ASSERT_EQ(bunch.numberOfItems(), 3U);
    EXPECT_EQ(bunch.items()[0]->title(), "File");
    // Copies: the mirror itself stays whole.
    EXPECT_NE(bunch.items()[0], reader().menu()->items()[0]);
    EXPECT_TRUE(bunch.items()[0]->hasSubmenu());
    EXPECT_EQ(bunch.font(), (MenuFont{12, false}));
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
}

TEST_F(FloatingPanelTest, PutsTheBunchButtonRightOfTheLastTitle) {
    moveWindow({{100, 200}, {150, 500}});
    launchAndSettle();
    const Rect last = window().button("Edit")->frame;
    EXPECT_EQ(window().button("\u25BF")->frame.origin, (Point{last.origin.x + last.size.width + 5, 3}));
}

TEST_F(FloatingPanelTest, SuspendsTheRightOfTheButtonsForAWindowThatIsTooNarrow) {
    set(preference::TarragonAlwaysRight, true);
    moveWindow({{100, 200}, {565, 500}});
    launchAndSettle();
    EXPECT_FALSE(controller().preferences()._tarragonAlwaysRight);
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "Tarragon"));
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    moveWindow({{100, 200}, {900, 500}});
    tick();
    EXPECT_TRUE(controller().preferences()._tarragonAlwaysRight);
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 200}));
}

TEST_F(FloatingPanelTest, OpensTheMenuOfATitle) {
    launchAndSettle();
    window().press("Edit");
    ASSERT_THAT(fake.menuPresenter.openMenus(), SizeIs(1));
    Menu& menu = *fake.menuPresenter.openMenus().front();
    EXPECT_EQ(menu.items()[0]->title(), "Copy");
    EXPECT_EQ(menu.font(), (MenuFont{12, false}));
    EXPECT_TRUE(controller().checkIfMenuIsShowing());
    fake.menuPresenter.choose(*menu.items()[0]);
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
    EXPECT_EQ(fake.accessibility.callsOf(FakeCall::Operation::PerformAction).size(), 1U);
}

TEST_F(FloatingPanelTest, MovesNothingWhileAMenuIsOpen) {
    launchAndSettle();
    window().press("Edit");
    moveWindow({{300, 400}, {700, 500}});
    tick();
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    EXPECT_EQ(panelFrame().size.width, 900);
    fake.menuPresenter.closeMenus();
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{300, 376}));
}

TEST_F(FloatingPanelTest, MovesNothingWhileThePopUpOfTheHotKeyIsOpen) {
    launchAndSettle();
    controller().popUpMenuAtMouseLocation();
    moveWindow({{300, 400}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, KeepsItsOpenMenuWhenItIsRebuilt) {
    launchAndSettle();
    window().press("Edit");
    set(preference::FontSizeSmall, std::int64_t{14});
    ASSERT_THAT(fake.menuPresenter.openMenus(), SizeIs(1));
    EXPECT_TRUE(window().button("Edit")->highlighted);
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Left);
    EXPECT_EQ(fake.menuPresenter.openMenus().front()->title(), "File");
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
}

TEST_F(FloatingPanelTest, ClosesAMenuForWhichNoTitleStandsAnyMore) {
    mail.menu("Apple").item("About");
    launchAndSettle();
    window().press("Edit");
    // Reads every menu anew, so that the open one belongs to no title.
    set(preference::ShowAppleMenu, false);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
    moveWindow({{300, 400}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{300, 376}));
}

TEST_F(FloatingPanelTest, ClosesTheMenuOfATitleThatGoesIntoTheBunchMenu) {
    moveWindow({{100, 200}, {230, 500}});
    launchAndSettle();
    ASSERT_THAT(window().titles(), ElementsAre("File", "Edit", "Tarragon"));
    window().press("Tarragon");
    moveWindow({{100, 200}, {150, 500}});
    set(preference::ButtonHasShadow, true);
    ASSERT_THAT(window().titles(), ElementsAre("File", "Edit", "\u25BF"));
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
}

TEST_F(FloatingPanelTest, FollowsThePointerFromTheFirstDragOn) {
    launchAndSettle();
    const Rect before = panelFrame();
    const Point start{before.origin.x + 700, before.origin.y + 10};
    window().press(Point{700, 10});
    window().drag({700, 10}, start);
    EXPECT_EQ(panelFrame(), before);
    window().drag({700, 10}, {start.x + 20, start.y - 30});
    EXPECT_EQ(panelFrame().origin, (Point{before.origin.x + 20, before.origin.y - 30}));
}

TEST_F(FloatingPanelTest, IsNotMadeBeforeThereIsAReader) {
    fake.deactivate();
    launch();
    set(preference::EnableButton, true);
    set(preference::TarragonAlwaysVisible, true);
    controller().observeValueForKeyPath(keyPath(preference::EnableButton));
    controller().observeValueForKeyPath(keyPath(preference::TarragonAlwaysVisible));
    EXPECT_THAT(panelToolkit.windows(), IsEmpty());
    fake.switchTo(mail);
    settle();
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "Tarragon"));
}

// The kinds of panels.

class VerticalPanelTest : public FloatingPanelTest {
protected:
    VerticalPanelTest() { set(preference::Horizontal, false); }
};

TEST_F(VerticalPanelTest, ShowsOneButtonWithItsLabelAboveTheWindow) {
    set(preference::ButtonLabel, std::string("Go"));
    launchAndSettle();
    tick();
    EXPECT_THAT(window().titles(), ElementsAre("Go"));
    EXPECT_EQ(panelFrame().size, (Size{56, 25}));
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 173}));
    EXPECT_FALSE(window().content.background.showGradient);
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(VerticalPanelTest, RidesOnTheTitleBarOfAWindowAtTheTop) {
    moveWindow({{100, 10}, {900, 500}});
    launchAndSettle();
    tick();
    EXPECT_EQ(panelFrame().size.height, 26);
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 5}));
}

TEST_F(VerticalPanelTest, ShowsALongLabelWhole) {
    set(preference::ButtonLabel, std::string("A label of some length"));
    launchAndSettle();
    EXPECT_GE(panelFrame().size.width, window().content.buttons.front().frame.size.width);
}

TEST_F(VerticalPanelTest, OpensTheWholeMirrorBelowItself) {
    launchAndSettle();
    tick();
    window().press("Menu");
    ASSERT_THAT(fake.menuPresenter.popUps(), SizeIs(1));
    EXPECT_EQ(fake.menuPresenter.popUps()[0].menu, reader().menu());
    EXPECT_EQ(fake.menuPresenter.popUps()[0].locationNS, (Point{100, panelFrame().origin.y - 6}));
}

TEST_F(VerticalPanelTest, ShowsTheApplicationsOwnMenuInBoldFromTheFirstPressOn) {
    mail.menu("Mail").item("About");
    launchAndSettle();
    EXPECT_FALSE(reader().menu()->itemWithTitle("Mail")->attributedTitle());
    window().press("Menu");
    EXPECT_TRUE(reader().menu()->itemWithTitle("Mail")->attributedTitle());
}

TEST_F(VerticalPanelTest, TakesItsLabelAnewWheneverItIsFilled) {
    launchAndSettle();
    set(preference::ButtonLabel, std::string("Go"));
    EXPECT_THAT(window().titles(), ElementsAre("Go"));
    fake.defaults.setValue(preference::ButtonLabel, std::string("Stop"));
    controller().refreshPanel();
    EXPECT_THAT(window().titles(), ElementsAre("Stop"));
}

TEST_F(VerticalPanelTest, StaysHiddenWhenItIsRefreshedOnThePrimaryScreenThatItIsToStayOff) {
    launchAndSettle();
    controller().refreshPanel();
    EXPECT_TRUE(window().isSeen());
    set(preference::ShowOnPrimaryScreen, false);
    controller().refreshPanel();
    EXPECT_FALSE(window().isSeen());
}

TEST_F(VerticalPanelTest, GivesTheOwnMenuItsFontWhereItIsPlaced) {
    launchAndSettle();
    tick();
    EXPECT_EQ(reader().auxiliaryMenu()->font(), (MenuFont{12, false}));
}

TEST_F(VerticalPanelTest, IsNeverShownInTheBorderlessStyle) {
    // The stored style is read as the menu-bar look, so that the fall-back of the placement has nothing to do here.
    set(preference::ButtonStyle, std::int64_t{4});
    launchAndSettle();
    tick();
    EXPECT_EQ(controller().preferences()._buttonStyle, 5);
    EXPECT_TRUE(window().content.buttons.front().dress.bordered);
}

TEST_F(VerticalPanelTest, FadesInAndOutWithThePointerUnlessItIsAlwaysVisible) {
    set(preference::TarragonAlwaysVisible, false);
    launchAndSettle();
    tick();
    EXPECT_EQ(window().alpha, 0);
    window().movePointer(Point{5, 5});
    settle();
    EXPECT_EQ(window().alpha, 1);
    window().movePointer(std::nullopt);
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(FloatingPanelTest, OpensTheIgnoreMenuBelowItself) {
    launchAndSettle();
    window().rightPress("File");
    ASSERT_THAT(fake.menuPresenter.popUps(), SizeIs(1));
    EXPECT_EQ(fake.menuPresenter.popUps()[0].menu->title(), "Ignore");
    EXPECT_EQ(fake.menuPresenter.popUps()[0].locationNS, (Point{100, 694}));
    fake.menuPresenter.closeMenus();
    window().press("File", true);
    EXPECT_EQ(fake.menuPresenter.popUps()[1].menu->title(), "Ignore");
}

TEST_F(FloatingPanelTest, OpensMenusAtTheCornerOfTheScreenWithoutAPanel) {
    set(preference::EnableButton, false);
    launchAndSettle();
    EXPECT_EQ(controller().tarragonPanel(), nullptr);
    controller().popUpMenu();
    EXPECT_EQ(fake.menuPresenter.popUps()[0].locationNS, (Point{0, -6}));
    controller().popUpIgnoreMenu();
    EXPECT_EQ(fake.menuPresenter.popUps()[1].locationNS, (Point{0, -6}));
}

TEST_F(FloatingPanelTest, GetsTheSingleButtonFirstWhenItIsRefreshed) {
    launchAndSettle();
    controller().refreshPanel();
    EXPECT_THAT(window().titles(), ElementsAre("Menu"));
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
}

TEST_F(FloatingPanelTest, MovesItsButtonsByFiveEachTime) {
    launchAndSettle();
    controller().setSpacingBetweenButtons(77);
    controller().setSpacingBetweenButtons(0);
    EXPECT_EQ(window().button("File")->frame.origin, (Point{15, 3}));
}

// Styles.

TEST_F(FloatingPanelTest, DressesItsTitlesInTheStyleThatIsSet) {
    launchAndSettle();
    EXPECT_EQ(window().button("File")->dress.bezel, ButtonBezel::RoundRect);
    for (const auto& [style, bezel] : std::vector<std::pair<std::int64_t, ButtonBezel>>{{1, ButtonBezel::Recessed},
             {2, ButtonBezel::SmallSquare}, {3, ButtonBezel::ShadowlessSquare}, {0, ButtonBezel::RoundRect}}) {
        set(preference::ButtonStyle, style);
        EXPECT_EQ(window().button("File")->dress.bezel, bezel) << style;
        EXPECT_EQ(window().button("File")->look, ButtonLook::Bezel);
    }
}

TEST_F(FloatingPanelTest, DrawsItsTitlesAsAMenuBarDoes) {
    set(preference::ButtonStyle, std::int64_t{5});
    launchAndSettle();
    EXPECT_EQ(window().button("File")->look, ButtonLook::MenuBar);
    EXPECT_EQ(window().button("File")->font, (MenuFont{13, false}));
    EXPECT_EQ(window().button("File")->frame.size.width, 50);
    tick();
    EXPECT_EQ(window().button("File")->frame.size.width, 50);
}

TEST_F(FloatingPanelTest, UsesTheTitleFontHalfAPointSmaller) {
    set(preference::TitleFontSizeSmall, std::int64_t{11});
    launchAndSettle();
    EXPECT_EQ(window().button("File")->font, (MenuFont{10.5, false}));
    set(preference::TitleFontSizeSmall, std::int64_t{0});
    EXPECT_EQ(window().button("File")->font, (MenuFont{12.5, false}));
}

TEST_F(FloatingPanelTest, ShowsTheApplicationsOwnMenuInBold) {
    mail.menu("Mail").item("About");
    launchAndSettle();
    EXPECT_EQ(window().button("Mail")->font, (MenuFont{12.5, true}));
    EXPECT_EQ(window().button("File")->font, (MenuFont{12.5, false}));
}

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

// A switch of applications.

TEST_F(FloatingPanelTest, IsMadeAnewForAnotherApplication) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(panelToolkit.windows().size(), 2U);
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
    settle();
    EXPECT_THAT(window().titles(), ElementsAre("Note", "Tarragon"));
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 476}));
    EXPECT_TRUE(panel().shouldRedoInitials());
}

TEST_F(FloatingPanelTest, TakesItsOpenMenuAlong) {
    launchAndSettle();
    window().press("Edit");
    fake.quit(mail);
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
    settle();
    EXPECT_TRUE(window().isSeen());
}

TEST_F(FloatingPanelTest, LeavesThePopUpOfTheHotKeyOpenWhenItEnds) {
    launchAndSettle();
    controller().popUpMenuAtMouseLocation();
    set(preference::EnableButton, false);
    EXPECT_THAT(fake.menuPresenter.openMenus(), SizeIs(1));
}

TEST_F(FloatingPanelTest, KeepsItsPlaceWhileAnOwnWindowIsInFront) {
    launchAndSettle();
    const FakeApplication ourselves = fake.addApplication("Tarragon");
    fake.switchTo(ourselves);
    EXPECT_EQ(panelToolkit.windows().size(), 1U);
}

TEST_F(VerticalPanelTest, IsMadeAnewForAnotherApplication) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(panelToolkit.windows().size(), 2U);
    EXPECT_TRUE(panel().shouldRedoInitials());
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 473}));
}

TEST_F(VerticalPanelTest, StandsWhereItStaysFromTheStart) {
    launch();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 173}));
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 473}));
    EXPECT_TRUE(window().isSeen());
}

TEST_F(VerticalPanelTest, IsNotShownForAMomentOverAFullScreenWindow) {
    launchAndSettle();
    const FakeApplication player = fake.addApplication("Player");
    player.menu("File").item("Open");
    player.window({.title = "Film", .positionCG = Point{0, 0}, .size = Size{1440, 900}, .fullScreen = true});
    fake.switchTo(player);
    EXPECT_FALSE(window().isSeen());
}

// Settings that change while the program runs.

TEST_F(FloatingPanelTest, BecomesVerticalAndHorizontalAgain) {
    launchAndSettle();
    set(preference::Horizontal, false);
    EXPECT_THAT(window().titles(), ElementsAre("Menu"));
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 173}));
    set(preference::Horizontal, true);
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "Tarragon"));
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, ComesAndGoesWithItsSetting) {
    launchAndSettle();
    set(preference::EnableButton, false);
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
    set(preference::EnableButton, true);
    settle();
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, GoesToTheRightOfTheButtonsAtOnce) {
    launchAndSettle();
    set(preference::TarragonAlwaysRight, true);
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 200}));
    set(preference::TarragonAlwaysRight, false);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, LeavesTheButtonsForGoodAlsoOverAWindowThatIsTooNarrowForThem) {
    set(preference::TarragonAlwaysRight, true);
    moveWindow({{100, 200}, {565, 500}});
    launchAndSettle();
    set(preference::TarragonAlwaysRight, false);
    moveWindow({{100, 200}, {900, 500}});
    tick();
    EXPECT_FALSE(controller().preferences()._tarragonAlwaysRight);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, HidesOnThePrimaryScreenAtOnce) {
    launchAndSettle();
    set(preference::ShowOnPrimaryScreen, false);
    EXPECT_FALSE(window().isSeen());
    set(preference::ShowOnPrimaryScreen, true);
    settle();
    EXPECT_TRUE(window().isSeen());
}

TEST_F(FloatingPanelTest, FadesFromNowOnWhenItIsNoLongerAlwaysVisible) {
    launchAndSettle();
    set(preference::TarragonAlwaysVisible, false);
    EXPECT_EQ(window().alpha, 0);
    EXPECT_TRUE(panel().fadeEffect());
    set(preference::TarragonAlwaysVisible, true);
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_FALSE(panel().fadeEffect());
}

TEST_F(FloatingPanelTest, IsRebuiltForEverySettingThatItShows) {
    launchAndSettle();
    for (const std::string_view key : {preference::FoldAlternate, preference::ShowKeyEquivalents,
             preference::ShowAppleMenu, preference::ShowTarragonMenu, preference::TarragonAlwaysVisible,
             preference::TarragonAlwaysRight, preference::HideOnPrimaryTopEdge, preference::ShowOnPrimaryScreen,
             preference::EnableButton, preference::Horizontal, preference::FontSizeSmall,
             preference::TitleFontSizeSmall, preference::ButtonHasBorder, preference::ButtonHasShadow,
             preference::ButtonRound, preference::ButtonHasTexture, preference::ButtonLabel, preference::ButtonStyle,
             preference::ShowApplicationMenu, preference::EnableScreenTop}) {
        settle();
        ASSERT_EQ(window().alpha, 1) << key;
        // Titles are laid out unseen, and fade in then.
        controller().observeValueForKeyPath(keyPath(key));
        EXPECT_EQ(window().alpha, 0) << key;
    }
}

TEST_F(FloatingPanelTest, IsLeftAloneByTheOtherSettings) {
    launchAndSettle();
    for (const std::string_view key :
        {preference::EnableHotkey, preference::NewTrigger, preference::ShowStatusBarIcon, preference::ScreenTopAutoHide,
            preference::ScreenTopTransparency, preference::EnableMouseButton, preference::ScreenTopHalfHotZone}) {
        controller().observeValueForKeyPath(keyPath(key));
        EXPECT_EQ(window().alpha, 1) << key;
    }
}

TEST_F(FloatingPanelTest, ShowsTheChangedOptionsOfTheReader) {
    mail.menu("Apple").item("About");
    launchAndSettle();
    EXPECT_EQ(window().titles().front(), "File");
    set(preference::ShowAppleMenu, false);
    EXPECT_THAT(window().titles(), testing::Not(testing::Contains(LogoTitle)));
    EXPECT_EQ(window().titles().back(), "Tarragon");
}

// Small questions.

TEST_F(FloatingPanelTest, ComparesTheOriginsOfScreenAndWindowInTheirOwnSpaces) {
    launchAndSettle();
    EXPECT_EQ(controller().originOfCurrentWindow(), (Point{100, 200}));
    fake.displays.setScreens(
        {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}, {{{0, 900}, {1440, 900}}, {{0, 900}, {1440, 900}}}});
    fake.displays.setMouseLocationNS({10, 10});
    EXPECT_EQ(controller().originOfScreenWithMousePointer(), (Point{0, 0}));
    EXPECT_FALSE(controller().isWindowFlushWithScreenEdge());
    fake.displays.setMouseLocationNS({10, 1000});
    EXPECT_EQ(controller().originOfScreenWithMousePointer(), (Point{0, 900}));
    EXPECT_TRUE(controller().isWindowFlushWithScreenEdge());
    fake.displays.setMouseLocationNS({-10, -10});
    EXPECT_EQ(controller().originOfScreenWithMousePointer(), Point());
}

TEST_F(FloatingPanelTest, ConvertsByTheScreenListOneWayAndByTheMainDisplayTheOther) {
    launchAndSettle();
    fake.displays.setScreens({{{{0, 0}, {1440, 1000}}, {{0, 0}, {1440, 978}}}});
    EXPECT_EQ(controller().convertCGtoNSRectCoords({{10, 20}, {30, 40}}), (Rect{{10, 940}, {30, 40}}));
    EXPECT_EQ(controller().convertNSToCGRectCoords({{10, 20}, {30, 40}}), (Rect{{10, 840}, {30, 40}}));
}

TEST_F(FloatingPanelTest, KnowsWhereTheProgramIs) {
    launch();
    EXPECT_EQ(controller().appURL(), "file:///opt/Tarragon");
}

TEST_F(FloatingPanelTest, ShowsItsGradientAgain) {
    moveWindow({{100, 22}, {900, 500}});
    launchAndSettle();
    controller().addGradient();
    EXPECT_TRUE(window().content.background.showGradient);
}

} // namespace
} // namespace tarragon
