#include "triggers/HotKeyModifiers.h"

#include "platform/HotKeys.h"

namespace tarragon {

std::uint32_t carbonModifiersFromCocoaFlags(std::int64_t flags) {
    std::uint32_t modifiers = 0;
    if (flags & 0x40000)
        modifiers |= hotkey::ControlKey;
    if (flags & 0x100000)
        modifiers |= hotkey::CommandKey;
    if (flags & 0x20000)
        modifiers |= hotkey::ShiftKey;
    if (flags & 0x80000)
        modifiers |= hotkey::OptionKey;
    return modifiers;
}

} // namespace tarragon
