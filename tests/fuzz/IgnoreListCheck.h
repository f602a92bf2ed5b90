#pragma once

#include <cstdint>
#include <span>

namespace tarragon {

// What must hold for the ignore list whatever bytes are stored for it: asking about a window ends in an answer, and an
// ignore action leaves a list that can be read and that ignores the window. Aborts when it does not hold.
void checkIgnoreListSurvives(std::span<const std::uint8_t> storedList);

} // namespace tarragon
