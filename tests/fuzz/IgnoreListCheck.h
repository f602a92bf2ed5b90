#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tarragon {

// What must hold for the ignore list whatever bytes are stored for it: asking about a window ends in an answer, and an
// ignore action leaves a list that can be read, that ignores the window, and that holds what it held of others. The
// answer says what does not hold; empty when all of it does.
[[nodiscard]] std::string complaintAboutIgnoreList(std::span<const std::uint8_t> storedList);

} // namespace tarragon
