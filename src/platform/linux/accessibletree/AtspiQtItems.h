#pragma once

#include "platform/linux/accessibletree/AtspiMenuItems.h"
#include "platform/linux/accessibletree/AtspiMenuLayout.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/accessibletree/AtspiRequestGraph.h"

#include <functional>
#include <span>
#include <utility>

namespace tarragon {

// Reads the items of Qt menus with as few questions as possible: this toolkit answers each question about each item by
// itself, and takes long for each.
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

    // The fields that tell items and menus apart.
    static AtspiFields kindFields(AtspiElement::Place place);
    // Sets the role of an object below a menu item, where nothing but menus stands.
    static void takeMenu(AtspiNode& node);
    // Sets the role of items that have told their name: one with a name is an item, one without a name and without an
    // action is a separator. Gives what to ask of those that may be either.
    AtspiNodes::Wanted takeSeparators(std::span<const AtspiReference> references, AtspiElement::Place place);
    // Asks for all attributes of the items.
    void ask(const AtspiMenuItems& items);
    // Items that open a menu have no shortcut: what they tell instead is their mnemonic.
    void dropKeysOfMenus(std::span<const AtspiReference> items);
    // The fields to fetch of this item when its menu is read again: those that were asked for this time, less those
    // that turned out to be of no use. roomTells is true when at least one item of the menu has a place on the screen,
    // so that an item without one is known to be hidden.
    static AtspiFields fieldsToRemember(const AtspiNode& item, bool roomTells);

private:
    // Asks which menus the items open. Asked before all else, as it leads to the most questions.
    void askMenusOf(const AtspiMenuItems& items, std::span<const AtspiReference> references);
    // For the items of a menu bar, of which hardly any has no menu.
    void askKeys(const AtspiMenuItems& items);
    // These three steps of reading a menu ask less the more the step before has told.
    void askPlaces(const AtspiMenuItems& items);
    void askItems(const AtspiMenuItems& items);
    void askNamelessItems(const AtspiMenuItems& items);
    // Sets in the nodes of the items what follows from the places that are known. False when no item has a place, as
    // before the menu is laid out for the first time.
    bool takePlaces(const AtspiMenuItems& items);
    static void takePlacesBetween(const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between,
        const MenuHeights& heights);
    static void takeItem(AtspiNode& node);
    // Makes the node that of a separator, of which nothing else need be asked.
    static void takeLine(AtspiNode& node);

    AtspiNodes& _nodes;
    AtspiRequestGraph& _requests;
    MenusKnown _menusKnown;
};

} // namespace tarragon
