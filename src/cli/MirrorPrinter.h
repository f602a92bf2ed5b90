#pragma once

#include "cli/MirrorTree.h"

#include <string>
#include <vector>

namespace tarragon {

// One line an item: the mark, the title indented by its level, the shortcut and the item key.
std::string mirrorAsText(const std::vector<MirrorNode>& nodes);

// An array of objects with title, key, enabled, checked, separator, shortcut and items, nested. Text that is not valid
// UTF-8 is mended with replacement characters.
std::string mirrorAsJson(const std::vector<MirrorNode>& nodes);

} // namespace tarragon
