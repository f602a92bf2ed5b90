#include "platform/linux/AtspiItemReading.h"

#include "platform/linux/AtspiAttributes.h"
#include "platform/linux/AtspiRole.h"

namespace tarragon {

namespace {

using Place = AtspiElement::Place;

// Trees of lying applications are cut off here.
constexpr int DeepestLevel = 16;
constexpr std::size_t MostItems = 100'000;

bool holdsItems(Place place) {
    return place == Place::InMenu || place == Place::InMenuBar;
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
    tellSeparatorsApart({objects, place});
}

void AtspiItemReading::readOpeningMenus(const std::vector<AtspiReference>& menus) {
    _nodes.fetch(_connection, wanted(menus, kindFields(Place::UnderItem) | AtspiFieldChildren));
}

void AtspiItemReading::readItems(const std::vector<AtspiReference>& items, Place place) {
    const Level level{items, place};
    readItemsAlone(level);
    _nodes.fetch(_connection, wanted(menusOf(level), kindFields(Place::UnderItem)));
}

void AtspiItemReading::readItemsOfAllLevels(const std::vector<AtspiReference>& items, Place place) {
    Level level{items, place};
    std::size_t count = 0;
    for (int depth = 0; depth < DeepestLevel && !level.items.empty() && count < MostItems; ++depth) {
        count += level.items.size();
        readItemsAlone(level);
        level = readNextLevel(level);
    }
}

void AtspiItemReading::readItemsAlone(const Level& level) {
    AtspiFields fields = kindFields(level.place) | AtspiFieldKeyBinding;
    // Here the role tells whether an item opens a menu; elsewhere only the menu itself does.
    if (_toolkit != AtspiToolkit::Gtk)
        fields |= AtspiFieldChildren;
    _nodes.fetch(_connection, wanted(level.items, fields));
    tellSeparatorsApart(level);
}

void AtspiItemReading::tellSeparatorsApart(const Level& level) {
    if (_toolkit != AtspiToolkit::Qt || !holdsItems(level.place))
        return;
    std::vector<AtspiReference> unknown;
    for (const AtspiReference& reference : level.items) {
        AtspiNode& node = _nodes.at(reference);
        if ((node.asked & AtspiFieldRole) != 0)
            continue;
        const bool hasName = node.name && !node.name->empty();
        if (hasName || node.hasNoAction) {
            node.asked |= AtspiFieldRole;
            node.role = hasName ? AtspiRoleMenuItem : AtspiRoleSeparator;
        } else {
            unknown.push_back(reference);
        }
    }
    _nodes.fetch(_connection, wanted(unknown, AtspiFieldRole));
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
    AtspiNodes::Wanted unread = wanted(menus, kindFields(Place::UnderItem) | AtspiFieldChildren);
    for (const AtspiReference& reference : level.items) {
        if (!hasImpliedMenu(_nodes.at(reference), level.place))
            continue;
        menus.push_back(reference);
        unread.emplace_back(reference, AtspiFieldChildren);
    }
    _nodes.fetch(_connection, unread);

    Level next{{}, Place::InMenu};
    for (const AtspiReference& reference : menus) {
        AtspiNode& menu = _nodes.at(reference);
        // A tree that bites its own tail is read once around.
        if (menu.isReadBelow || !menu.children)
            continue;
        menu.isReadBelow = true;
        next.items.insert(next.items.end(), menu.children->begin(), menu.children->end());
    }
    return next;
}

} // namespace tarragon
