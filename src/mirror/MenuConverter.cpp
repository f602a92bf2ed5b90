#include "mirror/MenuConverter.h"

#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>

namespace tarragon {

namespace {

// Bounds far beyond any real menu. They end the conversion of an application that lists an element among its own
// children, or new elements without end.
constexpr std::size_t DeepestLevel = 16;
constexpr std::size_t MostElements = 100000;

} // namespace

MenuConverter::MenuConverter(Accessibility& accessibility, const MenuItemTables& tables, Element application,
    ConversionOptions options, MenuDelegate* delegate, std::weak_ptr<AppAccessibility> reader)
    : _accessibility(accessibility)
    , _tables(tables)
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
        if (_convertedElements == MostElements || stopped())
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
    if (!children)
        return {};
    ++_readLevels;
    return *children;
}

bool MenuConverter::isMenu(const Element& element) {
    return read(attribute::Role, element) == Value(std::string(role::Menu));
}

std::string MenuConverter::reasonForNoItem() const {
    if (_readLevels == 0)
        return "its children cannot be read";
    if (_convertedElements == 0)
        return "it has no children to make items of";
    return "none of its " + std::to_string(_convertedElements) + " children is of a kind that makes an item";
}

bool MenuConverter::stopped() {
    _stopped = _stopped || (_shouldStop && _shouldStop());
    return _stopped;
}

Value MenuConverter::read(std::string_view attribute, const Element& element) {
    return stopped() ? Value() : UIElementUtilities::valueOfAttribute(_accessibility, attribute, element);
}

std::optional<std::string> MenuConverter::describe(const Value& value) {
    return stopped() ? std::nullopt : UIElementUtilities::descriptionOfValue(_accessibility, value, false);
}

} // namespace tarragon
