#include "fake/FakeElement.h"

namespace tarragon {

bool FakeElement::equals(const ElementHandle& other) const {
    const auto* fake = dynamic_cast<const FakeElement*>(&other);
    return fake && fake->_identifier == _identifier;
}

Element FakeElement::make(std::int64_t identifier) {
    return Element(std::make_shared<const FakeElement>(identifier));
}

std::int64_t FakeElement::identifierOf(const Element& element) {
    const auto* fake = dynamic_cast<const FakeElement*>(element.handle());
    return fake ? fake->_identifier : 0;
}

} // namespace tarragon
