#pragma once

#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/accessibletree/AtspiMenuItems.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/accessibletree/AtspiQtItems.h"
#include "platform/linux/accessibletree/AtspiRequestGraph.h"
#include "platform/linux/accessibletree/AtspiRole.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarragon {

class AtspiConnection;
class AtspiMenuMemory;

// Reads what the items of menus can tell into nodes, with as much as possible in flight at once.
class AtspiItemReading {
public:
    AtspiItemReading(AtspiConnection& connection, AtspiNodes& nodes, AtspiMenuMemory& memory, AtspiToolkit toolkit);
    AtspiItemReading(const AtspiItemReading&) = delete;
    AtspiItemReading& operator=(const AtspiItemReading&) = delete;

    // What tells items and menus apart.
    void readKinds(const std::vector<AtspiReference>& objects, AtspiElement::Place place);
    // A menu bar is never long, and not asked how long it is.
    static constexpr std::int64_t UsualLengthOfMenuBar = 8;
    // The children of such an object are not asked for as a list. The number of children is -1 when not known.
    static bool isLong(AtspiToolkit toolkit, std::int64_t childCount) {
        return toolkit == AtspiToolkit::Gtk && childCount > LongMenu;
    }
    // What is to be asked of an object whose items are to be read, and of the items that it had. Not for long ones.
    void addWanted(AtspiNodes::Wanted& wanted, const AtspiReference& container, std::int64_t childCount) const;
    void readContainer(const AtspiReference& container, std::int64_t childCount);
    // What stands below an item.
    void readMenus(const std::vector<AtspiReference>& menus);
    // All that the items of a container can tell, and what kind of menus they open.
    void readItems(const AtspiReference& container, AtspiElement::Place place);
    // The same for these items and for those of all menus below them.
    void readItemsOfAllLevels(const AtspiReference& container, AtspiElement::Place place);
    // Some of the items that were read have gone since their list was made.
    bool haveVanished(const std::vector<AtspiReference>& items) const;

private:
    // This toolkit makes a list of all children for each of them that it names.
    static constexpr std::int64_t LongMenu = 1000;

    // What a search tells of an object.
    struct Kind {
        std::uint32_t role = AtspiRoleMenuItem;
        bool isUsual = false;
        bool isChecked = false;
    };

    AtspiFields kindFields(AtspiElement::Place place) const;
    // What is to be asked of a menu to tell it from others; what needs no question is taken as known.
    AtspiFields kindOfMenu(const AtspiReference& menu);
    // What is known of items from the search among the children of their container.
    void takeKinds(const AtspiNode& container);
    void takeKind(const AtspiReference& reference, const Kind& kind);
    void readLevels(const AtspiReference& container, AtspiElement::Place place, int levelsBelow);
    void remember(const AtspiReference& container);
    AtspiFields fieldsToRemember(const AtspiNode& item, bool kindsTell, bool roomTells) const;
    void askItems(const AtspiReference& container, AtspiElement::Place place, int levelsBelow);
    void askItemsAndMenusBelow(const AtspiMenuItems& items);
    void askNamelessItems(const AtspiMenuItems& items);
    void askMenusBelow(const AtspiMenuItems& items);
    // The menu of an item, with its own items where these are to be read as well.
    void askMenu(const AtspiReference& reference, AtspiFields kind, std::int64_t childCount, int levels);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiMenuMemory& _memory;
    AtspiToolkit _toolkit;
    AtspiRequestGraph _requests;
    AtspiQtItems _qtItems;
    std::vector<AtspiReference> _containers; // of which the items were asked
    std::size_t _itemCount = 0; // of items and menus
};

} // namespace tarragon
