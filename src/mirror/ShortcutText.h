#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarragon {

class MenuItem;

// The shortcut of an item in words for people, as "Ctrl+Shift+S": the application's own words when it has any, else the
// key equivalent with its modifiers. Empty when there is none. UTF-8, and always well-formed.
std::string shortcutAsShown(const MenuItem& item);

// The key equivalent with the modifiers of a mask (bits of modifier::). Empty without a key equivalent, and for a
// control character that no key makes.
std::string shortcutAsShown(std::string_view keyEquivalent, std::uint32_t modifierMask);

} // namespace tarragon
