#pragma once

#include "XDisplay.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace tarragon::e2e {

// One item of a menu as somebody reported it, with everything below it.
struct MenuRecord {
    std::string title;
    std::string shortcut; // "Ctrl+Shift+S", empty when there is none
    bool separator = false;
    bool enabled = false;
    bool checked = false;
    bool focused = false;
    bool visible = true;
    PixelRect frame; // only from the independent reader, and only of items that are shown
    std::vector<MenuRecord> items;
};

using Menu = std::vector<MenuRecord>;

// From what `tarragon menus --json` or the independent reader prints. Throws nlohmann::json::exception on nonsense.
Menu menuFromJson(const nlohmann::json& array);

// The same tree with every shortcut in its normal spelling.
Menu withNormalShortcuts(Menu menu);

// A shortcut in one spelling, whoever wrote it: modifiers in the order Super, Ctrl, Alt, Shift and one name per key.
// "n;<Alt>f:n;<Primary><Shift>n", "Shift+Ctrl+N" and "Ctrl+Shift+N" all give "Ctrl+Shift+N". The title is needed to
// tell a toolkit's mnemonic ("Alt+F" of the item "File") from a shortcut.
std::string normalShortcut(const std::string& shortcut, const std::string& title);

// What a mirror of the application's own menus must look like: hidden and untitled items and trailing blanks gone, "-"
// a separator, runs of equal titles reduced to their first item except in a menu titled "Window", of several items of
// one title only the first with its submenu.
Menu mirrorOf(const Menu& applicationMenu);

// How many items a tree has, all levels.
std::size_t countItems(const Menu& menu);

// One sentence for each difference between the two trees; empty when they are alike.
std::vector<std::string> differences(const Menu& expected, const Menu& actual);

// The titles of one level, "-" for a separator.
std::vector<std::string> titlesOf(const Menu& menu);

// Follows the titles down; nullptr when one is missing.
const MenuRecord* itemAtPath(const Menu& menu, const std::vector<std::string>& titles);

} // namespace tarragon::e2e
