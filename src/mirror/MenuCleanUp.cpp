#include "mirror/MenuCleanUp.h"

#include "mirror/ProxyMenuItem.h"
#include "platform/AccessibilityNames.h"
#include "platform/Log.h"

#include <utility>

namespace tarragon {

void removeDuplicateMenuItems(Menu& menu) {
    if (menu.title() == "Window")
        return;
    // The items that stay are gathered and the rest removed at the end, so that a long menu takes no longer than its
    // length.
    std::vector<std::shared_ptr<MenuItem>> kept;
    const auto& items = menu.items();
    kept.reserve(items.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        const bool repeats = index > 0 && items[index]->title() == kept.back()->title();
        if (!repeats) {
            kept.push_back(items[index]);
            continue;
        }
        if (kept.size() == 1) {
            log(LogCategory::Menus, [&] {
                return "repeated items of " + menu.title() + ": stopped at the front of the menu, those behind it stay";
            });
            // A removal at position 1 steps back before the front of the menu, where the pass ends: the items that
            // follow stay as they are.
            kept.insert(kept.end(), items.begin() + static_cast<std::ptrdiff_t>(index) + 1, items.end());
            break;
        }
    }
    if (kept.size() == items.size())
        return;
    menu.removeAllItems();
    for (auto& item : kept)
        menu.addItem(std::move(item));
}

void removeDisabledServicesMenuItems(Accessibility& accessibility, Menu& menu) {
    // The last size that was read: once there is one, it stands for all the items that follow.
    Value size;
    const auto items = menu.items();
    for (const auto& item : items) {
        const Element element = ProxyMenuItem::elementOfItem(*item);
        Value read = element ? accessibility.copyAttributeValue(element, attribute::Size) : Value();
        if (!isNil(read))
            size = std::move(read);
        if (isNil(size))
            menu.removeItem(*item);
    }
}

void removeBrokenMenuItems(Menu& menu) {
    const auto items = menu.items();
    for (const auto& item : items) {
        if (item->title() == "AXMenuBarItem")
            menu.removeItem(*item);
    }
}

} // namespace tarragon
