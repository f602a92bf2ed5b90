#include "RKMenuBarFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Overflow = "\xE2\x96\xBF";

class BarTitlesTest : public RKMenuBarTest {
protected:
    void makeBarOf(const std::string& menuTitle, const std::vector<std::string>& titles) {
        mail = mirroredMenu(menuTitle, titles);
        makePlacedBar();
    }
    // Ends exactly at x when it is the first of a bar.
    static std::string titleEndingAt(std::size_t x) { return std::string((x - 26) / 8, 'M'); }
};

// The row.

TEST_F(BarTitlesTest, StandBesideEachOtherWithoutAGap) {
    makeBarOf("Mail", {LogoTitle, "Mail", "", "File", "Edit", "Tarragon"});
    EXPECT_THAT(window().titles(), ElementsAre(LogoTitle, "Mail  ", "File", "Edit", "Tarragon "));
    EXPECT_EQ(titleFrame(LogoTitle), (Rect{{5, 1}, {35, 18}}));
    EXPECT_EQ(titleFrame("Mail  "), (Rect{{40, 1}, {74, 18}}));
    EXPECT_EQ(titleFrame("File"), (Rect{{114, 1}, {58, 18}}));
    EXPECT_EQ(titleFrame("Edit"), (Rect{{172, 1}, {58, 18}}));
    EXPECT_EQ(titleFrame("Tarragon "), (Rect{{230, 1}, {98, 18}}));
}

TEST_F(BarTitlesTest, AreDrawnAsThoseOfABarInTheDesktopsSize) {
    makeBarOf("Mail", {"Mail", "File"});
    EXPECT_EQ(window().button("File")->look, ButtonLook::ScreenTopBar);
    EXPECT_EQ(window().button("File")->font, (MenuFont{0, false}));
    EXPECT_EQ(window().button("Mail  ")->font, (MenuFont{0, true}));
}

TEST_F(BarTitlesTest, OfTheApplicationAreBoldUnderItsShortNameToo) {
    makeBarOf("Google Chrome", {"Chrome", "Google Chrome", "File"});
    EXPECT_THAT(window().titles(), ElementsAre("Chrome  ", "Google Chrome  ", "File"));
    EXPECT_TRUE(window().button("Chrome  ")->font.bold);
    EXPECT_TRUE(window().button("Google Chrome  ")->font.bold);
    EXPECT_FALSE(window().button("File")->font.bold);
}

TEST_F(BarTitlesTest, FillABarAsWideAsItsScreenAndTwentyTwoPointsHigh) {
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen({{1440, 100}, {1280.75, 1024}})});
    makeBarOf("Mail", {"File"});
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1102}, {1280.75, 22}}));
    // Whole points until it is placed next.
    bar->refreshPanel();
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1102}, {1280, 22}}));
}

TEST_F(BarTitlesTest, LeaveTheMenusOfTheMirrorWhereTheyAre) {
    makePlacedBar();
    EXPECT_EQ(mail->itemAtIndex(1)->submenu()->parentItem(), mail->itemAtIndex(1).get());
    EXPECT_EQ(mail->itemAtIndex(0)->title(), "Mail");
    window().press("File");
    EXPECT_EQ(fake.menuPresenter.popUps().back().menu, mail->itemAtIndex(1)->submenu());
}

TEST_F(BarTitlesTest, WithoutAMenuOpenNothing) {
    mail->addItem(std::make_shared<MenuItem>("Plain", "", ""));
    makePlacedBar();
    window().press("Plain");
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(bar->checkIfMenuIsShowing());
}

TEST_F(BarTitlesTest, AreNoneWithoutAMirroredMenu) {
    bar = newBar();
    bar->refreshPanel();
    bar->handleAppChange();
    EXPECT_THAT(window().titles(), IsEmpty());
    EXPECT_EQ(bar->frameOfST(), Flush);
}

TEST_F(BarTitlesTest, StayWhereTheyAreWhenAGapIsSet) {
    makePlacedBar();
    const PanelContent before = window().content;
    bar->setSpacingBetweenSTPanelButtons(5);
    EXPECT_EQ(window().content, before);
    bar->clearAll();
    bar->setSpacingBetweenSTPanelButtons(5);
}

// What does not fit.

TEST_F(BarTitlesTest, ThatReachTheLimitGoIntoTheBunchMenuWithAllAfterThem) {
    // A bar of 1280 points holds titles up to 1255.
    makeBarOf("Mail", {titleEndingAt(1250), "", "File", "Edit"});
    ASSERT_EQ(window().titles().size(), 2u);
    EXPECT_EQ(window().titles().back(), Overflow);
    window().press(Overflow);
    const Menu& bunch = *fake.menuPresenter.openMenus().front();
    EXPECT_EQ(bunch.title(), "");
    EXPECT_EQ(bunch.font(), (MenuFont{12, false}));
    ASSERT_EQ(bunch.numberOfItems(), 2u);
    EXPECT_EQ(bunch.itemAtIndex(0)->title(), "File");
    EXPECT_EQ(bunch.itemAtIndex(1)->title(), "Edit");
    // Copies: the mirror keeps its own.
    EXPECT_NE(bunch.itemAtIndex(0), mail->itemWithTitle("File"));
    EXPECT_EQ(bunch.itemAtIndex(0)->submenu()->itemAtIndex(0)->title(), "Item of File");
    EXPECT_EQ(mail->numberOfItems(), 4u);
}

TEST_F(BarTitlesTest, FitUpToTheLimitAndNoFurther) {
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen({{1440, 100}, {1276, 1024}})});
    makeBarOf("Mail", {titleEndingAt(1250)});
    EXPECT_EQ(window().titles(), (std::vector<std::string>{titleEndingAt(1250)}));
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen({{1440, 100}, {1275, 1024}})});
    bar->handleAppChange();
    EXPECT_THAT(window().titles(), ElementsAre(Overflow));
}

TEST_F(BarTitlesTest, AreFollowedByTheBunchButtonWhichLooksLikeThem) {
    makeBarOf("Mail", {"File", titleEndingAt(1250)});
    EXPECT_EQ(titleFrame("File"), (Rect{{5, 1}, {58, 18}}));
    // A little higher.
    EXPECT_EQ(titleFrame(Overflow), (Rect{{68, 3}, {50, 18}}));
    EXPECT_EQ(window().button(Overflow)->look, ButtonLook::ScreenTopBar);
}

TEST_F(BarTitlesTest, LeaveTheBunchButtonAtItsOwnPlaceWhenNoneFits) {
    makeBarOf("Mail", {titleEndingAt(1266), "File"});
    EXPECT_THAT(window().titles(), ElementsAre(Overflow));
    EXPECT_EQ(titleFrame(Overflow), (Rect{{5, 1}, {50, 18}}));
}

TEST_F(BarTitlesTest, AllComeBackWhenThereIsRoom) {
    makeBarOf("Mail", {"File", titleEndingAt(1250)});
    bar->setMenu(mirroredMenu("Mail", {"File", "Edit"}));
    bar->handleAppChange();
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit"));
}

// Fonts of the menus.

TEST_F(BarTitlesTest, OpenTheirMenusInTheSizeThatIsSet) {
    makeBar();
    EXPECT_FALSE(mail->font());
    bar->handleAppChange();
    EXPECT_EQ(mail->font(), (MenuFont{12, false}));
    for (const auto& item : mail->items())
        EXPECT_EQ(item->submenu()->font(), (MenuFont{12, false}));
}

TEST_F(BarTitlesTest, HaveTheApplicationsMenuInBold) {
    makePlacedBar();
    EXPECT_EQ(mail->itemWithTitle("Mail")->attributedTitle(), (AttributedTitle{"Mail", {12, true}, 0}));
    EXPECT_FALSE(mail->itemWithTitle("File")->attributedTitle());
}

TEST_F(BarTitlesTest, HaveTheShorterNameInBoldBeforeTheFullOne) {
    makeBarOf("Google Chrome", {"Google Chrome", "Chrome"});
    EXPECT_EQ(mail->itemWithTitle("Chrome")->attributedTitle(), (AttributedTitle{"Chrome", {12, true}, 0}));
    EXPECT_FALSE(mail->itemWithTitle("Google Chrome")->attributedTitle());
}

TEST_F(BarTitlesTest, HaveNothingInBoldWithoutAMenuOfTheApplication) {
    makeBarOf("Mail", {"File"});
    EXPECT_FALSE(mail->itemWithTitle("File")->attributedTitle());
}

TEST_F(BarTitlesTest, HaveTheirFontsEvenOnABarThatIsSwitchedOff) {
    set("EnableScreenTop", false);
    makePlacedBar();
    EXPECT_EQ(mail->font(), (MenuFont{12, false}));
    EXPECT_TRUE(mail->itemWithTitle("Mail")->attributedTitle());
}

// Open menus.

TEST_F(BarTitlesTest, OpenTheirMenusDirectlyBelowTheBar) {
    makePlacedBar();
    window().press("File");
    EXPECT_EQ(openMenu(), "File");
    EXPECT_EQ(fake.menuPresenter.popUps().back().locationNS, (Point{1440 + 79, 1102 - 1.75}));
    EXPECT_TRUE(window().button("File")->highlighted);
    EXPECT_TRUE(bar->checkIfMenuIsShowing());
}

TEST_F(BarTitlesTest, KeepTheRoomOfTheirBarWhileTheirMenusAreOpen) {
    makePlacedBar();
    window().press("File");
    EXPECT_EQ(window().level, PanelLevel::Dock);
    fake.menuPresenter.closeMenus();
    bar->hideTarragonSTPanel();
    bar->unhideTarragonSTPanel();
    EXPECT_EQ(window().level, PanelLevel::Dock);
}

TEST_F(BarTitlesTest, RaiseABarThatHidesItselfUntilItIsMadeAnew) {
    set("ScreenTopAutoHide", true);
    makePlacedBar();
    window().press("File");
    EXPECT_EQ(window().level, PanelLevel::PopUpMenu);
    fake.menuPresenter.closeMenus();
    EXPECT_EQ(window().level, PanelLevel::PopUpMenu);
    bar->refreshPanel();
    EXPECT_EQ(window().level, PanelLevel::OrdinaryWindows);
}

TEST_F(BarTitlesTest, DoNotCountAsShowingOnceTheBarIsSwitchedOff) {
    makePlacedBar();
    window().press("File");
    set("EnableScreenTop", false);
    EXPECT_FALSE(bar->checkIfMenuIsShowing());
}

TEST_F(BarTitlesTest, SwitchMenusUnderThePointer) {
    makePlacedBar();
    window().press("File");
    window().movePointer("Edit");
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_TRUE(window().button("Edit")->highlighted);
    EXPECT_FALSE(window().button("File")->highlighted);
}

TEST_F(BarTitlesTest, OpenTheIgnoreMenuWithTheRightButton) {
    makePlacedBar();
    window().rightPress("File");
    EXPECT_THAT(owner.asked, ElementsAre("popUpIgnoreMenu"));
}

// What a bar does while a menu of its titles is open, and the menu is to live through.
using Change = void (*)(RKMenuBar& bar, FakePlatform& fake);
class OpenMenuOfBar : public BarTitlesTest, public testing::WithParamInterface<std::pair<const char*, Change>> { };

TEST_P(OpenMenuOfBar, GoesOnAndIsFollowedThroughEveryNewLayout) {
    makePlacedBar();
    window().press("File");
    for (int round = 0; round < 3; ++round)
        GetParam().second(*bar, fake);
    EXPECT_EQ(openMenu(), "File");
    EXPECT_TRUE(bar->checkIfMenuIsShowing());
    EXPECT_TRUE(window().button("File")->highlighted);

    window().movePointer("Edit");
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_FALSE(window().button("File")->highlighted);
    GetParam().second(*bar, fake);
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Left);
    EXPECT_EQ(openMenu(), "File");
    GetParam().second(*bar, fake);
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(bar->checkIfMenuIsShowing());
    EXPECT_FALSE(window().button("File")->highlighted);
    window().press("Edit");
    EXPECT_EQ(openMenu(), "Edit");
}

INSTANTIATE_TEST_SUITE_P(All, OpenMenuOfBar,
    testing::Values(std::pair<const char*, Change>(
                        "SetUpAgain", [](RKMenuBar& bar, FakePlatform&) { bar.setupScreentopTarragonPanel(); }),
        std::pair<const char*, Change>("Refreshed", [](RKMenuBar& bar, FakePlatform&) { bar.refreshPanel(); }),
        std::pair<const char*, Change>("AppChange", [](RKMenuBar& bar, FakePlatform&) { bar.handleAppChange(); }),
        std::pair<const char*, Change>("SettingChange",
            [](RKMenuBar&, FakePlatform& fake) { (void)fake.defaults.setValue("EnableScreenTop", true); })),
    [](const auto& change) { return std::string(change.param.first); });

TEST_F(BarTitlesTest, CloseTheOpenMenuThatIsNotInTheNewOne) {
    makePlacedBar();
    window().press("File");
    bar->setMenu(mirroredMenu("Notes", {"Notes", "File"}));
    bar->handleAppChange();
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(bar->checkIfMenuIsShowing());
    EXPECT_FALSE(window().button("File")->highlighted);
}

TEST_F(BarTitlesTest, GoOnWithAMenuThatTheNewMirrorHasElsewhere) {
    makePlacedBar();
    window().press("File");
    const auto next = mirroredMenu("Mail", {"Mail", "View"});
    next->addItem(mail->itemAtIndex(1)); // the menu cache keeps its items
    bar->setMenu(next);
    bar->handleAppChange();
    EXPECT_EQ(openMenu(), "File");
    EXPECT_TRUE(window().button("File")->highlighted);
    EXPECT_EQ(titleFrame("File").origin.x, 137);
}

TEST_F(BarTitlesTest, OfSeveralBarsShareTheMenusOfTheMirror) {
    makePlacedBar();
    FakePanelToolkit::Window& first = window();
    const std::unique_ptr<RKMenuBar> second = newBar();
    second->setMenu(mail);
    second->refreshPanel();
    second->handleAppChange();
    first.press("File");
    EXPECT_TRUE(bar->checkIfMenuIsShowing());
    EXPECT_FALSE(second->checkIfMenuIsShowing());
    second->handleAppChange();
    EXPECT_EQ(openMenu(), "File");
    EXPECT_FALSE(window().button("File")->highlighted);
}

} // namespace
} // namespace tarragon
