#include "mirror/AuxiliaryMenu.h"

namespace tarragon {

void appendAuxiliaryMenu(Menu& root, const std::shared_ptr<Menu>& auxiliaryMenu) {
    if (!auxiliaryMenu)
        return;
    if (Menu* supermenu = auxiliaryMenu->supermenu()) {
        if (const auto former = supermenu->itemWithTitle("Tarragon"))
            supermenu->removeItem(*former);
        root.removeItemAtIndex(static_cast<std::ptrdiff_t>(root.numberOfItems()) - 1);
    }
    auto item = std::make_shared<MenuItem>(auxiliaryMenu->title(), "", "");
    item->setSubmenu(auxiliaryMenu);
    root.addItem(item);
    root.insertItem(MenuItem::separatorItem(), root.numberOfItems() - 1);
}

} // namespace tarragon
