#pragma once

#include <cstdint>
#include <span>

namespace tarragon {

// What must hold whatever the applications on the accessibility bus answer: reading their menus comes to an end, with
// no more elements than there is room for, and everybody's parents end at the application. The bytes decide how each
// question is answered: honestly, with another type, with an error, twice, with bytes that are no message, not at all
// because the connection ends. Aborts when it does not hold.
void checkReaderSurvives(std::span<const std::uint8_t> answers);

} // namespace tarragon
