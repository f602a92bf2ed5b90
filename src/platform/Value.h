#pragma once

#include "platform/Element.h"
#include "platform/Geometry.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tarragon {

// The value of one attribute of an element. Strings are UTF-8. std::monostate is nil: the attribute is absent, could
// not be read, or has no value.
using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Point, Size, Rect, Range, Element,
    std::vector<Element>>;

inline bool isNil(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

// The value as a T, or nullptr when it is of another kind.
template <typename T>
const T* valueAs(const Value& value) {
    return std::get_if<T>(&value);
}

} // namespace tarragon
