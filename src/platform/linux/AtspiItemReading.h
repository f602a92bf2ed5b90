#pragma once

#include "platform/linux/AtspiElement.h"
#include "platform/linux/AtspiInquiry.h"
#include "platform/linux/AtspiMenuLayout.h"
#include "platform/linux/AtspiNodes.h"
#include "platform/linux/AtspiRole.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarragon {

class AtspiConnection;
class AtspiMenuMemory;

// Reads what the items of menus can tell into nodes, with as much as possible in flight at once.
class AtspiItemReading {
public:
    AtspiItemReading(AtspiConnection& connection, AtspiNodes& nodes, AtspiMenuMemory& memory, AtspiToolkit toolkit)
        : _connection(connection)
        , _nodes(nodes)
        , _memory(memory)
        , _toolkit(toolkit) { }

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

    // Some of the items of one menu, or menu bar.
    struct Items {
        std::span<const AtspiReference> ofMenu; // all of them
        std::size_t begin;
        std::size_t end;
        AtspiElement::Place place;
        int levelsBelow; // how many levels of menus below them are to be read

        std::span<const AtspiReference> meant() const { return ofMenu.subspan(begin, end - begin); }
    };

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
    void dropKeysOfMenus(const std::vector<AtspiReference>& items);
    void remember(const AtspiReference& container);
    AtspiFields fieldsToRemember(const AtspiNode& item, bool kindsTell, bool roomTells) const;
    void askItems(const AtspiReference& container, AtspiElement::Place place, int levelsBelow);
    void askItemsAndMenusBelow(const Items& items);
    void askNamelessItems(const Items& items);
    // Which menus they open, before all else: that leads to the most questions.
    void askMenusOfQtItems(const Items& items, std::span<const AtspiReference> references);
    // Of a menu bar, in which hardly any item has no menu.
    void askKeysOfQtItems(const Items& items);
    // These three ask less of each item of such a menu by asking one after the other.
    void askPlacesInQtMenu(const Items& items);
    void askItemsOfQtMenu(const Items& items);
    void askNamelessItemsOfQtMenu(const Items& items);
    // What the places that are known tell of the items. False when none of them is to be seen, as when the menu has not
    // been laid out.
    bool takePlaces(const Items& items);
    static void takePlacesBetween(const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between,
        const MenuHeights& heights);
    // What opens a menu has no keys.
    static void takeMenuOpener(AtspiNode& node);
    static void takeItem(AtspiNode& node);
    // A line between items has nothing else to tell.
    static void takeLine(AtspiNode& node);
    AtspiNodes::Wanted takeSeparators(std::span<const AtspiReference> references, AtspiElement::Place place);
    void askMenusBelow(const Items& items);
    // The menu of an item, with its own items where these are to be read as well.
    void askMenu(const AtspiReference& reference, AtspiFields kind, std::int64_t childCount, int levels);

    AtspiConnection& _connection;
    AtspiNodes& _nodes;
    AtspiMenuMemory& _memory;
    AtspiToolkit _toolkit;
    AtspiInquiry _inquiry{_connection, _nodes};
    std::vector<AtspiReference> _containers; // of which the items were asked
    std::size_t _itemCount = 0; // of items and menus
};

} // namespace tarragon
