#include "FloatingPanelFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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

} // namespace
} // namespace tarragon
