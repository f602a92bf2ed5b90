#include "platform/linux/accessibletree/MenuShortcut.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace tarragon {

namespace {

using Names = std::pair<std::string_view, std::string_view>;

// Names of keys in the toolkits, and as users know them. Compared without case.
constexpr std::array KeyNames = std::to_array<Names>({
    {"page_up", "Page Up"},
    {"prior", "Page Up"},
    {"pgup", "Page Up"},
    {"page_down", "Page Down"},
    {"next", "Page Down"},
    {"pgdown", "Page Down"},
    {"pgdn", "Page Down"},
    {"delete", "Del"},
    {"del", "Del"},
    {"insert", "Ins"},
    {"ins", "Ins"},
    {"return", "Return"},
    {"enter", "Enter"},
    {"escape", "Esc"},
    {"esc", "Esc"},
    {"backspace", "Backspace"},
    {"tab", "Tab"},
    {"iso_left_tab", "Tab"},
    {"backtab", "Tab"},
    {"space", "Space"},
    {"up", "Up"},
    {"down", "Down"},
    {"left", "Left"},
    {"right", "Right"},
    {"home", "Home"},
    {"end", "End"},
    {"print", "Print"},
    {"pause", "Pause"},
    {"menu", "Menu"},
    {"plus", "+"},
    {"minus", "-"},
    {"equal", "="},
    {"comma", ","},
    {"period", "."},
    {"slash", "/"},
    {"backslash", "\\"},
    {"semicolon", ";"},
    {"colon", ":"},
    {"apostrophe", "'"},
    {"quotedbl", "\""},
    {"bracketleft", "["},
    {"bracketright", "]"},
    {"braceleft", "{"},
    {"braceright", "}"},
    {"parenleft", "("},
    {"parenright", ")"},
    {"grave", "`"},
    {"asciitilde", "~"},
    {"asciicircum", "^"},
    {"exclam", "!"},
    {"at", "@"},
    {"numbersign", "#"},
    {"dollar", "$"},
    {"percent", "%"},
    {"ampersand", "&"},
    {"asterisk", "*"},
    {"underscore", "_"},
    {"bar", "|"},
    {"less", "<"},
    {"greater", ">"},
    {"question", "?"},
    {"add", "+"},
    {"subtract", "-"},
    {"multiply", "*"},
    {"divide", "/"},
    {"decimal", "."},
});

// The codes that menus draw keys with; they are what the mirror's glyph table knows.
constexpr std::array Glyphs = std::to_array<std::pair<std::string_view, std::int64_t>>({
    {"Backspace", 23},
    {"Esc", 27},
    {"Space", 32},
    {"Home", 102},
    {"End", 105},
    {"Return", 11},
    {"Enter", 11},
    {"Page Up", 98},
    {"Page Down", 107},
    {"Down", 106},
    {"Up", 104},
    {"Right", 101},
    {"Left", 100},
});
constexpr std::int64_t GlyphOfF1 = 111;
constexpr int LastFunctionKeyWithGlyph = 13;

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(
        result, result.begin(), [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return result;
}

// The number of bytes of the first UTF-8 character, 0 for none.
std::size_t firstCharacterLength(std::string_view text) {
    if (text.empty())
        return 0;
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

bool isOneCharacter(std::string_view text) {
    return !text.empty() && firstCharacterLength(text) == text.size();
}

// 1 for "F1"; 0 for anything but a function key.
int functionKeyNumber(std::string_view key) {
    if (key.size() < 2 || key.size() > 3 || (key[0] != 'F' && key[0] != 'f'))
        return 0;
    int number = 0;
    for (const char digit : key.substr(1)) {
        if (digit < '0' || digit > '9')
            return 0;
        number = number * 10 + (digit - '0');
    }
    return number;
}

std::string keyForPeople(std::string_view key) {
    if (isOneCharacter(key)) {
        std::string result(key);
        if (result.size() == 1)
            result[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(result[0])));
        return result;
    }
    if (functionKeyNumber(key) > 0)
        return "F" + std::string(key.substr(1));
    std::string name = lowerCase(key);
    if (name.starts_with("kp_")) {
        name = name.substr(3);
        key = key.substr(3);
        if (isOneCharacter(key))
            return std::string(key);
    }
    const auto* found = std::ranges::find(KeyNames, name, &Names::first);
    if (found != KeyNames.end())
        return std::string(found->second);
    if (name.starts_with("xf86"))
        key = key.substr(4);
    std::string result(key);
    std::ranges::replace(result, '_', ' ');
    return result;
}

std::string textOf(const MenuShortcut& shortcut) {
    std::string text;
    if (shortcut.super)
        text += "Super+";
    if (shortcut.control)
        text += "Ctrl+";
    if (shortcut.alt)
        text += "Alt+";
    if (shortcut.shift)
        text += "Shift+";
    return text + shortcut.key;
}

// False when it is no modifier that we know.
bool setModifier(MenuShortcut& shortcut, std::string_view name) {
    const std::string modifier = lowerCase(name);
    if (modifier == "primary" || modifier == "control" || modifier == "ctrl" || modifier == "ctl" || modifier == "strg")
        shortcut.control = true;
    else if (modifier == "alt" || modifier == "mod1" || modifier == "option")
        shortcut.alt = true;
    else if (modifier == "shift" || modifier == "shft" || modifier == "umschalt")
        shortcut.shift = true;
    else if (modifier == "super" || modifier == "meta" || modifier == "mod4" || modifier == "win")
        shortcut.super = true;
    else
        return false;
    return true;
}

// "<Primary><Shift>n"
std::optional<MenuShortcut> fromAngleBrackets(std::string_view accelerator) {
    if (accelerator.empty())
        return {};
    MenuShortcut shortcut;
    std::string_view rest = accelerator;
    bool understood = true;
    while (rest.starts_with('<') && rest.size() > 1) {
        const std::size_t end = rest.find('>');
        if (end == std::string_view::npos)
            break;
        understood = setModifier(shortcut, rest.substr(1, end - 1)) && understood;
        rest.remove_prefix(end + 1);
    }
    if (rest.empty())
        return {};
    if (!understood) {
        shortcut = {};
        shortcut.text = accelerator;
        return shortcut;
    }
    shortcut.key = keyForPeople(rest);
    shortcut.text = textOf(shortcut);
    return shortcut;
}

// "Ctrl+Shift+N"; the key may be "+" itself.
std::optional<MenuShortcut> fromPlusSigns(std::string_view accelerator, std::string_view title) {
    if (accelerator.empty())
        return {};
    MenuShortcut shortcut;
    std::string_view rest = accelerator;
    bool understood = true;
    while (true) {
        const std::size_t plus = rest.find('+', 1);
        if (plus == std::string_view::npos || plus + 1 >= rest.size())
            break;
        const std::string_view part = rest.substr(0, plus);
        understood = (setModifier(shortcut, part) || part == "Num") && understood;
        rest.remove_prefix(plus + 1);
    }
    const bool hasSeveralSteps = rest.size() > 1 && accelerator.find(", ") != std::string_view::npos;
    if (!understood || hasSeveralSteps) {
        shortcut = {};
        shortcut.text = accelerator;
        return shortcut;
    }
    const bool onlyAlt = shortcut.alt && !shortcut.control && !shortcut.shift && !shortcut.super;
    if (onlyAlt && isOneCharacter(rest) && lowerCase(title).find(lowerCase(rest)) != std::string::npos)
        return {};
    if (lowerCase(rest) == "backtab")
        shortcut.shift = true;
    shortcut.key = keyForPeople(rest);
    shortcut.text = textOf(shortcut);
    return shortcut;
}

} // namespace

std::optional<MenuShortcut> MenuShortcut::fromKeyBinding(std::string_view keyBinding, std::string_view title) {
    const std::size_t first = keyBinding.find(';');
    const std::size_t second = first != std::string_view::npos ? keyBinding.find(';', first + 1) : first;
    if (second != std::string_view::npos)
        return fromAngleBrackets(keyBinding.substr(second + 1));
    if (keyBinding.starts_with('<') && keyBinding.size() > 1)
        return fromAngleBrackets(keyBinding);
    return fromPlusSigns(keyBinding, title);
}

std::optional<std::string> MenuShortcut::commandCharacter() const {
    if (!isOneCharacter(key))
        return {};
    return key;
}

std::optional<std::int64_t> MenuShortcut::commandGlyph() const {
    const auto* found = std::ranges::find(Glyphs, key, &std::pair<std::string_view, std::int64_t>::first);
    if (found != Glyphs.end())
        return found->second;
    const int number = functionKeyNumber(key);
    if (number >= 1 && number <= LastFunctionKeyWithGlyph)
        return GlyphOfF1 + number - 1;
    return {};
}

std::optional<std::int64_t> MenuShortcut::commandModifiers() const {
    if (key.empty())
        return {};
    std::int64_t code = 0;
    if (shift)
        code |= 1;
    if (alt)
        code |= 2;
    if (super)
        code |= 4;
    if (!control)
        code |= 8;
    return code;
}

} // namespace tarragon
