#pragma once

#include "Statistics.h"

#include "Desktop.h"

#include <string>
#include <vector>

#include <sys/types.h>

namespace tarragon {

// A title on the display, by a pixel of the root window in it.
struct TitlePlace {
    std::string title;
    int x = 0;
    int y = 0;
};

// Presses the titles of a process in turn, as often as told, and leaves the menu of each again: times from the press to
// the mapped menu. Throws std::runtime_error when a menu does not come or go in time.
Samples measurePresses(e2e::Desktop& desktop, pid_t process, const std::vector<TitlePlace>& titles, int presses);

} // namespace tarragon
