#pragma once

#include "Sheet.h"

namespace tarragon {

// Screen-top bars of several applications, screens, settings and fonts, as the program makes them.
void drawBars(Sheet& sheet);

} // namespace tarragon
