#pragma once

#include <string>

namespace tarragon {

class X11Connection;

// What the running window manager calls itself; empty when none is running.
std::string windowManagerName(X11Connection& connection);

} // namespace tarragon
