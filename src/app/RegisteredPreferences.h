#pragma once

#include "platform/Defaults.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tarragon {

// The 33 registered settings with their default values, in the order of registration.
const DefaultsDictionary& registeredPreferences();

// The keys whose changes the controller follows while it runs, in the order in which it observes them.
const std::vector<std::string_view>& observedPreferences();

// The style of the panel buttons for a stored value: 4 is never used and stands for 5.
std::int64_t buttonStyleForStoredValue(std::int64_t stored);

} // namespace tarragon
