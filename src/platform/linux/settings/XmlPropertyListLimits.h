#pragma once

#include <string_view>

namespace tarragon {

// The library that reads the XML form of property lists walks down a tree by calling itself: a small file of nothing
// but containers could use up the stack. True for what looks like XML without such a danger; false for anything else.
[[nodiscard]] bool isXmlPropertyListWithinReason(std::string_view contents);

} // namespace tarragon
