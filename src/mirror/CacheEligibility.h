#pragma once

#include <optional>
#include <string>

namespace tarragon {

// Whether a top-level menu of an application may be shown from the cache. Excluded by name are menus and applications
// whose contents change too often or that misbehave when they are read in the background. Texts are compared exactly.
[[nodiscard]] bool menuMayBeCached(const std::optional<std::string>& appName, const std::string& title);

} // namespace tarragon
