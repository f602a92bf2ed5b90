#include "recorder/SRModifierFlags.h"

#include "platform/HotKeys.h"

#include <array>

namespace tarragon {

namespace {

struct Modifier {
    std::uint32_t cocoa;
    std::uint32_t carbon;
};

constexpr Modifier Command{cocoa::CommandKeyMask, hotkey::CommandKey};
constexpr Modifier Option{cocoa::AlternateKeyMask, hotkey::OptionKey};
constexpr Modifier Control{cocoa::ControlKeyMask, hotkey::ControlKey};
constexpr Modifier Shift{cocoa::ShiftKeyMask, hotkey::ShiftKey};
constexpr Modifier Function{cocoa::FunctionKeyMask, cocoa::FunctionKeyMask};

constexpr std::array AllModifiers{Command, Option, Control, Shift, Function};

} // namespace

std::uint32_t carbonToCocoaFlags(std::uint32_t carbonFlags) {
    std::uint32_t flags = 0;
    for (const Modifier& modifier : AllModifiers) {
        if (carbonFlags & modifier.carbon)
            flags |= modifier.cocoa;
    }
    return flags;
}

std::uint32_t cocoaToCarbonFlags(std::uint32_t cocoaFlags) {
    std::uint32_t flags = 0;
    for (const Modifier& modifier : AllModifiers) {
        if (cocoaFlags & modifier.cocoa)
            flags |= modifier.carbon;
    }
    return flags;
}

std::string stringForCocoaModifierFlags(std::uint32_t cocoaFlags) {
    std::string glyphs;
    if (cocoaFlags & Control.cocoa)
        glyphs += "\u2303";
    if (cocoaFlags & Option.cocoa)
        glyphs += "\u2325";
    if (cocoaFlags & Shift.cocoa)
        glyphs += "\u21E7";
    if (cocoaFlags & Command.cocoa)
        glyphs += "\u2318";
    return glyphs;
}

std::string stringForCarbonModifierFlags(std::uint32_t carbonFlags) {
    return stringForCocoaModifierFlags(carbonToCocoaFlags(carbonFlags));
}

std::string readableStringForCarbonModifierFlags(std::uint32_t carbonFlags, std::string_view keyName) {
    std::string text;
    if (carbonFlags & Command.carbon)
        text += "Command + ";
    if (carbonFlags & Option.carbon)
        text += "Option + ";
    if (carbonFlags & Control.carbon)
        text += "Control + ";
    if (carbonFlags & Shift.carbon)
        text += "Shift + ";
    return text.append(keyName);
}

} // namespace tarragon
