// The part of AppAccessibility that fills a menu when it opens, from the real menu or from the cache.
#include "mirror/AppAccessibility.h"
#include "mirror/CacheEligibility.h"
#include "mirror/MenuCache.h"
#include "mirror/MenuCleanUp.h"
#include "mirror/MenuConverter.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"

#include <array>
#include <vector>

namespace tarragon {

namespace {

// Copies of longer cached menus are shown as they are, to keep the opening fast.
constexpr std::size_t MostRefreshedItems = 75;

// The real item that the mirrored one stands for; nil for a separator.
Element elementOf(const MenuItem& item) {
    const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(item.target());
    return proxy ? proxy->itemAXUIElementRef() : Element();
}

// The real item that the menu hangs in; nil for a menu that hangs nowhere.
Element elementOfOwner(const Menu& menu) {
    return menu.supermenu() ? elementOf(*menu.parentItem()) : Element();
}

} // namespace

void AppAccessibility::menuNeedsUpdate(Menu& menu) {
    const bool isRoot = &menu == _menu.get();
    const bool isOurs = menu.sharedTitle() != cocoaMenuTitle();
    if (isOurs && !isRoot && cacheExistsForMenu(menu)) {
        fillFromCache(menu);
        return;
    }
    const ReadBatch batch(_platform.accessibility);
    if (isOurs) {
        if (isRoot)
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

void AppAccessibility::fillFromCache(Menu& menu) {
    // What the items are is known.
    const ReadBatch batch(_platform.accessibility, ReadBatchDepth::AsAsked);
    menu.removeAllItems();
    converter().processSingleIterationSubAXMenuAsNSMenu(elementOfOwner(menu));
    menu.removeAllItems();
    const auto appName = focusedAppName();
    if (!appName || !menu.supermenu())
        return;
    // A filling may have replaced what the probe has found; the menu then opens empty this once.
    const auto filled = _cache->filledMenu(*appName, menu.parentItem()->title());
    if (!filled)
        return;
    const bool refresh = filled->numberOfItems() <= MostRefreshedItems;
    if (refresh)
        readStatesAhead(*filled);
    for (const auto& item : filled->items()) {
        menu.addItem(item->copy());
        if (refresh)
            refreshState(*menu.items().back());
    }
    removeDuplicateMenuItems(menu);
}

// One read for the whole menu, of what its items are asked for one by one.
void AppAccessibility::readStatesAhead(const Menu& menu) {
    std::vector<Element> elements;
    elements.reserve(menu.numberOfItems());
    for (const auto& item : menu.items()) {
        if (!item->isSeparatorItem())
            elements.push_back(elementOf(*item));
    }
    static constexpr std::array attributes{attribute::Enabled, attribute::MenuItemMarkChar};
    _platform.accessibility.readAhead(elements, attributes);
}

void AppAccessibility::refreshState(MenuItem& item) {
    if (item.isSeparatorItem())
        return;
    const Element element = elementOf(item);
    const Value enabled = UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::Enabled, element);
    if (const auto* value = valueAs<bool>(enabled))
        item.setEnabled(*value);
    item.setState(
        !isNil(UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::MenuItemMarkChar, element)));
}

bool AppAccessibility::menuShouldBeCached(const MenuItem& item) {
    return menuMayBeCached(focusedAppName(), item.title());
}

void AppAccessibility::cacheMenuForMenuItem(const MenuItem& item) {
    auto appName = focusedAppName();
    if (!appName)
        return;
    // The thread works on copies of its own, and so never meets a menu that the main thread changes meanwhile.
    auto fillMenu = [&accessibility = _platform.accessibility, converter = converter(), element = elementOf(item)](
                        Menu& menu) mutable {
        const ReadBatch batch(accessibility);
        converter.processSubAXMenuAsNSMenu(element, menu);
    };
    _cache->cacheMenuForMenuItem(
        std::make_shared<const std::string>(*std::move(appName)), item.copy(), std::move(fillMenu));
}

bool AppAccessibility::cacheExistsForMenu(const Menu& menu) {
    return _cache->cacheExistsForMenu([this] { return focusedAppName(); }, menu);
}

void AppAccessibility::clearCacheForAppKey(const std::string& appName) {
    _cache->clearCacheForAppKey(appName);
}

} // namespace tarragon
