/* The accessibility interface of a desktop that takes every request to switch it on, and stays off. */
#include <gio/gio.h>

static const char* Interfaces =
    "<node><interface name='org.a11y.Bus'><method name='GetAddress'><arg type='s' "
    "direction='out'/></method></interface>"
    "<interface name='org.a11y.Status'><property name='IsEnabled' type='b' access='readwrite'/></interface></node>";

static void answer(GDBusConnection* connection, const char* sender, const char* path, const char* interface,
    const char* method, GVariant* arguments, GDBusMethodInvocation* invocation, gpointer data) {
    (void)connection, (void)sender, (void)path, (void)interface, (void)method, (void)arguments, (void)data;
    g_dbus_method_invocation_return_dbus_error(invocation, "org.a11y.Bus.Error", "there is no accessibility bus");
}

static GVariant* get(GDBusConnection* connection, const char* sender, const char* path, const char* interface,
    const char* property, GError** error, gpointer data) {
    (void)connection, (void)sender, (void)path, (void)interface, (void)property, (void)error, (void)data;
    return g_variant_new_boolean(FALSE);
}

static gboolean set(GDBusConnection* connection, const char* sender, const char* path, const char* interface,
    const char* property, GVariant* value, GError** error, gpointer data) {
    (void)connection, (void)sender, (void)path, (void)interface, (void)property, (void)value, (void)error, (void)data;
    g_print("asked\n");
    return TRUE;
}

static void ready(GDBusConnection* connection, const char* name, gpointer data) {
    (void)connection, (void)name, (void)data;
    g_print("ready\n");
}

int main(void) {
    static const GDBusInterfaceVTable methods = {answer, get, set, {0}};
    GDBusConnection* bus = g_bus_get_sync(G_BUS_TYPE_SESSION, NULL, NULL);
    if (!bus)
        return 1;
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(Interfaces, NULL);
    for (int index = 0; node->interfaces[index]; ++index)
        g_dbus_connection_register_object(bus, "/org/a11y/bus", node->interfaces[index], &methods, NULL, NULL, NULL);
    g_bus_own_name_on_connection(bus, "org.a11y.Bus", G_BUS_NAME_OWNER_FLAGS_NONE, ready, NULL, NULL, NULL);
    g_main_loop_run(g_main_loop_new(NULL, FALSE));
    return 0;
}
