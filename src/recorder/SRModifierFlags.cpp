#include "recorder/SRModifierFlags.h"

namespace tarragon {

std::string stringForCocoaModifierFlags(std::uint32_t cocoaFlags) {
    std::string glyphs;
    if (cocoaFlags & cocoa::ControlKeyMask)
        glyphs += "\u2303";
    if (cocoaFlags & cocoa::AlternateKeyMask)
        glyphs += "\u2325";
    if (cocoaFlags & cocoa::ShiftKeyMask)
        glyphs += "\u21E7";
    if (cocoaFlags & cocoa::CommandKeyMask)
        glyphs += "\u2318";
    return glyphs;
}

std::string stringForCarbonModifierFlags(std::uint32_t carbonFlags) {
    return stringForCocoaModifierFlags(carbonToCocoaFlags(carbonFlags));
}

std::string readableStringForCarbonModifierFlags(std::uint32_t carbonFlags, std::string_view keyName) {
    std::string text;
    if (carbonFlags & hotkey::CommandKey)
        text += "Command + ";
    if (carbonFlags & hotkey::OptionKey)
        text += "Option + ";
    if (carbonFlags & hotkey::ControlKey)
        text += "Control + ";
    if (carbonFlags & hotkey::ShiftKey)
        text += "Shift + ";
    return text.append(keyName);
}

} // namespace tarragon
