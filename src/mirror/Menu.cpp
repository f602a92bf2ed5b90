#include "mirror/Menu.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace tarragon {

namespace {

template <typename Predicate>
std::optional<std::size_t> indexOf(const std::vector<std::shared_ptr<MenuItem>>& items, Predicate predicate) {
    const auto found = std::find_if(items.begin(), items.end(), predicate);
    if (found == items.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - items.begin());
}

} // namespace

Menu::Menu(std::string title)
    : Menu(std::make_shared<const std::string>(std::move(title))) { }

Menu::Menu(SharedTitle title)
    : _title(std::move(title)) { }

Menu::~Menu() {
    removeAllItems();
}

std::shared_ptr<Menu> Menu::copy() const {
    auto result = std::make_shared<Menu>(_title);
    result->_delegate = _delegate;
    result->_font = _font;
    result->_autoenablesItems = _autoenablesItems;
    for (const auto& item : _items)
        result->addItem(item->copy());
    return result;
}

std::shared_ptr<MenuItem> Menu::itemAtIndex(std::ptrdiff_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= _items.size())
        return nullptr;
    return _items[static_cast<std::size_t>(index)];
}

std::shared_ptr<MenuItem> Menu::itemWithTitle(std::string_view title) const {
    const auto index = indexOfItemWithTitle(title);
    return index ? _items[*index] : nullptr;
}

std::optional<std::size_t> Menu::indexOfItem(const MenuItem& item) const {
    return indexOf(_items, [&](const auto& candidate) { return candidate.get() == &item; });
}

std::optional<std::size_t> Menu::indexOfItemWithTitle(std::string_view title) const {
    return indexOf(_items, [&](const auto& candidate) { return candidate->title() == title; });
}

std::optional<std::size_t> Menu::indexOfItemWithSubmenu(const Menu& submenu) const {
    return indexOf(_items, [&](const auto& candidate) { return candidate->submenu().get() == &submenu; });
}

void Menu::addItem(std::shared_ptr<MenuItem> item) {
    if (item && item->_containingMenu)
        item->_containingMenu->removeItem(*item);
    insertItem(std::move(item), _items.size());
}

void Menu::insertItem(std::shared_ptr<MenuItem> item, std::size_t index) {
    assert(item && index <= _items.size());
    if (item->_containingMenu)
        item->_containingMenu->removeItem(*item);
    item->_containingMenu = this;
    const std::size_t position = std::min(index, _items.size());
    _items.insert(_items.begin() + static_cast<std::ptrdiff_t>(position), std::move(item));
}

bool Menu::removeItemAtIndex(std::ptrdiff_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= _items.size())
        return false;
    _items[static_cast<std::size_t>(index)]->_containingMenu = nullptr;
    _items.erase(_items.begin() + index);
    return true;
}

void Menu::removeItem(const MenuItem& item) {
    if (const auto index = indexOfItem(item))
        removeItemAtIndex(static_cast<std::ptrdiff_t>(*index));
}

void Menu::removeAllItems() {
    for (const auto& item : _items)
        item->_containingMenu = nullptr;
    _items.clear();
}

Menu* Menu::supermenu() const {
    return _parentItem ? _parentItem->_containingMenu : nullptr;
}

} // namespace tarragon
