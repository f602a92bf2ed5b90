#include "mirror/ShortcutText.h"

#include "mirror/MenuItem.h"
#include "platform/UnicodeText.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

struct ModifierName {
    std::uint32_t bit;
    std::string_view name;
};

// In the order in which they are shown. Command is the key that says Ctrl here, and Control the one that says Super.
constexpr std::array<ModifierName, 4> ModifierNames{{
    {modifier::Control, "Super"},
    {modifier::Command, "Ctrl"},
    {modifier::Option, "Alt"},
    {modifier::Shift, "Shift"},
}};

struct KeyName {
    char32_t character;
    std::string_view name;
};

// Keys that have no character of their own. Menus name them by control characters and by numbers for private use.
constexpr std::array<KeyName, 18> KeyNames{{
    {0x0003, "Enter"},
    {0x0008, "Backspace"},
    {0x0009, "Tab"},
    {0x000A, "Return"},
    {0x000D, "Return"},
    {0x001B, "Esc"},
    {0x0020, "Space"},
    {0x007F, "Delete"},
    {0xF700, "Up"},
    {0xF701, "Down"},
    {0xF702, "Left"},
    {0xF703, "Right"},
    {0xF727, "Insert"},
    {0xF728, "Delete"},
    {0xF729, "Home"},
    {0xF72B, "End"},
    {0xF72C, "Page Up"},
    {0xF72D, "Page Down"},
}};

constexpr char32_t FirstFunctionKey = 0xF704; // F1
constexpr char32_t LastFunctionKey = 0xF726; // F35

bool isControlCharacter(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Empty for a control character without a name.
std::string keyAsShown(std::string_view keyEquivalent) {
    const std::u32string characters = charactersOf(keyEquivalent);
    if (characters.size() == 1) {
        const char32_t character = characters.front();
        const auto* const key = std::find_if(KeyNames.begin(), KeyNames.end(),
            [character](const KeyName& candidate) { return candidate.character == character; });
        if (key != KeyNames.end())
            return std::string(key->name);
        if (character >= FirstFunctionKey && character <= LastFunctionKey)
            return "F" + std::to_string(character - FirstFunctionKey + 1);
    }
    if (std::any_of(characters.begin(), characters.end(), isControlCharacter))
        return {};
    return uppercaseText(keyEquivalent);
}

} // namespace

std::string shortcutAsShown(const MenuItem& item) {
    if (!item.shortcutText().empty())
        return wellFormedText(item.shortcutText());
    return shortcutAsShown(item.keyEquivalent(), item.keyEquivalentModifierMask());
}

std::string shortcutAsShown(std::string_view keyEquivalent, std::uint32_t modifierMask) {
    const std::string key = keyAsShown(keyEquivalent);
    if (key.empty())
        return {};
    std::string text;
    for (const ModifierName& modifierName : ModifierNames) {
        if (modifierMask & modifierName.bit) {
            text += modifierName.name;
            text += '+';
        }
    }
    return text + key;
}

} // namespace tarragon
