#include "mirror/MenuItemTables.h"

#include "platform/ModifierFlags.h"

namespace tarragon {

namespace {

template <typename Meaning>
std::optional<Meaning> meaningOf(std::string_view key, const std::map<std::string_view, Meaning>& table) {
    const auto entry = table.find(key);
    return entry == table.end() ? std::nullopt : std::optional(entry->second);
}

} // namespace

void MenuItemTables::initializeModifierLookUpTable() {
    if (!_modifierLookupTable.empty())
        return;
    _modifierLookupTable = {
        {"1", modifier::Shift | modifier::Command},
        {"2", modifier::Option | modifier::Command},
        {"3", modifier::Shift | modifier::Option | modifier::Command},
        {"4", modifier::Control | modifier::Command},
        {"6", modifier::Option | modifier::Control | modifier::Command},
        // The code for no Command key at all shows Command all the same.
        {"8", modifier::Command},
        {"9", modifier::Shift},
        {"10", modifier::Option},
        {"11", modifier::Shift | modifier::Option},
        {"12", modifier::Control},
    };
}

void MenuItemTables::initializeGlyphLookUpTable() {
    if (!_glyphLookupTable.empty())
        return;
    _glyphLookupTable = {
        {"23", "\x08"}, // backspace
        {"140", "\u23CF"}, // eject symbol
        {"27", "\x1B"}, // escape
        {"32", " "}, // space
        {"102", "\uF729"}, // Home
        {"105", "\uF72B"}, // End
        {"11", "\x0D"}, // return
        {"98", "\uF72C"}, // Page Up
        {"107", "\uF72D"}, // Page Down
        {"16", "\uF701"}, // down arrow
        {"106", "\uF701"}, {"25", "\uF700"}, // up arrow
        {"104", "\uF700"}, {"101", "\uF703"}, // right arrow
        {"26", "\uF703"}, {"100", "\uF702"}, // left arrow
        {"24", "\uF702"}, {"111", "\uF704"}, // F1
        {"112", "\uF705"}, {"113", "\uF706"}, {"114", "\uF707"}, {"115", "\uF708"}, {"116", "\uF709"},
        {"117", "\uF70A"}, {"118", "\uF70B"}, {"119", "\uF70C"}, {"120", "\uF70D"}, {"121", "\uF70E"},
        {"122", "\uF70F"}, {"123", "\uF710"}, // F13
    };
}

std::optional<std::uint32_t> MenuItemTables::modifierMaskForCode(std::string_view code) const {
    return meaningOf(code, _modifierLookupTable);
}

std::optional<std::string_view> MenuItemTables::characterForGlyph(std::string_view glyph) const {
    return meaningOf(glyph, _glyphLookupTable);
}

} // namespace tarragon
