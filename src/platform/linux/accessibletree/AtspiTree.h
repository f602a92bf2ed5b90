#pragma once

#include "platform/Value.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/accessibletree/AtspiNodes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

class AtspiConnection;
class AtspiMenuMemory;

// Accessible objects as elements: their attributes, their parents and children in the shape that the system expects.
// What is read is kept in the given nodes. When these outlive one read, the attributes of all items of a menu, or of
// all menus below it, are fetched together with the first question about its children.
class AtspiTree {
public:
    enum class Reading : std::uint8_t { OneAttribute, SomeAttributes, OneLevel, AllLevels };

    AtspiTree(AtspiConnection& connection, AtspiNodes& nodes, AtspiMenuMemory& memory, Reading reading)
        : _connection(connection)
        , _nodes(nodes)
        , _memory(memory)
        , _reading(reading) { }

    // The element must be a node or the menu of an item.
    std::optional<std::vector<std::string>> attributeNames(const Element& element);
    bool hasAttribute(const Element& element, std::string_view attribute);
    Value attributeValue(const Element& element, std::string_view attribute);
    std::optional<std::vector<Element>> children(const Element& element);
    // Children of an object that has no element of its own: those of a window's frame.
    std::optional<std::vector<Element>> children(const Element& parent, const AtspiReference& container);
    // How many children there are, without asking which. Those that are not to be seen count as well: items that the
    // application hides, and tear-offs. Nothing when the object does not answer.
    std::optional<std::int64_t> childCount(const AtspiElement& element);
    std::optional<std::int64_t> childCount(const AtspiReference& container);
    // The names of its actions, not translated.
    std::optional<std::vector<std::string>> actionNames(const AtspiElement& element);

private:
    bool readsAhead() const { return _reading >= Reading::OneLevel; }
    AtspiElement::Place placeOf(const AtspiElement& element);
    std::string_view roleOf(const AtspiElement& element);
    // The same where the role decides on the attributes only: it spares the question where the place tells enough.
    std::string_view roleFirst(const AtspiElement& element);
    Element parentOf(const AtspiElement& element);
    std::optional<std::vector<Element>> childrenInPlace(
        const Element& parent, const AtspiReference& container, AtspiElement::Place place);
    // Fetches role and children of the element, and whatever the reading of these children would ask for first.
    void readWithChildren(const AtspiElement& element);
    // Fetches the list of the children and, within menus, what tells them apart. False when there is no list.
    bool readList(const AtspiElement& parent, const AtspiReference& container, AtspiElement::Place place);
    void fetchList(const AtspiElement& parent, const AtspiReference& container);
    void readChildren(const AtspiReference& container, AtspiElement::Place place, AtspiToolkit toolkit);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiMenuMemory& _memory;
    Reading _reading;
};

} // namespace tarragon
