#include "platform/linux/atspi/LinuxElements.h"

namespace tarragon {

using Kind = AtspiElement::Kind;

Element elementOfSystem() {
    return Element(std::make_shared<AtspiElement>());
}

Element elementOfApplication(std::int64_t processIdentifier, std::uint32_t window) {
    auto element = std::make_shared<AtspiElement>();
    element->kind = Kind::Application;
    element->processIdentifier = processIdentifier;
    element->window = window;
    return Element(std::move(element));
}

Element elementOfWindow(const WindowDescription& window) {
    auto element = std::make_shared<AtspiElement>();
    element->kind = Kind::Window;
    element->window = window.identifier;
    element->processIdentifier = window.processIdentifier;
    return Element(std::move(element));
}

std::shared_ptr<AtspiElement> nodeInWindow(const WindowDescription& window, const AtspiApplication& application,
    std::uint64_t busIdentity, const AtspiReference& reference) {
    auto element = std::make_shared<AtspiElement>();
    element->kind = Kind::Node;
    element->toolkit = application.toolkit;
    element->window = window.identifier;
    element->processIdentifier = window.processIdentifier;
    element->busIdentity = busIdentity;
    element->reference = reference;
    return element;
}

} // namespace tarragon
