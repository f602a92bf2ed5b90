#pragma once

#include "platform/InstalledApplications.h"

#include <string>
#include <string_view>

namespace tarragon {

// The name of an application of which nothing is known.
inline constexpr std::string_view UnknownApplicationName = "unknown";

// What the list calls an application: what it calls itself, else what its bundle identifier begins with, else
// UnknownApplicationName. A name that is there counts, even an empty one.
std::string nameOfBundle(const ApplicationBundle& bundle);

} // namespace tarragon
