#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarragon {

// The modifier mask for a "AXMenuItemCmdModifiers" value in decimal. Nothing for the codes that leave an item's own
// mask alone.
std::optional<std::uint32_t> modifierMaskForCode(std::string_view code);

// The character, in UTF-8, for a "AXMenuItemCmdGlyph" value in decimal. Nothing for glyphs without one.
std::optional<std::string_view> characterForGlyph(std::string_view glyph);

} // namespace tarragon
