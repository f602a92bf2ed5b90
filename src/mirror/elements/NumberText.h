#pragma once

#include <string>

namespace tarragon {

// Numbers as text, whatever the user's language.

// Six significant digits, in the shorter of the plain and the scientific notation: 0.5, 1e+06.
std::string shortNumberText(double number);

// The fewest digits that read back as the very same number. Scientific from 1e+16 on and below 0.0001: 100000, 0.1,
// 1e+21.
std::string exactNumberText(double number);

} // namespace tarragon
