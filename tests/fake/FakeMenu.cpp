#include "fake/FakeMenu.h"

#include "platform/AccessibilityNames.h"

#include <utility>

namespace tarragon {

FakeMenu::FakeMenu(FakeAccessibility& accessibility, std::int64_t processIdentifier, Element item, Element menu)
    : _accessibility(&accessibility)
    , _processIdentifier(processIdentifier)
    , _item(std::move(item))
    , _menu(std::move(menu)) { }

Element FakeMenu::addItemElement(const std::string& title, const FakeMenuItemOptions& options) const {
    Element element = _accessibility->addElement(_processIdentifier, role::MenuItem);
    const auto set = [&](std::string_view name, const auto& value) {
        if (value)
            _accessibility->setAttribute(element, name, Value(*value));
    };
    _accessibility->setAttribute(element, attribute::Title, title);
    set(attribute::Enabled, options.enabled);
    set(attribute::MenuItemMarkChar, options.mark);
    set(attribute::MenuItemCmdChar, options.commandCharacter);
    set(attribute::MenuItemCmdModifiers, options.commandModifiers);
    set(attribute::MenuItemCmdGlyph, options.commandGlyph);
    set(attribute::MenuItemPrimaryUIElement, options.primary);
    set(attribute::MenuItemShortcutText, options.shortcutText);
    set(attribute::Size, options.size);
    _accessibility->setAttribute(element, attribute::Children, std::vector<Element>());
    _accessibility->addAction(element, action::Press, "press");
    _accessibility->addChild(_menu, element);
    return element;
}

FakeMenu FakeMenu::item(const std::string& title, const FakeMenuItemOptions& options) const {
    addItemElement(title, options);
    return *this;
}

FakeMenu FakeMenu::separator() const {
    return item("", {.enabled = false});
}

FakeMenu FakeMenu::submenu(const std::string& title, const FakeMenuItemOptions& options) const {
    const Element element = addItemElement(title, options);
    const Element menu = _accessibility->addElement(_processIdentifier, role::Menu);
    _accessibility->setAttribute(menu, attribute::Children, std::vector<Element>());
    _accessibility->addChild(element, menu);
    return {*_accessibility, _processIdentifier, element, menu};
}

void FakeMenu::remove(const std::string& title) const {
    const Element element = itemElement(title);
    _accessibility->removeChild(_menu, element);
    _accessibility->destroy(element);
}

void FakeMenu::clear() const {
    const Value children = _accessibility->attribute(_menu, attribute::Children);
    const auto* elements = valueAs<std::vector<Element>>(children);
    if (!elements)
        return;
    for (const Element& element : *elements) {
        _accessibility->removeChild(_menu, element);
        _accessibility->destroy(element);
    }
}

Element FakeMenu::itemElement(const std::string& title) const {
    const Value children = _accessibility->attribute(_menu, attribute::Children);
    const auto* elements = valueAs<std::vector<Element>>(children);
    if (!elements)
        return {};
    for (const Element& element : *elements) {
        if (_accessibility->attribute(element, attribute::Title) == Value(title))
            return element;
    }
    return {};
}

} // namespace tarragon
