#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarragon {

// Modifier flags come in two conventions: the bits of Cocoa flags below (those of modifier:: and the Function key), and
// the Carbon bits of hotkey::. The Function bit is the same in both.
namespace cocoa {
inline constexpr std::uint32_t ShiftKeyMask = 0x20000;
inline constexpr std::uint32_t ControlKeyMask = 0x40000;
inline constexpr std::uint32_t AlternateKeyMask = 0x80000;
inline constexpr std::uint32_t CommandKeyMask = 0x100000;
inline constexpr std::uint32_t FunctionKeyMask = 0x800000;
} // namespace cocoa

// What the recorder accepts and requires unless it is told otherwise, as Cocoa flags.
inline constexpr std::uint32_t DefaultAllowedFlags = 0x9E0000;
inline constexpr std::uint32_t DefaultRequiredFlags = 0;

// Bits that mean nothing in the other convention are dropped.
std::uint32_t carbonToCocoaFlags(std::uint32_t carbonFlags);
std::uint32_t cocoaToCarbonFlags(std::uint32_t cocoaFlags);

// The modifiers' glyphs: Control, Option, Shift, Command.
std::string stringForCocoaModifierFlags(std::uint32_t cocoaFlags);
std::string stringForCarbonModifierFlags(std::uint32_t carbonFlags);

// The modifiers in words and the key, for messages: "Command + Option + Control + Shift + K".
std::string readableStringForCarbonModifierFlags(std::uint32_t carbonFlags, std::string_view keyName);

} // namespace tarragon
