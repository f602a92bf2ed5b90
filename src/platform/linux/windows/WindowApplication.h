#pragma once

#include "platform/Workspace.h"

namespace tarragon {

class ApplicationDirectory;
struct WindowDescription;

// The application that a window belongs to. One process can be several to the user, as the programs of an office suite
// are.
RunningApplication applicationOfWindow(const WindowDescription& window, ApplicationDirectory& applications);

} // namespace tarragon
