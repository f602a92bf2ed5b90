#include "AccessibleBus.h"

namespace reader {

namespace {

constexpr int Patience = 5000; // milliseconds

struct Pending {
    Question* question = nullptr;
    std::size_t* left = nullptr;
};

void answered(GObject* connection, GAsyncResult* result, gpointer data) {
    auto* pending = static_cast<Pending*>(data);
    pending->question->answer.reset(g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr));
    --*pending->left;
    delete pending;
}

std::string addressOfBus() {
    GDBusConnection* session = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (!session)
        return {};
    Variant answer(g_dbus_connection_call_sync(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
        nullptr, G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, Patience, nullptr, nullptr));
    g_object_unref(session);
    const char* address = nullptr;
    if (answer)
        g_variant_get(answer.get(), "(&s)", &address);
    return address ? address : "";
}

} // namespace

AccessibleBus::AccessibleBus() {
    const std::string address = addressOfBus();
    if (!address.empty())
        _connection = g_dbus_connection_new_for_address_sync(address.c_str(),
            static_cast<GDBusConnectionFlags>(
                G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
            nullptr, nullptr, nullptr);
}

AccessibleBus::~AccessibleBus() {
    if (_connection)
        g_object_unref(_connection);
}

void AccessibleBus::ask(std::vector<Question>& questions) {
    if (!_connection)
        return;
    std::size_t left = questions.size();
    for (Question& question : questions)
        g_dbus_connection_call(_connection, question.address.owner.c_str(), question.address.path.c_str(),
            question.interface.c_str(), question.method.c_str(), question.arguments, nullptr, G_DBUS_CALL_FLAGS_NONE,
            Patience, nullptr, answered, new Pending{&question, &left});
    while (left > 0)
        g_main_context_iteration(nullptr, TRUE);
}

std::vector<Address> AccessibleBus::addressesIn(const Variant& answer) {
    std::vector<Address> addresses;
    if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(a(so))")))
        return addresses;
    GVariantIter* iterator = nullptr;
    g_variant_get(answer.get(), "(a(so))", &iterator);
    const char* owner = nullptr;
    const char* path = nullptr;
    while (g_variant_iter_loop(iterator, "(&s&o)", &owner, &path))
        addresses.push_back({owner, path});
    g_variant_iter_free(iterator);
    return addresses;
}

} // namespace reader
