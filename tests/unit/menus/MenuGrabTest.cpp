#include "LinesOfLog.h"
#include "MenuViewFixture.h"

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

// Which window has the keyboard and the pointer while a mirrored menu is open.
class MenuGrabTest : public MenuViewFixture {
protected:
    MenuGrabTest() { addItem(*_root, "One"); }
    LinesOfLog _loggedLines;
};

TEST_F(MenuGrabTest, GivesAMenuTheInputAsSoonAsItIsOnTheScreen) {
    popUp();
    EXPECT_EQ(_menuInput.window(), openMenu().winId());
}

TEST_F(MenuGrabTest, LeavesTheInputWithTheFirstMenuWhileASubmenuIsOpen) {
    const auto submenu = addSubmenu(*_root, "File");
    addItem(*submenu, "Save");
    popUp();
    press(Qt::Key_Up);
    press(Qt::Key_Right);
    ASSERT_EQ(openMenus().size(), 2U);
    EXPECT_EQ(_menuInput.window(), openMenus().front()->winId());
}

TEST_F(MenuGrabTest, GivesTheInputBackWhenTheMenuCloses) {
    popUp();
    press(Qt::Key_Escape);
    EXPECT_EQ(_menuInput.window(), 0U);
    popUp();
    _view->closeMenus();
    EXPECT_EQ(_menuInput.window(), 0U);
}

TEST_F(MenuGrabTest, GivesTheInputBackBeforeTheActionIsSent) {
    std::uint64_t window = 1;
    _target->onAction = [&] { window = _menuInput.window(); };
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(window, 0U);
}

TEST_F(MenuGrabTest, AsksAgainForWhatIsRefused) {
    _menuInput.setRefused(true);
    popUp();
    EXPECT_EQ(_menuInput.window(), 0U);
    EXPECT_TRUE(waitUntil([this] { return _menuInput.refusals() > 2; }));
    _menuInput.setRefused(false);
    EXPECT_TRUE(waitUntil([this] { return _menuInput.window() == openMenu().winId(); }));
    ASSERT_EQ(_loggedLines.lines.size(), 1U);
    EXPECT_THAT(_loggedLines.lines.front(), HasSubstr("another program holds the keyboard"));
}

TEST_F(MenuGrabTest, TakesBackWhatIsLostMeanwhile) {
    popUp();
    _menuInput.release();
    EXPECT_TRUE(waitUntil([this] { return _menuInput.window() == openMenu().winId(); }));
}

TEST_F(MenuGrabTest, ClosesAMenuThatDoesNotGetTheKeyboardInTime) {
    _menuInput.setRefused(true);
    popUp();
    EXPECT_TRUE(waitUntil([] { return openMenus().empty(); }));
    EXPECT_FALSE(_view->isMenuOpen());
    EXPECT_EQ(_log.back(), "did close root");
    EXPECT_EQ(_menuInput.refusals(), 40);
    ASSERT_EQ(_loggedLines.lines.size(), 2U);
    EXPECT_THAT(_loggedLines.lines.back(), HasSubstr("closed"));
}

TEST_F(MenuGrabTest, CountsOnlyRefusalsInARow) {
    _menuInput.setRefused(true);
    popUp();
    ASSERT_TRUE(waitUntil([this] { return _menuInput.refusals() == 30; }));
    _menuInput.setRefused(false);
    ASSERT_TRUE(waitUntil([this] { return _menuInput.window() != 0; }));
    _menuInput.setRefused(true);
    ASSERT_TRUE(waitUntil([this] { return _menuInput.refusals() == 60; }));
    EXPECT_EQ(openMenus().size(), 1U);
}

TEST_F(MenuGrabTest, IsForNoMenuThatIsNotShown) {
    _view->popUpMenu(std::make_shared<Menu>("Bookmarks"), {100, 700});
    EXPECT_EQ(_menuInput.window(), 0U);
    EXPECT_THAT(_loggedLines.lines, testing::ElementsAre("menu \"Bookmarks\" is empty and not shown"));
}

} // namespace

} // namespace tarragon
