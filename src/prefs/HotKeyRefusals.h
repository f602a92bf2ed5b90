#pragma once

#include "recorder/KeyCombo.h"

#include <optional>
#include <string>

namespace tarragon {

class Defaults;
class HotKeys;
class Keyboard;

// The combination of keys that is set; empty when there is none.
KeyCombo hotKeyOfDefaults(Defaults& defaults);
// The same when it is to open the menus and the desktop keeps it for itself; nothing otherwise.
std::optional<KeyCombo> refusedHotKey(Defaults& defaults, const HotKeys& hotKeys);

// The combination as people say it. nullptr for a desktop without a keyboard that can be asked: the key has no name
// then.
std::string wordsForKeyCombo(const KeyCombo& combination, Keyboard* keyboard);

} // namespace tarragon
