#pragma once

#include <chrono>
#include <cstddef>

namespace tarragon {

// The peer: a plain synchronous walk with the desktop's own reading library, which reads of each item what the mirror
// reads (name, role, states, shortcut, children), one call after the other, with the library's cache off.

// Items read of the whole menu bar of the process's first window; 0 when it has none.
std::size_t walkWholeMenuBar(int processIdentifier);

// Items read of one top-level menu, by its position in the menu bar. The walk stops where it is when the time is up.
std::size_t walkOneMenu(int processIdentifier, int position, std::chrono::seconds limit = std::chrono::hours(1));

} // namespace tarragon
