#include "platform/linux/atspi/NodeElements.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiAttributes.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/atspi/AtspiOperation.h"

#include <algorithm>

namespace tarragon {

namespace {

using Kind = AtspiElement::Kind;

bool isNode(const Element& element) {
    const AtspiElement* handle = AtspiElement::of(element);
    return handle != nullptr && handle->kind == Kind::Node;
}

} // namespace

std::optional<std::vector<std::string>> NodeElements::attributeNames(const Element& element) {
    AtspiOperation operation(_clients);
    return operation.reaches(*AtspiElement::of(element)) ? operation.tree().attributeNames(element) : std::nullopt;
}

bool NodeElements::hasAttribute(const Element& element, std::string_view attribute) {
    AtspiOperation operation(_clients);
    return operation.reaches(*AtspiElement::of(element)) && operation.tree().hasAttribute(element, attribute);
}

Value NodeElements::copyAttributeValue(const Element& element, std::string_view attribute) {
    AtspiOperation operation(_clients);
    return operation.reaches(*AtspiElement::of(element)) ? operation.tree().attributeValue(element, attribute)
                                                         : Value{};
}

std::optional<std::int64_t> NodeElements::attributeValueCount(const Element& element, std::string_view attribute) {
    const AtspiElement& handle = *AtspiElement::of(element);
    if (attribute != attribute::Children)
        return {};
    AtspiOperation operation(_clients);
    return operation.reaches(handle) ? operation.tree().childCount(handle) : std::nullopt;
}

std::optional<std::vector<std::string>> NodeElements::actionNames(const Element& element) {
    const AtspiElement& handle = *AtspiElement::of(element);
    std::vector<std::string> names;
    if (handle.kind == Kind::ItemMenu)
        return names;
    AtspiOperation operation(_clients);
    if (!operation.reaches(handle))
        return {};
    const auto actions = operation.tree().actionNames(handle);
    if (actions && pressAction(*actions))
        names.emplace_back(action::Press);
    return names;
}

std::optional<std::string> NodeElements::actionDescription(const Element& element, std::string_view action) {
    if (action != action::Press)
        return {};
    const auto names = actionNames(element);
    return names && !names->empty() ? std::optional<std::string>("press") : std::nullopt;
}

bool NodeElements::performAction(const Element& element, std::string_view action) {
    const AtspiElement& handle = *AtspiElement::of(element);
    // What opens a menu does so when it is pressed.
    if (handle.kind == Kind::ItemMenu || (action != action::Press && action != action::ShowMenu))
        return false;
    AtspiOperation operation(_clients);
    if (!operation.reaches(handle))
        return false;
    const auto actions = operation.tree().actionNames(handle);
    const auto press = actions ? pressAction(*actions) : std::nullopt;
    return press && operation.connection().post({handle.reference, "org.a11y.atspi.Action", "DoAction", *press, {}});
}

void NodeElements::readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes) {
    if (std::ranges::none_of(elements, isNode))
        return;
    AtspiFields fields = AtspiFieldNone;
    for (const std::string_view attribute : attributes)
        fields |= fieldsForAttribute(attribute);
    AtspiOperation operation(_clients);
    AtspiNodes::Wanted wanted;
    wanted.reserve(elements.size());
    for (const Element& element : elements) {
        if (isNode(element) && operation.reaches(*AtspiElement::of(element)))
            wanted.emplace_back(AtspiElement::of(element)->reference, fields);
    }
    operation.nodes().fetch(operation.connection(), wanted);
}

} // namespace tarragon
