#pragma once

#include <optional>
#include <string>

namespace tarragon {

// What a text that may be missing looks like within another one: itself, or "(null)".
inline std::string textOrNil(const std::optional<std::string>& text) {
    return text.value_or("(null)");
}

} // namespace tarragon
