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
// What is read is kept in the given nodes; when they outlive one read, children may be read ahead, so that whoever
// walks a menu, or all menus, finds all that the items can tell.
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
    // The same for whoever begins to ask about an element.
    std::string_view roleFirst(const AtspiElement& element);
    Element parentOf(const AtspiElement& element);
    std::optional<std::vector<Element>> childrenInPlace(
        const Element& parent, const AtspiReference& container, AtspiElement::Place place);
    // Its role and children, and what else serves to read the children by.
    void readWithChildren(const AtspiElement& element);
    // Which they are, and what menus need of each. False when that cannot be had.
    bool readList(const AtspiElement& parent, const AtspiReference& container, AtspiElement::Place place);
    void fetchList(const AtspiElement& parent, const AtspiReference& container);
    void readChildren(const AtspiReference& container, AtspiElement::Place place, AtspiToolkit toolkit);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiMenuMemory& _memory;
    Reading _reading;
};

} // namespace tarragon
