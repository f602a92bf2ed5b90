#include "platform/linux/accessibletree/AtspiAttributes.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/accessibletree/MenuShortcut.h"

#include <algorithm>
#include <array>
#include <span>

namespace tarragon {

namespace {

using Place = AtspiElement::Place;

constexpr std::string_view CheckMark = "\u2713";

bool isMenuAttribute(std::string_view attribute) {
    return attribute.starts_with("AXMenuItem");
}

// Names of menu items may hold blanks that make room for a shortcut, or the shortcut itself after a tab.
std::string titleOfItem(std::string_view name) {
    name = name.substr(0, name.find('\t'));
    const std::size_t last = name.find_last_not_of(" \n\r");
    return std::string(name.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

Value titleOf(const AtspiNode& node, std::string_view role) {
    if (role == role::Menu || role == role::MenuBar)
        return {};
    if (role == role::MenuItem || role == role::MenuBarItem) {
        if (node.role == AtspiRoleSeparator)
            return std::string{};
        // An item without a name is one that its application hides, not a separator.
        std::string title = titleOfItem(node.name.value_or(std::string{}));
        return title.empty() ? Value{} : Value{std::move(title)};
    }
    if (!node.name || node.name->empty())
        return {};
    return *node.name;
}

std::optional<MenuShortcut> shortcutOf(const AtspiNode& node) {
    const std::string name = node.name.value_or(std::string{});
    if (auto shortcut = MenuShortcut::fromKeyBinding(node.keyBinding.value_or(std::string{}), name))
        return shortcut;
    if (const std::size_t tab = name.find('\t'); tab != std::string::npos)
        return MenuShortcut::fromKeyBinding(std::string_view(name).substr(tab + 1), {});
    return {};
}

template <typename T>
Value valueFrom(std::optional<T> optional) {
    return optional ? Value{std::move(*optional)} : Value{};
}

Value menuAttributeOf(const AtspiNode& node, std::string_view attribute) {
    if (attribute == attribute::MenuItemMarkChar)
        return node.has(AtspiState::Checked) ? Value{std::string(CheckMark)} : Value{};
    const auto shortcut = shortcutOf(node);
    if (!shortcut)
        return {};
    if (attribute == attribute::MenuItemCmdChar)
        return valueFrom(shortcut->commandCharacter());
    if (attribute == attribute::MenuItemCmdGlyph)
        return valueFrom(shortcut->commandGlyph());
    if (attribute == attribute::MenuItemCmdModifiers)
        return valueFrom(shortcut->commandModifiers());
    if (attribute == attribute::MenuItemShortcutText)
        return shortcut->text;
    return {};
}

Value valueOf(const AtspiNode& node, std::string_view role) {
    if (role == "AXCheckBox" || role == "AXRadioButton")
        return std::int64_t{node.has(AtspiState::Checked) ? 1 : 0};
    if (role == "AXStaticText")
        return valueFrom(node.name);
    if (node.text)
        return *node.text;
    return valueFrom(node.number);
}

using AttributeGroups = std::array<std::span<const std::string_view>, 4>;

AttributeGroups attributeGroupsOfRole(std::string_view role) {
    static constexpr std::array all{
        attribute::Role, attribute::RoleDescription, attribute::Parent, attribute::Children};
    static constexpr std::array placed{attribute::Enabled, attribute::Position, attribute::Size};
    static constexpr std::array titled{attribute::Title};
    static constexpr std::array items{attribute::MenuItemMarkChar, attribute::MenuItemCmdChar,
        attribute::MenuItemCmdModifiers, attribute::MenuItemCmdGlyph, attribute::MenuItemShortcutText};
    static constexpr std::array others{attribute::Description, attribute::Focused, attribute::Value, attribute::Window};
    if (role == role::Menu)
        return {all};
    if (role == role::MenuBar)
        return {all, placed};
    if (role == role::MenuItem || role == role::MenuBarItem)
        return {all, placed, titled, items};
    return {all, placed, titled, others};
}

} // namespace

AtspiFields fieldsForAttribute(std::string_view attribute) {
    if (attribute == attribute::Role || attribute == attribute::RoleDescription)
        return AtspiFieldRole;
    if (attribute == attribute::Title)
        return AtspiFieldRole | AtspiFieldName;
    if (attribute == attribute::Enabled || attribute == attribute::Focused || attribute == attribute::MenuItemMarkChar)
        return AtspiFieldStates;
    if (isMenuAttribute(attribute))
        return AtspiFieldKeyBinding | AtspiFieldName;
    if (attribute == attribute::Position || attribute == attribute::Size)
        return AtspiFieldExtents;
    if (attribute == attribute::Description)
        return AtspiFieldDescription;
    if (attribute == attribute::Value)
        return AtspiFieldRole | AtspiFieldName | AtspiFieldStates | AtspiFieldText | AtspiFieldNumber;
    return AtspiFieldNone;
}

std::string_view roleOfNode(const AtspiNode& node, Place place) {
    if (!node.role)
        return {};
    if (place == Place::InMenuBar && isMenuItemRole(*node.role))
        return role::MenuBarItem;
    if (place == Place::UnderItem && *node.role == AtspiRoleMenu)
        return role::Menu;
    // Whatever else stands in a menu is an item of it.
    if (place == Place::InMenu || (place == Place::UnderItem && *node.role == AtspiRoleSeparator))
        return role::MenuItem;
    return accessibilityRole(*node.role);
}

std::vector<std::string> attributeNamesOfRole(std::string_view role) {
    std::vector<std::string> names;
    for (const std::span<const std::string_view> group : attributeGroupsOfRole(role))
        names.insert(names.end(), group.begin(), group.end());
    return names;
}

bool roleHasAttribute(std::string_view role, std::string_view attribute) {
    return std::ranges::any_of(attributeGroupsOfRole(role), [attribute](std::span<const std::string_view> group) {
        return std::ranges::find(group, attribute) != group.end();
    });
}

Value attributeOfNode(const AtspiNode& node, Place place, std::string_view attribute) {
    const std::string_view role = roleOfNode(node, place);
    if (attribute == attribute::Role)
        return role.empty() ? Value{} : Value{std::string(role)};
    if (attribute == attribute::RoleDescription)
        return role.empty() ? Value{} : Value{std::string(accessibilityRoleDescription(role))};
    if (attribute == attribute::Title)
        return titleOf(node, role);
    if (attribute == attribute::Enabled && node.states)
        return node.has(AtspiState::Enabled) && node.has(AtspiState::Sensitive);
    if (attribute == attribute::Focused && node.states)
        return node.has(AtspiState::Focused);
    if (isMenuAttribute(attribute))
        return menuAttributeOf(node, attribute);
    if (attribute == attribute::Position && node.extents)
        return node.extents->origin;
    if (attribute == attribute::Size && node.extents)
        return node.extents->size;
    if (attribute == attribute::Description && node.description && !node.description->empty())
        return *node.description;
    if (attribute == attribute::Value)
        return valueOf(node, role);
    return {};
}

bool hasImpliedMenu(const AtspiNode& node, Place place) {
    return node.role == AtspiRoleMenu && place != Place::UnderItem;
}

Place placeOfChildren(std::uint32_t role, Place place) {
    if (role == AtspiRoleMenuBar)
        return Place::InMenuBar;
    if (role == AtspiRolePopupMenu || (role == AtspiRoleMenu && place == Place::UnderItem))
        return Place::InMenu;
    return isMenuItemRole(role) ? Place::UnderItem : Place::Elsewhere;
}

bool isShownInMenu(const AtspiNode& node, AtspiToolkit toolkit) {
    if (!node.role || *node.role == AtspiRoleTearoffMenuItem)
        return false;
    if (toolkit == AtspiToolkit::Gtk && !node.has(AtspiState::Visible))
        return false;
    if (isMenuItemRole(*node.role) || *node.role == AtspiRolePopupMenu)
        return true;
    return node.name && !node.name->empty();
}

std::optional<std::int32_t> pressAction(const std::vector<std::string>& actionNames) {
    for (std::size_t index = 0; index < actionNames.size(); ++index) {
        const std::string& name = actionNames[index];
        if (name == "click" || name == "Press" || name == "ShowMenu")
            return static_cast<std::int32_t>(index);
    }
    return {};
}

} // namespace tarragon
