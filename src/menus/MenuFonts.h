#pragma once

#include "mirror/Menu.h"

#include <optional>

#include <QFont>

namespace tarragon {

// The desktop's menu font in the size and weight asked for.
QFont menuFont(const MenuFont& font, const QFont& standardFont);

// The font of the menu, else that of the nearest menu above it that has one; nothing when none has.
std::optional<MenuFont> fontOfMenu(const Menu& menu);

} // namespace tarragon
