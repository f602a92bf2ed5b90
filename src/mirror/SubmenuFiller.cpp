#include "mirror/SubmenuFiller.h"

#include "mirror/MenuCache.h"
#include "mirror/MenuCleanUp.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"
#include "platform/Log.h"

#include <array>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

// Copies of longer cached menus are shown as they are, to keep the opening fast.
constexpr std::size_t MostRefreshedItems = 75;

// The real item that the menu hangs in; nil for a menu that hangs nowhere.
Element elementOfOwner(const Menu& menu) {
    return menu.supermenu() ? ProxyMenuItem::elementOfItem(*menu.parentItem()) : Element();
}

} // namespace

SubmenuFiller::SubmenuFiller(Accessibility& accessibility, MenuConverter converter)
    : _accessibility(accessibility)
    , _converter(std::move(converter)) { }

void SubmenuFiller::fillFromApplication(Menu& menu) {
    menu.removeAllItems();
    _converter.processSubAXMenuAsNSMenu(elementOfOwner(menu), menu);
    if (menu.numberOfItems() == 0)
        log(LogCategory::Menus, [&] { return menu.title() + " opens empty: " + _converter.reasonForNoItem(); });
    removeDuplicateMenuItems(menu);
}

void SubmenuFiller::fillFromCache(
    Menu& menu, const MenuCache& cache, const std::function<std::optional<std::string>()>& focusedAppName) {
    menu.removeAllItems();
    _converter.processSingleIterationSubAXMenuAsNSMenu(elementOfOwner(menu));
    menu.removeAllItems();
    const auto appName = focusedAppName();
    // A filling may have replaced what the probe has found; the menu then opens empty this once.
    const auto filled = appName && menu.supermenu() ? cache.filledMenu(*appName, menu.parentItem()->title()) : nullptr;
    if (!filled) {
        log(LogCategory::Menus, [&] { return menu.title() + " opens empty: it is not in the cache any more"; });
        return;
    }
    if (filled->numberOfItems() == 0)
        log(LogCategory::Menus, [&] { return menu.title() + " opens empty: it is cached without items"; });
    copyItems(*filled, menu);
    removeDuplicateMenuItems(menu);
}

void SubmenuFiller::copyItems(const Menu& filled, Menu& menu) {
    const bool refresh = filled.numberOfItems() <= MostRefreshedItems;
    if (refresh)
        readStatesAhead(filled);
    for (const auto& item : filled.items()) {
        menu.addItem(item->copy());
        if (refresh)
            refreshState(*menu.items().back());
    }
}

// One read for the whole menu, of what its items are asked for one by one.
void SubmenuFiller::readStatesAhead(const Menu& menu) {
    std::vector<Element> elements;
    elements.reserve(menu.numberOfItems());
    for (const auto& item : menu.items()) {
        if (!item->isSeparatorItem())
            elements.push_back(ProxyMenuItem::elementOfItem(*item));
    }
    static constexpr std::array attributes{attribute::Enabled, attribute::MenuItemMarkChar};
    _accessibility.readAhead(elements, attributes);
}

void SubmenuFiller::refreshState(MenuItem& item) {
    if (item.isSeparatorItem())
        return;
    const Element element = ProxyMenuItem::elementOfItem(item);
    const Value enabled = UIElementUtilities::valueOfAttribute(_accessibility, attribute::Enabled, element);
    if (const auto* value = valueAs<bool>(enabled))
        item.setEnabled(*value);
    item.setState(!isNil(UIElementUtilities::valueOfAttribute(_accessibility, attribute::MenuItemMarkChar, element)));
}

} // namespace tarragon
