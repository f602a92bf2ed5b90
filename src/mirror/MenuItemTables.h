#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

namespace tarragon {

// The meaning of the numbers by which applications name the modifiers and keys of a shortcut. Built by one thread; may
// be read from any thread afterwards. A table that was not built knows nothing.
class MenuItemTables {
public:
    // Each does nothing when its table is there.
    void initializeModifierLookUpTable();
    void initializeGlyphLookUpTable();

    // The modifier mask, in Cocoa flags, for an "AXMenuItemCmdModifiers" value in decimal. Nothing for the codes that
    // leave an item's own mask alone.
    [[nodiscard]] std::optional<std::uint32_t> modifierMaskForCode(std::string_view code) const;
    // The character, in UTF-8, for an "AXMenuItemCmdGlyph" value in decimal. Nothing for glyphs without one.
    [[nodiscard]] std::optional<std::string_view> characterForGlyph(std::string_view glyph) const;

private:
    std::map<std::string_view, std::uint32_t> _modifierLookupTable;
    std::map<std::string_view, std::string_view> _glyphLookupTable;
};

} // namespace tarragon
