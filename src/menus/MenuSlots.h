#pragma once

#include "mirror/MenuItem.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tarragon {

// One place in an open menu: an item and the alternate items that may stand in its place. Never empty.
using MenuSlot = std::vector<std::shared_ptr<MenuItem>>;

// The places that the items of a menu take. An alternate item joins the one before it; without one, behind a separator,
// or without modifiers of its own there is nothing that it could take the place of, and it stands for itself.
std::vector<MenuSlot> menuSlotsOf(const std::vector<std::shared_ptr<MenuItem>>& items);

// The position in the slot of the item that is shown while exactly these modifiers (bits of modifier::) are held.
std::size_t shownInSlot(const MenuSlot& slot, std::uint32_t heldModifiers);

} // namespace tarragon
