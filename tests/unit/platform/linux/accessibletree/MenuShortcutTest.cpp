#include "platform/linux/accessibletree/MenuShortcut.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

std::string text(std::string_view keyBinding, std::string_view title = "Title") {
    const auto shortcut = MenuShortcut::fromKeyBinding(keyBinding, title);
    return shortcut ? shortcut->text : "none";
}

TEST(MenuShortcut, IsTheThirdFieldOfAKeyBinding) {
    EXPECT_EQ(text("n;<Alt>f:n;<Primary>n"), "Ctrl+N");
    EXPECT_EQ(text("z;<Alt>ez;<Control>z"), "Ctrl+Z");
    EXPECT_EQ(text("w;<Alt>f:w;<Primary><Shift>n"), "Ctrl+Shift+N");
}

TEST(MenuShortcut, IsAbsentWhenThereIsOnlyAMnemonic) {
    EXPECT_EQ(text("m;<Alt>f:m;"), "none");
    EXPECT_EQ(text("<Alt>f;<Alt>f;"), "none");
    EXPECT_EQ(text(""), "none");
    EXPECT_EQ(text(";;"), "none");
}

TEST(MenuShortcut, IsReadFromABareAccelerator) {
    EXPECT_EQ(text("<Primary>n"), "Ctrl+N");
    EXPECT_EQ(text("Ctrl+N"), "Ctrl+N");
    EXPECT_EQ(text("F2"), "F2");
}

TEST(MenuShortcut, NamesModifiersInOneOrder) {
    EXPECT_EQ(text(";;<Shift><Alt><Primary><Super>s"), "Super+Ctrl+Alt+Shift+S");
    EXPECT_EQ(text("Meta+Shift+Alt+Ctrl+S"), "Super+Ctrl+Alt+Shift+S");
}

TEST(MenuShortcut, NamesKeysAsUsersKnowThem) {
    EXPECT_EQ(text(";;<Primary>Page_Up"), "Ctrl+Page Up");
    EXPECT_EQ(text("Ctrl+PgDown"), "Ctrl+Page Down");
    EXPECT_EQ(text(";;<Primary><Shift>Delete"), "Ctrl+Shift+Del");
    EXPECT_EQ(text(";;F11"), "F11");
    EXPECT_EQ(text(";;<Alt>Left"), "Alt+Left");
    EXPECT_EQ(text(";;<Primary>plus"), "Ctrl++");
    EXPECT_EQ(text("Ctrl++"), "Ctrl++");
    EXPECT_EQ(text("Ctrl+-"), "Ctrl+-");
    EXPECT_EQ(text(";;<Primary>KP_Add"), "Ctrl++");
    EXPECT_EQ(text(";;<Primary>KP_7"), "Ctrl+7");
    EXPECT_EQ(text(";;<Primary>bracketleft"), "Ctrl+[");
    EXPECT_EQ(text(";;<Shift>ISO_Left_Tab"), "Shift+Tab");
}

TEST(MenuShortcut, IsNotTheMnemonicOfTheTitle) {
    EXPECT_EQ(text("Alt+F", "File"), "none");
    EXPECT_EQ(text("Alt+s", "East Asian"), "none");
    EXPECT_EQ(text("Alt+1", "UTF-16"), "none");
    EXPECT_EQ(text("Alt+X", "File"), "Alt+X");
    EXPECT_EQ(text("Alt+Left", "Left"), "Alt+Left");
    EXPECT_EQ(text("Alt+Shift+F", "File"), "Alt+Shift+F");
}

TEST(MenuShortcut, IsShownAsItStandsWhenItCannotBeTakenApart) {
    const auto twoSteps = MenuShortcut::fromKeyBinding("Ctrl+K, Ctrl+C", "Comment");
    ASSERT_TRUE(twoSteps);
    EXPECT_EQ(twoSteps->text, "Ctrl+K, Ctrl+C");
    EXPECT_FALSE(twoSteps->commandCharacter());
    EXPECT_FALSE(twoSteps->commandModifiers());
    EXPECT_EQ(text("Hyper+N"), "Hyper+N");
    EXPECT_EQ(text(";;<Hyper>n"), "<Hyper>n");
}

TEST(MenuShortcut, GivesAnUpperCaseCharacter) {
    EXPECT_EQ(MenuShortcut::fromKeyBinding(";;<Primary>s", "")->commandCharacter(), "S");
    EXPECT_EQ(MenuShortcut::fromKeyBinding(";;<Primary>comma", "")->commandCharacter(), ",");
    EXPECT_FALSE(MenuShortcut::fromKeyBinding(";;F11", "")->commandCharacter());
}

TEST(MenuShortcut, GivesGlyphCodesOfKeysThatAreNoCharacters) {
    const auto glyph = [](std::string_view key) {
        return MenuShortcut::fromKeyBinding(key, "")->commandGlyph().value_or(0);
    };
    EXPECT_EQ(glyph("Backspace"), 23);
    EXPECT_EQ(glyph("Esc"), 27);
    EXPECT_EQ(glyph("Space"), 32);
    EXPECT_EQ(glyph("Home"), 102);
    EXPECT_EQ(glyph("End"), 105);
    EXPECT_EQ(glyph("Return"), 11);
    EXPECT_EQ(glyph("PgUp"), 98);
    EXPECT_EQ(glyph("PgDown"), 107);
    EXPECT_EQ(glyph("Down"), 106);
    EXPECT_EQ(glyph("Up"), 104);
    EXPECT_EQ(glyph("Right"), 101);
    EXPECT_EQ(glyph("Left"), 100);
    EXPECT_EQ(glyph("F1"), 111);
    EXPECT_EQ(glyph("F11"), 121);
    EXPECT_EQ(glyph("F13"), 123);
    EXPECT_EQ(glyph("F14"), 0);
    EXPECT_EQ(glyph("Ctrl+N"), 0);
}

TEST(MenuShortcut, CountsCtrlAsCommandAltAsOptionAndSuperAsControl) {
    const auto code = [](std::string_view key) {
        return MenuShortcut::fromKeyBinding(key, "")->commandModifiers().value_or(-1);
    };
    EXPECT_EQ(code("Ctrl+N"), 0);
    EXPECT_EQ(code("Ctrl+Shift+N"), 1);
    EXPECT_EQ(code("Ctrl+Alt+N"), 2);
    EXPECT_EQ(code("Ctrl+Alt+Shift+N"), 3);
    EXPECT_EQ(code("Meta+Ctrl+N"), 4);
    EXPECT_EQ(code("Meta+Ctrl+Alt+N"), 6);
    EXPECT_EQ(code("F11"), 8);
    EXPECT_EQ(code("Shift+F11"), 9);
    EXPECT_EQ(code("Alt+Left"), 10);
    EXPECT_EQ(code("Alt+Shift+Left"), 11);
    EXPECT_EQ(code("Meta+N"), 12);
}

TEST(MenuShortcut, TakesAnyNonsenseWithoutHarm) {
    for (const std::string_view nonsense : {"<", "<<", "<>", ";;<", ";;<Primary", ";;<Primary>", "+", "++", "Ctrl+",
             ";", ";;;;", "\xff\xfe", "Alt+\xc3", ", ", "Ctrl+, ", "<\xff>\xff"}) {
        const auto shortcut = MenuShortcut::fromKeyBinding(nonsense, nonsense);
        if (shortcut) {
            EXPECT_FALSE(shortcut->text.empty()) << nonsense;
        }
    }
}

} // namespace
} // namespace tarragon
