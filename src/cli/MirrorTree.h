#pragma once

#include "mirror/AppAccessibility.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tarragon {

// One item of the mirrored menus, as a command prints it.
struct MirrorNode {
    std::shared_ptr<MenuItem> item;
    std::string key; // the item key; empty for a separator
    std::string shortcut; // as shown; empty when there is none
    std::vector<MirrorNode> items; // of the submenu; empty when there is none or it was not read
};

// Reads the reader's menus, which are up to date, down to a depth (0 for all levels). Submenus are filled one by one,
// as if each was opened; a read batch of all levels around this and the update that came before makes that one read.
// Bounded against applications whose menus have no end.
std::vector<MirrorNode> readMirrorTree(AppAccessibility& reader, std::size_t depth);

// The item with that key, found by opening only the menus on the way; nullptr when there is none.
std::shared_ptr<MenuItem> findMirrorItem(AppAccessibility& reader, const std::string& itemKey);

} // namespace tarragon
