#include "mirror/elements/UIElementUtilities.h"

#include "mirror/elements/StructuredValueText.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <charconv>

namespace tarragon {

namespace {

// The number at the front of a text, in single precision; 0 when there is none.
float leadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    float number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool isNumber(const Value& value) {
    return valueAs<bool>(value) || valueAs<std::int64_t>(value) || valueAs<double>(value);
}

} // namespace

std::int64_t UIElementUtilities::processIdentifierOfUIElement(Accessibility& accessibility, const Element& element) {
    return accessibility.processIdentifier(element).value_or(0);
}

std::optional<std::vector<std::string>> UIElementUtilities::attributeNamesOfUIElement(
    Accessibility& accessibility, const Element& element) {
    return accessibility.attributeNames(element);
}

std::optional<std::vector<std::string>> UIElementUtilities::actionNamesOfUIElement(
    Accessibility& accessibility, const Element& element) {
    return accessibility.actionNames(element);
}

std::optional<std::string> UIElementUtilities::descriptionOfAction(
    Accessibility& accessibility, std::string_view action, const Element& element) {
    return accessibility.actionDescription(element, action);
}

void UIElementUtilities::performAction(Accessibility& accessibility, std::string_view action, const Element& element) {
    accessibility.performAction(element, action);
}

Value UIElementUtilities::valueOfAttribute(
    Accessibility& accessibility, std::string_view attribute, const Element& element) {
    if (!element || !accessibility.hasAttribute(element, attribute))
        return {};
    return accessibility.copyAttributeValue(element, attribute);
}

bool UIElementUtilities::canSetAttribute(
    Accessibility& accessibility, std::string_view attribute, const Element& element) {
    return accessibility.isAttributeSettable(element, attribute);
}

void UIElementUtilities::setStringValue(
    Accessibility& accessibility, const std::string& string, std::string_view attribute, const Element& element) {
    if (attribute.empty())
        return;
    const Value present = accessibility.copyAttributeValue(element, attribute);
    if (const auto structured = structuredValueFromText(string, present))
        accessibility.setAttributeValue(element, attribute, *structured);
    else if (valueAs<std::string>(present))
        accessibility.setAttributeValue(element, attribute, string);
    else if (isNumber(present))
        accessibility.setAttributeValue(element, attribute, static_cast<double>(leadingNumber(string)));
}

Element UIElementUtilities::parentOfUIElement(Accessibility& accessibility, const Element& element) {
    const Value value = valueOfAttribute(accessibility, attribute::Parent, element);
    const auto* parent = valueAs<Element>(value);
    return parent ? *parent : Element();
}

Value UIElementUtilities::roleOfUIElement(Accessibility& accessibility, const Element& element) {
    return valueOfAttribute(accessibility, attribute::Role, element);
}

Value UIElementUtilities::titleOfUIElement(Accessibility& accessibility, const Element& element) {
    return valueOfAttribute(accessibility, attribute::Title, element);
}

bool UIElementUtilities::isApplicationUIElement(Accessibility& accessibility, const Element& element) {
    return roleOfUIElement(accessibility, element) == Value(std::string(role::Application));
}

Point UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(Displays& displays, const Point& pointNS) {
    std::optional<Screen> lastScreen;
    for (const Screen& screen : displays.screens()) {
        if (contains(screen.frameNS, pointNS))
            lastScreen = screen;
    }
    if (!lastScreen)
        return {};
    return {pointNS.x, lastScreen->frameNS.size.height - pointNS.y - 1};
}

Rect UIElementUtilities::flippedScreenBounds(Displays& displays, const Rect& bounds) {
    const std::vector<Screen> screens = displays.screens();
    const Rect primary = screens.empty() ? Rect() : screens.front().frameNS;
    // Single precision is deliberate: both directions round alike, so that a rectangle flipped twice comes back.
    const double top = static_cast<float>(primary.origin.y + primary.size.height);
    return {{bounds.origin.x, top - (bounds.origin.y + bounds.size.height)}, bounds.size};
}

Rect UIElementUtilities::frameOfUIElement(Accessibility& accessibility, Displays& displays, const Element& element) {
    const Value position = valueOfAttribute(accessibility, attribute::Position, element);
    const Value size = valueOfAttribute(accessibility, attribute::Size, element);
    const auto* origin = valueAs<Point>(position);
    const auto* extent = valueAs<Size>(size);
    if (!origin || !extent)
        return {};
    return flippedScreenBounds(displays, {*origin, *extent});
}

} // namespace tarragon
