#include "platform/linux/accessibletree/AtspiElement.h"

#include <typeinfo>

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
    const ElementHandle* const handle = element.handle();
    // Every read begins here, and a comparison is enough: nothing can be derived from this class.
    return handle != nullptr && typeid(*handle) == typeid(AtspiElement) ? static_cast<const AtspiElement*>(handle)
                                                                        : nullptr;
}

} // namespace tarragon
