#include "prefs/HotKeyRefusals.h"

#include "platform/Defaults.h"
#include "platform/HotKeys.h"
#include "platform/Keyboard.h"
#include "platform/PreferenceKeys.h"
#include "recorder/KeyComboWords.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <limits>

namespace tarragon {

KeyCombo hotKeyOfDefaults(Defaults& defaults) {
    const std::int64_t keyCode = integerValue(defaults.value(preference::TriggerCharacterUInt));
    if (keyCode < 0 || keyCode > std::numeric_limits<std::int16_t>::max())
        return {};
    return {static_cast<std::int16_t>(keyCode),
        static_cast<std::uint32_t>(integerValue(defaults.value(preference::TriggerModifiers)))};
}

std::optional<KeyCombo> refusedHotKey(Defaults& defaults, const HotKeys& hotKeys) {
    if (!hotKeys.isRefused() || !boolValue(defaults.value(preference::EnableHotkey)))
        return std::nullopt;
    const KeyCombo combination = hotKeyOfDefaults(defaults);
    // Nobody wonders why no keys do nothing.
    return combination.isEmpty() ? std::nullopt : std::optional(combination);
}

std::string wordsForKeyCombo(const KeyCombo& combination, Keyboard* keyboard) {
    return keyboard == nullptr ? modifierWords(combination.flags)
                               : keyComboWords(combination, SRKeyCodeTransformer(*keyboard));
}

} // namespace tarragon
