#pragma once

#include "mirror/Menu.h"

#include <memory>

namespace tarragon {

class AppDelegate;

// Builds the system's own menu afresh: about, preferences, updates, help and quit. The items' targets call the
// delegate, which outlives the menu.
std::shared_ptr<Menu> makeTarragonMenu(AppDelegate& delegate);

} // namespace tarragon
