#include "recorder/SRModifierFlags.h"

#include "platform/Texts.h"

namespace tarragon {

std::string stringForCocoaModifierFlags(std::uint32_t cocoaFlags) {
    std::string glyphs;
    if (cocoaFlags & modifier::Control)
        glyphs += "\u2303";
    if (cocoaFlags & modifier::Option)
        glyphs += "\u2325";
    if (cocoaFlags & modifier::Shift)
        glyphs += "\u21E7";
    if (cocoaFlags & modifier::Command)
        glyphs += "\u2318";
    return glyphs;
}

std::string stringForCarbonModifierFlags(std::uint32_t carbonFlags) {
    return stringForCocoaModifierFlags(carbonToCocoaFlags(carbonFlags));
}

std::string readableStringForCarbonModifierFlags(std::uint32_t carbonFlags, std::string_view keyName) {
    std::string text;
    if (carbonFlags & hotkey::CommandKey)
        text += translated("SRModifierFlags", "Command + ");
    if (carbonFlags & hotkey::OptionKey)
        text += translated("SRModifierFlags", "Option + ");
    if (carbonFlags & hotkey::ControlKey)
        text += translated("SRModifierFlags", "Control + ");
    if (carbonFlags & hotkey::ShiftKey)
        text += translated("SRModifierFlags", "Shift + ");
    return text.append(keyName);
}

} // namespace tarragon
