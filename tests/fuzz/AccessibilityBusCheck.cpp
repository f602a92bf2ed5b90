#include "fuzz/AccessibilityBusCheck.h"

#include "fuzz/ScriptedBus.h"
#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibilitybus/AtspiSessionBus.h"
#include "platform/linux/accessibletree/AtspiMenuMemory.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/accessibletree/AtspiTree.h"

#include <cstdio>
#include <cstdlib>

namespace tarragon {

namespace {

void require(bool holds, const char* sentence) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", sentence);
    std::abort();
}

class Walk {
public:
    explicit Walk(AtspiTree tree)
        : _tree(tree) { }

    // As the menu reader does it: everything that an item can have, then its children.
    void read(const Element& element, int depth) {
        constexpr int mostElements = 2000;
        if (++_elements > mostElements)
            return;
        require(depth <= 70, "no tree is deeper than the limit");
        _tree.attributeNames(element);
        for (const auto name : {attribute::Role, attribute::Title, attribute::Enabled, attribute::MenuItemMarkChar,
                 attribute::MenuItemCmdChar, attribute::MenuItemCmdModifiers, attribute::MenuItemCmdGlyph,
                 attribute::MenuItemShortcutText, attribute::Position})
            _tree.attributeValue(element, name);
        const Value children = _tree.attributeValue(element, attribute::Children);
        const auto* list = valueAs<std::vector<Element>>(children);
        for (const Element& child : list != nullptr ? *list : std::vector<Element>())
            read(child, depth + 1);
    }

    void climb(Element element) {
        for (int steps = 0; AtspiElement::of(element)->kind != AtspiElement::Kind::Application; ++steps) {
            require(steps < 200, "everybody's parents end at the application");
            const Value parent = _tree.attributeValue(element, attribute::Parent);
            const auto* above = valueAs<Element>(parent);
            require(above != nullptr && *above, "everybody has a parent");
            element = *above;
        }
    }

private:
    AtspiTree _tree;
    int _elements = 0;
};

} // namespace

void checkReaderSurvives(std::span<const std::uint8_t> answers) {
    std::vector<std::uint8_t> script(answers.begin(), answers.end());
    const std::uint8_t mode = script.empty() ? 0 : script.back();
    const ScriptedBus bus(std::move(script));
    ::setenv("AT_SPI_BUS_ADDRESS", bus.address().c_str(), 1);

    AtspiSessionBus sessionBus;
    AtspiConnection connection(sessionBus);
    auto handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->toolkit = static_cast<AtspiToolkit>(mode % 3);
    handle->childCount = mode % 5 == 0 ? -1 : 5;
    handle->reference = {ScriptedBus::BusName, ScriptedBus::objectPath(0)};
    // The second time with what the first has left.
    AtspiMenuMemory memory;
    for (int time = 0; time < 2; ++time) {
        AtspiNodes nodes;
        Walk walk(AtspiTree(connection, nodes, memory, static_cast<AtspiTree::Reading>(mode / 3 % 4)));
        walk.read(Element(handle), 0);
        walk.climb(Element(handle));
    }
}

} // namespace tarragon
