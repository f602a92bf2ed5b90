#pragma once

#include "Statistics.h"

#include "Agent.h"
#include "Desktop.h"

namespace tarragon {

// Times from a key event that leaves us to the mapping of the window that it opens.
struct OpeningTimes {
    Samples popUp; // from the hot key
    Samples submenu; // from the key that opens the menu of the first title
    int whileReadingAhead = 0; // presses of the hot key at which the agent still filled its menu cache
};

// Both throw std::runtime_error when a menu does not come or go in time.

// Presses the hot key as often as told, from the moment at which it first opens a pop-up, whatever the agent does
// besides. Opens no submenus.
OpeningTimes measureHotKeyLatency(e2e::Desktop& desktop, e2e::Agent& agent, int presses);

// Opens the pop-up and the first submenu in it as often as told, each time when all fillings of the menu cache have
// ended.
OpeningTimes measureFilledOpenings(e2e::Desktop& desktop, e2e::Agent& agent, int openings);

} // namespace tarragon
