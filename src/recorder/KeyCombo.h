#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarragon {

class SRKeyCodeTransformer;

// What a recorder holds: a key and modifiers.
struct KeyCombo {
    std::int16_t code = -1; // virtual key code; negative for no key
    std::uint32_t flags = 0; // Cocoa flags
    bool isEmpty() const { return code < 0; }
    bool operator==(const KeyCombo&) const = default;
};

// The combination as it is shown: the modifiers' glyphs and the key's name. Nothing for an empty one.
std::optional<std::string> keyComboString(const KeyCombo& combination, const SRKeyCodeTransformer& transformer);

} // namespace tarragon
