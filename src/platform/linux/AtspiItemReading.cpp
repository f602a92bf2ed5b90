#include "platform/linux/AtspiItemReading.h"

#include "platform/linux/AtspiAttributes.h"
#include "platform/linux/AtspiRole.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace tarragon {

namespace {

using Place = AtspiElement::Place;

// Trees of lying applications are cut off here.
constexpr int DeepestLevel = 16;
constexpr std::size_t MostItems = 100'000;

bool holdsItems(Place place) {
    return place == Place::InMenu || place == Place::InMenuBar;
}

constexpr std::uint64_t bitOf(AtspiState state) {
    return 1ULL << static_cast<unsigned>(state);
}

AtspiNodes::Wanted wanted(const std::vector<AtspiReference>& references, AtspiFields fields) {
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
    tellSeparatorsApart(levelOf(objects, place));
}

void AtspiItemReading::readMenus(const std::vector<AtspiReference>& menus) {
    if (_toolkit != AtspiToolkit::Qt) {
        _nodes.fetch(_connection, wanted(menus, kindFields(Place::UnderItem)));
        return;
    }
    // In this toolkit nothing but menus stands below an item of a menu.
    for (const AtspiReference& reference : menus) {
        AtspiNode& node = _nodes.at(reference);
        if (node.missing(AtspiFieldRole) == 0)
            continue;
        node.role = AtspiRolePopupMenu;
        node.asked |= AtspiFieldRole;
    }
}

AtspiFields AtspiItemReading::fieldsOfContainer(AtspiToolkit toolkit, std::int64_t childCount) {
    // Only this toolkit searches for us, and it takes longer for each child the more of them there are.
    constexpr std::int64_t mostChildren = 100;
    const bool searches = toolkit == AtspiToolkit::Gtk && childCount >= 0 && childCount <= mostChildren;
    return searches ? AtspiFieldChildren | AtspiFieldKinds : AtspiFieldChildren;
}

void AtspiItemReading::readItems(const AtspiNode& container, Place place) {
    takeKinds(container);
    const Level level = levelOf(*container.children, place);
    readItemsAlone(level);
    readMenus(menusOf(level));
}

void AtspiItemReading::readItemsOfAllLevels(const AtspiNode& container, Place place) {
    takeKinds(container);
    Level level = levelOf(*container.children, place);
    std::size_t count = 0;
    for (int depth = 0; depth < DeepestLevel && !level.items.empty() && count < MostItems; ++depth) {
        count += level.items.size();
        readItemsAlone(level);
        level = readNextLevel(level);
    }
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
    if (kind.isUsual && node.missing(AtspiFieldStates) != 0) {
        node.states = kind.isChecked ? usual | bitOf(AtspiState::Checked) : usual;
        node.asked |= AtspiFieldStates;
    }
    // What opens a menu has no keys, and lines between items have no name either.
    if (kind.role != AtspiRoleMenuItem)
        node.asked |= AtspiFieldKeyBinding;
    if (kind.role == AtspiRoleSeparator)
        node.asked |= AtspiFieldName;
}

void AtspiItemReading::readItemsAlone(const Level& level) {
    if (_toolkit == AtspiToolkit::Qt && level.place == Place::InMenu) {
        readItemsOfQtMenus(level);
        return;
    }
    const AtspiFields kind = kindFields(level.place) | AtspiFieldKeyBinding;
    AtspiNodes::Wanted unread;
    unread.reserve(level.items.size());
    for (const AtspiReference& reference : level.items) {
        const AtspiNode& node = _nodes.at(reference);
        AtspiFields fields = kind;
        // Here the role tells whether an item opens a menu; elsewhere only the menu itself does.
        if (_toolkit != AtspiToolkit::Gtk)
            fields |= AtspiFieldChildren;
        else if (node.role == AtspiRoleMenu && node.missing(AtspiFieldName) != 0)
            fields |= AtspiFieldChildCount;
        unread.emplace_back(reference, fields);
    }
    _nodes.fetch(_connection, unread);
    tellSeparatorsApart(level);
    askRolesOfNamelessItems(level);
}

void AtspiItemReading::askRolesOfNamelessItems(const Level& level) {
    // The searches do not tell tear-offs from items, but these have no labels.
    AtspiNodes::Wanted nameless;
    for (const AtspiReference& reference : level.items) {
        AtspiNode& node = _nodes.at(reference);
        const bool isNameless = node.name && node.name->empty();
        if (!isNameless || !std::exchange(node.isRoleAssumed, false))
            continue;
        node.asked &= ~AtspiFieldRole;
        nameless.emplace_back(reference, AtspiFieldRole);
    }
    _nodes.fetch(_connection, nameless);
}

void AtspiItemReading::readItemsOfQtMenus(const Level& level) {
    AtspiNodes::Wanted wanted;
    wanted.reserve(level.items.size());
    std::size_t begin = 0;
    for (const std::size_t end : level.ends) {
        // Whether an item between two others takes room is told by theirs.
        for (std::size_t index = begin; index < end; ++index) {
            const bool tellsOthers = (index - begin) % 2 == 0 || index + 1 == end;
            wanted.emplace_back(level.items[index], tellsOthers ? AtspiFieldName | AtspiFieldExtents : AtspiFieldName);
        }
        begin = end;
    }
    _nodes.fetch(_connection, wanted);
    takePlacesBetween(level);

    // Lines have no names, no states, no keys and nothing below them.
    for (auto& [reference, fields] : wanted) {
        const AtspiNode& node = _nodes.at(reference);
        const bool hasName = node.name && !node.name->empty();
        fields = AtspiFieldExtents | AtspiFieldKeyBinding;
        if (hasName)
            fields |= AtspiFieldStates | AtspiFieldChildren;
    }
    _nodes.fetch(_connection, wanted);
    tellSeparatorsApart(level);
}

void AtspiItemReading::takePlacesBetween(const Level& level) {
    std::size_t begin = 0;
    for (const std::size_t end : level.ends) {
        for (std::size_t index = begin + 1; index + 1 < end; ++index) {
            AtspiNode& node = _nodes.at(level.items[index]);
            if (node.missing(AtspiFieldExtents) == 0)
                continue;
            node.extents = placeBetween(_nodes.at(level.items[index - 1]), _nodes.at(level.items[index + 1]));
            if (node.extents)
                node.asked |= AtspiFieldExtents;
        }
        begin = end;
    }
}

void AtspiItemReading::tellSeparatorsApart(const Level& level) {
    if (_toolkit != AtspiToolkit::Qt || !holdsItems(level.place))
        return;
    std::vector<AtspiReference> unknown;
    for (const AtspiReference& reference : level.items) {
        AtspiNode& node = _nodes.at(reference);
        if ((node.asked & AtspiFieldRole) != 0)
            continue;
        // What refuses everything has gone.
        if (!node.name)
            continue;
        const bool hasName = !node.name->empty();
        if (hasName || node.hasNoAction) {
            node.asked |= AtspiFieldRole;
            node.role = hasName ? AtspiRoleMenuItem : AtspiRoleSeparator;
            // A line has nothing else to tell.
            if (!hasName)
                node.asked |= AtspiFieldStates | AtspiFieldChildren;
        } else {
            unknown.push_back(reference);
        }
    }
    _nodes.fetch(_connection, wanted(unknown, AtspiFieldRole | AtspiFieldStates));
}

std::vector<AtspiReference> AtspiItemReading::menusOf(const Level& level) {
    std::vector<AtspiReference> menus;
    for (const AtspiReference& reference : level.items) {
        const AtspiNode& node = _nodes.at(reference);
        if (node.children && !hasImpliedMenu(node, level.place))
            menus.insert(menus.end(), node.children->begin(), node.children->end());
    }
    return menus;
}

AtspiItemReading::Level AtspiItemReading::readNextLevel(const Level& level) {
    std::vector<AtspiReference> menus = menusOf(level);
    readMenus(menus);
    AtspiNodes::Wanted unread = wanted(menus, AtspiFieldChildren);
    for (const AtspiReference& reference : level.items) {
        if (!hasImpliedMenu(_nodes.at(reference), level.place))
            continue;
        menus.push_back(reference);
        const std::int64_t childCount = _nodes.at(reference).childCount.value_or(-1);
        if (isLong(_toolkit, childCount))
            _nodes.fetchChildrenOneByOne(_connection, reference);
        else
            unread.emplace_back(reference, fieldsOfContainer(_toolkit, childCount));
    }
    _nodes.fetch(_connection, unread);

    Level next{{}, Place::InMenu, {}};
    for (const AtspiReference& reference : menus) {
        AtspiNode& menu = _nodes.at(reference);
        // A tree that bites its own tail is read once around.
        if (menu.isReadBelow || !menu.children)
            continue;
        menu.isReadBelow = true;
        takeKinds(menu);
        next.items.insert(next.items.end(), menu.children->begin(), menu.children->end());
        next.ends.push_back(next.items.size());
    }
    return next;
}

} // namespace tarragon
