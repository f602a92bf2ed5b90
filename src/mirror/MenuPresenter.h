#pragma once

#include "mirror/Menu.h"
#include "platform/Geometry.h"

#include <cstdint>
#include <memory>

namespace tarragon {

// The menu beside the one that is open, as it lies on the screen.
enum class MenuNeighbour : std::uint8_t { Left, Right };

// Hears what becomes of a menu that it has opened. Main thread only; every operation may be left out.
class MenuOpener {
public:
    virtual ~MenuOpener() = default;
    // The menu has closed, with all its submenus, in whatever way. Once, and before the action of a chosen item is
    // sent; for a menu that was not shown because it is empty, before popUpMenu returns. Not when the presenter is
    // destroyed.
    //
    // Another menu may be opened from here. If this one has closed because popUpMenu was called for a third, the third
    // is not shown then, and its opener hears that it has closed. If an item was chosen, the other menu closes again
    // before the action is sent.
    virtual void menuHasClosed() { }
    // Left or Right was pressed where the menus themselves have no use for it. The opener may open another menu.
    virtual void moveToNeighbour(MenuNeighbour) { }
};

// Puts menus on the screen. Main thread only.
class MenuPresenter {
public:
    virtual ~MenuPresenter() = default;

    // Opens the menu with its top-left corner at a point in Cocoa space, kept on the screen that holds the point, and
    // returns at once. The menu's delegate is asked to update it first; so is that of every submenu that opens. The
    // front application keeps the keyboard focus. A menu that is empty after the update is not shown. A menu of ours
    // that is still open is closed first. The action of a chosen item is sent to its target after the menu has closed.
    // An opener that is gone hears nothing.
    virtual void popUpMenu(
        const std::shared_ptr<Menu>& menu, const Point& locationNS, const std::weak_ptr<MenuOpener>& opener) = 0;
    void popUpMenu(const std::shared_ptr<Menu>& menu, const Point& locationNS) { popUpMenu(menu, locationNS, {}); }

    // Closes whatever is open, without an action; the delegates and the opener hear of it before the call returns.
    virtual void closeMenus() = 0;

    // True from the moment popUpMenu returns, if it has shown a menu, until that one has closed with all its submenus.
    // By the time that a menu's action is sent, none is open.
    [[nodiscard]] virtual bool isMenuOpen() const = 0;

    // True while the point lies in an open menu, or in a submenu of it.
    [[nodiscard]] virtual bool isMenuAt(const Point& pointNS) const = 0;
};

} // namespace tarragon
