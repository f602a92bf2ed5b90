#pragma once

#include <string_view>

namespace tarragon {

// The library that reads property lists walks down a tree by calling itself, and makes a value anew for every reference
// to it: small files of nothing but containers could use up the stack or the memory. True for an XML or binary property
// list without such a danger; false for anything else.
bool isPropertyListWithinReason(std::string_view contents);

} // namespace tarragon
