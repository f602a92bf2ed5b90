#pragma once

#include <cstdint>

namespace tarragon {

// Converts the stored modifier flags of a hot key (Cocoa flags) into the bits of its registration (Carbon bits). Shift,
// Control, Option and Command have such bits; all other flags are dropped.
std::uint32_t carbonModifiersFromCocoaFlags(std::int64_t flags);

} // namespace tarragon
