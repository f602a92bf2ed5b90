#pragma once

#include "platform/linux/accessibletree/AtspiMenuItems.h"
#include "platform/linux/accessibletree/AtspiMenuLayout.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/accessibletree/AtspiRequestGraph.h"

#include <functional>
#include <span>
#include <utility>

namespace tarragon {

// What the items of Qt menus can tell, with as few questions as possible: this toolkit tells one thing of one item at a
// time.
class AtspiQtItems {
public:
    // Called with items whose children, the menus that they open, are known now.
    using MenusKnown = std::function<void(const AtspiMenuItems&)>;

    // Both outlive this.
    AtspiQtItems(AtspiNodes& nodes, AtspiRequestGraph& requests, MenusKnown menusKnown)
        : _nodes(nodes)
        , _requests(requests)
        , _menusKnown(std::move(menusKnown)) { }
    AtspiQtItems(const AtspiQtItems&) = delete;
    AtspiQtItems& operator=(const AtspiQtItems&) = delete;

    // What tells items and menus apart.
    static AtspiFields kindFields(AtspiElement::Place place);
    // Nothing but menus stands below an item of a menu.
    static void takeMenu(AtspiNode& node);
    // Of what has no name: lines are taken as such, and what may be something else is to be asked.
    AtspiNodes::Wanted takeSeparators(std::span<const AtspiReference> references, AtspiElement::Place place);
    // All that the items can tell.
    void ask(const AtspiMenuItems& items);
    // What opens a menu has no keys.
    void dropKeysOfMenus(std::span<const AtspiReference> items);
    // What to ask of an item the next time, by what was asked of it. Whether some of its menu are to be seen.
    static AtspiFields fieldsToRemember(const AtspiNode& item, bool roomTells);

private:
    // Which menus they open, before all else: that leads to the most questions.
    void askMenusOf(const AtspiMenuItems& items, std::span<const AtspiReference> references);
    // Of a menu bar, in which hardly any item has no menu.
    void askKeys(const AtspiMenuItems& items);
    // These three ask less of each item of a menu by asking one after the other.
    void askPlaces(const AtspiMenuItems& items);
    void askItems(const AtspiMenuItems& items);
    void askNamelessItems(const AtspiMenuItems& items);
    // What the places that are known tell of the items. False when none of them is to be seen, as when the menu has not
    // been laid out.
    bool takePlaces(const AtspiMenuItems& items);
    static void takePlacesBetween(const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between,
        const MenuHeights& heights);
    static void takeItem(AtspiNode& node);
    // A line between items has nothing else to tell.
    static void takeLine(AtspiNode& node);

    AtspiNodes& _nodes;
    AtspiRequestGraph& _requests;
    MenusKnown _menusKnown;
};

} // namespace tarragon
