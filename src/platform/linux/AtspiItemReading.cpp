#include "platform/linux/AtspiItemReading.h"

#include "platform/linux/AtspiAttributes.h"
#include "platform/linux/AtspiMenuMemory.h"
#include "platform/linux/AtspiRole.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace tarragon {

namespace {

using Place = AtspiElement::Place;

// Trees of lying applications are cut off here.
constexpr int DeepestLevel = 16;
constexpr std::size_t MostItems = 100'000;
// Of the items of a Qt menu every such one is asked where it is, and those that stand between follow from that.
constexpr std::size_t Landmarks = 4;
// So many are asked about together. A multiple of the other.
constexpr std::size_t PortionOfQtMenu = 32;

bool holdsItems(Place place) {
    return place == Place::InMenu || place == Place::InMenuBar;
}

constexpr std::uint64_t bitOf(AtspiState state) {
    return 1ULL << static_cast<unsigned>(state);
}

// Of Qt items, once their children are known.
bool opensMenu(const AtspiNode& node) {
    return node.children && !node.children->empty();
}

AtspiNodes::Wanted wanted(std::span<const AtspiReference> references, AtspiFields fields) {
    AtspiNodes::Wanted result;
    result.reserve(references.size());
    for (const AtspiReference& reference : references)
        result.emplace_back(reference, fields);
    return result;
}

} // namespace

AtspiFields AtspiItemReading::kindFields(Place place) const {
    if (_toolkit != AtspiToolkit::Qt)
        return AtspiFieldRole | AtspiFieldStates | AtspiFieldName;
    if (!holdsItems(place))
        return AtspiFieldRole;
    // Every request counts with this toolkit, so what the name tells is not asked for: what has one in a menu is an
    // item. Hidden items are told by the room that they take, but not in a menu bar: titles that find no room there are
    // still offered, behind its end.
    const AtspiFields fields = AtspiFieldStates | AtspiFieldName;
    return place == Place::InMenu ? fields | AtspiFieldExtents : fields;
}

void AtspiItemReading::readKinds(const std::vector<AtspiReference>& objects, Place place) {
    _nodes.fetch(_connection, wanted(objects, kindFields(place)));
    _nodes.fetch(_connection, takeSeparators(objects, place));
}

AtspiFields AtspiItemReading::kindOfMenu(const AtspiReference& menu) {
    AtspiNode& node = _nodes.at(menu);
    // In this toolkit nothing but menus stands below an item of a menu.
    if (_toolkit == AtspiToolkit::Qt && node.missing(AtspiFieldRole) != 0) {
        node.role = AtspiRolePopupMenu;
        node.asked |= AtspiFieldRole;
    }
    return kindFields(Place::UnderItem);
}

void AtspiItemReading::readMenus(const std::vector<AtspiReference>& menus) {
    for (const AtspiReference& menu : menus)
        _inquiry.ask({{menu, kindOfMenu(menu)}}, [] {});
    _inquiry.run();
}

void AtspiItemReading::addWanted(
    AtspiNodes::Wanted& wanted, const AtspiReference& container, std::int64_t childCount) const {
    // Only this toolkit searches for us. Of few children it is quicker to ask each, and the more there are the longer a
    // search takes for each of them.
    constexpr std::int64_t fewestChildren = 3;
    constexpr std::int64_t mostChildren = 100;
    const bool searches = _toolkit == AtspiToolkit::Gtk && childCount >= fewestChildren && childCount <= mostChildren;
    wanted.emplace_back(container, searches ? AtspiFieldChildren | AtspiFieldKinds : AtspiFieldChildren);
    AtspiNodes::Wanted items = _memory.itemsOf(container);
    std::ranges::move(items, std::back_inserter(wanted));
}

void AtspiItemReading::readContainer(const AtspiReference& container, std::int64_t childCount) {
    AtspiNodes::Wanted wanted;
    addWanted(wanted, container, childCount);
    _nodes.fetch(_connection, wanted);
}

void AtspiItemReading::readItems(const AtspiReference& container, Place place) {
    readLevels(container, place, 0);
}

void AtspiItemReading::readItemsOfAllLevels(const AtspiReference& container, Place place) {
    readLevels(container, place, DeepestLevel);
}

void AtspiItemReading::readLevels(const AtspiReference& container, Place place, int levelsBelow) {
    askItems(container, place, levelsBelow);
    _inquiry.run();
    for (const AtspiReference& read : _containers) {
        if (_toolkit == AtspiToolkit::Qt)
            dropKeysOfMenus(*_nodes.at(read).children);
        remember(read);
    }
    _containers.clear();
}

void AtspiItemReading::dropKeysOfMenus(const std::vector<AtspiReference>& items) {
    for (const AtspiReference& item : items) {
        if (opensMenu(_nodes.at(item)))
            takeMenuOpener(_nodes.at(item));
    }
}

void AtspiItemReading::remember(const AtspiReference& container) {
    const AtspiNode& menu = _nodes.at(container);
    const bool roomTells =
        std::ranges::any_of(*menu.children, [this](const AtspiReference& item) { return takesRoom(_nodes.at(item)); });
    AtspiNodes::Wanted asked;
    for (const AtspiReference& item : *menu.children) {
        // Another application need not be awake when this one is asked.
        if (item.busName == container.busName)
            asked.emplace_back(item, fieldsToRemember(_nodes.at(item), menu.kinds.areKnown(), roomTells));
    }
    _memory.remember(container, std::move(asked));
}

AtspiFields AtspiItemReading::fieldsToRemember(const AtspiNode& item, bool kindsTell, bool roomTells) const {
    AtspiFields fields = item.requested;
    if (_toolkit == AtspiToolkit::Gtk) {
        // Items are menus themselves: what is in them is asked when they open.
        fields &= ~(AtspiFieldChildren | AtspiFieldKinds);
        if (item.role == AtspiRoleMenu)
            fields |= AtspiFieldChildCount;
        if (kindsTell && hasName(item))
            fields &= ~AtspiFieldRole;
    } else if (_toolkit == AtspiToolkit::Qt) {
        if (opensMenu(item))
            fields &= ~AtspiFieldKeyBinding;
        if (roomTells && isHidden(item))
            fields &= AtspiFieldName | AtspiFieldExtents;
    }
    return fields;
}

bool AtspiItemReading::haveVanished(const std::vector<AtspiReference>& items) const {
    return std::ranges::any_of(items, [this](const AtspiReference& reference) {
        const AtspiNode& node = _nodes.at(reference);
        const bool isNameless = node.role == AtspiRoleSeparator || node.role == AtspiRoleTearoffMenuItem;
        return !isNameless && node.missing(AtspiFieldName) == 0 && !node.name;
    });
}

void AtspiItemReading::takeKinds(const AtspiNode& container) {
    if (!container.kinds.areKnown() || !container.children)
        return;
    std::unordered_map<AtspiReference, Kind, AtspiReferenceHash> kinds;
    for (const AtspiReference& reference : container.kinds.usual)
        kinds[reference].isUsual = true;
    for (const AtspiReference& reference : container.kinds.checked)
        kinds[reference].isChecked = true;
    for (const AtspiReference& reference : container.kinds.menus)
        kinds[reference].role = AtspiRoleMenu;
    for (const AtspiReference& reference : container.kinds.separators)
        kinds[reference].role = AtspiRoleSeparator;
    for (const AtspiReference& reference : *container.children)
        takeKind(reference, kinds[reference]);
}

void AtspiItemReading::takeKind(const AtspiReference& reference, const Kind& kind) {
    constexpr std::uint64_t usual =
        bitOf(AtspiState::Visible) | bitOf(AtspiState::Sensitive) | bitOf(AtspiState::Enabled);
    AtspiNode& node = _nodes.at(reference);
    if (node.missing(AtspiFieldRole) != 0) {
        node.role = kind.role;
        node.isRoleAssumed = kind.role == AtspiRoleMenuItem;
    }
    node.asked |= AtspiFieldRole;
    // The others are asked one by one what they are.
    if (kind.isUsual) {
        // It need not have been asked.
        node.requested &= ~AtspiFieldStates;
        if (node.missing(AtspiFieldStates) != 0)
            node.states = kind.isChecked ? usual | bitOf(AtspiState::Checked) : usual;
        node.asked |= AtspiFieldStates;
    }
    // Lines between items have no keys and no names.
    if (kind.role != AtspiRoleMenuItem)
        takeMenuOpener(node);
    if (kind.role == AtspiRoleSeparator)
        node.asked |= AtspiFieldName;
}

void AtspiItemReading::askItems(const AtspiReference& container, Place place, int levelsBelow) {
    const AtspiNode& node = _nodes.at(container);
    takeKinds(node);
    _containers.push_back(container);
    const Items items{*node.children, 0, node.children->size(), place, levelsBelow};
    _itemCount += items.end;
    if (_toolkit != AtspiToolkit::Qt) {
        askItemsAndMenusBelow(items);
    } else if (place != Place::InMenu) {
        askMenusOfQtItems(items, items.meant());
        _inquiry.ask(
            wanted(items.meant(), kindFields(place) | AtspiFieldChildren), [this, items] { askKeysOfQtItems(items); });
    } else {
        for (std::size_t begin = 0; begin < items.end; begin += PortionOfQtMenu)
            askPlacesInQtMenu({items.ofMenu, begin, std::min(begin + PortionOfQtMenu, items.end), place, levelsBelow});
    }
}

void AtspiItemReading::askItemsAndMenusBelow(const Items& items) {
    const AtspiFields kind = kindFields(items.place) | AtspiFieldKeyBinding;
    AtspiNodes::Wanted unread;
    unread.reserve(items.end);
    for (const AtspiReference& reference : items.ofMenu) {
        const AtspiNode& node = _nodes.at(reference);
        AtspiFields fields = kind;
        // Here the role tells whether an item opens a menu; elsewhere only the menu itself does.
        if (_toolkit != AtspiToolkit::Gtk)
            fields |= AtspiFieldChildren;
        else if (node.role == AtspiRoleMenu && node.missing(AtspiFieldName) != 0)
            fields |= AtspiFieldChildCount;
        unread.emplace_back(reference, fields);
    }
    _inquiry.ask(unread, [this, items] { askNamelessItems(items); });
}

void AtspiItemReading::askNamelessItems(const Items& items) {
    // The searches do not tell tear-offs from items, but these have no labels.
    AtspiNodes::Wanted nameless;
    for (const AtspiReference& reference : items.meant()) {
        AtspiNode& node = _nodes.at(reference);
        const bool isNameless = node.name && node.name->empty();
        if (!isNameless || !std::exchange(node.isRoleAssumed, false))
            continue;
        node.asked &= ~AtspiFieldRole;
        nameless.emplace_back(reference, AtspiFieldRole);
    }
    _inquiry.ask(nameless, [this, items] { askMenusBelow(items); });
}

void AtspiItemReading::askMenusOfQtItems(const Items& items, std::span<const AtspiReference> references) {
    _inquiry.ask(wanted(references, AtspiFieldChildren), [this, items] { askMenusBelow(items); });
}

void AtspiItemReading::askKeysOfQtItems(const Items& items) {
    std::vector<AtspiReference> withoutMenus;
    for (const AtspiReference& reference : items.meant()) {
        if (!opensMenu(_nodes.at(reference)))
            withoutMenus.push_back(reference);
    }
    _inquiry.ask(wanted(withoutMenus, AtspiFieldKeyBinding),
        [this, items] { _inquiry.ask(takeSeparators(items.meant(), items.place), [] {}); });
}

void AtspiItemReading::askPlacesInQtMenu(const Items& items) {
    AtspiNodes::Wanted wanted;
    wanted.reserve(items.end - items.begin + 1);
    for (std::size_t index = items.begin; index < items.end; ++index) {
        const bool tellsOthers = index % Landmarks == 0 || index + 1 == items.ofMenu.size();
        wanted.emplace_back(items.ofMenu[index], tellsOthers ? AtspiFieldName | AtspiFieldExtents : AtspiFieldName);
    }
    if (items.end < items.ofMenu.size())
        wanted.emplace_back(items.ofMenu[items.end], AtspiFieldExtents);
    _inquiry.ask(wanted, [this, items] { askItemsOfQtMenu(items); });
}

void AtspiItemReading::askItemsOfQtMenu(const Items& items) {
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
    askMenusOfQtItems(items, named);
    _inquiry.ask(wanted, [this, items] { askNamelessItemsOfQtMenu(items); });
}

void AtspiItemReading::askNamelessItemsOfQtMenu(const Items& items) {
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
        _inquiry.ask(unknown, [this, items] { askMenusBelow(items); });
}

bool AtspiItemReading::takePlaces(const Items& items) {
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

void AtspiItemReading::takePlacesBetween(
    const AtspiNode& before, const AtspiNode& after, std::span<AtspiNode* const> between, const MenuHeights& heights) {
    const std::vector<Rect> places = placesBetween(before, after, between, heights);
    for (std::size_t index = 0; index < places.size(); ++index) {
        between[index]->extents = places[index];
        between[index]->asked |= AtspiFieldExtents;
    }
}

void AtspiItemReading::takeMenuOpener(AtspiNode& node) {
    node.keyBinding.reset();
    node.asked |= AtspiFieldKeyBinding;
}

void AtspiItemReading::takeItem(AtspiNode& node) {
    if (node.missing(AtspiFieldRole) != 0 || node.role == AtspiRoleSeparator)
        node.role = AtspiRoleMenuItem;
    node.asked |= AtspiFieldRole;
}

void AtspiItemReading::takeLine(AtspiNode& node) {
    node.role = AtspiRoleSeparator;
    node.asked |= AtspiFieldRole | AtspiFieldStates | AtspiFieldKeyBinding | AtspiFieldChildren;
}

AtspiNodes::Wanted AtspiItemReading::takeSeparators(std::span<const AtspiReference> references, Place place) {
    AtspiNodes::Wanted unknown;
    if (_toolkit != AtspiToolkit::Qt || !holdsItems(place))
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

void AtspiItemReading::askMenusBelow(const Items& items) {
    for (const AtspiReference& reference : items.meant()) {
        const AtspiNode& node = _nodes.at(reference);
        if (hasImpliedMenu(node, items.place)) {
            if (items.levelsBelow > 0)
                askMenu(reference, AtspiFieldNone, node.childCount.value_or(-1), items.levelsBelow);
        } else if (node.children) {
            for (const AtspiReference& menu : *node.children)
                askMenu(menu, kindOfMenu(menu), -1, items.levelsBelow);
        }
    }
}

void AtspiItemReading::askMenu(const AtspiReference& reference, AtspiFields kind, std::int64_t childCount, int levels) {
    if (levels == 0) {
        _inquiry.ask({{reference, kind}}, [] {});
        return;
    }
    if (++_itemCount >= MostItems)
        return;
    const AtspiInquiry::Next next = [this, reference, levels] {
        AtspiNode& menu = _nodes.at(reference);
        // A tree that bites its own tail is read once around.
        if (!menu.children || std::exchange(menu.isReadBelow, true))
            return;
        askItems(reference, Place::InMenu, levels - 1);
    };
    if (isLong(_toolkit, childCount)) {
        _inquiry.askChildrenOneByOne(reference, next);
        return;
    }
    AtspiNodes::Wanted wanted{{reference, kind}};
    addWanted(wanted, reference, childCount);
    _inquiry.ask(wanted, next);
}

} // namespace tarragon
