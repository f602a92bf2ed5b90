#include "platform/linux/AtspiElement.h"

namespace tarragon {

bool AtspiElement::equals(const ElementHandle& other) const {
    const auto* element = dynamic_cast<const AtspiElement*>(&other);
    if (element == nullptr || element->kind != kind)
        return false;
    switch (kind) {
    case Kind::SystemWide:
        return true;
    case Kind::Application:
        return element->processIdentifier == processIdentifier && (processIdentifier != 0 || element->window == window);
    case Kind::Window:
        return element->window == window;
    case Kind::Node:
    case Kind::ItemMenu:
        return element->busIdentity == busIdentity && element->reference == reference;
    }
    return false;
}

const AtspiElement* AtspiElement::of(const Element& element) {
    return dynamic_cast<const AtspiElement*>(element.handle());
}

} // namespace tarragon
