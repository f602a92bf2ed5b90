#include "fake/FakeMenuPresenter.h"

#include <utility>

namespace tarragon {

void FakeMenuPresenter::open(Menu& menu) {
    if (menu.delegate()) {
        menu.delegate()->menuNeedsUpdate(menu);
        menu.delegate()->menuWillOpen(menu);
    }
    _openMenus.push_back(&menu);
}

Menu* FakeMenuPresenter::openSubmenu(Menu& menu, std::string_view title) {
    const auto item = menu.itemWithTitle(title);
    if (!item || !item->hasSubmenu())
        return nullptr;
    open(*item->submenu());
    return item->submenu().get();
}

void FakeMenuPresenter::highlight(Menu& menu, MenuItem* item) {
    if (menu.delegate())
        menu.delegate()->menuWillHighlightItem(menu, item);
}

bool FakeMenuPresenter::choose(MenuItem& item) {
    const auto target = item.target();
    closeMenus();
    if (!item.isEnabled() || item.isSeparatorItem() || item.action().empty() || !target)
        return false;
    target->performAction(item.action(), item);
    return true;
}

void FakeMenuPresenter::pressArrowAtEdge(MenuNeighbour neighbour) {
    if (const auto opener = _opener.lock())
        opener->moveToNeighbour(neighbour);
}

void FakeMenuPresenter::popUpMenu(
    const std::shared_ptr<Menu>& menu, const Point& locationNS, const std::weak_ptr<MenuOpener>& opener) {
    closeMenus();
    if (menu->delegate())
        menu->delegate()->menuNeedsUpdate(*menu);
    const bool shown = menu->numberOfItems() > 0;
    _popUps.push_back({menu, locationNS, shown, opener});
    if (!shown) {
        if (const auto told = opener.lock())
            told->menuHasClosed();
        return;
    }
    _opener = opener;
    if (menu->delegate())
        menu->delegate()->menuWillOpen(*menu);
    _openMenus.push_back(menu.get());
}

void FakeMenuPresenter::closeMenus() {
    while (!_openMenus.empty()) {
        Menu* menu = _openMenus.back();
        _openMenus.pop_back();
        if (menu->delegate())
            menu->delegate()->menuDidClose(*menu);
    }
    if (const auto opener = std::exchange(_opener, {}).lock())
        opener->menuHasClosed();
}

} // namespace tarragon
