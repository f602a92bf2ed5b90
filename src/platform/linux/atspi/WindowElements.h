#pragma once

#include "platform/linux/atspi/ElementsOfKind.h"

namespace tarragon {

class AccessibleWindows;
class AtspiClients;
class WindowContents;

// Top-level windows. The window system answers everything but what stands within a window.
class WindowElements final : public ElementsOfKind {
public:
    WindowElements(AccessibleWindows& windows, AtspiClients& clients, WindowContents& contents)
        : _windows(windows)
        , _clients(clients)
        , _contents(contents) { }

    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    bool hasAttribute(const Element& element, std::string_view attribute) override;
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;
    std::optional<std::int64_t> attributeValueCount(const Element& element, std::string_view attribute) override;
    bool isAttributeSettable(const Element& element, std::string_view attribute) override;
    bool setAttributeValue(const Element& element, std::string_view attribute, const Value& value) override;
    std::optional<std::vector<std::string>> actionNames(const Element& element) override;
    std::optional<std::string> actionDescription(const Element& element, std::string_view action) override;
    bool performAction(const Element& element, std::string_view action) override;

private:
    AccessibleWindows& _windows;
    AtspiClients& _clients;
    WindowContents& _contents;
};

} // namespace tarragon
