#include "platform/linux/accessibletree/AtspiTree.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibletree/AtspiAttributes.h"
#include "platform/linux/accessibletree/AtspiItemReading.h"
#include "platform/linux/accessibletree/AtspiMenuLayout.h"
#include "platform/linux/accessibletree/AtspiRequestGraph.h"
#include "platform/linux/accessibletree/AtspiRole.h"

#include <algorithm>

namespace tarragon {

namespace {

using Kind = AtspiElement::Kind;
using Place = AtspiElement::Place;

constexpr std::string_view RootPath = "/org/a11y/atspi/accessible/root";

std::shared_ptr<AtspiElement> relative(const AtspiElement& element, Kind kind) {
    auto result = std::make_shared<AtspiElement>();
    result->kind = kind;
    result->toolkit = element.toolkit;
    result->window = element.window;
    result->processIdentifier = element.processIdentifier;
    result->busIdentity = element.busIdentity;
    result->steps = element.steps + 1;
    return result;
}

// The object is the element itself or one of its parents: a tree that bites its own tail.
bool isAmongParents(const AtspiReference& reference, const AtspiElement* element) {
    for (; element != nullptr; element = AtspiElement::of(element->parent)) {
        if (element->reference == reference)
            return true;
    }
    return false;
}

// In these toolkits an item whose role is not "menu" has no children.
bool isLeaf(const AtspiNode& node, AtspiToolkit toolkit) {
    return toolkit == AtspiToolkit::Gtk && node.role && isMenuItemRole(*node.role) && *node.role != AtspiRoleMenu;
}

} // namespace

std::optional<std::vector<std::string>> AtspiTree::attributeNames(const Element& element) {
    const std::string_view role = roleFirst(*AtspiElement::of(element));
    return role.empty() ? std::nullopt : std::optional(attributeNamesOfRole(role));
}

bool AtspiTree::hasAttribute(const Element& element, std::string_view attribute) {
    const std::string_view role = roleFirst(*AtspiElement::of(element));
    return !role.empty() && roleHasAttribute(role, attribute);
}

Value AtspiTree::attributeValue(const Element& element, std::string_view attribute) {
    const AtspiElement& handle = *AtspiElement::of(element);
    if (attribute == attribute::Children) {
        auto result = children(element);
        return result ? Value{std::move(*result)} : Value{};
    }
    if (attribute == attribute::Parent) {
        const Element parent = parentOf(handle);
        return parent ? Value{parent} : Value{};
    }
    if (attribute == attribute::Window) {
        if (handle.window == 0)
            return {};
        return Element(relative(handle, Kind::Window));
    }
    if (handle.kind == Kind::ItemMenu) {
        if (attribute == attribute::Role)
            return std::string(role::Menu);
        if (attribute == attribute::RoleDescription)
            return std::string(accessibilityRoleDescription(role::Menu));
        return {};
    }
    if (attribute == attribute::Role || attribute == attribute::RoleDescription) {
        const std::string_view role = roleOf(handle);
        if (role.empty())
            return {};
        return std::string(attribute == attribute::Role ? role : accessibilityRoleDescription(role));
    }
    // A menu has no title, so its name need not be asked for.
    if (attribute == attribute::Title && _nodes.at(handle.reference).role == AtspiRolePopupMenu)
        return {};
    const AtspiFields fields = fieldsForAttribute(attribute);
    if (fields == AtspiFieldNone)
        return {};
    return attributeOfNode(_nodes.fetch(_connection, handle.reference, fields), handle.place, attribute);
}

std::optional<std::int64_t> AtspiTree::childCount(const AtspiElement& element) {
    if (element.kind == Kind::ItemMenu)
        return childCount(element.reference);
    const AtspiNode& node = _nodes.fetch(_connection, element.reference, AtspiFieldRole | AtspiFieldChildCount);
    if (!node.role)
        return {};
    if (isLeaf(node, element.toolkit))
        return 0;
    if (hasImpliedMenu(node, element.place))
        return 1;
    return childCount(element.reference);
}

std::optional<std::int64_t> AtspiTree::childCount(const AtspiReference& container) {
    const auto count = _nodes.fetch(_connection, container, AtspiFieldChildCount).childCount;
    return count && *count >= 0 ? count : std::nullopt;
}

std::optional<std::vector<std::string>> AtspiTree::actionNames(const AtspiElement& element) {
    constexpr const char* interface = "org.a11y.atspi.Action";
    constexpr std::int64_t limit = 50;
    std::optional<std::int64_t> count;
    _connection.run({AtspiRequest::property(
        element.reference, interface, "NActions", [&count](AtspiReply& reply) { count = reply.readInteger(); })});
    if (!count)
        return {};
    // The call that tells all actions at once tells translated names.
    std::vector<std::string> names(static_cast<std::size_t>(std::clamp<std::int64_t>(*count, 0, limit)));
    AtspiRequests requests;
    for (std::size_t index = 0; index < names.size(); ++index) {
        std::string* const name = &names[index];
        requests.push_back({element.reference, interface, "GetName", static_cast<std::int32_t>(index),
            [name](AtspiReply& reply) { *name = reply.readString().value_or(std::string{}); }});
    }
    _connection.run(requests);
    return names;
}

std::string_view AtspiTree::roleFirst(const AtspiElement& element) {
    if (element.kind == Kind::ItemMenu)
        return role::Menu;
    const bool isKnown = _reading == Reading::OneAttribute || _nodes.at(element.reference).role;
    // What was found in a menu is an item of it, whatever else it is.
    if (!isKnown && element.place == Place::InMenu)
        return role::MenuItem;
    // Whoever begins with an item of a menu bar goes on with the menu that it opens.
    if (!isKnown && element.place == Place::InMenuBar)
        readWithChildren(element);
    return roleOf(element);
}

std::string_view AtspiTree::roleOf(const AtspiElement& element) {
    const AtspiNode& node = _nodes.fetch(_connection, element.reference, AtspiFieldRole);
    const std::string_view role = roleOfNode(node, placeOf(element));
    if (role == role::Window) {
        // Some toolkits call a mere border "frame" as well.
        const auto& parent = _nodes.fetch(_connection, element.reference, AtspiFieldParent).parent;
        if (parent && !parent->isNull() && parent->path != RootPath)
            return "AXGroup";
    }
    return role;
}

Place AtspiTree::placeOf(const AtspiElement& element) {
    if (element.place != Place::Elsewhere)
        return element.place;
    const AtspiNode& node = _nodes.fetch(_connection, element.reference, AtspiFieldRole);
    if (!node.role || !isMenuItemRole(*node.role))
        return Place::Elsewhere;
    // Not reached from above, so it has to be asked what it stands in.
    const auto& parent = _nodes.fetch(_connection, element.reference, AtspiFieldParent).parent;
    if (!parent || parent->isNull())
        return Place::Elsewhere;
    const AtspiNode& parentNode = _nodes.fetch(_connection, *parent, AtspiFieldRole);
    if (parentNode.role == AtspiRoleMenuBar)
        return Place::InMenuBar;
    if (parentNode.role == AtspiRolePopupMenu || parentNode.role == AtspiRoleMenu)
        return Place::InMenu;
    return Place::Elsewhere;
}

Element AtspiTree::parentOf(const AtspiElement& element) {
    if (element.parent)
        return element.parent;
    const auto& parent = _nodes.fetch(_connection, element.reference, AtspiFieldParent).parent;
    const bool isTop = !parent || parent->isNull() || parent->path == RootPath || *parent == element.reference;
    if (isTop || element.steps >= AtspiElement::StepLimit)
        return Element(relative(element, Kind::Application));
    auto result = relative(element, Kind::Node);
    result->reference = *parent;
    return Element(std::move(result));
}

std::optional<std::vector<Element>> AtspiTree::children(const Element& element) {
    const AtspiElement& handle = *AtspiElement::of(element);
    if (handle.kind == Kind::ItemMenu)
        return childrenInPlace(element, handle.reference, Place::InMenu);
    const AtspiNode& node = _nodes.at(handle.reference);
    const bool isKnown = node.role.has_value();
    if (isKnown && isLeaf(node, handle.toolkit))
        return std::vector<Element>{};
    if (!isKnown || !hasImpliedMenu(node, handle.place))
        readWithChildren(handle);
    if (!node.role)
        return {};
    if (hasImpliedMenu(node, handle.place)) {
        auto menu = relative(handle, Kind::ItemMenu);
        menu->reference = handle.reference;
        menu->childCount = handle.childCount;
        menu->parent = element;
        menu->place = Place::UnderItem;
        return std::vector<Element>{Element(std::move(menu))};
    }
    return childrenInPlace(element, handle.reference, placeOfChildren(*node.role, handle.place));
}

std::optional<std::vector<Element>> AtspiTree::children(const Element& parent, const AtspiReference& container) {
    return childrenInPlace(parent, container, Place::Elsewhere);
}

std::optional<std::vector<Element>> AtspiTree::childrenInPlace(
    const Element& parent, const AtspiReference& container, Place place) {
    const AtspiElement& handle = *AtspiElement::of(parent);
    const bool isTold = readList(handle, container, place);
    const auto& references = _nodes.at(container).children;
    if (!isTold || !references)
        return {};
    std::vector<Element> result;
    if (handle.steps >= AtspiElement::StepLimit)
        return result;
    // Qt keeps hidden items in the tree, and the states of a closed menu's items do not tell. Only those that are to be
    // seen take room, once the menu has been laid out.
    const bool roomTells = place == Place::InMenu && handle.toolkit == AtspiToolkit::Qt
        && std::ranges::any_of(
            *references, [this](const AtspiReference& reference) { return takesRoom(_nodes.at(reference)); });
    result.reserve(references->size());
    for (const AtspiReference& reference : *references) {
        if (isAmongParents(reference, &handle))
            continue;
        if (place != Place::Elsewhere && !isShownInMenu(_nodes.at(reference), handle.toolkit))
            continue;
        if (roomTells && !takesRoom(_nodes.at(reference)))
            continue;
        auto child = relative(handle, Kind::Node);
        child->reference = reference;
        child->place = place;
        const AtspiNode& node = _nodes.at(reference);
        child->childCount = node.childCount.value_or(-1);
        if (node.children && node.children->size() == 1 && handle.toolkit == AtspiToolkit::Qt)
            child->menu = node.children->front();
        child->parent = parent;
        result.emplace_back(std::move(child));
    }
    return result;
}

bool AtspiTree::readList(const AtspiElement& parent, const AtspiReference& container, Place place) {
    constexpr int attempts = 3;
    const AtspiItemReading reading(_connection, _nodes, _memory, parent.toolkit);
    AtspiNode& node = _nodes.at(container);
    fetchList(parent, container);
    if (!node.children || place == Place::Elsewhere || parent.steps >= AtspiElement::StepLimit)
        return node.children.has_value();
    readChildren(container, place, parent.toolkit);
    if (_reading != Reading::OneLevel)
        return true;
    // Applications put others in the place of their items whenever they like, also between the list and the items.
    for (int attempt = 1; attempt < attempts && reading.haveVanished(*node.children); ++attempt) {
        const std::vector<AtspiReference> former = *node.children;
        node.asked &= ~(AtspiFieldChildren | AtspiFieldKinds);
        node.children.reset();
        fetchList(parent, container);
        // The application has fallen silent, or has items that tell nothing.
        if (!node.children)
            node.children = former;
        if (*node.children == former)
            break;
        readChildren(container, place, parent.toolkit);
    }
    return true;
}

void AtspiTree::fetchList(const AtspiElement& parent, const AtspiReference& container) {
    if (AtspiItemReading::isLong(parent.toolkit, parent.childCount)) {
        AtspiRequestGraph requests(_connection, _nodes);
        requests.askChildrenOneByOne(container, [] {});
        requests.run();
        return;
    }
    const bool isNews = readsAhead() && _nodes.at(container).missing(AtspiFieldChildren) != 0;
    if (isNews)
        AtspiItemReading(_connection, _nodes, _memory, parent.toolkit).readContainer(container, parent.childCount);
    else
        _nodes.fetch(_connection, container, AtspiFieldChildren);
}

void AtspiTree::readWithChildren(const AtspiElement& element) {
    AtspiNodes::Wanted wanted{{element.reference, AtspiFieldRole | AtspiFieldChildren}};
    // The list of an item's children is not asked for when it is long; it is fetched child by child later.
    const bool isItem = element.place == Place::InMenu || element.place == Place::InMenuBar;
    if (isItem && AtspiItemReading::isLong(element.toolkit, element.childCount)) {
        wanted[0].second = AtspiFieldRole;
    } else if (readsAhead() && _nodes.at(element.reference).missing(AtspiFieldChildren) != 0) {
        // A menu bar is the only other thing that the reading of menus begins with.
        const std::int64_t childCount =
            element.place == Place::Elsewhere ? AtspiItemReading::UsualLengthOfMenuBar : element.childCount;
        const AtspiItemReading reading(_connection, _nodes, _memory, element.toolkit);
        reading.addWanted(wanted, element.reference, childCount);
        // Most likely it opens the same menu as before.
        if (!element.menu.isNull())
            reading.addWanted(wanted, element.menu, -1);
    }
    _nodes.fetch(_connection, wanted);
}

void AtspiTree::readChildren(const AtspiReference& container, Place place, AtspiToolkit toolkit) {
    AtspiNode& node = _nodes.at(container);
    AtspiItemReading reading(_connection, _nodes, _memory, toolkit);
    if (_reading != Reading::OneAttribute && place == Place::UnderItem) {
        reading.readMenus(*node.children);
    } else if (!readsAhead()) {
        reading.readKinds(*node.children, place);
    } else if (_reading == Reading::OneLevel) {
        reading.readItems(container, place);
    } else if (!node.isReadBelow) {
        node.isReadBelow = true;
        reading.readItemsOfAllLevels(container, place);
    }
}

} // namespace tarragon
