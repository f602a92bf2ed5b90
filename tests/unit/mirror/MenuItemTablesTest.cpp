#include "mirror/MenuItemTables.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tarragon {
namespace {

TEST(ModifierTable, HoldsExactlyTheKnownCodes) {
    MenuItemTables tables;
    tables.initializeModifierLookUpTable();
    const std::map<int, std::uint32_t> masks{
        {1, 0x120000}, // Shift Command
        {2, 0x180000}, // Option Command
        {3, 0x1A0000}, // Shift Option Command
        {4, 0x140000}, // Control Command
        {6, 0x1C0000}, // Option Control Command
        {8, 0x100000}, // Command
        {9, 0x20000}, // Shift
        {10, 0x80000}, // Option
        {11, 0xA0000}, // Shift Option
        {12, 0x40000}, // Control
    };
    for (int code = -1; code < 100; ++code) {
        const auto expected = masks.find(code);
        EXPECT_EQ(tables.modifierMaskForCode(std::to_string(code)),
            expected == masks.end() ? std::nullopt : std::optional(expected->second))
            << code;
    }
    EXPECT_EQ(tables.modifierMaskForCode(""), std::nullopt);
    EXPECT_EQ(tables.modifierMaskForCode("nonsense"), std::nullopt);
}

TEST(GlyphTable, HoldsExactlyTheKnownGlyphs) {
    MenuItemTables tables;
    tables.initializeGlyphLookUpTable();
    const std::map<int, std::string> characters{
        {23, "\b"}, // backspace
        {140, "\xE2\x8F\x8F"}, // eject symbol, U+23CF
        {27, "\x1B"}, // escape
        {32, " "}, {102, "\xEF\x9C\xA9"}, // Home, U+F729
        {105, "\xEF\x9C\xAB"}, // End, U+F72B
        {11, "\r"}, {98, "\xEF\x9C\xAC"}, // Page Up, U+F72C
        {107, "\xEF\x9C\xAD"}, // Page Down, U+F72D
        {16, "\xEF\x9C\x81"}, // down arrow, U+F701
        {106, "\xEF\x9C\x81"}, {25, "\xEF\x9C\x80"}, // up arrow, U+F700
        {104, "\xEF\x9C\x80"}, {101, "\xEF\x9C\x83"}, // right arrow, U+F703
        {26, "\xEF\x9C\x83"}, {100, "\xEF\x9C\x82"}, // left arrow, U+F702
        {24, "\xEF\x9C\x82"}, {111, "\xEF\x9C\x84"}, // F1, U+F704
        {112, "\xEF\x9C\x85"}, {113, "\xEF\x9C\x86"}, {114, "\xEF\x9C\x87"}, {115, "\xEF\x9C\x88"},
        {116, "\xEF\x9C\x89"}, {117, "\xEF\x9C\x8A"}, {118, "\xEF\x9C\x8B"}, {119, "\xEF\x9C\x8C"},
        {120, "\xEF\x9C\x8D"}, {121, "\xEF\x9C\x8E"}, {122, "\xEF\x9C\x8F"}, {123, "\xEF\x9C\x90"}, // F13, U+F710
    };
    for (int glyph = -1; glyph < 300; ++glyph) {
        const auto expected = characters.find(glyph);
        const auto character = tables.characterForGlyph(std::to_string(glyph));
        EXPECT_EQ(
            character, expected == characters.end() ? std::nullopt : std::optional<std::string_view>(expected->second))
            << glyph;
    }
    EXPECT_EQ(tables.characterForGlyph(""), std::nullopt);
}

TEST(MenuItemTables, KnowNothingBeforeTheyAreBuiltAndAreBuiltOnceEach) {
    MenuItemTables tables;
    EXPECT_EQ(tables.modifierMaskForCode("1"), std::nullopt);
    EXPECT_EQ(tables.characterForGlyph("140"), std::nullopt);
    for (int time = 0; time < 2; ++time) {
        tables.initializeModifierLookUpTable();
        EXPECT_EQ(tables.modifierMaskForCode("1"), 0x120000U);
    }
    EXPECT_EQ(tables.characterForGlyph("140"), std::nullopt);
    for (int time = 0; time < 2; ++time) {
        tables.initializeGlyphLookUpTable();
        EXPECT_EQ(tables.characterForGlyph("140"), "\u23CF");
    }
}

} // namespace
} // namespace tarragon
