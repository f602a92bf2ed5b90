#pragma once

#include "platform/ModifierFlags.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarragon {

// What the recorder accepts and requires unless it is told otherwise, as Cocoa flags.
inline constexpr std::uint32_t DefaultAllowedFlags =
    modifier::Shift | modifier::Control | modifier::Option | modifier::Command | modifier::Function;
inline constexpr std::uint32_t DefaultRequiredFlags = 0;

// The modifiers' glyphs: Control, Option, Shift, Command.
std::string stringForCocoaModifierFlags(std::uint32_t cocoaFlags);
std::string stringForCarbonModifierFlags(std::uint32_t carbonFlags);

// The modifiers in words and the key, for messages: "Command + Option + Control + Shift + K".
std::string readableStringForCarbonModifierFlags(std::uint32_t carbonFlags, std::string_view keyName);

} // namespace tarragon
