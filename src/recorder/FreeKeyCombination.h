#pragma once

#include "recorder/KeyCombo.h"

#include <optional>

namespace tarragon {

class Keyboard;
class SRKeyCodeTransformer;

// A combination for opening the menus that nobody has on this desktop: the first that is free of a fixed list of
// candidates that are easy to press; nothing when none is, or when the desktop does not tell. Asks the desktop once.
[[nodiscard]] std::optional<KeyCombo> freeKeyCombination(Keyboard& keyboard, const SRKeyCodeTransformer& transformer);

} // namespace tarragon
