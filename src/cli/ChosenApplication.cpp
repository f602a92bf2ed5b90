#include "cli/ChosenApplication.h"

#include "platform/AccessibilityNames.h"

#include <utility>

namespace tarragon {

ChosenApplicationAccessibility::ChosenApplicationAccessibility(Accessibility& accessibility, Element application)
    : _accessibility(accessibility)
    , _application(std::move(application)) { }

Element ChosenApplicationAccessibility::applicationElement(std::int64_t processIdentifier) {
    return _accessibility.applicationElement(processIdentifier);
}

std::optional<std::int64_t> ChosenApplicationAccessibility::processIdentifier(const Element& element) {
    return _accessibility.processIdentifier(element);
}

std::optional<std::vector<std::string>> ChosenApplicationAccessibility::attributeNames(const Element& element) {
    return _accessibility.attributeNames(element);
}

Value ChosenApplicationAccessibility::copyAttributeValue(const Element& element, std::string_view attribute) {
    // Only the system-wide element has this attribute.
    if (attribute == attribute::FocusedApplication)
        return _application;
    return _accessibility.copyAttributeValue(element, attribute);
}

std::optional<std::int64_t> ChosenApplicationAccessibility::attributeValueCount(
    const Element& element, std::string_view attribute) {
    return _accessibility.attributeValueCount(element, attribute);
}

bool ChosenApplicationAccessibility::isAttributeSettable(const Element& element, std::string_view attribute) {
    return _accessibility.isAttributeSettable(element, attribute);
}

bool ChosenApplicationAccessibility::setAttributeValue(
    const Element& element, std::string_view attribute, const Value& value) {
    return _accessibility.setAttributeValue(element, attribute, value);
}

std::optional<std::vector<std::string>> ChosenApplicationAccessibility::actionNames(const Element& element) {
    return _accessibility.actionNames(element);
}

std::optional<std::string> ChosenApplicationAccessibility::actionDescription(
    const Element& element, std::string_view action) {
    return _accessibility.actionDescription(element, action);
}

bool ChosenApplicationAccessibility::performAction(const Element& element, std::string_view action) {
    return _accessibility.performAction(element, action);
}

ChosenApplicationWorkspace::ChosenApplicationWorkspace(Workspace& workspace, RunningApplication application)
    : _workspace(workspace)
    , _application(std::move(application)) { }

bool ChosenApplicationWorkspace::installFrontSwitchedHandler(std::function<void()> handler) {
    return _workspace.installFrontSwitchedHandler(std::move(handler));
}

bool ChosenApplicationWorkspace::installSystemUIModeChangedHandler(std::function<void()> handler) {
    return _workspace.installSystemUIModeChangedHandler(std::move(handler));
}

} // namespace tarragon
