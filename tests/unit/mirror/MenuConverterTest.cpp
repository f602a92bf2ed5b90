#include "mirror/MenuConverter.h"

#include "MenuTitles.h"
#include "fake/FakePlatform.h"
#include "mirror/MenuItemTables.h"
#include "mirror/ProxyMenuItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using Operation = FakeCall::Operation;
using Type = ItemDescription::Type;
using testing::ElementsAre;

class MenuConverterTest : public testing::Test {
protected:
    MenuConverterTest() {
        tables.initializeModifierLookUpTable();
        tables.initializeGlyphLookUpTable();
    }
    MenuConverter converter(ConversionOptions options = {.foldAlternateItems = true, .keyEquivalents = true}) {
        return {fake.accessibility, tables, application.element(), options, &delegate, {}};
    }
    ItemDescription convert(
        const Element& element, ConversionOptions options = {.foldAlternateItems = true, .keyEquivalents = true}) {
        return converter(options).getMenuItemForElement(element);
    }
    std::shared_ptr<MenuItem> convertItem(const FakeMenuItemOptions& itemOptions,
        ConversionOptions options = {.foldAlternateItems = true, .keyEquivalents = true}) {
        file.item("Save", itemOptions);
        return convert(file.itemElement("Save"), options).menuItem;
    }
    static std::shared_ptr<ProxyMenuItem> proxyOf(const MenuItem& item) {
        return std::dynamic_pointer_cast<ProxyMenuItem>(item.target());
    }

    FakePlatform fake;
    MenuItemTables tables;
    FakeApplication application = fake.addApplication("Mail");
    FakeMenu file = application.menu("File");
    MenuDelegate delegate;
};

using MenuItemConversion = MenuConverterTest;

TEST_F(MenuItemConversion, TakesAnUntitledMenuForAMenu) {
    const ItemDescription description = convert(file.element());
    EXPECT_EQ(description.type, Type::AXMenu);
    EXPECT_EQ(description.menuItem, nullptr);
}

TEST_F(MenuItemConversion, TakesUntitledItemsAndTextFieldsForNothing) {
    for (const char* role : {"AXMenuItem", "AXTextField"}) {
        const ItemDescription description = convert(fake.accessibility.addElement(1, role));
        EXPECT_EQ(description.type, Type::AXOther) << role;
        EXPECT_EQ(description.menuItem, nullptr);
    }
}

TEST_F(MenuItemConversion, NamesAnUntitledElementOfAnotherRoleByItsRole) {
    const ItemDescription description = convert(fake.accessibility.addElement(1, "AXMenuBarItem"));
    EXPECT_EQ(description.type, Type::AXMenuItem);
    EXPECT_EQ(description.menuItem->title(), "AXMenuBarItem");
}

TEST_F(MenuItemConversion, AsksNothingMoreOfMenusAndUntitledItems) {
    fake.accessibility.clearCalls();
    convert(file.element());
    for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue))
        EXPECT_EQ(call.name, "AXRole");
}

TEST_F(MenuItemConversion, GivesAnItemTitledMinusOrNothingNoProxy) {
    for (const char* title : {"-", ""}) {
        file.clear();
        file.item(title, {.enabled = true, .mark = "x", .commandCharacter = "S", .commandModifiers = 1});
        const auto item = convert(file.itemElement(title)).menuItem;
        ASSERT_NE(item, nullptr);
        EXPECT_TRUE(item->isSeparatorItem());
        EXPECT_EQ(item->target(), nullptr);
        EXPECT_EQ(item->title(), "");
        EXPECT_FALSE(item->state());
        EXPECT_EQ(item->keyEquivalent(), "");
        EXPECT_EQ(item->keyEquivalentModifierMask(), 0x100000U);
    }
}

TEST_F(MenuItemConversion, ReadsTheAttributesInAFixedOrderAndTheShortcutTextLast) {
    const Element primary = fake.accessibility.addElement(1, "AXMenuItem");
    file.item("Save",
        {.mark = "x",
            .commandCharacter = "S",
            .commandModifiers = 1,
            .commandGlyph = 23,
            .primary = primary,
            .shortcutText = "Ctrl+S"});
    const Element element = file.itemElement("Save");
    fake.accessibility.clearCalls();
    convert(element);
    std::vector<std::string> names;
    for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue)) {
        if (call.element == element)
            names.push_back(call.name);
        else if (call.element == primary)
            names.push_back("primary's " + call.name);
    }
    EXPECT_THAT(names,
        ElementsAre("AXRole", "AXTitle", "AXEnabled", "AXMenuItemMarkChar", "AXMenuItemCmdModifiers",
            "AXMenuItemCmdChar", "AXMenuItemPrimaryUIElement", "AXMenuItemCmdGlyph", "primary's AXRole",
            "AXMenuItemShortcutText"));
}

TEST_F(MenuItemConversion, ReadsASeparatorInFullBeforeItIsLookedAt) {
    for (const char* title : {"-", ""}) {
        const Element primary = fake.accessibility.addElement(1, "AXMenuItem");
        file.clear();
        file.item(title,
            {.mark = "x",
                .commandCharacter = "S",
                .commandModifiers = 1,
                .commandGlyph = 23,
                .primary = primary,
                .shortcutText = "Ctrl+S"});
        const Element element = file.itemElement(title);
        fake.accessibility.clearCalls();
        EXPECT_TRUE(convert(element).menuItem->isSeparatorItem());
        std::vector<std::string> names;
        for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue))
            names.push_back((call.element == primary ? "primary's " : "") + call.name);
        EXPECT_THAT(names,
            ElementsAre("AXRole", "AXTitle", "AXEnabled", "AXMenuItemMarkChar", "AXMenuItemCmdModifiers",
                "AXMenuItemCmdChar", "AXMenuItemPrimaryUIElement", "AXMenuItemCmdGlyph", "primary's AXRole",
                "AXMenuItemShortcutText"));
    }
}

TEST_F(MenuItemConversion, GoesByTheTitleAndByTheRoleOnlyWithoutOne) {
    const auto titled = [this](const char* role, const char* title) {
        const Element element = fake.accessibility.addElement(1, role);
        fake.accessibility.setAttribute(element, "AXTitle", std::string(title));
        return element;
    };
    for (const char* role : {"AXMenu", "AXMenuItem", "AXTextField"}) {
        const ItemDescription description = convert(titled(role, "Named"));
        ASSERT_EQ(description.type, Type::AXMenuItem) << role;
        EXPECT_EQ(description.menuItem->title(), "Named");
    }
    EXPECT_EQ(convert(titled("AXMenuBarItem", "AXMenu")).type, Type::AXMenu);
    EXPECT_EQ(convert(titled("AXMenuBarItem", "AXMenuItem")).type, Type::AXOther);
    EXPECT_EQ(convert(titled("AXMenu", "AXTextField")).type, Type::AXOther);
    EXPECT_TRUE(convert(titled("AXMenu", "")).menuItem->isSeparatorItem());
}

TEST_F(MenuItemConversion, ComparesTheTitleOfThePrimaryElseItsRole) {
    const Element primary = fake.accessibility.addElement(1, "Save");
    EXPECT_FALSE(convertItem({.primary = primary})->isAlternate());
    fake.accessibility.setAttribute(primary, "AXTitle", std::string("Save All"));
    EXPECT_TRUE(convert(file.itemElement("Save")).menuItem->isAlternate());
}

TEST_F(MenuItemConversion, MarksAnItemWhoseRealOneHasAnyMark) {
    EXPECT_TRUE(convertItem({.mark = "anything"})->state());
    file.clear();
    EXPECT_TRUE(convertItem({.mark = ""})->state());
    file.clear();
    EXPECT_FALSE(convertItem({})->state());
}

TEST_F(MenuItemConversion, EnablesAnItemExactlyWhenTheRealOneSaysTrue) {
    EXPECT_TRUE(convertItem({.enabled = true})->isEnabled());
    file.clear();
    EXPECT_FALSE(convertItem({.enabled = false})->isEnabled());
    file.clear();
    EXPECT_FALSE(convertItem({.enabled = std::nullopt})->isEnabled());
    file.clear();
    file.item("Save");
    fake.accessibility.setAttribute(file.itemElement("Save"), "AXEnabled", std::int64_t{1});
    EXPECT_FALSE(convert(file.itemElement("Save")).menuItem->isEnabled());
}

TEST_F(MenuItemConversion, GivesCommandCharacterSWithModifiers1TheKeySWithShiftCommand) {
    const auto item = convertItem({.commandCharacter = "S", .commandModifiers = 1});
    EXPECT_EQ(item->keyEquivalent(), "s");
    EXPECT_EQ(item->keyEquivalentModifierMask(), 0x120000U);
}

TEST_F(MenuItemConversion, LowersTheCaseOfEveryAlphabet) {
    EXPECT_EQ(convertItem({.commandCharacter = "Ä"})->keyEquivalent(), "ä");
    file.clear();
    EXPECT_EQ(convertItem({.commandCharacter = "Ж"})->keyEquivalent(), "ж");
    file.clear();
    EXPECT_EQ(convertItem({.commandCharacter = "7"})->keyEquivalent(), "7");
}

TEST_F(MenuItemConversion, CopiesTheModifiersButNoKeyEquivalentWhenThoseAreOff) {
    const auto item =
        convertItem({.commandCharacter = "S", .commandModifiers = 1, .commandGlyph = 140, .shortcutText = "Ctrl+S"},
            {.foldAlternateItems = false, .keyEquivalents = false});
    EXPECT_EQ(item->keyEquivalent(), "");
    EXPECT_EQ(item->shortcutText(), "");
    EXPECT_EQ(item->keyEquivalentModifierMask(), 0x120000U);
}

TEST_F(MenuItemConversion, PrefersAKnownGlyphToTheCharacter) {
    EXPECT_EQ(convertItem({.commandCharacter = "E", .commandGlyph = 140})->keyEquivalent(), "\u23CF");
    file.clear();
    EXPECT_EQ(convertItem({.commandGlyph = 111})->keyEquivalent(), "\uF704");
    file.clear();
    EXPECT_EQ(convertItem({.commandCharacter = "E", .commandGlyph = 9999})->keyEquivalent(), "e");
}

TEST_F(MenuItemConversion, LeavesCommandAloneForUnknownModifiers) {
    for (const std::int64_t code : {0, 5, 7, 13, 14, 15}) {
        file.clear();
        EXPECT_EQ(convertItem({.commandModifiers = code})->keyEquivalentModifierMask(), 0x100000U) << code;
    }
    file.clear();
    EXPECT_EQ(convertItem({})->keyEquivalentModifierMask(), 0x100000U);
}

TEST_F(MenuItemConversion, TakesOverTheApplicationsOwnWordsForTheShortcut) {
    EXPECT_EQ(convertItem({.shortcutText = "Ctrl+S"})->shortcutText(), "Ctrl+S");
}

TEST_F(MenuItemConversion, FoldsAnItemWhosePrimaryHasAnotherTitle) {
    file.item("Close").item("Close Tab").item("Close All");
    const Element close = file.itemElement("Close");
    EXPECT_TRUE(convertItem({.primary = close})->isAlternate());
    file.remove("Save");
    EXPECT_FALSE(convertItem({.primary = close}, {.foldAlternateItems = false, .keyEquivalents = true})->isAlternate());
    file.remove("Save");
    EXPECT_FALSE(convertItem({})->isAlternate());
}

TEST_F(MenuItemConversion, NeverFoldsAnItemWhosePrimaryHasItsOwnTitle) {
    const FakeMenu other = application.menu("Other").item("Save");
    EXPECT_FALSE(convertItem({.primary = other.itemElement("Save")})->isAlternate());
}

TEST_F(MenuItemConversion, BindsAProxyToTheRealItem) {
    const auto item = convertItem({});
    const auto proxy = proxyOf(*item);
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(item->action(), "clickMenuItem");
    EXPECT_EQ(proxy->itemAXUIElementRef(), file.itemElement("Save"));
    EXPECT_EQ(proxy->appAXUIElementRef(), application.element());
    EXPECT_EQ(proxy->appName(), "Mail");
    EXPECT_EQ(proxy->menuItem(), item);
}

TEST_F(MenuItemConversion, NamesAnApplicationWithoutATitleByItsRole) {
    fake.accessibility.removeAttribute(application.element(), "AXTitle");
    EXPECT_EQ(proxyOf(*convertItem({}))->appName(), "AXApplication");
}

TEST_F(MenuItemConversion, TakesAttributesOfTheWrongKindForAbsentOnes) {
    file.item("Save", {.mark = "x", .commandCharacter = "S", .commandModifiers = 1, .commandGlyph = 140});
    const Element element = file.itemElement("Save");
    for (const char* name : {"AXMenuItemCmdModifiers", "AXMenuItemCmdGlyph", "AXEnabled", "AXMenuItemPrimaryUIElement"})
        fake.accessibility.setAttribute(element, name, std::string("nonsense"));
    for (const char* name : {"AXMenuItemCmdChar", "AXMenuItemShortcutText"})
        fake.accessibility.setAttribute(element, name, std::int64_t{5});
    const auto item = convert(element, {.foldAlternateItems = false, .keyEquivalents = true}).menuItem;
    EXPECT_EQ(item->keyEquivalent(), "");
    EXPECT_EQ(item->shortcutText(), "");
    EXPECT_EQ(item->keyEquivalentModifierMask(), 0x100000U);
    EXPECT_FALSE(item->isEnabled());
}

TEST_F(MenuConverterTest, ConvertsOneLevelAndLeavesDeeperMenusEmpty) {
    application.menu("Edit").item("Copy");
    file.item("New");
    Menu root("Fennick");
    converter().processAXMenuAsNSMenu(application.menuBar(), root, std::nullopt);
    ASSERT_THAT(titlesOf(root), ElementsAre("File", "Edit"));
    for (const auto& item : root.items()) {
        ASSERT_TRUE(item->hasSubmenu());
        EXPECT_EQ(item->action(), "");
        EXPECT_NE(item->target(), nullptr);
        EXPECT_EQ(item->submenu()->title(), item->title());
        EXPECT_EQ(item->submenu()->numberOfItems(), 0U);
        EXPECT_EQ(item->submenu()->delegate(), &delegate);
        EXPECT_FALSE(item->submenu()->autoenablesItems());
    }
}

TEST_F(MenuConverterTest, ReadsNoItemOfADeeperLevel) {
    file.item("New");
    const Element item = file.itemElement("New");
    fake.accessibility.clearCalls();
    Menu root("Fennick");
    converter().processAXMenuAsNSMenu(application.menuBar(), root, std::nullopt);
    for (const FakeCall& call : fake.accessibility.calls())
        EXPECT_FALSE(call.element == item);
}

TEST_F(MenuConverterTest, AttachesBothSubmenusOfATitleToTheFirstItem) {
    application.menu("File").item("Second");
    Menu root("Fennick");
    converter().processAXMenuAsNSMenu(application.menuBar(), root, std::nullopt);
    ASSERT_THAT(titlesOf(root), ElementsAre("File", "File"));
    EXPECT_TRUE(root.itemAtIndex(0)->hasSubmenu());
    EXPECT_FALSE(root.itemAtIndex(1)->hasSubmenu());
    EXPECT_EQ(root.itemAtIndex(1)->action(), "clickMenuItem");
}

TEST_F(MenuConverterTest, AddsNothingWhenTheChildrenCannotBeRead) {
    Menu menu("File");
    converter().processAXMenuAsNSMenu(Element(), menu, std::nullopt);
    fake.accessibility.destroy(application.menuBar());
    converter().processAXMenuAsNSMenu(application.menuBar(), menu, std::nullopt);
    EXPECT_EQ(menu.numberOfItems(), 0U);
}

TEST_F(MenuConverterTest, ConvertsTheItemsOfEveryMenuBelowAnItem) {
    file.item("New").separator().submenu("Open Recent").item("Letter");
    const Element second = fake.accessibility.addElement(1, "AXMenu");
    fake.accessibility.addChild(file.item(), second);
    FakeMenu(fake.accessibility, 1, file.item(), second).item("Extra");
    const Element group = fake.accessibility.addElement(1, "AXGroup");
    fake.accessibility.addChild(file.item(), group);
    FakeMenu(fake.accessibility, 1, file.item(), group).item("Not an item of a menu");

    Menu menu("File");
    converter().processSubAXMenuAsNSMenu(file.item(), menu);
    EXPECT_THAT(titlesOf(menu), ElementsAre("New", "", "Open Recent", "Extra"));
    EXPECT_TRUE(menu.itemAtIndex(2)->hasSubmenu());
    EXPECT_EQ(menu.itemAtIndex(2)->submenu()->numberOfItems(), 0U);
}

TEST_F(MenuConverterTest, DropsAMenuDirectlyInAMenu) {
    fake.accessibility.addChild(file.element(), fake.accessibility.addElement(1, "AXMenu"));
    file.item("(null)").item("New");
    Menu menu("File");
    converter().processSubAXMenuAsNSMenu(file.item(), menu);
    EXPECT_THAT(titlesOf(menu), ElementsAre("(null)", "New"));
    EXPECT_FALSE(menu.itemAtIndex(0)->hasSubmenu());
}

TEST_F(MenuConverterTest, TouchesTheMenuWithoutBuildingAnything) {
    const Element extra = fake.accessibility.addElement(1, "AXMenu");
    const Element group = fake.accessibility.addElement(1, "AXGroup");
    fake.accessibility.insertChild(file.item(), group, 0);
    fake.accessibility.addChild(file.item(), extra);
    fake.accessibility.clearCalls();
    converter().processSingleIterationSubAXMenuAsNSMenu(file.item());
    std::vector<Element> asked;
    for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue)) {
        if (call.name == "AXRole")
            asked.push_back(call.element);
    }
    EXPECT_EQ(asked, (std::vector<Element>{group, file.element()}));
}

TEST_F(MenuConverterTest, AsksForTheApplicationsNameOnce) {
    for (int index = 0; index < 50; ++index)
        file.item("Item " + std::to_string(index));
    fake.accessibility.clearCalls();
    Menu menu("File");
    converter().processSubAXMenuAsNSMenu(file.item(), menu);
    int asked = 0;
    for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue))
        asked += call.element == application.element() && call.name == "AXTitle" ? 1 : 0;
    EXPECT_EQ(asked, 1);
}

TEST_F(MenuConverterTest, AsksNothingMoreOnceItIsToStop) {
    for (int index = 0; index < 3; ++index)
        file.item("Item " + std::to_string(index), {.mark = "x", .commandCharacter = "S"});
    int questions = 0;
    const auto convertStoppingAt = [&](int last) {
        fake.accessibility.clearCalls();
        questions = 0;
        std::optional<std::size_t> callsAtTheStop;
        MenuConverter stopped = converter();
        stopped.setShouldStop([&] {
            if (questions++ < last)
                return false;
            EXPECT_EQ(callsAtTheStop, std::nullopt) << "asked again";
            callsAtTheStop = fake.accessibility.callCount();
            return true;
        });
        Menu menu("File");
        stopped.processSubAXMenuAsNSMenu(file.item(), menu);
        if (callsAtTheStop) {
            EXPECT_EQ(fake.accessibility.callCount(), *callsAtTheStop) << last;
        }
    };
    convertStoppingAt(1000);
    const int all = questions;
    EXPECT_GT(all, 30);
    for (int last = 0; last < all; ++last)
        convertStoppingAt(last);
}

TEST_F(MenuConverterTest, EndsWhenAnElementIsItsOwnDescendant) {
    file.item("New");
    const Element item = file.itemElement("New");
    fake.accessibility.addChild(item, file.element());
    fake.accessibility.addChild(item, item);
    fake.accessibility.addChild(file.element(), file.element());
    Menu menu("File");
    converter().processSubAXMenuAsNSMenu(file.item(), menu);
    EXPECT_FALSE(titlesOf(menu).empty());
    EXPECT_LT(menu.numberOfItems(), 10U);
}

TEST_F(MenuConverterTest, EndsWhenItemsNestWithoutEnd) {
    Element parent = file.element();
    for (int depth = 0; depth < 1000; ++depth) {
        const Element child = fake.accessibility.addElement(1, "AXGroup");
        fake.accessibility.addChild(parent, child);
        parent = child;
    }
    Menu menu("File");
    converter().processSubAXMenuAsNSMenu(file.item(), menu);
    EXPECT_LE(menu.numberOfItems(), 16U);
}

} // namespace
} // namespace tarragon
