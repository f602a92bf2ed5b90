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

    // Fetches what tells items, menus and separators apart.
    void readKinds(const std::vector<AtspiReference>& objects, AtspiElement::Place place);
    // Taken as the length of every menu bar, to spare the question.
    static constexpr std::int64_t UsualLengthOfMenuBar = 8;
    // An object with so many children is asked for each of them instead of for their list, which would keep the
    // application busy for too long. childCount is -1 when not known.
    static bool isLong(AtspiToolkit toolkit, std::int64_t childCount) {
        return toolkit == AtspiToolkit::Gtk && childCount > LongMenu;
    }
    // Adds what to ask of a container before its items are read, together with what was asked of its items the last
    // time. Not for long containers.
    void addWanted(AtspiNodes::Wanted& wanted, const AtspiReference& container, std::int64_t childCount) const;
    void readContainer(const AtspiReference& container, std::int64_t childCount);
    // Fetches the role and the children of the menus that stand below an item.
    void readMenus(const std::vector<AtspiReference>& menus);
    // Fetches all attributes of the items of a container, and the kind of the menus that they open.
    void readItems(const AtspiReference& container, AtspiElement::Place place);
    // The same for these items and for those of all menus below them.
    void readItemsOfAllLevels(const AtspiReference& container, AtspiElement::Place place);
    // True when some of the items that were read have gone since their list was made.
    bool haveVanished(const std::vector<AtspiReference>& items) const;

private:
    // GTK makes a list of all children for each of them that it names, so that a list takes quadratic time.
    static constexpr std::int64_t LongMenu = 1000;

    // What a search among the children of a container tells of one of them.
    struct Kind {
        std::uint32_t role = AtspiRoleMenuItem;
        bool isUsual = false;
        bool isChecked = false;
    };

    AtspiFields kindFields(AtspiElement::Place place) const;
    // The fields that tell the kind of a menu; those that follow without a question are set in its node.
    AtspiFields kindOfMenu(const AtspiReference& menu);
    // Sets in the nodes of items what the search among the children of their container told.
    void takeKinds(const AtspiNode& container);
    void takeKind(const AtspiReference& reference, const Kind& kind);
    void readLevels(const AtspiReference& container, AtspiElement::Place place, int levelsBelow);
    void remember(const AtspiReference& container);
    AtspiFields fieldsToRemember(const AtspiNode& item, bool kindsTell, bool roomTells) const;
    void askItems(const AtspiReference& container, AtspiElement::Place place, int levelsBelow);
    void askItemsAndMenusBelow(const AtspiMenuItems& items);
    void askNamelessItems(const AtspiMenuItems& items);
    void askMenusBelow(const AtspiMenuItems& items);
    // Asks for the menu of an item, and for the items of that menu when levels is above 0.
    void askMenu(const AtspiReference& reference, AtspiFields kind, std::int64_t childCount, int levels);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiMenuMemory& _memory;
    AtspiToolkit _toolkit;
    AtspiRequestGraph _requests;
    AtspiQtItems _qtItems;
    std::vector<AtspiReference> _containers; // those whose items were asked for
    std::size_t _itemCount = 0; // items and menus that were asked for
};

} // namespace tarragon
