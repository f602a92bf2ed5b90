#include "MenuViewFixture.h"

#include <QStyle>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::ElementsAre;

class MenuViewItemsTest : public MenuViewFixture { };

TEST_F(MenuViewItemsTest, ShowsTitlesAsTheyStand) {
    addItem(*_root, "Cut & Paste");
    addItem(*_root, "Tab\there");
    addItem(*_root, "");
    addItem(*_root, "שלום 😀");
    popUp();
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Cut && Paste", "Tab here", "", "שלום 😀"));
}

TEST_F(MenuViewItemsTest, LimitsTheWidthOfAMenu) {
    addItem(*_root, std::string(10000, 'W'))->setShortcutText(std::string(10000, 'M'));
    popUp();
    EXPECT_LE(openMenu().width(), 700);
    EXPECT_GE(openMenu().width(), 400);
}

TEST_F(MenuViewItemsTest, ShowsSeparators) {
    addItem(*_root, "A");
    _root->addItem(MenuItem::separatorItem());
    addItem(*_root, "B");
    popUp();
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("A", "-", "B"));
}

TEST_F(MenuViewItemsTest, MarksOnlyItemsThatAreOn) {
    addItem(*_root, "On")->setState(true);
    addItem(*_root, "Off");
    popUp();
    EXPECT_TRUE(shownAction(openMenu(), "On").isChecked());
    EXPECT_FALSE(shownAction(openMenu(), "Off").isCheckable());
}

struct EnabledCase {
    bool enabled;
    bool autoenables;
    bool hasAction;
    bool hasSubmenu;
    bool looksEnabled;
};

class MenuViewEnabling : public MenuViewFixture, public testing::WithParamInterface<EnabledCase> { };

TEST_P(MenuViewEnabling, ShowsAnItemByItsStateAndWhatItDoes) {
    const EnabledCase& given = GetParam();
    _root->setAutoenablesItems(given.autoenables);
    if (given.hasSubmenu)
        addSubmenu(*_root, "Item");
    else
        addItem(*_root, "Item");
    const auto item = _root->itemAtIndex(0);
    item->setAction(given.hasAction ? "act" : "");
    item->setEnabled(given.enabled);
    popUp();
    EXPECT_EQ(shownAction(openMenu(), "Item").isEnabled(), given.looksEnabled);
}

INSTANTIATE_TEST_SUITE_P(Items, MenuViewEnabling,
    testing::Values(EnabledCase{true, true, true, false, true}, EnabledCase{true, true, false, true, true},
        EnabledCase{true, true, false, false, false}, EnabledCase{true, false, false, false, true},
        EnabledCase{false, true, true, false, false}, EnabledCase{false, false, true, true, false},
        EnabledCase{true, false, true, false, true}));

TEST_F(MenuViewItemsTest, ShowsTheShortcutWithoutBeingAnsweringForIt) {
    const auto save = addItem(*_root, "Save");
    save->setKeyEquivalent("s");
    save->setKeyEquivalentModifierMask(modifier::Command | modifier::Shift);
    addItem(*_root, "Full Screen")->setShortcutText("F11");
    popUp();
    EXPECT_THAT(shownTexts(openMenu()), ElementsAre("Save\tCtrl+Shift+S", "Full Screen\tF11"));
    for (const QAction* action : openMenu().actions())
        EXPECT_TRUE(action->shortcuts().isEmpty());
}

TEST_F(MenuViewItemsTest, UsesTheFontOfTheMenuInItsSubmenusToo) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    _root->setFont(MenuFont{.pointSize = 19, .bold = false});
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    ASSERT_EQ(openMenus().size(), 2U);
    for (const QMenu* menu : openMenus())
        EXPECT_EQ(menu->font().pixelSize(), 19);
}

TEST_F(MenuViewItemsTest, KeepsTheFontInASubmenuThatLeftTheMenuMeanwhile) {
    addItem(*addSubmenu(*_root, "File"), "Save");
    _root->setFont(MenuFont{.pointSize = 19, .bold = false});
    popUp();
    _root->removeAllItems();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    ASSERT_EQ(openMenus().size(), 2U);
    EXPECT_EQ(openMenu().font().pixelSize(), 19);
}

TEST_F(MenuViewItemsTest, ShowsAnAttributedTitleInItsOwnFont) {
    addItem(*_root, "plain")
        ->setAttributedTitle(AttributedTitle{.text = "Bold", .font = {.pointSize = 0, .bold = true}, .strokeWidth = 0});
    addItem(*_root, "plain")->setAttributedTitle(AttributedTitle{.text = "Stroked", .font = {}, .strokeWidth = -1});
    addItem(*_root, "plain")
        ->setAttributedTitle(
            AttributedTitle{.text = "Large", .font = {.pointSize = 30, .bold = false}, .strokeWidth = 0});
    popUp();
    const QMenu& menu = openMenu();
    EXPECT_TRUE(shownAction(menu, "Bold").font().bold());
    EXPECT_TRUE(shownAction(menu, "Stroked").font().bold());
    EXPECT_FALSE(shownAction(menu, "Large").font().bold());
    EXPECT_EQ(shownAction(menu, "Large").font().pixelSize(), 30);
}

TEST_F(MenuViewItemsTest, LeavesTheModelAsItIs) {
    addItem(*_root, "A\tB & C")->setState(true);
    addSubmenu(*_root, "File");
    popUp();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    settle();
    ASSERT_EQ(_root->numberOfItems(), 2U);
    EXPECT_EQ(_root->itemAtIndex(0)->title(), "A\tB & C");
    EXPECT_TRUE(_root->itemAtIndex(0)->state());
    EXPECT_EQ(_root->itemAtIndex(1)->submenu()->numberOfItems(), 0U);
}

} // namespace

} // namespace tarragon
