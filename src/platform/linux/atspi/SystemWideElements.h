#pragma once

#include "platform/linux/atspi/ElementsOfKind.h"

namespace tarragon {

class AccessibleWindows;

// The one element from which the focused application is asked. The window system answers all of it.
class SystemWideElements final : public ElementsOfKind {
public:
    explicit SystemWideElements(AccessibleWindows& windows)
        : _windows(windows) { }

    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    bool hasAttribute(const Element& element, std::string_view attribute) override;
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;

private:
    AccessibleWindows& _windows;
};

} // namespace tarragon
