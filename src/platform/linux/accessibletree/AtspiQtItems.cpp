#include "platform/linux/accessibletree/AtspiQtItems.h"

#include "platform/linux/accessibletree/AtspiRole.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarragon {

namespace {

using Place = AtspiElement::Place;

// Of the items of a menu every such one is asked where it is, and those that stand between follow from that.
constexpr std::size_t Landmarks = 4;
// So many are asked about together. A multiple of the other.
constexpr std::size_t Portion = 32;

bool holdsItems(Place place) {
    return place == Place::InMenu || place == Place::InMenuBar;
}

// Once its children are known.
bool opensMenu(const AtspiNode& node) {
    return node.children && !node.children->empty();
}

} // namespace

AtspiFields AtspiQtItems::kindFields(Place place) {
    if (!holdsItems(place))
        return AtspiFieldRole;
    // Every request counts with this toolkit, so what the name tells is not asked for: what has one in a menu is an
    // item. Hidden items are told by the room that they take, but not in a menu bar: titles that find no room there are
    // still offered, behind its end.
    const AtspiFields fields = AtspiFieldStates | AtspiFieldName;
    return place == Place::InMenu ? fields | AtspiFieldExtents : fields;
}

void AtspiQtItems::takeMenu(AtspiNode& node) {
    if (node.missing(AtspiFieldRole) == 0)
        return;
    node.role = AtspiRolePopupMenu;
    node.asked |= AtspiFieldRole;
}

void AtspiQtItems::ask(const AtspiMenuItems& items) {
    if (items.place != Place::InMenu) {
        askMenusOf(items, items.meant());
        _requests.ask(AtspiNodes::wanted(items.meant(), kindFields(items.place) | AtspiFieldChildren),
            [this, items] { askKeys(items); });
        return;
    }
    for (std::size_t begin = items.begin; begin < items.end; begin += Portion) {
        AtspiMenuItems portion = items;
        portion.begin = begin;
        portion.end = std::min(begin + Portion, items.end);
        askPlaces(portion);
    }
}

void AtspiQtItems::dropKeysOfMenus(std::span<const AtspiReference> items) {
    for (const AtspiReference& item : items) {
        if (opensMenu(_nodes.at(item)))
            _nodes.at(item).takeNoKey();
    }
}

void AtspiQtItems::askMenusOf(const AtspiMenuItems& items, std::span<const AtspiReference> references) {
    _requests.ask(AtspiNodes::wanted(references, AtspiFieldChildren), [this, items] { _menusKnown(items); });
}

void AtspiQtItems::askKeys(const AtspiMenuItems& items) {
    std::vector<AtspiReference> withoutMenus;
    for (const AtspiReference& reference : items.meant()) {
        if (!opensMenu(_nodes.at(reference)))
            withoutMenus.push_back(reference);
    }
    _requests.ask(AtspiNodes::wanted(withoutMenus, AtspiFieldKeyBinding),
        [this, items] { _requests.ask(takeSeparators(items.meant(), items.place), [] {}); });
}

void AtspiQtItems::askPlaces(const AtspiMenuItems& items) {
    AtspiNodes::Wanted wanted;
    wanted.reserve(items.end - items.begin + 1);
    for (std::size_t index = items.begin; index < items.end; ++index) {
        const bool tellsOthers = index % Landmarks == 0 || index + 1 == items.ofMenu.size();
        wanted.emplace_back(items.ofMenu[index], tellsOthers ? AtspiFieldName | AtspiFieldExtents : AtspiFieldName);
    }
    if (items.end < items.ofMenu.size())
        wanted.emplace_back(items.ofMenu[items.end], AtspiFieldExtents);
    _requests.ask(wanted, [this, items] { askItems(items); });
}

void AtspiQtItems::askItems(const AtspiMenuItems& items) {
    const bool roomTells = takePlaces(items);
    std::vector<AtspiReference> named;
    AtspiNodes::Wanted wanted;
    for (const AtspiReference& reference : items.meant()) {
        AtspiNode& node = _nodes.at(reference);
        if (roomTells && isHidden(node))
            continue;
        AtspiFields fields = AtspiFieldExtents;
        if (hasName(node)) {
            takeItem(node);
            named.push_back(reference);
            fields |= opensMenu(node) ? AtspiFieldStates : AtspiFieldStates | AtspiFieldKeyBinding;
        }
        wanted.emplace_back(reference, fields);
    }
    askMenusOf(items, named);
    _requests.ask(wanted, [this, items] { askNamelessItems(items); });
}

void AtspiQtItems::askNamelessItems(const AtspiMenuItems& items) {
    const bool roomTells = takePlaces(items);
    AtspiNodes::Wanted unknown;
    for (const AtspiReference& reference : items.meant()) {
        const AtspiNode& node = _nodes.at(reference);
        // What refuses everything has gone.
        if ((roomTells && isHidden(node)) || !node.name || node.missing(AtspiFieldRole) == 0)
            continue;
        unknown.emplace_back(reference, AtspiFieldRole | AtspiFieldStates | AtspiFieldKeyBinding | AtspiFieldChildren);
    }
    if (!unknown.empty())
        _requests.ask(unknown, [this, items] { _menusKnown(items); });
}

bool AtspiQtItems::takePlaces(const AtspiMenuItems& items) {
    std::vector<AtspiNode*> nodes;
    const std::size_t end = std::min(items.end + 1, items.ofMenu.size());
    for (const AtspiReference& reference : items.ofMenu.subspan(items.begin, end - items.begin))
        nodes.push_back(&_nodes.at(reference));
    const MenuHeights heights = heightsIn(std::vector<const AtspiNode*>(nodes.begin(), nodes.end()));
    const AtspiNode* before = nullptr;
    bool isAnyToBeSeen = false;
    std::vector<AtspiNode*> between;
    for (AtspiNode* node : nodes) {
        if (node->missing(AtspiFieldExtents) != 0)
            between.push_back(node);
        // Who does not tell may take any room.
        else if (!node->extents)
            before = nullptr;
        if (!takesRoom(*node))
            continue;
        if (before != nullptr)
            takePlacesBetween(*before, *node, between, heights);
        between.clear();
        before = node;
        isAnyToBeSeen = true;
    }
    nodes.resize(items.end - items.begin);
    for (AtspiNode* node : nodes) {
        if (node->missing(AtspiFieldRole) != 0 && looksLikeLine(*node, heights.ofItems))
            takeLine(*node);
    }
    return isAnyToBeSeen;
}

void AtspiQtItems::takePlacesBetween(
    const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between, const MenuHeights& heights) {
    const std::vector<Rect> places = placesBetween(before, after, between, heights);
    for (std::size_t index = 0; index < places.size(); ++index) {
        between[index]->extents = places[index];
        between[index]->asked |= AtspiFieldExtents;
    }
}

void AtspiQtItems::takeItem(AtspiNode& node) {
    if (node.missing(AtspiFieldRole) != 0 || node.role == AtspiRoleSeparator)
        node.role = AtspiRoleMenuItem;
    node.asked |= AtspiFieldRole;
}

void AtspiQtItems::takeLine(AtspiNode& node) {
    node.role = AtspiRoleSeparator;
    node.asked |= AtspiFieldRole | AtspiFieldStates | AtspiFieldKeyBinding | AtspiFieldChildren;
}

AtspiNodes::Wanted AtspiQtItems::takeSeparators(std::span<const AtspiReference> references, Place place) {
    AtspiNodes::Wanted unknown;
    if (!holdsItems(place))
        return unknown;
    for (const AtspiReference& reference : references) {
        AtspiNode& node = _nodes.at(reference);
        // What refuses everything has gone.
        if ((node.asked & AtspiFieldRole) != 0 || !node.name)
            continue;
        if (hasName(node)) {
            takeItem(node);
        } else if (node.hasNoAction) {
            takeLine(node);
        } else {
            unknown.emplace_back(reference, AtspiFieldRole | AtspiFieldStates);
        }
    }
    return unknown;
}

AtspiFields AtspiQtItems::fieldsToRemember(const AtspiNode& item, bool roomTells) {
    AtspiFields fields = item.requested;
    if (opensMenu(item))
        fields &= ~AtspiFieldKeyBinding;
    if (roomTells && isHidden(item))
        fields &= AtspiFieldName | AtspiFieldExtents;
    return fields;
}

} // namespace tarragon
