#include "recorder/SRKeyCodeTransformer.h"

#include "platform/UnicodeText.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

constexpr std::int64_t LastKeyCode = 127;

const std::unordered_map<std::int16_t, std::string>& keyNames() {
    static const std::unordered_map<std::int16_t, std::string> names{
        {122, "F1"}, {120, "F2"}, {99, "F3"}, {118, "F4"}, {96, "F5"}, {97, "F6"}, {98, "F7"}, {100, "F8"}, {101, "F9"},
        {109, "F10"}, {103, "F11"}, {111, "F12"}, {105, "F13"}, {107, "F14"}, {113, "F15"}, {106, "F16"}, {64, "F17"},
        {79, "F18"}, {80, "F19"}, {49, "Space"}, {51, "\u232B"}, // delete
        {117, "\u2326"}, // forward delete
        {71, "\u2327"}, // clear
        {123, "\u2190"}, // left arrow
        {124, "\u2192"}, // right arrow
        {126, "\u2191"}, // up arrow
        {125, "\u2193"}, // down arrow
        {119, "\u2198"}, // end
        {115, "\u2196"}, // home
        {53, "\u238B"}, // escape
        {121, "\u21DF"}, // page down
        {116, "\u21DE"}, // page up
        {36, "\u21A9"}, // return
        {76, "\u2305"}, // enter
        {48, "\u21E5"}, // tab
        {114, "?"}, // help
    };
    return names;
}

bool isKeypadKeyCode(std::int16_t keyCode) {
    constexpr std::array<std::int16_t, 16> KeypadKeyCodes{
        65, 67, 69, 75, 78, 81, 82, 83, 84, 85, 86, 87, 88, 89, 91, 92};
    return std::find(KeypadKeyCodes.begin(), KeypadKeyCodes.end(), keyCode) != KeypadKeyCodes.end();
}

} // namespace

SRKeyCodeTransformer::SRKeyCodeTransformer(Keyboard& keyboard)
    : _keyboard(keyboard) {
    regenerateStringToKeyCodeMapping();
}

std::optional<std::string> SRKeyCodeTransformer::transformedValue(std::optional<std::int64_t> keyCode) const {
    if (!keyCode)
        return std::nullopt;
    const auto code = static_cast<std::int16_t>(*keyCode);
    if (code < 0)
        return std::nullopt;
    const auto named = keyNames().find(code);
    if (named != keyNames().end())
        return named->second;

    const std::optional<std::string> typed = _keyboard.translateKeyCode(static_cast<std::uint16_t>(code));
    const std::u32string characters = charactersOf(typed.value_or(""));
    if (characters.empty())
        return std::nullopt;
    std::string name = uppercaseText(utf8Text(std::u32string_view(characters).substr(0, 1)));
    return isKeypadKeyCode(code) ? "Pad " + name : name;
}

std::optional<std::int64_t> SRKeyCodeTransformer::reverseTransformedValue(
    const std::optional<std::string>& name) const {
    const auto found = name ? _keyCodesByName.find(*name) : _keyCodesByName.end();
    return found == _keyCodesByName.end() ? std::nullopt : std::optional(found->second);
}

void SRKeyCodeTransformer::regenerateStringToKeyCodeMapping() {
    _keyCodesByName.clear();
    for (std::int64_t keyCode = 0; keyCode <= LastKeyCode; ++keyCode) {
        const std::optional<std::string> name = transformedValue(keyCode);
        if (name && !name->empty())
            _keyCodesByName.insert_or_assign(*name, keyCode);
    }
}

} // namespace tarragon
