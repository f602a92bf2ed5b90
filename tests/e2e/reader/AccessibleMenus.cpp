#include "AccessibleMenus.h"

#include <string_view>

namespace reader {

namespace {

enum class Toolkit { Qt, Other };
enum class Levels { One, All };

std::string takeString(gchar* text) {
    std::string result = text ? text : "";
    g_free(text);
    return result;
}

Accessible childAt(AtspiAccessible& element, int index) {
    return Accessible(atspi_accessible_get_child_at_index(&element, index, nullptr));
}

bool hasState(AtspiAccessible& element, AtspiStateType state) {
    AtspiStateSet* states = atspi_accessible_get_state_set(&element);
    bool contained = states && atspi_state_set_contains(states, state);
    if (states)
        g_object_unref(states);
    return contained;
}

AtspiRole roleOf(AtspiAccessible& element) {
    return atspi_accessible_get_role(&element, nullptr);
}

// A menu is a container between an item and its entries in some toolkits and the titled item itself in others.
bool isMenuContainer(AtspiAccessible& element) {
    AtspiRole role = roleOf(element);
    return role == ATSPI_ROLE_POPUP_MENU
        || (role == ATSPI_ROLE_MENU && takeString(atspi_accessible_get_name(&element, nullptr)).empty());
}

std::string shortcutOf(AtspiAccessible& element) {
    AtspiAction* action = atspi_accessible_get_action_iface(&element);
    if (!action)
        return {};
    // An item that is disabled says that it has no action, yet tells the shortcut of its first one.
    std::string binding = takeString(atspi_action_get_key_binding(action, 0, nullptr));
    g_object_unref(action);
    return binding;
}

void addExtents(nlohmann::json& record, AtspiAccessible& element) {
    AtspiComponent* component = atspi_accessible_get_component_iface(&element);
    if (!component)
        return;
    if (AtspiRect* extents = atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr)) {
        record["x"] = extents->x;
        record["y"] = extents->y;
        record["width"] = extents->width;
        record["height"] = extents->height;
        g_free(extents);
    }
    g_object_unref(component);
}

// Whether an item would be there if its menu were open. GTK says it with a state; Qt says nothing of items in closed
// menus, but gives those that take no room no component interface. Titles that find no room in a menu bar are still
// offered, behind its end.
bool isThere(AtspiAccessible& element, bool visibleState, Toolkit toolkit) {
    if (visibleState || toolkit != Toolkit::Qt)
        return visibleState;
    Accessible parent(atspi_accessible_get_parent(&element, nullptr));
    if (parent && roleOf(*parent) == ATSPI_ROLE_MENU_BAR)
        return true;
    AtspiComponent* component = atspi_accessible_get_component_iface(&element);
    if (component)
        g_object_unref(component);
    return component != nullptr;
}

Toolkit toolkitOf(AtspiAccessible& element) {
    Accessible application(atspi_accessible_get_application(&element, nullptr));
    if (!application)
        return Toolkit::Other;
    return takeString(atspi_accessible_get_toolkit_name(application.get(), nullptr)) == "Qt" ? Toolkit::Qt
                                                                                             : Toolkit::Other;
}

nlohmann::json itemsBelow(AtspiAccessible& element, Toolkit toolkit, Levels levels);

nlohmann::json recordOf(AtspiAccessible& element, Toolkit toolkit, Levels levels) {
    nlohmann::json record;
    AtspiRole role = roleOf(element);
    record["title"] = takeString(atspi_accessible_get_name(&element, nullptr));
    record["separator"] = role == ATSPI_ROLE_SEPARATOR;
    AtspiStateSet* states = atspi_accessible_get_state_set(&element);
    auto contains = [states](AtspiStateType state) { return states && atspi_state_set_contains(states, state); };
    record["enabled"] = contains(ATSPI_STATE_ENABLED) && contains(ATSPI_STATE_SENSITIVE);
    record["checked"] = contains(ATSPI_STATE_CHECKED);
    record["focused"] = contains(ATSPI_STATE_FOCUSED) || contains(ATSPI_STATE_SELECTED);
    record["visible"] = isThere(element, contains(ATSPI_STATE_VISIBLE), toolkit);
    record["role"] = takeString(atspi_accessible_get_role_name(&element, nullptr));
    if (states)
        g_object_unref(states);
    record["shortcut"] = shortcutOf(element);
    // Only menus that are read by themselves may be open and have a place.
    if (levels == Levels::One)
        addExtents(record, element);
    record["items"] = levels == Levels::All ? itemsBelow(element, toolkit, levels) : nlohmann::json::array();
    return record;
}

nlohmann::json itemsBelow(AtspiAccessible& element, Toolkit toolkit, Levels levels) {
    nlohmann::json items = nlohmann::json::array();
    int count = atspi_accessible_get_child_count(&element, nullptr);
    for (int index = 0; index < count; ++index) {
        Accessible child = childAt(element, index);
        if (!child)
            continue;
        if (isMenuContainer(*child)) {
            for (auto& item : itemsBelow(*child, toolkit, levels))
                items.push_back(std::move(item));
        } else {
            items.push_back(recordOf(*child, toolkit, levels));
        }
    }
    return items;
}

Accessible findMenuBar(AtspiAccessible& element, int depth) {
    if (roleOf(element) == ATSPI_ROLE_MENU_BAR)
        return Accessible(static_cast<AtspiAccessible*>(g_object_ref(&element)));
    if (depth == 0)
        return nullptr;
    int count = atspi_accessible_get_child_count(&element, nullptr);
    for (int index = 0; index < count; ++index) {
        Accessible child = childAt(element, index);
        if (!child)
            continue;
        if (Accessible found = findMenuBar(*child, depth - 1))
            return found;
    }
    return nullptr;
}

// Blanks behind a title are not seen.
bool isTitled(AtspiAccessible& element, const std::string& title) {
    std::string name = takeString(atspi_accessible_get_name(&element, nullptr));
    return name.starts_with(title) && name.find_first_not_of(" \t\n", title.size()) == std::string::npos;
}

Accessible itemTitled(AtspiAccessible& element, const std::string& title) {
    int count = atspi_accessible_get_child_count(&element, nullptr);
    for (int index = 0; index < count; ++index) {
        Accessible child = childAt(element, index);
        if (!child)
            continue;
        if (isMenuContainer(*child)) {
            if (Accessible found = itemTitled(*child, title))
                return found;
        } else if (isTitled(*child, title)) {
            return child;
        }
    }
    return nullptr;
}

} // namespace

Accessible applicationOfProcess(int processIdentifier) {
    Accessible desktop(atspi_get_desktop(0));
    int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int index = 0; index < count; ++index) {
        Accessible application = childAt(*desktop, index);
        if (application
            && atspi_accessible_get_process_id(application.get(), nullptr) == static_cast<guint>(processIdentifier))
            return application;
    }
    return nullptr;
}

Accessible menuBarOfApplication(AtspiAccessible& application, const std::string& windowTitle) {
    int count = atspi_accessible_get_child_count(&application, nullptr);
    for (int index = 0; index < count; ++index) {
        Accessible window = childAt(application, index);
        if (!window)
            continue;
        bool wanted = windowTitle.empty() ? hasState(*window, ATSPI_STATE_ACTIVE)
                                          : takeString(atspi_accessible_get_name(window.get(), nullptr)) == windowTitle;
        if (wanted)
            return findMenuBar(*window, 6);
    }
    return nullptr;
}

nlohmann::json itemsBelow(AtspiAccessible& element) {
    return itemsBelow(element, toolkitOf(element), Levels::All);
}

nlohmann::json itemsDirectlyBelow(AtspiAccessible& element) {
    return itemsBelow(element, toolkitOf(element), Levels::One);
}

Accessible itemAtPath(AtspiAccessible& element, const std::vector<std::string>& titles) {
    Accessible current(static_cast<AtspiAccessible*>(g_object_ref(&element)));
    for (const std::string& title : titles) {
        current = itemTitled(*current, title);
        if (!current)
            return nullptr;
    }
    return current;
}

bool press(AtspiAccessible& item) {
    AtspiAction* action = atspi_accessible_get_action_iface(&item);
    if (!action)
        return false;
    bool done = atspi_action_do_action(action, 0, nullptr);
    g_object_unref(action);
    return done;
}

} // namespace reader
