#include "platform/linux/xkb/X11HeldKeys.h"

#include "platform/ModifierFlags.h"
#include "platform/linux/xkb/KeyCodes.h"

#include <cstddef>

namespace tarragon {

X11HeldKeys::X11HeldKeys(const X11KeyboardMapping& mapping, const Keys& held)
    : _modifiers(modifiersOfMapping(mapping))
    , _held(held) {
    for (std::size_t index = 0; index < mapping.modifierKeyCodes.size(); ++index) {
        const std::uint8_t keyCode = mapping.modifierKeyCodes[index];
        if (keyCode != 0)
            _modifierBits[keyCode] |= static_cast<std::uint16_t>(1U << (index / mapping.keyCodesPerModifier));
    }
}

std::optional<RecordedKey> X11HeldKeys::press(std::uint8_t keyCode, std::uint16_t state) {
    if (_held[keyCode])
        return std::nullopt;
    _held.set(keyCode);
    return recorded(keyCode, state | _modifierBits[keyCode], true);
}

RecordedKey X11HeldKeys::release(std::uint8_t keyCode, std::uint16_t state) {
    _held.reset(keyCode);
    std::uint16_t afterwards = state & ~_modifierBits[keyCode];
    // The same modifier may be held with the key on the other side.
    for (std::size_t other = 0; _modifierBits[keyCode] != 0 && other < _held.size(); ++other) {
        if (_held[other])
            afterwards |= _modifierBits[other];
    }
    return recorded(keyCode, afterwards, false);
}

RecordedKey X11HeldKeys::recorded(std::uint8_t keyCode, std::uint16_t stateAfterwards, bool isPressed) const {
    RecordedKey key;
    key.isPressed = isPressed;
    key.isModifier = _modifierBits[keyCode] != 0;
    key.flags = carbonToCocoaFlags(_modifiers.hotKeyModifiersOf(stateAfterwards));
    if (const auto virtualKey = virtualKeyCode(keyCode); virtualKey && !key.isModifier)
        key.keyCode = static_cast<std::uint16_t>(*virtualKey);
    return key;
}

} // namespace tarragon
