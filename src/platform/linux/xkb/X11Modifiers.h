#pragma once

#include "platform/linux/xkb/X11KeyboardMapping.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

// The bits of a key event's state that stand for the modifiers. Shift and Control have theirs for good; which bits the
// others have is up to the keyboard mapping.
struct X11Modifiers {
    std::uint16_t alt = 0;
    std::uint16_t super = 0;
    // Every combination of the locks that may be on while a key is pressed, none of them included.
    std::vector<std::uint16_t> lockCombinations;
    bool operator==(const X11Modifiers&) const = default;

    // The bits for the modifiers of a hot key.
    std::uint16_t bitsOfHotKey(std::uint32_t hotKeyModifiers) const;
    // The modifiers, bits of hotkey::, that are held in the state of a key event.
    std::uint32_t hotKeyModifiersOf(std::uint16_t state) const;
    // The state of a key event without locks, pointer buttons and keyboard layout.
    std::uint16_t withoutLocks(std::uint16_t state) const;
};

// Alt is Mod1 and Super Mod4 where the mapping names neither.
X11Modifiers modifiersOfMapping(const X11KeyboardMapping& mapping);

// "Ctrl+Alt+Super+Shift+Space", for messages.
std::string nameOfHotKey(std::uint32_t virtualKeyCode, std::uint32_t hotKeyModifiers);

} // namespace tarragon
