#include "PanelFixture.h"

#include "panels/TarragonButton.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TitleTest : public PanelTest {
protected:
    TitleTest() {
        panel->orderFrontRegardless();
        addTitles({"File", "Edit", "View"});
    }
};

// Making titles.

TEST_F(TitleTest, StandsWhereItsPositionSays) {
    const TarragonHackButton::Surroundings surroundings{services, owner, *controller};
    EXPECT_EQ(
        TarragonHackButton::initWithTitleWithPosition("File", 2, surroundings)->frame(), (Rect{{90, 3}, {40, 25}}));
    EXPECT_EQ(TarragonHackButton::initWithTitleWithPositionByWidth("File", 70, surroundings)->frame(),
        (Rect{{75, 3}, {40, 25}}));
    EXPECT_EQ(TarragonHackButton::initForSTWithTitle("File", 70, surroundings)->frame(), (Rect{{75, 1}, {40, 23}}));
}

TEST_F(TitleTest, StartsInNoSpecialLook) {
    EXPECT_FALSE(titles[0]->bShow());
    EXPECT_FALSE(titles[0]->appleBar());
    EXPECT_FALSE(titles[0]->boldAppName());
    EXPECT_FALSE(titles[0]->keepButtonsAppleLike());
    EXPECT_EQ(titles[0]->content().look, ButtonLook::Bezel);
    EXPECT_EQ(titles[0]->dress(), ButtonDress{});
}

TEST_F(TitleTest, IsDrawnAsAMenuBarDoesBeforeAnyOtherLook) {
    titles[0]->setAppleBar(true);
    titles[0]->setBoldAppName(true);
    EXPECT_EQ(titles[0]->content().look, ButtonLook::ScreenTopBar);
    EXPECT_EQ(titles[0]->content().font, (MenuFont{0, true}));
    titles[0]->setKeepButtonsAppleLike(true);
    titles[0]->setFontSizeForAppleLike(13);
    EXPECT_EQ(titles[0]->content().look, ButtonLook::MenuBar);
    EXPECT_EQ(titles[0]->content().font, (MenuFont{13, true}));
}

TEST_F(TitleTest, IsAsWideAsItsTitleNeedsIt) {
    titles[1]->sizeToFit(toolkit);
    EXPECT_EQ(titles[1]->frame(), (Rect{{65, 3}, {42, 18}}));
}

// Pressing.

TEST_F(TitleTest, OpensItsMenuBelowItselfWhenItIsPressed) {
    window().press("Edit");
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_EQ(fake.menuPresenter.popUps().back().locationNS, (Point{165, 696}));
    EXPECT_TRUE(titles[1]->bShow());
    EXPECT_TRUE(controller->bShowing());
    EXPECT_TRUE(window().button("Edit")->highlighted);
    EXPECT_FALSE(window().button("File")->highlighted);
}

TEST_F(TitleTest, OpensTheMenuOfABarCloserAndAboveEverything) {
    titles[0]->setAppleBar(true);
    window().press("File");
    EXPECT_EQ(fake.menuPresenter.popUps().back().locationNS, (Point{105, 698.25}));
    EXPECT_EQ(window().level, PanelLevel::PopUpMenu);
}

TEST_F(TitleTest, LeavesTheLevelOfAFloatingPanelAlone) {
    window().press("File");
    EXPECT_EQ(window().level, PanelLevel::FrontWindow);
}

TEST_F(TitleTest, IsAsBeforeOnceTheMenuHasClosed) {
    window().press("Edit");
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(titles[1]->bShow());
    EXPECT_FALSE(controller->bShowing());
    EXPECT_FALSE(window().button("Edit")->highlighted);
    window().press("Edit");
    EXPECT_EQ(openMenu(), "Edit");
}

TEST_F(TitleTest, KeepsThePanelFromFadingUnderItsMenu) {
    panel->setTempFadeEffect(true);
    window().press("File");
    EXPECT_FALSE(panel->tempFadeEffect());
    window().movePointer("Edit");
    EXPECT_FALSE(panel->tempFadeEffect());
    fake.menuPresenter.closeMenus();
    EXPECT_TRUE(panel->tempFadeEffect());
}

TEST_F(TitleTest, OfABarLeavesTheFadingOfItsPanelAlone) {
    titles[0]->setAppleBar(true);
    panel->setTempFadeEffect(false);
    window().press("File");
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(panel->tempFadeEffect());
}

TEST_F(TitleTest, OpensNothingWithoutAMenu) {
    titles[0]->setMenu(nullptr);
    window().press("File");
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(titles[0]->bShow());
    EXPECT_FALSE(controller->bShowing());
    EXPECT_FALSE(window().button("File")->highlighted);
}

TEST_F(TitleTest, IsAsBeforeAfterAnEmptyMenuThatIsNotShown) {
    titles[0]->menu()->removeAllItems();
    window().press("File");
    EXPECT_FALSE(titles[0]->bShow());
    EXPECT_FALSE(controller->bShowing());
    window().press("Edit");
    EXPECT_EQ(openMenu(), "Edit");
}

TEST_F(TitleTest, DoesNothingWhenItIsPressedWhileAMenuIsShowing) {
    window().press("File");
    window().press("Edit");
    EXPECT_EQ(openMenu(), "File");
}

TEST_F(TitleTest, ClosesItsOpenMenuWhenItIsToShowItAgain) {
    window().press("File");
    titles[0]->showMenu();
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(controller->bShowing());
    EXPECT_FALSE(titles[0]->bShow());
}

TEST_F(TitleTest, OpensTheIgnoreMenuWithControlOrTheRightButton) {
    window().press("File", true);
    EXPECT_THAT(owner.asked, ElementsAre("popUpIgnoreMenu"));
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(controller->bShowing());
    window().rightPress("Edit");
    EXPECT_THAT(owner.asked, ElementsAre("popUpIgnoreMenu", "popUpIgnoreMenu"));
}

TEST_F(TitleTest, HasTheIgnoreMenuAsItsContextMenu) {
    EXPECT_EQ(titles[0]->menuForEvent(), owner.context);
}

// Titles follow the pointer while one of them has its menu open.

TEST_F(TitleTest, SwitchesToTheTitleUnderThePointerWithoutAClick) {
    window().press("File");
    window().movePointer("Edit");
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_FALSE(titles[0]->bShow());
    EXPECT_TRUE(titles[1]->bShow());
    EXPECT_TRUE(controller->bShowing());
    EXPECT_FALSE(window().button("File")->highlighted);
    EXPECT_TRUE(window().button("Edit")->highlighted);
    window().movePointer("View");
    window().movePointer("File");
    EXPECT_EQ(openMenu(), "File");
    EXPECT_EQ(controller->buttonShowingMenu(), titles[0]);
}

TEST_F(TitleTest, OpensNothingUnderThePointerWhileNoMenuIsOpen) {
    window().movePointer("File");
    window().movePointer("Edit");
    EXPECT_EQ(openMenu(), "");
    EXPECT_EQ(controller->buttonShowingMenu(), titles[1]);
    window().press("Edit");
    fake.menuPresenter.closeMenus();
    window().movePointer("View");
    EXPECT_EQ(openMenu(), "");
}

TEST_F(TitleTest, KeepsItsMenuWhenThePointerLeavesForTheMenu) {
    window().movePointer("File");
    window().press("File");
    window().movePointer(std::nullopt);
    EXPECT_EQ(openMenu(), "File");
    window().movePointer("File");
    EXPECT_EQ(openMenu(), "File");
}

TEST_F(TitleTest, IsNotUnderAPointerInAMenuThatLiesOverThePanel) {
    window().press("File");
    fake.menuPresenter.setMenuFrameNS({{100, 600}, {300, 200}});
    window().movePointer("Edit");
    EXPECT_EQ(openMenu(), "File");
}

TEST_F(TitleTest, ClosesTheOtherMenuWhenItHasNone) {
    titles[1]->setMenu(nullptr);
    window().press("File");
    window().movePointer("Edit");
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(titles[0]->bShow());
}

TEST_F(TitleTest, LeavingActsLikeEntering) {
    window().movePointer("File");
    window().movePointer("Edit");
    titles[0]->mouseExited();
    EXPECT_EQ(controller->buttonShowingMenu(), titles[0]);
}

TEST_F(TitleTest, ShowsThePointerOverAMenuBarTitleEvenAfterIt) {
    titles[0]->setKeepButtonsAppleLike(true);
    window().movePointer("File");
    EXPECT_TRUE(titles[0]->content().mouseIsOver);
    window().movePointer(std::nullopt);
    EXPECT_TRUE(titles[0]->content().mouseIsOver);
}

TEST_F(TitleTest, ShowsThePointerOverABezelOnlyWhileItIsThere) {
    window().movePointer("File");
    EXPECT_TRUE(window().button("File")->mouseIsOver);
    window().movePointer("Edit");
    EXPECT_FALSE(window().button("File")->mouseIsOver);
    EXPECT_TRUE(window().button("Edit")->mouseIsOver);
    window().movePointer(std::nullopt);
    EXPECT_FALSE(window().button("Edit")->mouseIsOver);
}

// Left and Right.

TEST_F(TitleTest, GoesToItsNeighboursWithTheArrowKeysAllTheWayRound) {
    window().press("File");
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_TRUE(controller->bShowing());
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    EXPECT_EQ(openMenu(), "File");
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Left);
    EXPECT_EQ(openMenu(), "View");
    EXPECT_FALSE(titles[0]->bShow());
}

TEST_F(TitleTest, PassesOverTitlesWithoutAMenuWithTheArrowKeys) {
    titles[1]->setMenu(nullptr);
    window().press("File");
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    EXPECT_EQ(openMenu(), "View");
}

TEST_F(TitleTest, StaysOpenWhenItHasNoNeighbour) {
    panel->setSubviews({titles[0]});
    window().press("File");
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Left);
    EXPECT_EQ(openMenu(), "File");
}

// New layouts.

TEST_F(TitleTest, GoesOnWithItsOpenMenuAfterANewLayout) {
    window().press("Edit");
    const std::shared_ptr<Menu> menu = titles[1]->menu();
    std::vector<std::shared_ptr<PanelButton>> fresh;
    for (const auto& title : titles) {
        const auto copy = makeTitle(title->title(), title->frame().origin.x);
        copy->setMenu(title->menu());
        fresh.push_back(copy);
    }
    titles.clear();
    panel->setSubviews(fresh);
    controller->takeOverOpenMenu();
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_TRUE(window().button("Edit")->highlighted);
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    EXPECT_EQ(openMenu(), "View");
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(controller->bShowing());
    EXPECT_FALSE(window().button("View")->highlighted);
}

TEST_F(TitleTest, ClosesItsMenuWhenNoTitleOfTheNewLayoutHasIt) {
    window().press("Edit");
    const auto other = makeTitle("Edit", 60);
    titles.clear();
    panel->setSubviews({other});
    controller->takeOverOpenMenu();
    EXPECT_EQ(openMenu(), "");
    EXPECT_FALSE(controller->bShowing());
    EXPECT_FALSE(other->bShow());
    window().press("Edit");
    EXPECT_EQ(openMenu(), "Edit");
}

TEST_F(TitleTest, GoesOnUnderAnotherControllerOfItsPanel) {
    window().press("Edit");
    auto next = std::make_unique<TarragonPanelController>(*panel);
    next->takeOver(*controller);
    EXPECT_TRUE(next->bShowing());
    EXPECT_EQ(next->buttonShowingMenu(), titles[1]);
    panel->setWindowController(next.get());
    controller = std::move(next);
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    EXPECT_EQ(openMenu(), "View");
    window().movePointer("File");
    EXPECT_EQ(openMenu(), "File");
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(controller->bShowing());
    window().press("Edit");
    EXPECT_EQ(openMenu(), "Edit");
    EXPECT_TRUE(controller->bShowing());
}

TEST_F(TitleTest, OfAFormerLayoutGoesOnUnderAnotherController) {
    window().press("Edit");
    panel->setSubviews({});
    auto next = std::make_unique<TarragonPanelController>(*panel);
    next->takeOver(*controller);
    panel->setWindowController(next.get());
    controller = std::move(next);
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(controller->bShowing());
    EXPECT_FALSE(titles[1]->bShow());
}

TEST_F(TitleTest, KeepsADockADock) {
    titles[0]->setAppleBar(true);
    panel->setLevel(PanelLevel::Dock);
    window().press("File");
    EXPECT_EQ(window().level, PanelLevel::Dock);
}

TEST_F(TitleTest, LeavesItsMenuAloneWhenThePanelEnds) {
    window().press("Edit");
    panel->setWindowController(nullptr);
    panel->setSubviews({});
    titles.clear();
    controller = nullptr;
    panel = nullptr;
    EXPECT_EQ(openMenu(), "Edit");
    fake.menuPresenter.pressArrowAtEdge(MenuNeighbour::Right);
    fake.menuPresenter.closeMenus();
}

// The single button of a vertical panel.

class SingleButtonTest : public PanelTest {
protected:
    SingleButtonTest() {
        button = std::make_shared<TarragonButton>("Menu", 0, owner, toolkit);
        panel->setSubviews({button});
    }
    std::shared_ptr<TarragonButton> button;
};

TEST_F(SingleButtonTest, HasRoomAroundItsTitle) {
    EXPECT_EQ(button->frame(), (Rect{{0, 0}, {47, 28}}));
    EXPECT_EQ(TarragonButton("Menu", 2, owner, toolkit).frame().origin, (Point{110, 0}));
}

TEST_F(SingleButtonTest, ActsAsSoonAsItIsPressed) {
    window().press("Menu");
    EXPECT_THAT(owner.asked, ElementsAre("popUpMenu"));
}

TEST_F(SingleButtonTest, OpensTheIgnoreMenuWithControlOrTheRightButton) {
    window().press("Menu", true);
    window().rightPress("Menu");
    EXPECT_THAT(owner.asked, ElementsAre("popUpIgnoreMenu", "popUpIgnoreMenu"));
}

} // namespace
} // namespace tarragon
