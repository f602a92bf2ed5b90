/* The service of a desktop that shows notifications. Each one that it is to show is a line on standard output, its
   fields apart by tabs: title, text, and the keys and titles of its buttons. On SIGUSR1 the user clicks the first button
   of the last one. */
#include <gio/gio.h>
#include <glib-unix.h>

#include <signal.h>

static const char *Interface =
    "<node><interface name='org.freedesktop.Notifications'>"
    "<method name='GetCapabilities'><arg type='as' direction='out'/></method>"
    "<method name='Notify'><arg type='s' direction='in'/><arg type='u' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='as' direction='in'/>"
    "<arg type='a{sv}' direction='in'/><arg type='i' direction='in'/><arg type='u' direction='out'/></method>"
    "<signal name='ActionInvoked'><arg type='u'/><arg type='s'/></signal>"
    "</interface></node>";

static GDBusConnection *bus;
static guint lastIdentifier;
static char *firstAction;

static void answer(GDBusConnection *connection, const char *sender, const char *path, const char *interface,
                   const char *method, GVariant *arguments, GDBusMethodInvocation *invocation, gpointer data) {
    (void)connection, (void)sender, (void)path, (void)interface, (void)data;
    if (g_str_equal(method, "GetCapabilities")) {
        const char *capabilities[] = {"body", "actions", NULL};
        g_dbus_method_invocation_return_value(invocation, g_variant_new("(^as)", capabilities));
        return;
    }
    const char *title, *text;
    char **actions;
    g_variant_get_child(arguments, 3, "&s", &title);
    g_variant_get_child(arguments, 4, "&s", &text);
    g_variant_get_child(arguments, 5, "^as", &actions);
    g_free(firstAction);
    firstAction = g_strdup(actions[0]);
    char *buttons = g_strjoinv("\t", actions);
    g_print("%s\t%s\t%s\n", title, text, buttons);
    g_free(buttons);
    g_strfreev(actions);
    g_dbus_method_invocation_return_value(invocation, g_variant_new("(u)", ++lastIdentifier));
}

static gboolean click(gpointer data) {
    (void)data;
    if (firstAction)
        g_dbus_connection_emit_signal(bus, NULL, "/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                                      "ActionInvoked", g_variant_new("(us)", lastIdentifier, firstAction), NULL);
    return G_SOURCE_CONTINUE;
}

static void ready(GDBusConnection *connection, const char *name, gpointer data) {
    (void)connection, (void)name, (void)data;
    g_print("ready\n");
}

int main(void) {
    static const GDBusInterfaceVTable methods = {answer, NULL, NULL, {0}};
    GMainLoop *loop = g_main_loop_new(NULL, FALSE);
    bus = g_bus_get_sync(G_BUS_TYPE_SESSION, NULL, NULL);
    if (!bus)
        return 1;
    GDBusNodeInfo *node = g_dbus_node_info_new_for_xml(Interface, NULL);
    g_dbus_connection_register_object(bus, "/org/freedesktop/Notifications", node->interfaces[0], &methods, NULL, NULL,
                                      NULL);
    g_bus_own_name_on_connection(bus, "org.freedesktop.Notifications", G_BUS_NAME_OWNER_FLAGS_NONE, ready, NULL, NULL,
                                 NULL);
    g_unix_signal_add(SIGUSR1, click, NULL);
    g_main_loop_run(loop);
    return 0;
}
