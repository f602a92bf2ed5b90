#pragma once

#include "platform/Element.h"

#include <cstdint>

namespace tarragon {

// The handle of an element that lives in a FakeAccessibility. Two handles are equal when they carry the same number.
class FakeElement : public ElementHandle {
public:
    explicit FakeElement(std::int64_t identifier)
        : _identifier(identifier) { }

    std::int64_t identifier() const { return _identifier; }
    bool equals(const ElementHandle& other) const override;

    static Element make(std::int64_t identifier);
    // 0 for nil and for the elements of other back ends.
    static std::int64_t identifierOf(const Element& element);

private:
    std::int64_t _identifier;
};

} // namespace tarragon
