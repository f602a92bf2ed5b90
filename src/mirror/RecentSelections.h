#pragma once

#include "mirror/Menu.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// Appends to the target a separator, the title "Recent Selections", and a copy of every item that is named by one of
// the keys, as far as it belongs to the application and is found in the root menu. A key is the application's name and
// the titles of the path, joined by bars. applicationName is called for each key, and fillMenu with each submenu on the
// way before it is looked into.
void addRecentSelections(Menu& target, const Menu& root, const std::vector<std::string>& keys,
    const std::function<std::optional<std::string>()>& applicationName, const std::function<void(Menu&)>& fillMenu);

} // namespace tarragon
