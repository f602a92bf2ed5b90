#pragma once

#include "mirror/Menu.h"
#include "platform/Geometry.h"

#include <memory>

namespace tarragon {

// Puts menus on the screen. Main thread only.
class MenuPresenter {
public:
    virtual ~MenuPresenter() = default;

    // Opens the menu with its top-left corner at a point in Cocoa space, kept on the screen that holds the point, and
    // returns at once. The menu's delegate is asked to update it first; so is that of every submenu that opens. The
    // front application keeps the keyboard focus. A menu that is empty after the update is not shown. A menu of ours
    // that is still open is closed first. The action of a chosen item is sent to its target after the menu has closed.
    virtual void popUpMenu(const std::shared_ptr<Menu>& menu, const Point& locationNS) = 0;

    // Closes whatever is open, without an action; the delegates hear of it before the call returns.
    virtual void closeMenus() = 0;

    // True from the moment popUpMenu returns, if it has shown a menu, until that one has closed with all its submenus.
    // By the time that a menu's action is sent, none is open.
    [[nodiscard]] virtual bool isMenuOpen() const = 0;
};

} // namespace tarragon
