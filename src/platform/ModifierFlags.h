#pragma once

#include <cstdint>

// Modifiers come in two conventions: Cocoa flags, in settings and in the key equivalents of menu items, and Carbon
// bits, in registrations of hot keys. The Function bit is the same in both.
namespace tarragon {

// Cocoa flags.
namespace modifier {
inline constexpr std::uint32_t Shift = 0x20000;
inline constexpr std::uint32_t Control = 0x40000;
inline constexpr std::uint32_t Option = 0x80000;
inline constexpr std::uint32_t Command = 0x100000;
inline constexpr std::uint32_t Function = 0x800000;
} // namespace modifier

// Carbon bits.
namespace hotkey {
inline constexpr std::uint32_t CommandKey = 0x100;
inline constexpr std::uint32_t ShiftKey = 0x200;
inline constexpr std::uint32_t OptionKey = 0x800;
inline constexpr std::uint32_t ControlKey = 0x1000;
} // namespace hotkey

// Bits that mean nothing in the other convention are dropped.
std::uint32_t carbonToCocoaFlags(std::uint32_t carbonFlags);
std::uint32_t cocoaToCarbonFlags(std::uint32_t cocoaFlags);

} // namespace tarragon
