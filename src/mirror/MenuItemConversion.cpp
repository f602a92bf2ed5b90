// The part of MenuConverter that turns one element into one item.
#include "mirror/MenuConverter.h"
#include "mirror/MenuItemTables.h"
#include "mirror/ProxyMenuItem.h"
#include "platform/AccessibilityNames.h"
#include "platform/UnicodeText.h"

namespace tarragon {

ItemDescription MenuConverter::getMenuItemForElement(const Element& element) {
    const std::string title = describe(element).value_or("");
    if (title == role::Menu)
        return {ItemDescription::Type::AXMenu, nullptr};
    if (title == role::MenuItem || title == role::TextField)
        return {ItemDescription::Type::AXOther, nullptr};

    // Every item is asked for everything in this order, separators included.
    const Value enabled = read(attribute::Enabled, element);
    const Value mark = read(attribute::MenuItemMarkChar, element);
    const Value modifiers = read(attribute::MenuItemCmdModifiers, element);
    const Value character = read(attribute::MenuItemCmdChar, element);
    const auto modifierCode = describe(modifiers);
    const Value primary = read(attribute::MenuItemPrimaryUIElement, element);
    const Value glyph = read(attribute::MenuItemCmdGlyph, element);
    const auto glyphCode = describe(glyph);
    const auto primaryTitle = describe(primary);
    const Value shortcutText = read(attribute::MenuItemShortcutText, element);

    if (title.empty() || title == "-")
        return {ItemDescription::Type::AXMenuItem, MenuItem::separatorItem()};

    auto item = std::make_shared<MenuItem>(title, "", "");
    item->setState(!isNil(mark));
    item->setEnabled(enabled == Value(true));
    if (_options.keyEquivalents) {
        if (const auto* text = valueAs<std::string>(character))
            item->setKeyEquivalent(lowercaseText(*text));
        if (const auto glyphCharacter = glyphCode ? _tables.characterForGlyph(*glyphCode) : std::nullopt)
            item->setKeyEquivalent(std::string(*glyphCharacter));
        if (const auto* text = valueAs<std::string>(shortcutText))
            item->setShortcutText(*text);
    }
    if (const auto mask = modifierCode ? _tables.modifierMaskForCode(*modifierCode) : std::nullopt)
        item->setKeyEquivalentModifierMask(*mask);
    if (_options.foldAlternateItems && primaryTitle && *primaryTitle != title)
        item->setAlternate(true);
    item->setTarget(createActionNodeWith(element, item));
    item->setAction(ProxyMenuItem::ClickMenuItem);
    return {ItemDescription::Type::AXMenuItem, std::move(item)};
}

std::shared_ptr<ProxyMenuItem> MenuConverter::createActionNodeWith(
    const Element& element, const std::shared_ptr<MenuItem>& item) {
    auto proxy = std::make_shared<ProxyMenuItem>(_accessibility);
    proxy->setItemAXUIElementRef(element);
    proxy->setAppAXUIElementRef(_application);
    proxy->setMenuItem(item);
    proxy->setAppName(applicationName());
    proxy->setAppAccessbility(_reader);
    return proxy;
}

const std::optional<std::string>& MenuConverter::applicationName() {
    if (!_applicationName)
        _applicationName.emplace(describe(_application));
    return *_applicationName;
}

} // namespace tarragon
