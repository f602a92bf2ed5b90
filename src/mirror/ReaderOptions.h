#pragma once

namespace tarragon {

// What the menu reader shows of an application's menus.
struct ReaderOptions {
    // Keep the menu titled "Apple", under its mark.
    bool showAppleMenu = false;
    // Keep the application's own menus.
    bool showApplicationMenu = true;
    // Nothing uses it yet.
    bool showRecentSelections = false;
    // Mark alternate items, so that the menu shows them only with their modifiers held.
    bool foldAlternateItems = false;
    // Copy the key equivalents.
    bool keyEquivalents = false;
};

} // namespace tarragon
