// The operations of UIElementUtilities that describe elements to people.
#include "mirror/elements/NumberText.h"
#include "mirror/elements/StructuredValueText.h"
#include "mirror/elements/TextOrNil.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>

namespace tarragon {

namespace {

// No application nests its elements deeper; one that names an endless row of parents is cut off here.
constexpr std::size_t LongestLineage = 256;

std::string arrayText(std::int64_t count) {
    return "<array of size " + std::to_string(count) + ">";
}

// Describes a value without asking any application. value is not nil.
std::string plainDescription(const Value& value, bool beingVerbose) {
    if (const auto* text = valueAs<std::string>(value))
        return *text;
    if (const auto* boolean = valueAs<bool>(value))
        return *boolean ? "1" : "0";
    if (const auto* integer = valueAs<std::int64_t>(value))
        return std::to_string(*integer);
    if (const auto* number = valueAs<double>(value))
        return exactNumberText(*number);
    if (const auto* elements = valueAs<std::vector<Element>>(value))
        return arrayText(static_cast<std::int64_t>(elements->size()));
    if (valueAs<Element>(value))
        return "<AXUIElement>";
    return UIElementUtilities::stringDescriptionOfAXValue(value, beingVerbose);
}

} // namespace

std::string UIElementUtilities::stringDescriptionOfAXValue(const Value& value, bool beingVerbose) {
    return structuredValueText(value, beingVerbose).value_or("AXValue???");
}

std::optional<std::string> UIElementUtilities::descriptionOfValue(
    Accessibility& accessibility, const Value& value, bool beingVerbose) {
    if (isNil(value))
        return std::nullopt;
    const auto* element = valueAs<Element>(value);
    if (!element)
        return plainDescription(value, beingVerbose);
    if (!*element)
        return std::nullopt;
    const Value role = roleOfUIElement(accessibility, *element);
    if (isNil(role))
        return plainDescription(value, beingVerbose);
    const Value title = titleOfUIElement(accessibility, *element);
    return plainDescription(isNil(title) ? role : title, beingVerbose);
}

std::optional<std::string> UIElementUtilities::descriptionForUIElement(
    Accessibility& accessibility, const Element& element, std::string_view attribute, bool beingVerbose) {
    if (attribute == attribute::Children || attribute == attribute::Rows) {
        if (const auto count = accessibility.attributeValueCount(element, attribute))
            return arrayText(*count);
    }
    return descriptionOfValue(accessibility, accessibility.copyAttributeValue(element, attribute), beingVerbose);
}

std::string UIElementUtilities::descriptionOfAXDescriptionOfUIElement(
    Accessibility& accessibility, const Element& element) {
    const Value description = valueOfAttribute(accessibility, attribute::Description, element);
    if (isNil(description) || description == Value(std::string()))
        return "No Description";
    return plainDescription(description, false);
}

std::vector<std::string> UIElementUtilities::lineageOfUIElement(Accessibility& accessibility, const Element& element) {
    std::vector<std::string> lineage;
    for (Element each = element; each && lineage.size() < LongestLineage; each = parentOfUIElement(accessibility, each))
        lineage.push_back(descriptionOfValue(accessibility, each, false).value_or(""));
    std::ranges::reverse(lineage);
    return lineage;
}

std::string UIElementUtilities::lineageDescriptionOfUIElement(Accessibility& accessibility, const Element& element) {
    std::string text;
    std::string indent;
    for (const std::string& entry : lineageOfUIElement(accessibility, element)) {
        text += indent + entry + "\n";
        indent += ' ';
    }
    return text;
}

std::string UIElementUtilities::stringDescriptionOfUIElement(Accessibility& accessibility, const Element& element) {
    std::string text = lineageDescriptionOfUIElement(accessibility, element);
    const auto attributes = attributeNamesOfUIElement(accessibility, element);
    if (attributes && !attributes->empty()) {
        text += "\nAttributes:\n";
        for (const std::string& name : *attributes) {
            const bool settable = canSetAttribute(accessibility, name, element);
            const auto value = descriptionForUIElement(accessibility, element, name, false);
            text += "   " + name + (settable ? " (W)" : "") + ":  “" + textOrNil(value) + "”\n";
        }
    }
    const auto actions = actionNamesOfUIElement(accessibility, element);
    if (actions && !actions->empty()) {
        text += "\nActions:\n";
        for (const std::string& name : *actions) {
            const auto description = descriptionOfAction(accessibility, name, element);
            text += "   " + name + " - " + textOrNil(description) + "\n";
        }
    }
    return text;
}

} // namespace tarragon
