// Reads what applications say of themselves on the accessibility bus and prints it as JSON. It shares no code with the
// program under test, so that the two can be compared.
//
//   accessibility_reader enable             switches accessibility on for this session
//   accessibility_reader menus PID [WINDOW] the menu bar of the active window, or of the window with this title
//   accessibility_reader level PID [A|B]    the same, but only the items directly below a path, the titles without one
//   accessibility_reader press PID "A|B|C"  runs an item's own action
//   accessibility_reader text PID           the contents of the first text field of the active window
//   accessibility_reader count PID ROLE     how many elements of a role the application shows
//   accessibility_reader elements PID       everything that the application's windows show
//   accessibility_reader names PID          one line for every name that changes: the new one
//   accessibility_reader watch PID          one line for every menu item that gets the focus: {"focused", "menu"}
#include "AccessibleControls.h"
#include "AccessibleMenus.h"

#include <gio/gio.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

void printJson(const nlohmann::json& value) {
    std::cout << value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << std::endl;
}

int enable() {
    GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (!bus)
        return 1;
    GError* error = nullptr;
    GVariant* answer =
        g_dbus_connection_call_sync(bus, "org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
            g_variant_new("(ssv)", "org.a11y.Status", "IsEnabled", g_variant_new_boolean(TRUE)), nullptr,
            G_DBUS_CALL_FLAGS_NONE, 20000, nullptr, &error);
    if (!answer) {
        std::cerr << error->message << '\n';
        g_error_free(error);
        return 1;
    }
    g_variant_unref(answer);
    g_object_unref(bus);
    return 0;
}

int menus(int processIdentifier, const std::string& windowTitle) {
    reader::Accessible application = reader::applicationOfProcess(processIdentifier);
    if (!application) {
        std::cerr << "process " << processIdentifier << " is not on the accessibility bus\n";
        return 3;
    }
    reader::Accessible menuBar = reader::menuBarOfApplication(*application, windowTitle);
    if (!menuBar) {
        std::cerr << "no menu bar in the active window of process " << processIdentifier << '\n';
        return 4;
    }
    printJson(reader::itemsBelow(*menuBar));
    return 0;
}

std::vector<std::string> splitPath(const std::string& path) {
    std::vector<std::string> titles;
    std::size_t start = 0;
    for (std::size_t bar = path.find('|'); bar != std::string::npos; bar = path.find('|', start)) {
        titles.push_back(path.substr(start, bar - start));
        start = bar + 1;
    }
    titles.push_back(path.substr(start));
    return titles;
}

int level(int processIdentifier, const std::string& path) {
    reader::Accessible application = reader::applicationOfProcess(processIdentifier);
    reader::Accessible menu = application ? reader::menuBarOfApplication(*application, {}) : nullptr;
    if (menu && !path.empty())
        menu = reader::itemAtPath(*menu, splitPath(path));
    if (!menu) {
        std::cerr << "no menu " << path << '\n';
        return 4;
    }
    printJson(reader::itemsDirectlyBelow(*menu));
    return 0;
}

int press(int processIdentifier, const std::string& path) {
    reader::Accessible application = reader::applicationOfProcess(processIdentifier);
    reader::Accessible menuBar = application ? reader::menuBarOfApplication(*application, {}) : nullptr;
    reader::Accessible item = menuBar ? reader::itemAtPath(*menuBar, splitPath(path)) : nullptr;
    if (!item) {
        std::cerr << "no item " << path << '\n';
        return 4;
    }
    return reader::press(*item) ? 0 : 1;
}

reader::Accessible findText(AtspiAccessible& element, int depth) {
    AtspiRole role = atspi_accessible_get_role(&element, nullptr);
    AtspiStateSet* states = atspi_accessible_get_state_set(&element);
    bool shown = states && atspi_state_set_contains(states, ATSPI_STATE_SHOWING)
        && atspi_state_set_contains(states, ATSPI_STATE_MULTI_LINE);
    if (states)
        g_object_unref(states);
    if ((role == ATSPI_ROLE_TEXT && shown) || (role == ATSPI_ROLE_TERMINAL && shown))
        return reader::Accessible(static_cast<AtspiAccessible*>(g_object_ref(&element)));
    int count = depth > 0 ? atspi_accessible_get_child_count(&element, nullptr) : 0;
    for (int index = 0; index < count; ++index) {
        reader::Accessible child(atspi_accessible_get_child_at_index(&element, index, nullptr));
        if (!child)
            continue;
        if (reader::Accessible found = findText(*child, depth - 1))
            return found;
    }
    return nullptr;
}

int text(int processIdentifier) {
    reader::Accessible application = reader::applicationOfProcess(processIdentifier);
    reader::Accessible field = application ? findText(*application, 16) : nullptr;
    AtspiText* contents = field ? atspi_accessible_get_text_iface(field.get()) : nullptr;
    if (!contents) {
        std::cerr << "no text field\n";
        return 4;
    }
    gchar* characters = atspi_text_get_text(contents, 0, -1, nullptr);
    printJson(characters ? characters : "");
    g_free(characters);
    g_object_unref(contents);
    return 0;
}

int countShown(AtspiAccessible& element, const std::string& role, int depth) {
    AtspiStateSet* states = atspi_accessible_get_state_set(&element);
    bool shown = states && atspi_state_set_contains(states, ATSPI_STATE_SHOWING);
    if (states)
        g_object_unref(states);
    if (!shown)
        return 0;
    gchar* name = atspi_accessible_get_role_name(&element, nullptr);
    int count = name && role == name ? 1 : 0;
    g_free(name);
    int children = depth > 0 ? atspi_accessible_get_child_count(&element, nullptr) : 0;
    for (int index = 0; index < children; ++index) {
        reader::Accessible child(atspi_accessible_get_child_at_index(&element, index, nullptr));
        count += child ? countShown(*child, role, depth - 1) : 0;
    }
    return count;
}

int count(int processIdentifier, const std::string& role) {
    reader::Accessible application = reader::applicationOfProcess(processIdentifier);
    if (!application)
        return 3;
    int total = 0;
    int windows = atspi_accessible_get_child_count(application.get(), nullptr);
    for (int index = 0; index < windows; ++index) {
        reader::Accessible window(atspi_accessible_get_child_at_index(application.get(), index, nullptr));
        total += window ? countShown(*window, role, 16) : 0;
    }
    printJson(total);
    return 0;
}

int elements(int processIdentifier) {
    printJson(reader::shownElements(processIdentifier));
    return 0;
}

void focusMoved(AtspiEvent* event, void* data) {
    int processIdentifier = *static_cast<int*>(data);
    if (event->source && event->detail1 == 1
        && atspi_accessible_get_process_id(event->source, nullptr) == static_cast<guint>(processIdentifier)) {
        reader::Accessible menu(atspi_accessible_get_parent(event->source, nullptr));
        if (menu) {
            gchar* name = atspi_accessible_get_name(event->source, nullptr);
            printJson({{"focused", name ? name : ""}, {"menu", reader::itemsDirectlyBelow(*menu)}});
            g_free(name);
        }
    }
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

int watch(int processIdentifier) {
    AtspiEventListener* listener = atspi_event_listener_new(focusMoved, &processIdentifier, nullptr);
    if (!atspi_event_listener_register(listener, "object:state-changed:focused", nullptr))
        return 1;
    printJson("ready");
    atspi_event_main();
    return 0;
}

void nameChanged(AtspiEvent* event, void* data) {
    int processIdentifier = *static_cast<int*>(data);
    if (event->source
        && atspi_accessible_get_process_id(event->source, nullptr) == static_cast<guint>(processIdentifier)) {
        gchar* name = atspi_accessible_get_name(event->source, nullptr);
        printJson(name ? name : "");
        g_free(name);
    }
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

int names(int processIdentifier) {
    AtspiEventListener* listener = atspi_event_listener_new(nameChanged, &processIdentifier, nullptr);
    if (!atspi_event_listener_register(listener, "object:property-change:accessible-name", nullptr))
        return 1;
    printJson("ready");
    atspi_event_main();
    return 0;
}

int usage() {
    std::cerr
        << "usage: accessibility_reader enable | menus PID [WINDOW] | level PID [PATH] | press PID PATH | text PID |\n"
           "                            count PID ROLE | elements PID | names PID | watch PID\n";
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.empty())
        return usage();
    const std::string& command = arguments[0];
    if (command == "enable")
        return enable();
    if (arguments.size() < 2)
        return usage();
    if (atspi_init() > 1)
        return 1;
    atspi_set_timeout(3000, 5000);
    int processIdentifier = std::atoi(arguments[1].c_str());
    if (command == "menus")
        return menus(processIdentifier, arguments.size() > 2 ? arguments[2] : "");
    if (command == "level")
        return level(processIdentifier, arguments.size() > 2 ? arguments[2] : "");
    if (command == "press" && arguments.size() > 2)
        return press(processIdentifier, arguments[2]);
    if (command == "text")
        return text(processIdentifier);
    if (command == "count" && arguments.size() > 2)
        return count(processIdentifier, arguments[2]);
    if (command == "elements")
        return elements(processIdentifier);
    if (command == "names")
        return names(processIdentifier);
    if (command == "watch")
        return watch(processIdentifier);
    return usage();
}
