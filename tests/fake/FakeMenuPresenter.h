#pragma once

#include "mirror/MenuPresenter.h"

#include <vector>

namespace tarragon {

// Records the menus that are popped up, and opens, chooses from and closes menus as a view would.
class FakeMenuPresenter : public MenuPresenter {
public:
    struct PopUp {
        std::shared_ptr<Menu> menu;
        Point locationNS;
        bool shown = false; // false when it was empty after the update
    };

    const std::vector<PopUp>& popUps() const { return _popUps; }
    // The menus that are open, the root first.
    const std::vector<Menu*>& openMenus() const { return _openMenus; }

    // Asks the delegate to update the menu and tells it that the menu opens.
    void open(Menu& menu);
    // Opens the submenu of the item with that title; nullptr when there is none.
    Menu* openSubmenu(Menu& menu, std::string_view title);
    void highlight(Menu& menu, MenuItem* item);
    // Closes every open menu, the innermost first, and sends the item's action to its target. False when the item
    // cannot be chosen: it is disabled, a separator, or has no action or no target.
    bool choose(MenuItem& item);

    void popUpMenu(const std::shared_ptr<Menu>& menu, const Point& locationNS) override;
    void closeMenus() override;
    bool isMenuOpen() const override { return !_openMenus.empty(); }

private:
    std::vector<PopUp> _popUps;
    std::vector<Menu*> _openMenus;
};

} // namespace tarragon
