#pragma once

#include "platform/Geometry.h"

#include <vector>

namespace tarragon {

class X11Connection;

// The monitors in pixels of the root window, y down; the whole root window when the server does not know monitors.
std::vector<Rect> monitorFrames(X11Connection& connection);

} // namespace tarragon
