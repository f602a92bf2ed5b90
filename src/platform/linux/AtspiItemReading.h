#pragma once

#include "platform/linux/AtspiElement.h"
#include "platform/linux/AtspiNodes.h"

#include <vector>

namespace tarragon {

class AtspiConnection;

// Reads what the items of menus can tell into nodes, with all requests of a step in flight at once.
class AtspiItemReading {
public:
    AtspiItemReading(AtspiConnection& connection, AtspiNodes& nodes, AtspiToolkit toolkit)
        : _connection(connection)
        , _nodes(nodes)
        , _toolkit(toolkit) { }

    // What tells items and menus apart.
    void readKinds(const std::vector<AtspiReference>& objects, AtspiElement::Place place);
    // The menus of an item that is about to be opened: what they are and what stands in them.
    void readOpeningMenus(const std::vector<AtspiReference>& menus);
    // All that items can tell, and what kind of menus they open.
    void readItems(const std::vector<AtspiReference>& items, AtspiElement::Place place);
    // The same for these items and for those of all menus below them, level by level.
    void readItemsOfAllLevels(const std::vector<AtspiReference>& items, AtspiElement::Place place);

private:
    // Items that stand in places of the same kind.
    struct Level {
        std::vector<AtspiReference> items;
        AtspiElement::Place place;
    };

    AtspiFields kindFields(AtspiElement::Place place) const;
    void readItemsAlone(const Level& level);
    void tellSeparatorsApart(const Level& level);
    // The menus that items open, in the toolkits where these are objects of their own.
    std::vector<AtspiReference> menusOf(const Level& level);
    // The items of the menus that the items of a level open; reads which those are.
    Level readNextLevel(const Level& level);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiToolkit _toolkit;
};

} // namespace tarragon
