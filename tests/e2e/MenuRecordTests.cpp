// The yardstick itself: what a mirror is expected to look like and how shortcuts are spelled.
#include "MenuRecord.h"

#include <gtest/gtest.h>

namespace tarragon::e2e {

namespace {

MenuRecord item(const std::string& title, Menu below = {}) {
    MenuRecord record;
    record.title = title;
    record.enabled = true;
    record.items = std::move(below);
    return record;
}

std::vector<std::string> mirroredTitles(const std::string& menuTitle, const Menu& items) {
    return titlesOf(mirrorOf({item(menuTitle, items)}).at(0).items);
}

} // namespace

TEST(ShortcutSpelling, IsTheSameForEveryToolkit) {
    EXPECT_EQ(normalShortcut("n;<Alt>f:n;<Primary><Shift>n", "New"), "Ctrl+Shift+N");
    EXPECT_EQ(normalShortcut("Shift+Ctrl+N", "New"), "Ctrl+Shift+N");
    EXPECT_EQ(normalShortcut("i;<Alt>v:i;<Primary>plus", "Zoom In"), "Ctrl++");
    EXPECT_EQ(normalShortcut("Ctrl++", "Zoom In"), "Ctrl++");
    EXPECT_EQ(normalShortcut("s;<Alt>e:s;<Primary><Alt><Super>p", "Preferences"), "Super+Ctrl+Alt+P");
    EXPECT_EQ(normalShortcut(";;F11", "Fullscreen"), "F11");
}

TEST(ShortcutSpelling, TakesNoMnemonicForAShortcut) {
    EXPECT_EQ(normalShortcut("<Alt>f;<Alt>f;", "File"), "");
    EXPECT_EQ(normalShortcut("Alt+F", "File"), "");
    EXPECT_EQ(normalShortcut("Alt+D", "Delete"), "");
    EXPECT_EQ(normalShortcut("Alt+Left", "Previous Tab"), "Alt+Left");
}

TEST(ExpectedMirror, ReducesRunsOfEqualTitles) {
    EXPECT_EQ(mirroredTitles("Edit", {item("B"), item("A"), item("A"), item("B"), item("A")}),
        (std::vector<std::string>{"B", "A", "B", "A"}));
}

TEST(ExpectedMirror, StopsReducingAfterARemovalAtTheSecondPlace) {
    EXPECT_EQ(mirroredTitles("Edit", {item("A"), item("A"), item("B"), item("B")}),
        (std::vector<std::string>{"A", "B", "B"}));
}

TEST(ExpectedMirror, KeepsRunsInAWindowMenu) {
    EXPECT_EQ(mirroredTitles("Window", {item("B"), item("A"), item("A")}), (std::vector<std::string>{"B", "A", "A"}));
}

TEST(ExpectedMirror, LeavesUntitledItemsOutAndTurnsADashIntoASeparator) {
    EXPECT_EQ(mirroredTitles("Edit", {item("A"), item("-"), item("B"), item("  "), item("C")}),
        (std::vector<std::string>{"A", "-", "B", "C"}));
}

TEST(ExpectedMirror, GivesSeveralItemsOfOneTitleTheFirstSubmenu) {
    Menu mirror = mirrorOf({item("A", {item("one")}), item("B"), item("A", {item("two")})});
    EXPECT_EQ(titlesOf(mirror.at(0).items), std::vector<std::string>{"one"});
    EXPECT_TRUE(mirror.at(2).items.empty());
}

TEST(TreeComparison, NamesEveryDifference) {
    Menu expected{item("File", {item("New")})};
    Menu actual = expected;
    EXPECT_TRUE(differences(expected, actual).empty());
    actual[0].items[0].checked = true;
    actual[0].items[0].shortcut = "Ctrl+N";
    EXPECT_EQ(differences(expected, actual).size(), 2U);
    actual[0].items.clear();
    EXPECT_EQ(differences(expected, actual).size(), 1U);
}

} // namespace tarragon::e2e
