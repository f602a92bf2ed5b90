#pragma once

#include "platform/Element.h"
#include "platform/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// What the elements of one kind answer; one object serves all of them. The elements that it is given are of its kind.
// The operations mean what those of Accessibility of the same names mean, and by default an element has nothing that
// could be counted, set or performed.
class ElementsOfKind {
public:
    virtual ~ElementsOfKind() = default;

    virtual std::optional<std::vector<std::string>> attributeNames(const Element& element) = 0;
    virtual bool hasAttribute(const Element& element, std::string_view attribute) = 0;
    virtual Value copyAttributeValue(const Element& element, std::string_view attribute) = 0;
    virtual std::optional<std::int64_t> attributeValueCount(
        const Element& /*element*/, std::string_view /*attribute*/) {
        return {};
    }
    virtual bool isAttributeSettable(const Element& /*element*/, std::string_view /*attribute*/) { return false; }
    virtual bool setAttributeValue(const Element& /*element*/, std::string_view /*attribute*/, const Value& /*value*/) {
        return false;
    }
    virtual std::optional<std::vector<std::string>> actionNames(const Element& /*element*/) {
        return std::vector<std::string>{};
    }
    virtual std::optional<std::string> actionDescription(const Element& /*element*/, std::string_view /*action*/) {
        return {};
    }
    virtual bool performAction(const Element& /*element*/, std::string_view /*action*/) { return false; }
};

} // namespace tarragon
