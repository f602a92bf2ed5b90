#pragma once

#include "platform/Value.h"

#include <optional>
#include <string>

namespace tarragon {

// Points, sizes, rectangles and ranges as text, "x=1 y=2" or "<AXPointValue x=1 y=2>"; nothing for every other value.
std::optional<std::string> structuredValueText(const Value& value, bool beingVerbose);

// The value of the terse text, of the same kind as the present value. Numbers that the text does not give, from the
// first that is missing, keep their present values. Nothing when the present value is no structured one.
[[nodiscard]] std::optional<Value> structuredValueFromText(const std::string& text, const Value& present);

} // namespace tarragon
