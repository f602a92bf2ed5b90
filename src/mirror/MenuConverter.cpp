#include "mirror/MenuConverter.h"

#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>

namespace tarragon {

namespace {

// No honest menu comes near these. An application that lists an element among its own children, or new elements
// without end, is cut off here.
constexpr std::size_t DeepestLevel = 16;
constexpr std::size_t MostElements = 100000;

} // namespace

MenuConverter::MenuConverter(Accessibility& accessibility, Element application, ConversionOptions options,
    MenuDelegate* delegate, std::weak_ptr<AppAccessibility> reader)
    : _accessibility(accessibility)
    , _application(std::move(application))
    , _options(options)
    , _delegate(delegate)
    , _reader(std::move(reader)) { }

void MenuConverter::processAXMenuAsNSMenu(
    const Element& element, Menu& parent, const std::optional<std::string>& previousDescription) {
    const bool endless = std::ranges::find(_path, element) != _path.end();
    if (endless || _path.size() == DeepestLevel)
        return;
    _path.push_back(element);
    processLevel(element, parent, previousDescription);
    _path.pop_back();
}

void MenuConverter::processLevel(
    const Element& element, Menu& parent, const std::optional<std::string>& previousDescription) {
    for (const Element& child : childrenOf(element)) {
        if (_convertedElements == MostElements)
            return;
        ++_convertedElements;
        const ItemDescription description = getMenuItemForElement(child);
        switch (description.type) {
        case ItemDescription::Type::AXMenuItem:
            parent.addItem(description.menuItem);
            processAXMenuAsNSMenu(child, parent, description.menuItem->title());
            break;
        case ItemDescription::Type::AXMenu:
            if (previousDescription)
                attachSubmenu(parent, *previousDescription);
            break;
        case ItemDescription::Type::AXOther:
            break;
        }
    }
}

void MenuConverter::attachSubmenu(Menu& parent, const std::string& title) const {
    const auto item = parent.itemWithTitle(title);
    if (!item)
        return;
    auto submenu = std::make_shared<Menu>(title);
    submenu->setDelegate(_delegate);
    submenu->setAutoenablesItems(false);
    item->setAction("");
    item->setSubmenu(std::move(submenu));
}

void MenuConverter::processSubAXMenuAsNSMenu(const Element& element, Menu& parent) {
    for (const Element& child : childrenOf(element)) {
        if (isMenu(child))
            processAXMenuAsNSMenu(child, parent, std::nullopt);
    }
}

void MenuConverter::processSingleIterationSubAXMenuAsNSMenu(const Element& element) {
    for (const Element& child : childrenOf(element)) {
        if (isMenu(child))
            return;
    }
}

std::vector<Element> MenuConverter::childrenOf(const Element& element) {
    const Value value = read(attribute::Children, element);
    const auto* children = valueAs<std::vector<Element>>(value);
    return children ? *children : std::vector<Element>();
}

bool MenuConverter::isMenu(const Element& element) {
    return read(attribute::Role, element) == Value(std::string(role::Menu));
}

Value MenuConverter::read(std::string_view attribute, const Element& element) {
    return UIElementUtilities::valueOfAttribute(_accessibility, attribute, element);
}

std::optional<std::string> MenuConverter::describe(const Value& value) {
    return UIElementUtilities::descriptionOfValue(_accessibility, value, false);
}

} // namespace tarragon
