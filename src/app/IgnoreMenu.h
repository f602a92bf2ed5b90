#pragma once

#include "mirror/Menu.h"

#include <memory>
#include <string>

namespace tarragon {

class AppController;

// Builds the menu that puts the application of that name, or its window in front, on the ignore list. The items'
// targets call the controller, which outlives the menu. Empty for an application without a name, which is none.
std::shared_ptr<Menu> makeIgnoreMenu(AppController& controller, const std::string& applicationName);

} // namespace tarragon
