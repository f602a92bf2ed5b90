#pragma once

#include "mirror/MenuItem.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// Hears of a menu's life from the view that shows it. Every operation may be left out.
class MenuDelegate {
public:
    virtual ~MenuDelegate() = default;
    // The menu is about to open; the delegate may change its items now.
    virtual void menuNeedsUpdate(Menu&) { }
    virtual void menuWillOpen(Menu&) { }
    virtual void menuDidClose(Menu&) { }
    // item is nullptr when no item is highlighted any more.
    virtual void menuWillHighlightItem(Menu&, MenuItem* /*item*/) { }
    // True when the menu answers for every key equivalent, so that its items need not be searched.
    virtual bool menuHasKeyEquivalent(Menu&) { return false; }
};

// An ordered list of items. Plain data; a view turns it into something on the screen. May be made and filled on any
// thread, by one thread at a time. A menu owns its items, an item owns its submenu.
class Menu {
public:
    // A title that can be told apart from an equal one: two menus have the very same title only when they share it.
    using SharedTitle = std::shared_ptr<const std::string>;

    explicit Menu(std::string title);
    explicit Menu(SharedTitle title);
    ~Menu();
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    // Items, submenus, font and delegate are copied; the copy hangs in no item.
    std::shared_ptr<Menu> copy() const;

    const std::string& title() const { return *_title; }
    const SharedTitle& sharedTitle() const { return _title; }

    std::size_t numberOfItems() const { return _items.size(); }
    const std::vector<std::shared_ptr<MenuItem>>& items() const { return _items; }
    // nullptr outside the range.
    std::shared_ptr<MenuItem> itemAtIndex(std::ptrdiff_t index) const;
    // The first item of that title, or nullptr.
    std::shared_ptr<MenuItem> itemWithTitle(std::string_view title) const;
    std::optional<std::size_t> indexOfItem(const MenuItem& item) const;
    std::optional<std::size_t> indexOfItemWithTitle(std::string_view title) const;
    std::optional<std::size_t> indexOfItemWithSubmenu(const Menu& submenu) const;

    // An item that already belongs to a menu is taken out of it first.
    void addItem(std::shared_ptr<MenuItem> item);
    // index is at most numberOfItems().
    void insertItem(std::shared_ptr<MenuItem> item, std::size_t index);
    // False outside the range.
    bool removeItemAtIndex(std::ptrdiff_t index);
    void removeItem(const MenuItem& item);
    void removeAllItems();

    // The menu that holds the item whose submenu this is; nullptr for a root menu.
    Menu* supermenu() const;
    // The item whose submenu this is; nullptr for a root menu.
    MenuItem* parentItem() const { return _parentItem; }

    // Not owned; outlives the menu.
    MenuDelegate* delegate() const { return _delegate; }
    void setDelegate(MenuDelegate* delegate) { _delegate = delegate; }

    // When on, the view disables items that have neither an action nor a submenu.
    bool autoenablesItems() const { return _autoenablesItems; }
    void setAutoenablesItems(bool autoenables) { _autoenablesItems = autoenables; }

    // The font of the menu and of its submenus that have none of their own; nothing for the desktop's.
    const std::optional<MenuFont>& font() const { return _font; }
    void setFont(std::optional<MenuFont> font) { _font = font; }

private:
    friend class MenuItem;

    SharedTitle _title;
    std::vector<std::shared_ptr<MenuItem>> _items;
    MenuItem* _parentItem = nullptr;
    MenuDelegate* _delegate = nullptr;
    std::optional<MenuFont> _font;
    bool _autoenablesItems = true;
};

} // namespace tarragon
