#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarragon {

// The shortcut of a menu item of another application, as far as it can be expressed.
struct MenuShortcut {
    bool super = false;
    bool control = false;
    bool alt = false;
    bool shift = false;
    // As users know it: "S", "F11", "Page Up". Empty for shortcuts that cannot be taken apart, such as two-step ones.
    std::string key;
    // Ready to be shown: "Ctrl+Shift+S"; for a shortcut that cannot be taken apart, what the application says.
    std::string text;

    // Reads what applications tell with a menu item's action: "n;<Alt>f:n;<Primary>n" (mnemonic, path, shortcut), a
    // bare "<Primary>n", or "Ctrl+N". Nothing when there is no shortcut. A bare "Alt" and one character that the
    // item's title holds is a mnemonic and no shortcut.
    static std::optional<MenuShortcut> fromKeyBinding(std::string_view keyBinding, std::string_view title);

    // One upper-case character, when the key is a character.
    std::optional<std::string> commandCharacter() const;
    // The menu glyph code of a key that is no character, when it has one.
    std::optional<std::int64_t> commandGlyph() const;
    // 1 Shift, 2 Option, 4 Control, 8 no Command. Ctrl stands for Command, Alt for Option, Super for Control.
    std::optional<std::int64_t> commandModifiers() const;
};

} // namespace tarragon
