// The part of AppAccessibility that fills a menu when it opens.
#include "mirror/AppAccessibility.h"
#include "mirror/MenuCleanUp.h"
#include "mirror/MenuConverter.h"
#include "mirror/ProxyMenuItem.h"

namespace tarragon {

namespace {

// The real item that the menu hangs in; nil for a menu that hangs nowhere.
Element elementOfOwner(const Menu& menu) {
    if (!menu.supermenu())
        return {};
    const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(menu.parentItem()->target());
    return proxy ? proxy->itemAXUIElementRef() : Element();
}

} // namespace

void AppAccessibility::menuNeedsUpdate(Menu& menu) {
    const ReadBatch batch(_platform.accessibility);
    if (menu.sharedTitle() != cocoaMenuTitle()) {
        if (&menu == _menu.get())
            completeRootMenu();
        else
            fillSubmenu(menu);
    }
    if (focusedAppName() == "Finder")
        removeDuplicateMenuItems(menu);
    if (menu.title() == "Services")
        removeDisabledServicesMenuItems(_platform.accessibility, menu);
}

void AppAccessibility::completeRootMenu() {
    const auto apple = _menu->itemWithTitle("Apple");
    if (apple && !_showAppleMenu)
        _menu->removeItem(*apple);
    appendAuxiliaryMenuTo(*_menu);
}

void AppAccessibility::fillSubmenu(Menu& menu) {
    menu.removeAllItems();
    converter().processSubAXMenuAsNSMenu(elementOfOwner(menu), menu);
    removeDuplicateMenuItems(menu);
}

} // namespace tarragon
