#pragma once

#include "panels/PanelContent.h"
#include "platform/Geometry.h"

namespace tarragon {

// The size in which a button shows the whole of its title, or as much of it as fits in a width, with its usual room at
// both ends.
Size buttonSizeThatFits(const ButtonContent& button, double widestTitle);

} // namespace tarragon
