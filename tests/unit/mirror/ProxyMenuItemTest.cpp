#include "mirror/ProxyMenuItem.h"

#include "fake/FakeFillingThreads.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "mirror/Menu.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class ClosingsCounter : public MenuReaderOwner {
public:
    void menuHasClosed() override { ++closings; }
    int closings = 0;
};

class ProxyMenuItemTest : public testing::Test {
protected:
    std::shared_ptr<MenuItem> addItem(const std::shared_ptr<Menu>& menu, const std::string& title) {
        auto item = std::make_shared<MenuItem>(title, "", "");
        menu->addItem(item);
        return item;
    }
    std::shared_ptr<Menu> addSubmenu(const std::shared_ptr<MenuItem>& item) {
        auto submenu = std::make_shared<Menu>(item->title());
        item->setSubmenu(submenu);
        return submenu;
    }
    std::string keyOf(const std::shared_ptr<MenuItem>& item, const std::string& application) {
        ProxyMenuItem proxy(fake.accessibility);
        proxy.setMenuItem(item);
        proxy.setAppName(application);
        return proxy.itemKey();
    }

    FakePlatform fake;
    std::shared_ptr<Menu> root = std::make_shared<Menu>("Fennick");
    std::shared_ptr<MenuItem> edit = addItem(root, "Edit");
    std::shared_ptr<Menu> editMenu = addSubmenu(edit);
    std::shared_ptr<MenuItem> copy = addItem(editMenu, "Copy");
};

TEST_F(ProxyMenuItemTest, StartsWithoutElementsNameItemAndKey) {
    const ProxyMenuItem proxy(fake.accessibility);
    EXPECT_FALSE(proxy.itemAXUIElementRef());
    EXPECT_FALSE(proxy.appAXUIElementRef());
    EXPECT_EQ(proxy.appName(), std::nullopt);
    EXPECT_EQ(proxy.menuItem(), nullptr);
    EXPECT_EQ(proxy.appAccessbility(), nullptr);
    EXPECT_EQ(proxy.createKeyForFennickItem(MenuItem("Copy", "", "")), "Copy");
}

TEST_F(ProxyMenuItemTest, NamesAnItemByApplicationAndPath) {
    EXPECT_EQ(keyOf(copy, "Mail"), "Mail|Edit|Copy");
}

TEST_F(ProxyMenuItemTest, EndsTheKeyOfAnItemWithASubmenuInABar) {
    EXPECT_EQ(keyOf(edit, "Finder"), "Finder|Edit|");
    const auto recent = addItem(editMenu, "Open Recent");
    addSubmenu(recent);
    EXPECT_EQ(keyOf(recent, "Mail"), "Mail|Edit|Open Recent|");
}

TEST_F(ProxyMenuItemTest, NamesAnItemOfAnApplicationWithoutANameAsEveryMissingTextIsNamed) {
    ProxyMenuItem proxy(fake.accessibility);
    proxy.setMenuItem(copy);
    EXPECT_EQ(proxy.itemKey(), "(null)|Edit|Copy");
}

TEST_F(ProxyMenuItemTest, BuildsASecondKeyOnTheFirst) {
    ProxyMenuItem proxy(fake.accessibility);
    proxy.setMenuItem(edit);
    proxy.setAppName("Finder");
    EXPECT_EQ(proxy.itemKey(), "Finder|Edit|");
    EXPECT_EQ(proxy.itemKey(), "Finder|Edit|Finder|Edit|");
}

TEST_F(ProxyMenuItemTest, StartsEveryLevelOfASecondKeyFromTheFirst) {
    ProxyMenuItem proxy(fake.accessibility);
    proxy.setMenuItem(copy);
    proxy.setAppName("Mail");
    EXPECT_EQ(proxy.itemKey(), "Mail|Edit|Copy");
    EXPECT_EQ(proxy.itemKey(), "Mail|Edit|Mail|Edit|CopyCopyMail|Edit|Copy");
}

TEST_F(ProxyMenuItemTest, DoesNotKeepItsItemAlive) {
    ProxyMenuItem proxy(fake.accessibility);
    proxy.setMenuItem(copy);
    proxy.setAppName("Mail");
    editMenu->removeAllItems();
    copy.reset();
    EXPECT_EQ(proxy.menuItem(), nullptr);
    EXPECT_EQ(proxy.itemKey(), "Mail|(null)");
}

TEST_F(ProxyMenuItemTest, NamesAMissingItemAsEveryMissingTextIsNamed) {
    ProxyMenuItem proxy(fake.accessibility);
    EXPECT_EQ(proxy.itemKey(), "(null)|(null)");
    EXPECT_EQ(proxy.itemKey(), "(null)|(null)(null)|(null)");
}

class Clicking : public ProxyMenuItemTest {
protected:
    Clicking() {
        application.menu("Edit");
        fake.activate(application);
        reader = AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<FakeFillingThreads>(fillings));
        reader->setAppController(&owner);
        proxy.setItemAXUIElementRef(element);
        proxy.setAppAccessbility(reader);
    }

    FakeApplication application = fake.addApplication("Mail");
    FakeMenu file = application.menu("File").item("New");
    Element element = file.itemElement("New");
    ClosingsCounter owner;
    std::shared_ptr<FakeFillingThreads::Work> fillings = std::make_shared<FakeFillingThreads::Work>();
    std::shared_ptr<AppAccessibility> reader;
    ProxyMenuItem proxy{fake.accessibility};
};

TEST_F(Clicking, PressesTheRealItemAndTellsTheOwnerThatTheMenuHasClosed) {
    proxy.clickMenuItem();
    ASSERT_EQ(fake.accessibility.performedActions().size(), 1U);
    EXPECT_EQ(fake.accessibility.performedActions()[0], std::pair(element, std::string("AXPress")));
    EXPECT_EQ(owner.closings, 1);
}

TEST_F(Clicking, PressesTheRealItemBeforeTheOwnerIsTold) {
    int closingsAtThePress = -1;
    fake.accessibility.onAction(element, "AXPress", [&] { closingsAtThePress = owner.closings; });
    proxy.clickMenuItem();
    EXPECT_EQ(closingsAtThePress, 0);
    EXPECT_EQ(owner.closings, 1);
}

TEST_F(Clicking, TellsTheOwnerWhenTheRealItemIsGone) {
    file.remove("New");
    proxy.clickMenuItem();
    EXPECT_TRUE(fake.accessibility.performedActions().empty());
    EXPECT_EQ(owner.closings, 1);
}

TEST_F(Clicking, TellsTheOwnerWhenTheApplicationRefuses) {
    fake.accessibility.setFault(element, FakeFault::Refusing);
    proxy.clickMenuItem();
    EXPECT_EQ(owner.closings, 1);
}

TEST_F(Clicking, FollowsFromTheActionOfAMirroredItem) {
    proxy.performAction("clickMenuItem", *copy);
    EXPECT_EQ(fake.accessibility.performedActions().size(), 1U);
    EXPECT_EQ(owner.closings, 1);
}

TEST_F(Clicking, DoesNotFollowFromOtherActions) {
    proxy.performAction("terminate", *copy);
    EXPECT_TRUE(fake.accessibility.performedActions().empty());
    EXPECT_EQ(owner.closings, 0);
}

TEST_F(Clicking, OutlivesTheReader) {
    reader.reset();
    proxy.clickMenuItem();
    EXPECT_EQ(fake.accessibility.performedActions().size(), 1U);
    EXPECT_EQ(owner.closings, 0);
}

} // namespace
} // namespace tarragon
