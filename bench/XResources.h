#pragma once

#include "XDisplay.h"

#include <sys/types.h>

namespace tarragon {

// What an X server keeps for a process: windows, pixmaps, pictures, cursors and whatever else it counts.
struct XResources {
    long connections = 0;
    long resources = 0;
    bool operator==(const XResources&) const = default;
};

// Nothing at all for a process without a connection, or of a server that does not tell.
XResources xResourcesOf(e2e::XDisplay& display, pid_t process);

} // namespace tarragon
