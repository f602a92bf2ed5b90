#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The system's own virtual key codes, 0 to 127, name keys by their position on the keyboard: 0 is the key right of Caps
// Lock whatever the layout prints on it, 49 the space bar. X servers on Linux name the same positions by the kernel's
// key numbers plus 8.
namespace tarragon {

// 0 when no key of such keyboards stands there.
std::uint8_t x11KeyCode(std::uint32_t virtualKeyCode);
// Nothing for keys that have no virtual key code, such as most multimedia keys.
std::optional<std::uint32_t> virtualKeyCode(std::uint8_t x11KeyCode);
// What the key is called on a US keyboard, for messages: "A", "Space", "F4", "KP_Enter". Empty when it has no name
// there. Main thread only.
std::string keyName(std::uint32_t virtualKeyCode);

} // namespace tarragon
