#pragma once

#include "platform/linux/AtspiElement.h"
#include "platform/linux/AtspiNodes.h"
#include "platform/linux/AtspiRole.h"

#include <cstddef>
#include <cstdint>
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
    // The children of such an object are not asked for as a list. The number of children is -1 when not known.
    static bool isLong(AtspiToolkit toolkit, std::int64_t childCount) {
        return toolkit == AtspiToolkit::Gtk && childCount > LongMenu;
    }
    // What is to be asked of an object whose items are to be read, unless it is long.
    static AtspiFields fieldsOfContainer(AtspiToolkit toolkit, std::int64_t childCount);
    // What stands below an item.
    void readMenus(const std::vector<AtspiReference>& menus);
    // All that the items of a container can tell, and what kind of menus they open.
    void readItems(const AtspiNode& container, AtspiElement::Place place);
    // The same for these items and for those of all menus below them, level by level.
    void readItemsOfAllLevels(const AtspiNode& container, AtspiElement::Place place);
    // Some of the items that were read have gone since their list was made.
    bool haveVanished(const std::vector<AtspiReference>& items) const;

private:
    // This toolkit makes a list of all children for each of them that it names.
    static constexpr std::int64_t LongMenu = 1000;

    // The items of one menu, or of several that stand in places of the same kind, one after the other.
    struct Level {
        std::vector<AtspiReference> items;
        AtspiElement::Place place;
        std::vector<std::size_t> ends; // of each menu: the position after its last item
    };
    static Level levelOf(const std::vector<AtspiReference>& items, AtspiElement::Place place) {
        return {items, place, {items.size()}};
    }

    // What a search tells of an object.
    struct Kind {
        std::uint32_t role = AtspiRoleMenuItem;
        bool isUsual = false;
        bool isChecked = false;
    };

    AtspiFields kindFields(AtspiElement::Place place) const;
    // What is known of items from the search among the children of their container.
    void takeKinds(const AtspiNode& container);
    void takeKind(const AtspiReference& reference, const Kind& kind);
    void readItemsAlone(const Level& level);
    // Asks less of each item by asking once more often.
    void readItemsOfQtMenus(const Level& level);
    void takePlacesBetween(const Level& level);
    void askRolesOfNamelessItems(const Level& level);
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
