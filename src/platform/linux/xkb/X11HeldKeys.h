#pragma once

#include "platform/KeyRecorder.h"
#include "platform/linux/xkb/X11KeyboardMapping.h"
#include "platform/linux/xkb/X11Modifiers.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>

namespace tarragon {

// Follows the keys that are held, and says of key events what they are to people who choose a combination. Keys are X
// key codes; a state is that of the event, and so the one before it.
class X11HeldKeys {
public:
    using Keys = std::bitset<256>;

    // held: the keys that are down already.
    X11HeldKeys(const X11KeyboardMapping& mapping, const Keys& held);

    // Nothing for the repetition of a key that is held.
    [[nodiscard]] std::optional<RecordedKey> press(std::uint8_t keyCode, std::uint16_t state);
    [[nodiscard]] RecordedKey release(std::uint8_t keyCode, std::uint16_t state);

private:
    RecordedKey recorded(std::uint8_t keyCode, std::uint16_t stateAfterwards, bool isPressed) const;

    X11Modifiers _modifiers;
    std::array<std::uint16_t, 256> _modifierBits{}; // what each key adds to the state; 0 for ordinary keys
    Keys _held;
};

} // namespace tarragon
