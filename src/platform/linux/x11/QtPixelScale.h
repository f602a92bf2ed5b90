#pragma once

#include "platform/linux/windows/PixelScale.h"

namespace tarragon {

// The scales of the toolkit's screens as they are now. Needs the QGuiApplication; main thread only.
PixelScale pixelScaleOfQt();

} // namespace tarragon
