#pragma once

#include "recorder/KeyCombo.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

class SRKeyCodeTransformer;

// A combination in the words that stand on the keys, where keyComboString has glyphs. Translated. Main thread only.

// "Alt+Shift+", for Cocoa flags; empty without modifiers.
std::string modifierWords(std::uint32_t cocoaFlags);
// "Page Down", "K", "Pad 5"; empty for a key that has no name in the current layout.
std::string keyWord(std::int16_t keyCode, const SRKeyCodeTransformer& transformer);
// "Alt+Page Down"; empty for an empty combination.
std::string keyComboWords(const KeyCombo& combination, const SRKeyCodeTransformer& transformer);

// The words of all keys that have more than a character, for those who need to know how long they get.
std::vector<std::string> longKeyWords();

} // namespace tarragon
