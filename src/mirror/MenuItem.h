#pragma once

#include "platform/ModifierFlags.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarragon {

class Menu;
class MenuItem;

// The font of a menu. A size of 0 is the desktop's standard menu font size.
struct MenuFont {
    double pointSize = 0;
    bool bold = false;
    bool operator==(const MenuFont&) const = default;
};

// A title in a look of its own, shown in place of the plain title. A stroke width other than 0 draws the outlines of
// the characters, in percent of the font size; a negative one fills them as well.
struct AttributedTitle {
    std::string text;
    MenuFont font;
    double strokeWidth = 0;
    bool operator==(const AttributedTitle&) const = default;
};

// Receives the action of a chosen item.
class MenuTarget {
public:
    virtual ~MenuTarget() = default;
    // action is the item's action name; sender is the chosen item.
    virtual void performAction(const std::string& action, MenuItem& sender) = 0;
};

// One item of a menu. Plain data with the semantics that the conversion rules rely on: it draws nothing and calls
// nobody. May be made and filled on any thread, by one thread at a time.
class MenuItem {
public:
    MenuItem(std::string title, std::string action, std::string keyEquivalent);
    ~MenuItem();
    MenuItem& operator=(const MenuItem&) = delete;

    static std::shared_ptr<MenuItem> separatorItem();
    // A copy with the same target; it belongs to no menu. Its submenu, if any, is a copy too.
    std::shared_ptr<MenuItem> copy() const;

    bool isSeparatorItem() const { return _separator; }

    const std::string& title() const { return _title; }
    void setTitle(std::string title) { _title = std::move(title); }

    const std::optional<AttributedTitle>& attributedTitle() const { return _attributedTitle; }
    void setAttributedTitle(std::optional<AttributedTitle> title) { _attributedTitle = std::move(title); }

    // Empty when choosing the item does nothing.
    const std::string& action() const { return _action; }
    void setAction(std::string action) { _action = std::move(action); }
    const std::shared_ptr<MenuTarget>& target() const { return _target; }
    void setTarget(std::shared_ptr<MenuTarget> target) { _target = std::move(target); }

    // One character, or empty for none.
    const std::string& keyEquivalent() const { return _keyEquivalent; }
    void setKeyEquivalent(std::string keyEquivalent) { _keyEquivalent = std::move(keyEquivalent); }
    // Bits of modifier::; Command alone unless set.
    std::uint32_t keyEquivalentModifierMask() const { return _keyEquivalentModifierMask; }
    void setKeyEquivalentModifierMask(std::uint32_t mask) { _keyEquivalentModifierMask = mask; }
    // The application's own words for the shortcut, shown in place of the key equivalent; empty when there are none.
    const std::string& shortcutText() const { return _shortcutText; }
    void setShortcutText(std::string text) { _shortcutText = std::move(text); }

    // On shows a check mark.
    bool state() const { return _state; }
    void setState(bool on) { _state = on; }
    bool isEnabled() const { return _enabled; }
    void setEnabled(bool enabled) { _enabled = enabled; }
    // An alternate item takes the place of the item before it while its own modifiers are held.
    bool isAlternate() const { return _alternate; }
    void setAlternate(bool alternate) { _alternate = alternate; }

    const std::shared_ptr<Menu>& submenu() const { return _submenu; }
    bool hasSubmenu() const { return _submenu != nullptr; }
    // Takes the menu out of the item that holds it now, if any. nullptr removes the submenu.
    void setSubmenu(std::shared_ptr<Menu> submenu);

    // The menu that holds the item, or the one that was put here with setMenu; nullptr for none.
    Menu* menu() const;
    // Puts a menu of the caller's choosing into the slot, and keeps it alive.
    void setMenu(std::shared_ptr<Menu> menu) { _assignedMenu = std::move(menu); }
    // The menu that was put here, or nullptr.
    const std::shared_ptr<Menu>& assignedMenu() const { return _assignedMenu; }
    // The item whose submenu holds this item; nullptr in a root menu.
    MenuItem* parentItem() const;

private:
    friend class Menu;
    MenuItem(const MenuItem&) = default;

    std::string _title;
    std::string _action;
    std::string _keyEquivalent;
    std::string _shortcutText;
    std::optional<AttributedTitle> _attributedTitle;
    std::shared_ptr<MenuTarget> _target;
    std::shared_ptr<Menu> _submenu;
    std::shared_ptr<Menu> _assignedMenu;
    Menu* _containingMenu = nullptr;
    std::uint32_t _keyEquivalentModifierMask = modifier::Command;
    bool _state = false;
    bool _enabled = true;
    bool _alternate = false;
    bool _separator = false;
};

} // namespace tarragon
