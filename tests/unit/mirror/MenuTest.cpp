#include "mirror/Menu.h"

#include "MenuTitles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using testing::ElementsAre;

std::shared_ptr<MenuItem> item(const std::string& title) {
    return std::make_shared<MenuItem>(title, "", "");
}

TEST(MenuItems, StartEnabledOffAndWithCommandAlone) {
    const MenuItem fresh("Copy", "copy", "c");
    EXPECT_EQ(fresh.title(), "Copy");
    EXPECT_EQ(fresh.action(), "copy");
    EXPECT_EQ(fresh.keyEquivalent(), "c");
    EXPECT_EQ(fresh.keyEquivalentModifierMask(), 0x100000U);
    EXPECT_TRUE(fresh.isEnabled());
    EXPECT_FALSE(fresh.state());
    EXPECT_FALSE(fresh.isAlternate());
    EXPECT_FALSE(fresh.isSeparatorItem());
    EXPECT_FALSE(fresh.hasSubmenu());
    EXPECT_EQ(fresh.menu(), nullptr);
    EXPECT_EQ(fresh.parentItem(), nullptr);
}

TEST(MenuItems, AreSeparatorsWithoutATitleOrAnAction) {
    const auto separator = MenuItem::separatorItem();
    EXPECT_TRUE(separator->isSeparatorItem());
    EXPECT_EQ(separator->title(), "");
    EXPECT_EQ(separator->action(), "");
    EXPECT_FALSE(separator->isEnabled());
}

TEST(Menus, KeepTheirItemsInOrder) {
    Menu menu("File");
    menu.addItem(item("B"));
    menu.insertItem(item("A"), 0);
    menu.insertItem(item("C"), 2);
    EXPECT_THAT(titlesOf(menu), ElementsAre("A", "B", "C"));
    EXPECT_EQ(menu.itemAtIndex(1)->title(), "B");
    EXPECT_EQ(menu.itemAtIndex(-1), nullptr);
    EXPECT_EQ(menu.itemAtIndex(3), nullptr);
}

TEST(Menus, FindTheFirstItemOfATitle) {
    Menu menu("File");
    menu.addItem(item("A"));
    menu.addItem(item("B"));
    menu.addItem(item("B"));
    EXPECT_EQ(menu.indexOfItemWithTitle("B"), 1U);
    EXPECT_EQ(menu.itemWithTitle("B"), menu.itemAtIndex(1));
    EXPECT_EQ(menu.indexOfItemWithTitle("b"), std::nullopt);
    EXPECT_EQ(menu.itemWithTitle("b"), nullptr);
    EXPECT_EQ(menu.indexOfItem(*menu.itemAtIndex(2)), 2U);
    EXPECT_EQ(menu.indexOfItem(*item("A")), std::nullopt);
}

TEST(Menus, TakeAnItemOutOfTheMenuThatHeldIt) {
    Menu from("From");
    Menu to("To");
    const auto moved = item("Moved");
    from.addItem(moved);
    to.addItem(moved);
    EXPECT_EQ(from.numberOfItems(), 0U);
    EXPECT_EQ(moved->menu(), &to);
    to.addItem(item("Last"));
    to.addItem(moved);
    EXPECT_THAT(titlesOf(to), ElementsAre("Last", "Moved"));
    to.insertItem(moved, 0);
    EXPECT_THAT(titlesOf(to), ElementsAre("Moved", "Last"));
}

TEST(Menus, LetGoOfRemovedItems) {
    Menu menu("File");
    const auto first = item("A");
    const auto second = item("B");
    menu.addItem(first);
    menu.addItem(second);
    EXPECT_FALSE(menu.removeItemAtIndex(2));
    EXPECT_FALSE(menu.removeItemAtIndex(-1));
    EXPECT_TRUE(menu.removeItemAtIndex(0));
    EXPECT_EQ(first->menu(), nullptr);
    menu.removeItem(*first);
    EXPECT_THAT(titlesOf(menu), ElementsAre("B"));
    menu.removeItem(*second);
    EXPECT_EQ(menu.numberOfItems(), 0U);
    menu.addItem(first);
    menu.removeAllItems();
    EXPECT_EQ(first->menu(), nullptr);
}

TEST(Menus, LetGoOfTheirItemsWhenTheyGo) {
    const auto kept = item("Kept");
    {
        Menu menu("File");
        menu.addItem(kept);
    }
    EXPECT_EQ(kept->menu(), nullptr);
}

TEST(Menus, KnowTheItemAndTheMenuAbove) {
    const auto root = std::make_shared<Menu>("Root");
    const auto file = item("File");
    const auto submenu = std::make_shared<Menu>("File");
    const auto open = item("Open");
    root->addItem(file);
    submenu->addItem(open);
    EXPECT_EQ(submenu->supermenu(), nullptr);
    file->setSubmenu(submenu);
    EXPECT_EQ(submenu->parentItem(), file.get());
    EXPECT_EQ(submenu->supermenu(), root.get());
    EXPECT_EQ(open->parentItem(), file.get());
    EXPECT_EQ(file->parentItem(), nullptr);
    EXPECT_EQ(root->indexOfItemWithSubmenu(*submenu), 0U);
    root->removeAllItems();
    EXPECT_EQ(submenu->supermenu(), nullptr);
    EXPECT_EQ(submenu->parentItem(), file.get());
}

TEST(Menus, HangInOneItemAtATime) {
    const auto first = item("First");
    const auto second = item("Second");
    const auto submenu = std::make_shared<Menu>("Sub");
    first->setSubmenu(submenu);
    second->setSubmenu(submenu);
    EXPECT_FALSE(first->hasSubmenu());
    EXPECT_EQ(submenu->parentItem(), second.get());
    second->setSubmenu(submenu);
    EXPECT_EQ(second->submenu(), submenu);
    EXPECT_EQ(submenu->parentItem(), second.get());
    second->setSubmenu(nullptr);
    EXPECT_EQ(submenu->parentItem(), nullptr);
}

TEST(Menus, ForgetTheItemAboveWhenItGoes) {
    const auto submenu = std::make_shared<Menu>("Sub");
    {
        const auto owner = item("Owner");
        owner->setSubmenu(submenu);
    }
    EXPECT_EQ(submenu->parentItem(), nullptr);
}

TEST(Menus, AreToldApartByTheTitleObject) {
    const auto title = std::make_shared<const std::string>("CocoaMenu");
    const Menu first(title);
    const Menu second(title);
    const Menu other("CocoaMenu");
    EXPECT_EQ(first.sharedTitle(), second.sharedTitle());
    EXPECT_NE(first.sharedTitle(), other.sharedTitle());
    EXPECT_EQ(first.title(), other.title());
}

class CopyingTest : public testing::Test {
protected:
    class Target : public MenuTarget {
    public:
        void performAction(const std::string&, MenuItem&) override { }
    };
    MenuDelegate delegate;
    std::shared_ptr<Target> target = std::make_shared<Target>();
};

TEST_F(CopyingTest, AnItemKeepsEverythingButItsMenu) {
    Menu menu("File");
    const auto original = std::make_shared<MenuItem>("Copy", "copy", "c");
    original->setTarget(target);
    original->setState(true);
    original->setEnabled(false);
    original->setAlternate(true);
    original->setKeyEquivalentModifierMask(0x20000);
    original->setShortcutText("Shift+C");
    original->setAttributedTitle(AttributedTitle{"Copy", {12, true}, -1});
    original->setMenu(std::make_shared<Menu>("Assigned"));
    menu.addItem(original);

    const auto copy = original->copy();
    EXPECT_EQ(copy->title(), "Copy");
    EXPECT_EQ(copy->action(), "copy");
    EXPECT_EQ(copy->keyEquivalent(), "c");
    EXPECT_EQ(copy->target(), target);
    EXPECT_TRUE(copy->state());
    EXPECT_FALSE(copy->isEnabled());
    EXPECT_TRUE(copy->isAlternate());
    EXPECT_EQ(copy->keyEquivalentModifierMask(), 0x20000U);
    EXPECT_EQ(copy->shortcutText(), "Shift+C");
    EXPECT_EQ(copy->attributedTitle(), original->attributedTitle());
    EXPECT_EQ(copy->menu(), nullptr);
    EXPECT_TRUE(MenuItem::separatorItem()->copy()->isSeparatorItem());
}

TEST_F(CopyingTest, AnItemCopiesItsSubmenuWithTheSameDelegate) {
    const auto original = item("File");
    const auto submenu = std::make_shared<Menu>("File");
    submenu->setDelegate(&delegate);
    submenu->setAutoenablesItems(false);
    submenu->setFont(MenuFont{11, false});
    submenu->addItem(item("Open"));
    original->setSubmenu(submenu);

    Menu menu("Root");
    const auto copy = original->copy();
    menu.addItem(copy);
    ASSERT_TRUE(copy->hasSubmenu());
    EXPECT_NE(copy->submenu(), submenu);
    EXPECT_EQ(submenu->parentItem(), original.get());
    EXPECT_EQ(copy->submenu()->delegate(), &delegate);
    EXPECT_FALSE(copy->submenu()->autoenablesItems());
    EXPECT_EQ(copy->submenu()->font(), submenu->font());
    EXPECT_EQ(copy->submenu()->sharedTitle(), submenu->sharedTitle());
    EXPECT_EQ(copy->submenu()->supermenu(), &menu);
    EXPECT_EQ(copy->submenu()->itemAtIndex(0)->parentItem(), copy.get());
    EXPECT_NE(copy->submenu()->itemAtIndex(0), submenu->itemAtIndex(0));
}

TEST_F(CopyingTest, AMenuHangsInNoItem) {
    const auto owner = item("File");
    owner->setSubmenu(std::make_shared<Menu>("File"));
    EXPECT_EQ(owner->submenu()->copy()->parentItem(), nullptr);
}

TEST(MenuSlot, HoldsAMenuOfTheCallersChoosing) {
    Menu container("Container");
    const auto holder = item("File");
    container.addItem(holder);
    EXPECT_EQ(holder->menu(), &container);
    holder->setMenu(std::make_shared<Menu>("Assigned"));
    EXPECT_EQ(holder->menu()->title(), "Assigned");
    EXPECT_EQ(container.numberOfItems(), 1U);
    EXPECT_EQ(holder->parentItem(), nullptr);
    holder->setMenu(nullptr);
    EXPECT_EQ(holder->menu(), &container);
}

} // namespace
} // namespace tarragon
