#include "menus/MenuSlots.h"

namespace tarragon {

std::vector<MenuSlot> menuSlotsOf(const std::vector<std::shared_ptr<MenuItem>>& items) {
    std::vector<MenuSlot> result;
    result.reserve(items.size());
    for (const auto& item : items) {
        const bool joins = item->isAlternate() && !item->isSeparatorItem() && item->keyEquivalentModifierMask() != 0
            && !result.empty() && !result.back().front()->isSeparatorItem();
        if (joins)
            result.back().push_back(item);
        else
            result.push_back({item});
    }
    return result;
}

std::size_t shownInSlot(const MenuSlot& slot, std::uint32_t heldModifiers) {
    for (std::size_t position = 1; position < slot.size(); ++position) {
        if (slot[position]->keyEquivalentModifierMask() == heldModifiers)
            return position;
    }
    return 0;
}

} // namespace tarragon
