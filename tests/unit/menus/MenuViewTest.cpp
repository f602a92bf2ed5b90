#include "MenuViewFixture.h"

#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenuViewTest : public MenuViewFixture { };

TEST_F(MenuViewTest, AsksTheDelegateBeforeAMenuOpens) {
    _delegate.onNeedsUpdate = [this](Menu& menu) {
        EXPECT_THAT(openMenus(), IsEmpty());
        addItem(menu, "Fresh");
    };
    popUp();
    EXPECT_THAT(_log, ElementsAre("needs update root", "will open root"));
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Fresh"));
}

TEST_F(MenuViewTest, AsksTheDelegateOfEverySubmenuAsItOpens) {
    addSubmenu(*_root, "File");
    addSubmenu(*_root, "Edit");
    _delegate.onNeedsUpdate = [this](Menu& menu) {
        if (&menu != _root.get())
            addItem(menu, "In " + menu.title());
    };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_THAT(_log, ElementsAre("needs update root", "will open root", "needs update File", "will open File"));
    ASSERT_EQ(openMenus().size(), 2U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("In File"));
}

TEST_F(MenuViewTest, FillsASubmenuBeforeItGetsItsSize) {
    const auto submenu = addSubmenu(*_root, "File");
    _delegate.onNeedsUpdate = [this](Menu& menu) {
        for (int count = 0; &menu != _root.get() && count < 10; ++count)
            addItem(menu, "A long title, number " + std::to_string(count));
    };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    QMenu& opened = openMenu();
    ASSERT_EQ(opened.actions().size(), 10);
    EXPECT_EQ(opened.size(), opened.sizeHint());
    EXPECT_EQ(opened.activeAction(), opened.actions().front());
    QMenu& above = *openMenus().front();
    EXPECT_GE(opened.x(), above.x() + above.width() - 10);
}

TEST_F(MenuViewTest, FillsASubmenuAnewEveryTimeItOpens) {
    addSubmenu(*_root, "File");
    int opening = 0;
    _delegate.onNeedsUpdate = [&](Menu& menu) {
        if (&menu == _root.get())
            return;
        menu.removeAllItems();
        addItem(menu, "Opening " + std::to_string(++opening));
        addSubmenu(menu, "Deeper");
    };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    press(Qt::Key_Right);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Opening 2", "Deeper"));
}

TEST_F(MenuViewTest, ShowsNoMenuThatIsEmptyAfterTheUpdate) {
    addItem(*_root, "Stale");
    _delegate.onNeedsUpdate = [](Menu& menu) { menu.removeAllItems(); };
    popUp();
    EXPECT_THAT(openMenus(), IsEmpty());
    EXPECT_THAT(_log, ElementsAre("needs update root"));
}

TEST_F(MenuViewTest, ShowsNoMenuOfSeparatorsOnly) {
    _root->addItem(MenuItem::separatorItem());
    popUp();
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuViewTest, ShowsNothingForNoMenu) {
    _view->popUpMenu(nullptr, {10, 10});
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuViewTest, SaysThatASubmenuIsEmptyAndGoesOn) {
    addSubmenu(*_root, "Recent");
    addItem(*_root, "Quit");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    ASSERT_EQ(openMenus().size(), 2U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("(Empty)"));
    EXPECT_FALSE(openMenu().actions().front()->isEnabled());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_E, Qt::Key_Left})
        press(key);
    ASSERT_EQ(openMenus().size(), 1U);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, testing::Contains("action act Quit"));
}

TEST_F(MenuViewTest, SendsTheActionAfterEverythingHasClosed) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    _target->onAction = [] { EXPECT_THAT(openMenus(), IsEmpty()); };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log,
        ElementsAre("needs update root", "will open root", "needs update File", "will open File", "did close File",
            "did close root", "action act Save", "posted NSMenuDidSendActionNotification"));
}

TEST_F(MenuViewTest, NamesTheMenuOfTheItemInTheNotification) {
    const auto submenu = addSubmenu(*_root, "File");
    addItem(*submenu, "Save");
    int posted = 0;
    _notificationCenter.addObserver(
        "NSMenuDidSendActionNotification", submenu.get(), [&](const Notification&) { ++posted; });
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(posted, 1);
}

TEST_F(MenuViewTest, SendsNothingForAnItemWithoutTarget) {
    addItem(*_root, "Lonely")->setTarget(nullptr);
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, ElementsAre("needs update root", "will open root", "did close root"));
}

TEST_F(MenuViewTest, ClosesTheMenuThatIsOpenBeforeAnother) {
    addItem(*_root, "First");
    const auto second = std::make_shared<Menu>("second");
    second->setDelegate(&_delegate);
    addItem(*second, "Second");
    popUp();
    _view->popUpMenu(second, {200, 600});
    EXPECT_THAT(_log,
        ElementsAre(
            "needs update root", "will open root", "did close root", "needs update second", "will open second"));
    ASSERT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Second"));
    settle();
    EXPECT_EQ(openMenus().size(), 1U);
}

TEST_F(MenuViewTest, ClosesWhateverIsOpenWithoutAnAction) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    _log.clear();
    _view->closeMenus();
    EXPECT_THAT(openMenus(), IsEmpty());
    EXPECT_THAT(_log, ElementsAre("did close File", "did close root"));
    settle();
    _view->closeMenus();
    EXPECT_THAT(_log, ElementsAre("did close File", "did close root"));
}

TEST_F(MenuViewTest, TellsWhetherAMenuIsOpen) {
    EXPECT_FALSE(_view->isMenuOpen());
    popUp(); // empty
    EXPECT_FALSE(_view->isMenuOpen());
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    EXPECT_TRUE(_view->isMenuOpen());
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    ASSERT_EQ(openMenus().size(), 2U);
    EXPECT_TRUE(_view->isMenuOpen());
    press(Qt::Key_Escape);
    EXPECT_TRUE(_view->isMenuOpen());
    press(Qt::Key_Escape);
    EXPECT_FALSE(_view->isMenuOpen());
    popUp();
    EXPECT_TRUE(_view->isMenuOpen());
    _view->closeMenus();
    EXPECT_FALSE(_view->isMenuOpen());
}

TEST_F(MenuViewTest, HasNoOpenMenuByTheTimeThatAnActionIsSent) {
    addItem(*_root, "Save");
    bool isOpen = true;
    _target->onAction = [&] { isOpen = _view->isMenuOpen(); };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    EXPECT_FALSE(isOpen);
}

TEST_F(MenuViewTest, OpensNothingWhenTheDelegateClosesEverything) {
    addSubmenu(*_root, "File");
    _delegate.onNeedsUpdate = [this](Menu& menu) {
        if (&menu != _root.get())
            _view->closeMenus();
    };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    settle();
    EXPECT_THAT(openMenus(), IsEmpty());
    EXPECT_THAT(_log, ElementsAre("needs update root", "will open root", "needs update File", "did close root"));
}

TEST_F(MenuViewTest, OpensOnlyTheMenuThatTheDelegateOpensInstead) {
    addItem(*_root, "First");
    const auto second = std::make_shared<Menu>("second");
    addItem(*second, "Second");
    _delegate.onNeedsUpdate = [&](Menu&) { _view->popUpMenu(second, {200, 600}); };
    popUp();
    settle();
    ASSERT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Second"));
}

TEST_F(MenuViewTest, OpensAMenuFromAnAction) {
    addItem(*_root, "Again");
    _target->onAction = [this] { popUp(); };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_EQ(_log.back(), "posted NSMenuDidSendActionNotification");
}

TEST_F(MenuViewTest, SurvivesAnActionThatDestroysIt) {
    addItem(*_root, "Quit");
    _target->onAction = [this] { _view.reset(); };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(_log.back(), "did close root");
    settle();
    EXPECT_THAT(_log, testing::Contains("action act Quit"));
}

TEST_F(MenuViewTest, SendsTheActionOfAnItemThatLeftTheMenuMeanwhile) {
    addItem(*_root, "Stale");
    popUp();
    _root->removeAllItems();
    addItem(*_root, "Fresh");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, testing::Contains("action act Stale"));
}

TEST_F(MenuViewTest, OpensASubmenuThatLeftTheMenuMeanwhile) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    _root->removeAllItems();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save"));
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, testing::Contains("action act Save"));
}

TEST_F(MenuViewTest, KeepsAMenuAliveThatNobodyElseHolds) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    _root.reset();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, testing::Contains("action act Save"));
}

TEST_F(MenuViewTest, AsksNoDelegateWhenItGoesWhileAMenuIsOpen) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    _log.clear();
    _view.reset();
    EXPECT_THAT(openMenus(), IsEmpty());
    settle();
    EXPECT_THAT(_log, IsEmpty());
}

TEST_F(MenuViewTest, TellsWhichItemIsHighlighted) {
    _delegate.recordsHighlights = true;
    addItem(*_root, "One");
    addItem(*_root, "Two");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_THAT(_log,
        ElementsAre("needs update root", "will open root", "highlight root One", "highlight root Two",
            "highlight root nothing", "did close root"));
}

TEST_F(MenuViewTest, OpensAtTheGivenPoint) {
    addItem(*_root, "One");
    popUp({100, 700});
    EXPECT_EQ(openMenu().pos(), QPoint(100, 100));
}

TEST_F(MenuViewTest, KeepsAMenuOnItsScreen) {
    for (int count = 0; count < 5; ++count)
        addItem(*_root, "An item with a title, number " + std::to_string(count));
    const QRect screen(0, 0, 800, 800);
    for (const Point& location :
        {Point{790, 10}, Point{0, -6}, Point{-300, 400}, Point{5000, 5000}, Point{400, 0}, Point{0, 800}}) {
        popUp(location);
        EXPECT_TRUE(screen.contains(openMenu().geometry())) << location.x << " " << location.y;
        EXPECT_EQ(openMenu().size(), openMenu().sizeHint());
    }
}

TEST_F(MenuViewTest, ScrollsAMenuThatIsTallerThanTheScreen) {
    for (int count = 0; count < 200; ++count)
        addItem(*_root, "Item " + std::to_string(count));
    popUp();
    const QMenu& menu = openMenu();
    EXPECT_LE(menu.height(), 800);
    const auto actions = menu.actions();
    EXPECT_EQ(menu.actionGeometry(actions.front()).left(), menu.actionGeometry(actions.back()).left());
    press(Qt::Key_End);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(_log, testing::Contains("action act Item 199"));
}

TEST_F(MenuViewTest, OpensTwelveLevels) {
    _delegate.onNeedsUpdate = [this](Menu& menu) {
        menu.removeAllItems();
        addSubmenu(menu, menu.title() + ".");
    };
    popUp();
    press(Qt::Key_Down);
    for (int level = 1; level < 12; ++level)
        press(Qt::Key_Right);
    EXPECT_EQ(openMenus().size(), 12U);
    press(Qt::Key_Escape);
    EXPECT_EQ(openMenus().size(), 11U);
}

TEST_F(MenuViewTest, OpensAndClosesFiveThousandItems) {
    for (int count = 0; count < 5000; ++count) {
        if (count % 2)
            addSubmenu(*_root, "Submenu " + std::to_string(count));
        else
            addItem(*_root, "Item " + std::to_string(count))->setKeyEquivalent("k");
    }
    popUp();
    ASSERT_EQ(openMenu().actions().size(), 5000);
    _view->closeMenus();
    settle();
    EXPECT_TRUE(openMenus().empty());
}

} // namespace

} // namespace tarragon
