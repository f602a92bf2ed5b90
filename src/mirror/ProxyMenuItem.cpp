#include "mirror/ProxyMenuItem.h"

#include "mirror/AppAccessibility.h"
#include "mirror/elements/TextOrNil.h"
#include "platform/AccessibilityNames.h"

namespace tarragon {

ProxyMenuItem::ProxyMenuItem(Accessibility& accessibility)
    : _accessibility(accessibility) { }

Element ProxyMenuItem::elementOfItem(const MenuItem& item) {
    const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(item.target());
    return proxy ? proxy->itemAXUIElementRef() : Element();
}

void ProxyMenuItem::clickMenuItem() {
    _accessibility.performAction(_itemAXUIElementRef, action::Press);
    if (const auto reader = appAccessbility())
        reader->menuHasClosed();
}

void ProxyMenuItem::performAction(const std::string& action, MenuItem& /*sender*/) {
    if (action == ClickMenuItem)
        clickMenuItem();
}

std::string ProxyMenuItem::createKeyForFennickItem(const MenuItem& item) const {
    std::string path = item.title() + (item.hasSubmenu() ? "|" : "") + _itemKey;
    // The path of the parent starts from the stored key as well: on a proxy whose key was asked for before, every
    // level of the path brings it in again.
    if (const MenuItem* parent = item.parentItem())
        path.insert(0, createKeyForFennickItem(*parent));
    return path;
}

std::string ProxyMenuItem::itemKey() {
    const std::shared_ptr<MenuItem> item = menuItem();
    const std::string path = item ? createKeyForFennickItem(*item) : textOrNil(std::nullopt) + _itemKey;
    _itemKey = textOrNil(_appName) + "|" + path;
    return _itemKey;
}

} // namespace tarragon
