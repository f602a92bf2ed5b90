#pragma once

#include <cstdint>

namespace tarragon {

// Converts the stored modifier flags of a hot key (Shift 0x20000, Control 0x40000, Option 0x80000, Command 0x100000)
// into the modifier bits of a registration. All other flags are dropped.
std::uint32_t carbonModifiersFromCocoaFlags(std::int64_t flags);

} // namespace tarragon
