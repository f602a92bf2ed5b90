#include "mirror/MenuItemTables.h"

#include "mirror/MenuItem.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

struct ModifierEntry {
    std::string_view code;
    std::uint32_t mask;
};

constexpr std::array<ModifierEntry, 10> ModifierTable{{
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
}};

struct GlyphEntry {
    std::string_view glyph;
    std::string_view character;
};

constexpr std::array<GlyphEntry, 30> GlyphTable{{
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
    {"112", "\uF705"}, {"113", "\uF706"}, {"114", "\uF707"}, {"115", "\uF708"}, {"116", "\uF709"}, {"117", "\uF70A"},
    {"118", "\uF70B"}, {"119", "\uF70C"}, {"120", "\uF70D"}, {"121", "\uF70E"}, {"122", "\uF70F"},
    {"123", "\uF710"}, // F13
}};

} // namespace

std::optional<std::uint32_t> modifierMaskForCode(std::string_view code) {
    const auto* entry = std::ranges::find(ModifierTable, code, &ModifierEntry::code);
    return entry == ModifierTable.end() ? std::nullopt : std::optional(entry->mask);
}

std::optional<std::string_view> characterForGlyph(std::string_view glyph) {
    const auto* entry = std::ranges::find(GlyphTable, glyph, &GlyphEntry::glyph);
    return entry == GlyphTable.end() ? std::nullopt : std::optional(entry->character);
}

} // namespace tarragon
