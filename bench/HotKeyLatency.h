#pragma once

#include "Statistics.h"

#include "Agent.h"
#include "Desktop.h"

namespace tarragon {

// Presses the agent's hot key as often as told and measures each time from the key event that leaves us to the pop-up
// window's mapping. Throws std::runtime_error when a pop-up does not come or go in time.
Samples measureHotKeyLatency(e2e::Desktop& desktop, e2e::Agent& agent, int presses);

} // namespace tarragon
