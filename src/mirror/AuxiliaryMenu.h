#pragma once

#include "mirror/Menu.h"

#include <memory>

namespace tarragon {

// Ends the root menu with a separator and an item that opens the auxiliary menu. When the auxiliary menu hangs in a
// menu already, its item is taken out of that and the last item, the separator of that time, out of the root.
// Does nothing without an auxiliary menu.
void appendAuxiliaryMenu(Menu& root, const std::shared_ptr<Menu>& auxiliaryMenu);

} // namespace tarragon
