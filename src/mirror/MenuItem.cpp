#include "mirror/MenuItem.h"

#include "mirror/Menu.h"

#include <utility>

namespace tarragon {

MenuItem::MenuItem(std::string title, std::string action, std::string keyEquivalent)
    : _title(std::move(title))
    , _action(std::move(action))
    , _keyEquivalent(std::move(keyEquivalent)) { }

MenuItem::~MenuItem() {
    if (_submenu && _submenu->_parentItem == this)
        _submenu->_parentItem = nullptr;
}

std::shared_ptr<MenuItem> MenuItem::separatorItem() {
    auto item = std::make_shared<MenuItem>("", "", "");
    item->_separator = true;
    item->_enabled = false;
    return item;
}

std::shared_ptr<MenuItem> MenuItem::copy() const {
    std::shared_ptr<MenuItem> result(new MenuItem(*this));
    result->_containingMenu = nullptr;
    result->_assignedMenu = nullptr;
    result->_submenu = nullptr;
    if (_submenu)
        result->setSubmenu(_submenu->copy());
    return result;
}

void MenuItem::setSubmenu(std::shared_ptr<Menu> submenu) {
    if (_submenu)
        _submenu->_parentItem = nullptr;
    if (submenu && submenu->_parentItem && submenu->_parentItem != this)
        submenu->_parentItem->_submenu = nullptr;
    _submenu = std::move(submenu);
    if (_submenu)
        _submenu->_parentItem = this;
}

Menu* MenuItem::menu() const {
    return _assignedMenu ? _assignedMenu.get() : _containingMenu;
}

MenuItem* MenuItem::parentItem() const {
    return _containingMenu ? _containingMenu->parentItem() : nullptr;
}

} // namespace tarragon
