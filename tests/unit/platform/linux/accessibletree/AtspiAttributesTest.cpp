#include "platform/linux/accessibletree/AtspiAttributes.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiRole.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

using Place = AtspiElement::Place;

std::uint64_t states(std::initializer_list<AtspiState> list) {
    std::uint64_t result = 0;
    for (const AtspiState state : list)
        result |= std::uint64_t{1} << static_cast<unsigned>(state);
    return result;
}

AtspiNode item(std::uint32_t role, std::string name, std::uint64_t itsStates = 0, std::string keyBinding = {}) {
    AtspiNode node;
    node.role = role;
    node.name = std::move(name);
    node.states = itsStates;
    node.keyBinding = std::move(keyBinding);
    return node;
}

Value attributeInMenu(const AtspiNode& node, std::string_view name) {
    return attributeOfNode(node, Place::InMenu, name);
}

TEST(AtspiAttributes, CallItemsByTheMenuTheyStandIn) {
    EXPECT_EQ(roleOfNode(item(AtspiRoleMenu, "File"), Place::InMenuBar), role::MenuBarItem);
    EXPECT_EQ(roleOfNode(item(AtspiRoleMenuItem, "File"), Place::InMenuBar), role::MenuBarItem);
    EXPECT_EQ(roleOfNode(item(AtspiRoleMenu, "Recent"), Place::InMenu), role::MenuItem);
    EXPECT_EQ(roleOfNode(item(AtspiRoleCheckMenuItem, "Bold"), Place::InMenu), role::MenuItem);
    EXPECT_EQ(roleOfNode(item(AtspiRoleRadioMenuItem, "One"), Place::InMenu), role::MenuItem);
    EXPECT_EQ(roleOfNode(item(AtspiRoleSeparator, ""), Place::InMenu), role::MenuItem);
    EXPECT_EQ(roleOfNode(item(AtspiRolePopupMenu, ""), Place::UnderItem), role::Menu);
    EXPECT_EQ(roleOfNode(item(AtspiRoleMenu, ""), Place::UnderItem), role::Menu);
    EXPECT_EQ(roleOfNode(item(AtspiRoleMenuBar, ""), Place::Elsewhere), role::MenuBar);
    EXPECT_EQ(roleOfNode(AtspiNode{}, Place::InMenu), "");
}

TEST(AtspiAttributes, LeaveOutTrailingBlanksOfATitle) {
    EXPECT_EQ(attributeInMenu(item(AtspiRoleMenuItem, "New      "), attribute::Title), Value{std::string("New")});
    EXPECT_EQ(attributeInMenu(item(AtspiRoleMenuItem, " New"), attribute::Title), Value{std::string(" New")});
}

TEST(AtspiAttributes, GiveSeparatorsAnEmptyTitleAndMenusNone) {
    EXPECT_EQ(attributeInMenu(item(AtspiRoleSeparator, "x"), attribute::Title), Value{std::string()});
    EXPECT_TRUE(isNil(attributeOfNode(item(AtspiRolePopupMenu, "File"), Place::UnderItem, attribute::Title)));
    EXPECT_TRUE(isNil(attributeOfNode(item(AtspiRoleMenuBar, "Bar"), Place::Elsewhere, attribute::Title)));
}

TEST(AtspiAttributes, GiveItemsWithoutNameNoTitle) {
    EXPECT_TRUE(isNil(attributeInMenu(item(AtspiRoleMenuItem, ""), attribute::Title)));
    EXPECT_TRUE(isNil(attributeInMenu(item(AtspiRoleMenuItem, "   "), attribute::Title)));
}

TEST(AtspiAttributes, CallEnabledWhatIsEnabledAndSensitive) {
    const auto enabled = [](std::uint64_t itsStates) {
        return attributeInMenu(item(AtspiRoleMenuItem, "A", itsStates), attribute::Enabled);
    };
    EXPECT_EQ(enabled(states({AtspiState::Enabled, AtspiState::Sensitive})), Value{true});
    EXPECT_EQ(enabled(states({AtspiState::Enabled})), Value{false});
    EXPECT_EQ(enabled(states({AtspiState::Sensitive})), Value{false});
    EXPECT_TRUE(isNil(attributeInMenu(AtspiNode{}, attribute::Enabled)));
}

TEST(AtspiAttributes, MarkWhatIsChecked) {
    const auto mark = [](std::uint64_t itsStates) {
        return attributeInMenu(item(AtspiRoleCheckMenuItem, "A", itsStates), attribute::MenuItemMarkChar);
    };
    EXPECT_EQ(mark(states({AtspiState::Checked})), Value{std::string("\u2713")});
    EXPECT_TRUE(isNil(mark(states({AtspiState::Enabled}))));
}

TEST(AtspiAttributes, TellTheShortcut) {
    const AtspiNode node = item(AtspiRoleMenuItem, "Save As", 0, "a;<Alt>f:a;<Primary><Shift>s");
    EXPECT_EQ(attributeInMenu(node, attribute::MenuItemCmdChar), Value{std::string("S")});
    EXPECT_EQ(attributeInMenu(node, attribute::MenuItemCmdModifiers), Value{std::int64_t{1}});
    EXPECT_TRUE(isNil(attributeInMenu(node, attribute::MenuItemCmdGlyph)));
    EXPECT_EQ(attributeInMenu(node, attribute::MenuItemShortcutText), Value{std::string("Ctrl+Shift+S")});
    EXPECT_TRUE(isNil(attributeInMenu(node, attribute::MenuItemPrimaryUIElement)));
    EXPECT_TRUE(isNil(attributeInMenu(item(AtspiRoleMenuItem, "A"), attribute::MenuItemCmdModifiers)));
}

TEST(AtspiAttributes, TakeAShortcutOutOfTheName) {
    const AtspiNode node = item(AtspiRoleMenuItem, "Undo\tCtrl+Z");
    EXPECT_EQ(attributeInMenu(node, attribute::Title), Value{std::string("Undo")});
    EXPECT_EQ(attributeInMenu(node, attribute::MenuItemShortcutText), Value{std::string("Ctrl+Z")});
}

TEST(AtspiAttributes, SeeAnImpliedMenuInAnItemOfRoleMenu) {
    EXPECT_TRUE(hasImpliedMenu(item(AtspiRoleMenu, "File"), Place::InMenuBar));
    EXPECT_TRUE(hasImpliedMenu(item(AtspiRoleMenu, "More"), Place::InMenu));
    EXPECT_FALSE(hasImpliedMenu(item(AtspiRoleMenu, ""), Place::UnderItem));
    EXPECT_FALSE(hasImpliedMenu(item(AtspiRoleMenuItem, "File"), Place::InMenuBar));
}

TEST(AtspiAttributes, HideInvisibleItemsOfGtkOnly) {
    const AtspiNode visible = item(AtspiRoleMenuItem, "A", states({AtspiState::Visible}));
    const AtspiNode closed = item(AtspiRoleMenuItem, "A", states({AtspiState::Enabled}));
    EXPECT_TRUE(isShownInMenu(visible, AtspiToolkit::Gtk));
    EXPECT_FALSE(isShownInMenu(closed, AtspiToolkit::Gtk));
    EXPECT_TRUE(isShownInMenu(closed, AtspiToolkit::Qt));
    EXPECT_TRUE(isShownInMenu(closed, AtspiToolkit::Other));
}

TEST(AtspiAttributes, HideTearoffItemsAndNamelessThings) {
    const std::uint64_t visible = states({AtspiState::Visible});
    EXPECT_FALSE(isShownInMenu(item(AtspiRoleTearoffMenuItem, "", visible), AtspiToolkit::Gtk));
    EXPECT_FALSE(isShownInMenu(item(AtspiRolePanel, "", visible), AtspiToolkit::Gtk));
    EXPECT_TRUE(isShownInMenu(item(AtspiRolePanel, "Zoom", visible), AtspiToolkit::Gtk));
    EXPECT_FALSE(isShownInMenu(AtspiNode{}, AtspiToolkit::Qt));
}

TEST(AtspiAttributes, PressByTheUntranslatedName) {
    EXPECT_EQ(pressAction({"SetFocus", "Press"}), 1);
    EXPECT_EQ(pressAction({"click"}), 0);
    EXPECT_EQ(pressAction({"ShowMenu"}), 0);
    EXPECT_FALSE(pressAction({"Klicken", "Drücken"}));
    EXPECT_FALSE(pressAction({}));
}

TEST(AtspiRole, LooksForMenuBarsInContainersOnly) {
    for (const std::uint32_t role : {std::uint32_t{AtspiRoleFrame}, std::uint32_t{AtspiRoleFiller},
             std::uint32_t{AtspiRolePanel}, std::uint32_t{AtspiRoleToolBar}})
        EXPECT_TRUE(mayContainMenuBar(role)) << role;
    for (const std::uint32_t role :
        {std::uint32_t{AtspiRoleText}, std::uint32_t{AtspiRoleTreeTable}, std::uint32_t{AtspiRoleScrollPane},
            std::uint32_t{AtspiRoleMenu}, std::uint32_t{AtspiRolePopupMenu}, std::uint32_t{AtspiRoleDocumentFrame}})
        EXPECT_FALSE(mayContainMenuBar(role)) << role;
}

TEST(AtspiRole, DescribesEveryRoleItGives) {
    for (std::uint32_t role = 0; role < 200; ++role) {
        const std::string_view name = accessibilityRole(role);
        EXPECT_FALSE(name.empty());
        if (name != role::Unknown) {
            EXPECT_NE(accessibilityRoleDescription(name), "unknown") << name;
        }
    }
}

} // namespace
} // namespace tarragon
