#include "recorder/KeyComboWords.h"

#include "platform/ModifierFlags.h"
#include "platform/Texts.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarragon {

namespace {

struct KeyWord {
    std::int16_t keyCode;
    const char* source;
};

// Keys whose names are glyphs that few keyboards here have printed on them.
constexpr std::array<KeyWord, 17> KeyWords{{
    {36, sourceText("KeyComboWords", "Return")},
    {48, sourceText("KeyComboWords", "Tab")},
    {49, sourceText("KeyComboWords", "Space")},
    {51, sourceText("KeyComboWords", "Backspace")},
    {53, sourceText("KeyComboWords", "Escape")},
    {71, sourceText("KeyComboWords", "Clear")},
    {76, sourceText("KeyComboWords", "Enter")},
    {114, sourceText("KeyComboWords", "Help")},
    {115, sourceText("KeyComboWords", "Home")},
    {116, sourceText("KeyComboWords", "Page Up")},
    {117, sourceText("KeyComboWords", "Delete")},
    {119, sourceText("KeyComboWords", "End")},
    {121, sourceText("KeyComboWords", "Page Down")},
    {123, sourceText("KeyComboWords", "Left")},
    {124, sourceText("KeyComboWords", "Right")},
    {125, sourceText("KeyComboWords", "Down")},
    {126, sourceText("KeyComboWords", "Up")},
}};

constexpr std::string_view KeypadPrefix = "Pad ";

} // namespace

std::string modifierWords(std::uint32_t cocoaFlags) {
    std::string words;
    if (cocoaFlags & modifier::Command)
        words += translated("KeyComboWords", "Command+");
    if (cocoaFlags & modifier::Option)
        words += translated("KeyComboWords", "Option+");
    if (cocoaFlags & modifier::Control)
        words += translated("KeyComboWords", "Control+");
    if (cocoaFlags & modifier::Shift)
        words += translated("KeyComboWords", "Shift+");
    return words;
}

std::string keyWord(std::int16_t keyCode, const SRKeyCodeTransformer& transformer) {
    const auto* const word = std::find_if(
        KeyWords.begin(), KeyWords.end(), [keyCode](const KeyWord& candidate) { return candidate.keyCode == keyCode; });
    if (word != KeyWords.end())
        return translated("KeyComboWords", word->source);
    std::string name = transformer.transformedValue(keyCode).value_or("");
    if (!name.starts_with(KeypadPrefix))
        return name;
    return withArguments(translated("KeyComboWords", "Pad %@"), {std::string_view(name).substr(KeypadPrefix.size())});
}

std::string keyComboWords(const KeyCombo& combination, const SRKeyCodeTransformer& transformer) {
    return combination.isEmpty() ? std::string()
                                 : modifierWords(combination.flags) + keyWord(combination.code, transformer);
}

std::vector<std::string> longKeyWords() {
    std::vector<std::string> words;
    words.reserve(KeyWords.size() + 1);
    for (const KeyWord& word : KeyWords)
        words.push_back(translated("KeyComboWords", word.source));
    words.push_back(withArguments(translated("KeyComboWords", "Pad %@"), {"5"}));
    return words;
}

} // namespace tarragon
