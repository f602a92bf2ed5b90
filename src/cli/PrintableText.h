#pragma once

#include <string>

namespace tarragon {

// The text with a blank for every control character but the end of a line: titles of other programs must not steer the
// terminal that they are printed on.
std::string printable(const std::string& text);

// The same with blanks for the ends of lines too.
std::string printableLine(const std::string& text);

} // namespace tarragon
