#pragma once

#include "mirror/Menu.h"
#include "platform/Accessibility.h"

namespace tarragon {

// Repairs of what some applications' menu trees yield.

// Shrinks every run of items of the same title to its first. A menu titled "Window" is left alone. When the second
// item of the menu is such a repeat, it is removed and the pass ends there.
void removeDuplicateMenuItems(Menu& menu);

// Removes the leading items whose real ones have no size, as hidden services have; from the first item with a size on
// everything stays.
void removeDisabledServicesMenuItems(Accessibility& accessibility, Menu& menu);

// Removes the items titled "AXMenuBarItem": the real ones have no title.
void removeBrokenMenuItems(Menu& menu);

} // namespace tarragon
