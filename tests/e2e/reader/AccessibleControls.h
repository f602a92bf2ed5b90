#pragma once

#include <nlohmann/json.hpp>

namespace reader {

// What every window of the application shows, as an array with an object for each element and those within it behind
// it: "window" (the name of its window), "role", "name", "description", "text" (what can be edited holds), "states" (an
// array of names), "x", "y", "width" and "height" (screen pixels). Nothing while the application is not on the
// accessibility bus.
nlohmann::json shownElements(int processIdentifier);

} // namespace reader
