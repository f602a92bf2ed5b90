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
        std::weak_ptr<MenuOpener> opener = {};
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

    // The opener of the open menu hears of Left or Right.
    void pressArrowAtEdge(MenuNeighbour neighbour);
    // Where open menus lie on the screen.
    void setMenuFrameNS(const Rect& frameNS) { _menuFrameNS = frameNS; }

    using MenuPresenter::popUpMenu;
    void popUpMenu(
        const std::shared_ptr<Menu>& menu, const Point& locationNS, const std::weak_ptr<MenuOpener>& opener) override;
    void closeMenus() override;
    bool isMenuOpen() const override { return !_openMenus.empty(); }
    bool isMenuAt(const Point& pointNS) const override { return isMenuOpen() && contains(_menuFrameNS, pointNS); }

private:
    std::vector<PopUp> _popUps;
    std::vector<Menu*> _openMenus;
    std::weak_ptr<MenuOpener> _opener;
    Rect _menuFrameNS;
};

} // namespace tarragon
