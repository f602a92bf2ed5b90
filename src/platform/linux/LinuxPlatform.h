#pragma once

#include "platform/DesktopSession.h"

namespace tarragon {

// The session of this process on Linux, with the X server of $DISPLAY. One at a time: it holds the toolkit's
// application object, which must not exist before.
[[nodiscard]] DesktopSessionOrError createLinuxPlatform(const Program& program);

} // namespace tarragon
