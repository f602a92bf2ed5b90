#include "platform/linux/accessibletree/AtspiItemReading.h"

#include "platform/linux/accessibletree/AtspiAttributes.h"
#include "platform/linux/accessibletree/AtspiMenuLayout.h"
#include "platform/linux/accessibletree/AtspiMenuMemory.h"
#include "platform/linux/accessibletree/AtspiRole.h"

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

constexpr std::uint64_t bitOf(AtspiState state) {
    return 1ULL << static_cast<unsigned>(state);
}

} // namespace

AtspiItemReading::AtspiItemReading(
    AtspiConnection& connection, AtspiNodes& nodes, AtspiMenuMemory& memory, AtspiToolkit toolkit)
    : _connection(connection)
    , _nodes(nodes)
    , _memory(memory)
    , _toolkit(toolkit)
    , _requests(connection, nodes)
    , _qtItems(nodes, _requests, [this](const AtspiMenuItems& items) { askMenusBelow(items); }) { }

AtspiFields AtspiItemReading::kindFields(Place place) const {
    return _toolkit == AtspiToolkit::Qt ? AtspiQtItems::kindFields(place)
                                        : AtspiFieldRole | AtspiFieldStates | AtspiFieldName;
}

void AtspiItemReading::readKinds(const std::vector<AtspiReference>& objects, Place place) {
    _nodes.fetch(_connection, AtspiNodes::wanted(objects, kindFields(place)));
    if (_toolkit == AtspiToolkit::Qt)
        _nodes.fetch(_connection, _qtItems.takeSeparators(objects, place));
}

AtspiFields AtspiItemReading::kindOfMenu(const AtspiReference& menu) {
    if (_toolkit == AtspiToolkit::Qt)
        AtspiQtItems::takeMenu(_nodes.at(menu));
    return kindFields(Place::UnderItem);
}

void AtspiItemReading::readMenus(const std::vector<AtspiReference>& menus) {
    for (const AtspiReference& menu : menus)
        _requests.ask({{menu, kindOfMenu(menu)}}, [] {});
    _requests.run();
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
    _requests.run();
    for (const AtspiReference& read : _containers) {
        if (_toolkit == AtspiToolkit::Qt)
            _qtItems.dropKeysOfMenus(*_nodes.at(read).children);
        remember(read);
    }
    _containers.clear();
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
    if (_toolkit == AtspiToolkit::Qt)
        return AtspiQtItems::fieldsToRemember(item, roomTells);
    if (_toolkit != AtspiToolkit::Gtk)
        return item.requested;
    // Items are menus themselves: what is in them is asked when they open.
    AtspiFields fields = item.requested & ~(AtspiFieldChildren | AtspiFieldKinds);
    if (item.role == AtspiRoleMenu)
        fields |= AtspiFieldChildCount;
    if (kindsTell && hasName(item))
        fields &= ~AtspiFieldRole;
    return fields;
}

bool AtspiItemReading::haveVanished(const std::vector<AtspiReference>& items) const {
    return std::ranges::any_of(items, [this](const AtspiReference& reference) {
        const AtspiNode& node = _nodes.at(reference);
        const bool isNameless = node.role == AtspiRoleSeparator || node.role == AtspiRoleTearoffMenuItem;
        const bool tellsNoName = node.missing(AtspiFieldName) == 0 && !node.name;
        // It may have gone when it had just told its name.
        const bool tellsNoStates = (node.requested & AtspiFieldStates) != 0 && !node.states;
        return !isNameless && (tellsNoName || tellsNoStates);
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
        node.takeNoKey();
    if (kind.role == AtspiRoleSeparator)
        node.asked |= AtspiFieldName;
}

void AtspiItemReading::askItems(const AtspiReference& container, Place place, int levelsBelow) {
    const AtspiNode& node = _nodes.at(container);
    takeKinds(node);
    _containers.push_back(container);
    const AtspiMenuItems items{*node.children, 0, node.children->size(), place, levelsBelow};
    _itemCount += items.end;
    if (_toolkit == AtspiToolkit::Qt)
        _qtItems.ask(items);
    else
        askItemsAndMenusBelow(items);
}

void AtspiItemReading::askItemsAndMenusBelow(const AtspiMenuItems& items) {
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
    _requests.ask(unread, [this, items] { askNamelessItems(items); });
}

void AtspiItemReading::askNamelessItems(const AtspiMenuItems& items) {
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
    _requests.ask(nameless, [this, items] { askMenusBelow(items); });
}

void AtspiItemReading::askMenusBelow(const AtspiMenuItems& items) {
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
        _requests.ask({{reference, kind}}, [] {});
        return;
    }
    if (++_itemCount >= MostItems)
        return;
    const AtspiRequestGraph::Next next = [this, reference, levels] {
        AtspiNode& menu = _nodes.at(reference);
        // A tree that bites its own tail is read once around.
        if (!menu.children || std::exchange(menu.isReadBelow, true))
            return;
        askItems(reference, Place::InMenu, levels - 1);
    };
    if (isLong(_toolkit, childCount)) {
        _requests.askChildrenOneByOne(reference, next);
        return;
    }
    AtspiNodes::Wanted wanted{{reference, kind}};
    addWanted(wanted, reference, childCount);
    _requests.ask(wanted, next);
}

} // namespace tarragon
