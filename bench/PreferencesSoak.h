#pragma once

#include "Desktop.h"

namespace tarragon {

// Has the program itself open its preferences and closes them, again and again. False when it has kept something of
// that after the first fifth. Throws std::runtime_error when the window does not come or go.
[[nodiscard]] bool openAndClosePreferences(e2e::Desktop& desktop, int times);

} // namespace tarragon
