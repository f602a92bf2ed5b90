#pragma once

#include <string_view>

namespace tarragon {

// True when the whole text matches the wildcard pattern: "*" stands for any run of characters, also an empty one, "?"
// for one character, and every other character for itself, with case. Backslashes and brackets are such characters: a
// wildcard cannot be given its plain meaning. The time is bounded by the length of the text times that of the pattern,
// and grows with the length of the text alone for patterns of up to 64 characters.
[[nodiscard]] bool isLike(std::u32string_view text, std::u32string_view pattern);

} // namespace tarragon
