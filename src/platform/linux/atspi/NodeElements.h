#pragma once

#include "platform/linux/atspi/ElementsOfKind.h"

#include <span>

namespace tarragon {

class AtspiClients;

// Accessible objects within windows, and the menus between items and their children where a toolkit has no object for
// them. The application answers everything, so every operation may wait for it.
class NodeElements final : public ElementsOfKind {
public:
    explicit NodeElements(AtspiClients& clients)
        : _clients(clients) { }

    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    bool hasAttribute(const Element& element, std::string_view attribute) override;
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;
    std::optional<std::int64_t> attributeValueCount(const Element& element, std::string_view attribute) override;
    std::optional<std::vector<std::string>> actionNames(const Element& element) override;
    std::optional<std::string> actionDescription(const Element& element, std::string_view action) override;
    bool performAction(const Element& element, std::string_view action) override;

    // Fetches attributes of those elements that are of this kind into the batch of the thread.
    void readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes);

private:
    AtspiClients& _clients;
};

} // namespace tarragon
