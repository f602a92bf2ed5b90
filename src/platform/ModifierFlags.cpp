#include "platform/ModifierFlags.h"

#include <array>

namespace tarragon {

namespace {

struct Modifier {
    std::uint32_t cocoa;
    std::uint32_t carbon;
};

constexpr std::array<Modifier, 5> AllModifiers{{{modifier::Command, hotkey::CommandKey},
    {modifier::Option, hotkey::OptionKey}, {modifier::Control, hotkey::ControlKey}, {modifier::Shift, hotkey::ShiftKey},
    {modifier::Function, modifier::Function}}};

} // namespace

std::uint32_t carbonToCocoaFlags(std::uint32_t carbonFlags) {
    std::uint32_t flags = 0;
    for (const Modifier& each : AllModifiers) {
        if (carbonFlags & each.carbon)
            flags |= each.cocoa;
    }
    return flags;
}

std::uint32_t cocoaToCarbonFlags(std::uint32_t cocoaFlags) {
    std::uint32_t flags = 0;
    for (const Modifier& each : AllModifiers) {
        if (cocoaFlags & each.cocoa)
            flags |= each.carbon;
    }
    return flags;
}

} // namespace tarragon
