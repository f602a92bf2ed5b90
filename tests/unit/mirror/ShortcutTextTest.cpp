#include "mirror/ShortcutText.h"

#include "mirror/MenuItem.h"

#include <string>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

TEST(ShortcutText, NamesEveryModifierInAFixedOrder) {
    EXPECT_EQ(shortcutAsShown("s", modifier::Command), "Ctrl+S");
    EXPECT_EQ(shortcutAsShown("s", modifier::Option), "Alt+S");
    EXPECT_EQ(shortcutAsShown("s", modifier::Control), "Super+S");
    EXPECT_EQ(shortcutAsShown("s", modifier::Shift), "Shift+S");
    EXPECT_EQ(shortcutAsShown("s", modifier::Shift | modifier::Command), "Ctrl+Shift+S");
    EXPECT_EQ(shortcutAsShown("s", modifier::Shift | modifier::Command | modifier::Option | modifier::Control),
        "Super+Ctrl+Alt+Shift+S");
    EXPECT_EQ(shortcutAsShown("s", 0), "S");
}

TEST(ShortcutText, IgnoresBitsThatAreNoModifiers) {
    EXPECT_EQ(shortcutAsShown("s", modifier::Command | 0x800000U | 1U), "Ctrl+S");
}

TEST(ShortcutText, IsEmptyWithoutAKeyEquivalent) {
    EXPECT_EQ(shortcutAsShown("", modifier::Command), "");
    EXPECT_EQ(shortcutAsShown(MenuItem("Save", "", "")), "");
}

struct NamedKey {
    const char* keyEquivalent;
    const char* name;
};

class ShortcutTextKey : public testing::TestWithParam<NamedKey> { };

TEST_P(ShortcutTextKey, IsShownByItsName) {
    EXPECT_EQ(shortcutAsShown(GetParam().keyEquivalent, 0), GetParam().name);
    EXPECT_EQ(shortcutAsShown(GetParam().keyEquivalent, modifier::Command), std::string("Ctrl+") + GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Keys, ShortcutTextKey,
    testing::Values(NamedKey{"\b", "Backspace"}, NamedKey{"\x1B", "Esc"}, NamedKey{" ", "Space"},
        NamedKey{"\r", "Return"}, NamedKey{"\x03", "Enter"}, NamedKey{"\n", "Return"}, NamedKey{"\t", "Tab"},
        NamedKey{"\x7F", "Delete"}, NamedKey{"\uF700", "Up"}, NamedKey{"\uF701", "Down"}, NamedKey{"\uF702", "Left"},
        NamedKey{"\uF703", "Right"}, NamedKey{"\uF727", "Insert"}, NamedKey{"\uF728", "Delete"},
        NamedKey{"\uF729", "Home"}, NamedKey{"\uF72B", "End"}, NamedKey{"\uF72C", "Page Up"},
        NamedKey{"\uF72D", "Page Down"}, NamedKey{"\u23CF", "\u23CF"}, NamedKey{"\uF704", "F1"},
        NamedKey{"\uF705", "F2"}, NamedKey{"\uF706", "F3"}, NamedKey{"\uF707", "F4"}, NamedKey{"\uF708", "F5"},
        NamedKey{"\uF709", "F6"}, NamedKey{"\uF70A", "F7"}, NamedKey{"\uF70B", "F8"}, NamedKey{"\uF70C", "F9"},
        NamedKey{"\uF70D", "F10"}, NamedKey{"\uF70E", "F11"}, NamedKey{"\uF70F", "F12"}, NamedKey{"\uF710", "F13"},
        NamedKey{"\uF726", "F35"}, NamedKey{"+", "+"}, NamedKey{"&", "&"}, NamedKey{"\u00E9", "\u00C9"},
        NamedKey{"\u0444", "\u0424"}, NamedKey{"5", "5"}));

TEST(ShortcutText, IsEmptyForAControlCharacterThatNoKeyMakes) {
    EXPECT_EQ(shortcutAsShown("\x01", modifier::Command), "");
}

TEST(ShortcutText, ReplacesDamagedText) {
    EXPECT_EQ(shortcutAsShown("\xFF", modifier::Command), "Ctrl+\uFFFD");
}

TEST(ShortcutText, PrefersTheApplicationsOwnWords) {
    MenuItem item("Full Screen", "", "\uF70E");
    EXPECT_EQ(shortcutAsShown(item), "Ctrl+F11");
    item.setShortcutText("F11");
    EXPECT_EQ(shortcutAsShown(item), "F11");
    item.setShortcutText("F\xFF");
    EXPECT_EQ(shortcutAsShown(item), "F\uFFFD");
}

} // namespace

} // namespace tarragon
