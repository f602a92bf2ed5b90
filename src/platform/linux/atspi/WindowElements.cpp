#include "platform/linux/atspi/WindowElements.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/AtspiOperation.h"
#include "platform/linux/atspi/LinuxElements.h"
#include "platform/linux/atspi/WindowContents.h"

namespace tarragon {

std::optional<std::vector<std::string>> WindowElements::attributeNames(const Element& /*element*/) {
    return AccessibleWindows::attributeNamesOfWindow();
}

bool WindowElements::hasAttribute(const Element& /*element*/, std::string_view attribute) {
    return AccessibleWindows::windowHasAttribute(attribute);
}

Value WindowElements::copyAttributeValue(const Element& element, std::string_view attribute) {
    const auto window = _windows.describe(AtspiElement::of(element)->window);
    if (!window)
        return {};
    if (attribute == attribute::Parent)
        return elementOfApplication(window->processIdentifier, window->identifier);
    if (attribute != attribute::Children)
        return _windows.attributeOfWindow(*window, attribute);
    AtspiOperation operation(_clients);
    auto children = _contents.children(operation, *window);
    return children ? Value{std::move(*children)} : Value{};
}

std::optional<std::int64_t> WindowElements::attributeValueCount(const Element& element, std::string_view attribute) {
    if (attribute != attribute::Children)
        return {};
    const auto window = _windows.describe(AtspiElement::of(element)->window);
    if (!window)
        return {};
    AtspiOperation operation(_clients);
    return _contents.childCount(operation, *window);
}

bool WindowElements::isAttributeSettable(const Element& /*element*/, std::string_view attribute) {
    return AccessibleWindows::isSettable(attribute);
}

bool WindowElements::setAttributeValue(const Element& element, std::string_view attribute, const Value& value) {
    return _windows.setAttributeOfWindow(AtspiElement::of(element)->window, attribute, value);
}

std::optional<std::vector<std::string>> WindowElements::actionNames(const Element& /*element*/) {
    return std::vector<std::string>{std::string(action::Raise)};
}

std::optional<std::string> WindowElements::actionDescription(const Element& /*element*/, std::string_view action) {
    return action == action::Raise ? std::optional<std::string>("raise") : std::nullopt;
}

bool WindowElements::performAction(const Element& element, std::string_view action) {
    return action == action::Raise && _windows.raise(AtspiElement::of(element)->window);
}

} // namespace tarragon
