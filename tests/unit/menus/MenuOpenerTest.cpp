#include "MenuViewFixture.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class RecordingOpener : public MenuOpener {
public:
    explicit RecordingOpener(std::vector<std::string>& log)
        : _log(log) { }

    void menuHasClosed() override {
        _log.emplace_back("closed");
        if (onClosed)
            onClosed();
    }
    void moveToNeighbour(MenuNeighbour neighbour) override {
        _log.emplace_back(neighbour == MenuNeighbour::Left ? "left" : "right");
        if (onMove)
            onMove();
    }

    std::function<void()> onClosed;
    std::function<void()> onMove;

private:
    std::vector<std::string>& _log;
};

// A menu with a submenu, opened by somebody who writes down what he hears.
class MenuOpenerTest : public MenuViewFixture {
protected:
    MenuOpenerTest() {
        addItem(*_submenu, "Save");
        addItem(*_root, "Quit");
        addItem(*_other, "Other");
    }
    ~MenuOpenerTest() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

    void popUp() {
        _view->popUpMenu(_root, {100, 700}, _opener);
        _log.clear();
        _heard.clear();
    }
    void popUpOther() { _view->popUpMenu(_other, {300, 700}, _opener); }
    void openSubmenu() {
        press(Qt::Key_Down);
        press(QGuiApplication::isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
        ASSERT_EQ(openMenus().size(), 2U);
    }

    // A point of Qt's, from the top-left corner, as the view is asked about it.
    static Point pointNS(const QPoint& point) {
        return {static_cast<double>(point.x()), OneScreen().mainDisplayBoundsCG().size.height - point.y()};
    }

    std::vector<std::string> _heard;
    std::shared_ptr<RecordingOpener> _opener = std::make_shared<RecordingOpener>(_heard);
    std::shared_ptr<Menu> _submenu = addSubmenu(*_root, "File");
    std::shared_ptr<Menu> _other = std::make_shared<Menu>("other");
};

TEST_F(MenuOpenerTest, HearsOnceThatItsMenuWasClosed) {
    popUp();
    openSubmenu();
    _view->closeMenus();
    EXPECT_THAT(_heard, ElementsAre("closed"));
    _view->closeMenus();
    settle();
    EXPECT_THAT(_heard, ElementsAre("closed"));
}

TEST_F(MenuOpenerTest, HearsOfEscapeOnceTheLastMenuHasClosed) {
    popUp();
    openSubmenu();
    press(Qt::Key_Escape);
    EXPECT_THAT(_heard, IsEmpty());
    press(Qt::Key_Escape);
    EXPECT_THAT(_heard, ElementsAre("closed"));
    settle();
    EXPECT_THAT(_heard, ElementsAre("closed"));
}

TEST_F(MenuOpenerTest, HearsOfAClickBesideItsMenu) {
    popUp();
    openSubmenu();
    bool wasOpen = true;
    _opener->onClosed = [&] { wasOpen = _view->isMenuOpen() || !openMenus().empty(); };
    QTest::mousePress(&openMenu(), Qt::LeftButton, {}, QPoint(-90, 500));
    EXPECT_THAT(_heard, ElementsAre("closed"));
    EXPECT_FALSE(wasOpen);
}

// As a button does that was pressed on a title and moved too fast to be seen on its way.
TEST_F(MenuOpenerTest, HearsOfAButtonThatIsLetGoBesideItsMenu) {
    popUp();
    openSubmenu();
    QTest::mouseRelease(&openMenu(), Qt::LeftButton, {}, QPoint(-90, 500));
    EXPECT_THAT(_heard, ElementsAre("closed"));
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuOpenerTest, HasTheItemChosenOnWhichAButtonIsLetGoThatCameFast) {
    popUp();
    QMenu& menu = openMenu();
    QTest::mouseRelease(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().back()).center());
    settle();
    EXPECT_THAT(_log, Contains("action act Quit"));
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuOpenerTest, HearsThatItsMenuHasClosedAfterTheDelegateAndBeforeTheAction) {
    popUp();
    _opener->onClosed = [this] { _log.emplace_back("opener"); };
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    settle();
    EXPECT_THAT(
        _log, ElementsAre("did close root", "opener", "action act Quit", "posted NSMenuDidSendActionNotification"));
}

TEST_F(MenuOpenerTest, HearsThatAnotherMenuHasTakenThePlaceOfItsOwn) {
    popUp();
    const auto second = std::make_shared<RecordingOpener>(_log);
    _view->popUpMenu(_other, {300, 700}, second);
    EXPECT_THAT(_heard, ElementsAre("closed"));
    EXPECT_THAT(_log, ElementsAre("did close root"));
    _view->closeMenus();
    EXPECT_THAT(_log, ElementsAre("did close root", "closed"));
}

TEST_F(MenuOpenerTest, HearsOfAMenuThatIsNotShown) {
    _view->popUpMenu(std::make_shared<Menu>("empty"), {100, 700}, _opener);
    EXPECT_THAT(_heard, ElementsAre("closed"));
    _view->popUpMenu(nullptr, {100, 700}, _opener);
    EXPECT_THAT(_heard, ElementsAre("closed", "closed"));
    settle();
    EXPECT_THAT(_heard, ElementsAre("closed", "closed"));
}

TEST_F(MenuOpenerTest, HearsOfAMenuThatItsDelegateClosesWhileItOpens) {
    _delegate.onNeedsUpdate = [this](Menu&) { _view->closeMenus(); };
    _view->popUpMenu(_root, {100, 700}, _opener);
    EXPECT_THAT(_heard, ElementsAre("closed"));
    settle();
    EXPECT_THAT(_heard, ElementsAre("closed"));
}

TEST_F(MenuOpenerTest, HearsOfAMenuThatClosesWhileItsSubmenuOpens) {
    popUp();
    _delegate.onNeedsUpdate = [this](Menu&) {
        _view->closeMenus();
        _heard.emplace_back("closeMenus has returned");
    };
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    settle();
    EXPECT_THAT(_heard, ElementsAre("closed", "closeMenus has returned"));
    EXPECT_THAT(openMenus(), IsEmpty());
}

TEST_F(MenuOpenerTest, HearsOfAMenuThatDoesNotGetTheKeyboard) {
    _menuInput.setRefused(true);
    popUp();
    ASSERT_TRUE(waitUntil([this] { return !_view->isMenuOpen(); }));
    EXPECT_THAT(_heard, ElementsAre("closed"));
}

TEST_F(MenuOpenerTest, HearsNothingWhenTheViewGoes) {
    popUp();
    _view.reset();
    settle();
    EXPECT_THAT(_heard, IsEmpty());
}

TEST_F(MenuOpenerTest, MayBeGoneBeforeItsMenu) {
    popUp();
    _opener.reset();
    press(Qt::Key_Left);
    _view->closeMenus();
    EXPECT_THAT(_heard, IsEmpty());
}

TEST_F(MenuOpenerTest, MayOpenAMenuWhenItsOwnHasClosed) {
    popUp();
    _opener->onClosed = [this] {
        _opener->onClosed = nullptr;
        popUpOther();
    };
    press(Qt::Key_Escape);
    settle();
    ASSERT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Other"));
    EXPECT_EQ(_menuInput.window(), openMenu().winId());
}

TEST_F(MenuOpenerTest, OpensItsMenuInsteadOfTheOneThatHasClosedIts) {
    popUp();
    _opener->onClosed = [this] {
        if (!_view->isMenuOpen())
            popUpOther();
    };
    const auto third = std::make_shared<Menu>("third");
    addItem(*third, "Third");
    const auto thirdOpener = std::make_shared<RecordingOpener>(_log);
    _view->popUpMenu(third, {200, 700}, thirdOpener);
    EXPECT_THAT(_log, ElementsAre("did close root", "closed"));
    settle();
    ASSERT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Other"));
    EXPECT_EQ(_menuInput.window(), openMenu().winId());
    _opener->onClosed = nullptr;
}

TEST_F(MenuOpenerTest, MayCloseMenusWhenItsOwnHasClosed) {
    popUp();
    _opener->onClosed = [this] { _view->closeMenus(); };
    popUpOther();
    EXPECT_THAT(_heard, ElementsAre("closed"));
    ASSERT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Other"));
    _view->closeMenus();
    EXPECT_THAT(_heard, ElementsAre("closed", "closed"));
}

TEST_F(MenuOpenerTest, HasNoMenuOpenByTheTimeThatAnActionIsSent) {
    bool isOpen = true;
    _target->onAction = [&] { isOpen = _view->isMenuOpen(); };
    popUp();
    _opener->onClosed = [this] {
        _opener->onClosed = nullptr;
        popUpOther();
    };
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    settle();
    EXPECT_FALSE(isOpen);
    EXPECT_THAT(_log, Contains("action act Quit"));
}

TEST_F(MenuOpenerTest, MovesToItsNeighboursAtTheEdges) {
    popUp();
    press(Qt::Key_Left);
    EXPECT_THAT(_heard, ElementsAre("left"));
    press(Qt::Key_Right); // nothing is highlighted
    EXPECT_THAT(_heard, ElementsAre("left", "right"));
    press(Qt::Key_Up); // "Quit"
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    EXPECT_THAT(_heard, ElementsAre("left", "right", "right", "left"));
    EXPECT_EQ(openMenus().size(), 1U);
}

TEST_F(MenuOpenerTest, LeavesTheKeysToTheSubmenus) {
    popUp();
    openSubmenu(); // by Right
    EXPECT_THAT(_heard, IsEmpty());
    press(Qt::Key_Right); // "Save" has no submenu
    EXPECT_THAT(_heard, ElementsAre("right"));
    EXPECT_EQ(openMenus().size(), 2U);
    press(Qt::Key_Left);
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(_heard, ElementsAre("right"));
    press(Qt::Key_Left);
    EXPECT_THAT(_heard, ElementsAre("right", "left"));
}

TEST_F(MenuOpenerTest, MovesOnFromASubmenuThatIsDisabledMeanwhile) {
    popUp();
    press(Qt::Key_Down);
    openMenu().actions().front()->setEnabled(false);
    ASSERT_EQ(openMenu().activeAction(), openMenu().actions().front());
    press(Qt::Key_Right);
    EXPECT_THAT(_heard, ElementsAre("right"));
}

TEST_F(MenuOpenerTest, KeepsThePressThatClosesItsMenuFromTheWindowBelow) {
    popUp();
    EXPECT_TRUE(openMenu().testAttribute(Qt::WA_NoMouseReplay));
}

TEST_F(MenuOpenerTest, MovesAsTheNeighboursLieUnderARightToLeftLayout) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    popUp();
    press(Qt::Key_Right);
    EXPECT_THAT(_heard, ElementsAre("right"));
    openSubmenu(); // by Left
    EXPECT_THAT(_heard, ElementsAre("right"));
    press(Qt::Key_Left);
    EXPECT_THAT(_heard, ElementsAre("right", "left"));
    press(Qt::Key_Right);
    EXPECT_EQ(openMenus().size(), 1U);
    EXPECT_THAT(_heard, ElementsAre("right", "left"));
}

TEST_F(MenuOpenerTest, LeavesEverythingToTheMenuWhereNobodyHasOpenedIt) {
    _view->popUpMenu(_root, {100, 700});
    press(Qt::Key_Left);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(openMenus().size(), 2U);
    press(Qt::Key_Right);
    EXPECT_EQ(openMenus().size(), 2U);
    press(Qt::Key_Left);
    EXPECT_EQ(openMenus().size(), 1U);
}

TEST_F(MenuOpenerTest, HandsTheInputFromMenuToMenu) {
    popUp();
    const int releases = _menuInput.releases();
    _opener->onMove = [this] { popUpOther(); };
    press(Qt::Key_Right);
    ASSERT_EQ(openMenus().size(), 1U);
    EXPECT_EQ(_menuInput.window(), openMenu().winId());
    EXPECT_EQ(_menuInput.releases(), releases);
    settle();
    EXPECT_EQ(_menuInput.window(), openMenu().winId());
    EXPECT_EQ(_menuInput.releases(), releases);
    _view->closeMenus();
    EXPECT_EQ(_menuInput.releases(), releases + 1);
}

TEST_F(MenuOpenerTest, GivesTheInputBackWhenTheNextMenuIsEmpty) {
    popUp();
    _view->popUpMenu(std::make_shared<Menu>("empty"), {300, 700}, _opener);
    EXPECT_EQ(_menuInput.window(), 0U);
    EXPECT_THAT(_heard, ElementsAre("closed", "closed"));
    popUp();
    _view->popUpMenu(nullptr, {300, 700}, _opener);
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(MenuOpenerTest, KnowsWhereItsMenusLie) {
    popUp();
    const QPoint inRoot = openMenu().geometry().center();
    EXPECT_TRUE(_view->isMenuAt(pointNS(inRoot)));
    EXPECT_FALSE(_view->isMenuAt(pointNS(openMenu().geometry().topLeft() - QPoint(5, 5))));
    openSubmenu();
    const QPoint inSubmenu = openMenu().geometry().center();
    EXPECT_TRUE(_view->isMenuAt(pointNS(inRoot)));
    EXPECT_TRUE(_view->isMenuAt(pointNS(inSubmenu)));
    press(Qt::Key_Escape);
    EXPECT_TRUE(_view->isMenuAt(pointNS(inRoot)));
    EXPECT_FALSE(_view->isMenuAt(pointNS(inSubmenu)));
    _view->closeMenus();
    EXPECT_FALSE(_view->isMenuAt(pointNS(inRoot)));
}

TEST_F(MenuOpenerTest, IsNowhereWhileOnlyTheWindowOfAClosedMenuIsLeft) {
    popUp();
    const QPoint inRoot = openMenu().geometry().center();
    popUpOther();
    EXPECT_FALSE(_view->isMenuAt(pointNS(inRoot)));
    EXPECT_TRUE(_view->isMenuAt(pointNS(openMenu().geometry().center())));
}

} // namespace

} // namespace tarragon
