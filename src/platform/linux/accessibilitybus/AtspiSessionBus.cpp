#include "platform/linux/accessibilitybus/AtspiSessionBus.h"

#include "platform/linux/accessibilitybus/AtspiReply.h"

#include <chrono>
#include <cstdlib>

namespace tarragon {

namespace {

constexpr const char* Service = "org.a11y.Bus";
constexpr const char* Path = "/org/a11y/bus";
constexpr const char* StatusInterface = "org.a11y.Status";
constexpr const char* EnabledProperty = "IsEnabled";
// The first call may start the accessibility bus.
constexpr std::chrono::seconds Timeout{2};

DBusMessagePointer newCall(const char* interface, const char* member) {
    return DBusMessagePointer(dbus_message_new_method_call(Service, Path, interface, member));
}

std::string addressOfSessionBus() {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS"); address != nullptr && *address != '\0')
        return address;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (folder == nullptr || *folder == '\0')
        return {};
    const std::string path = std::string(folder) + "/bus";
    char* escaped = dbus_address_escape_value(path.c_str());
    std::string address = std::string("unix:path=") + (escaped != nullptr ? escaped : "");
    dbus_free(escaped);
    return address;
}

} // namespace

bool AtspiSessionBus::ensureOpen() {
    if (_bus && _bus->exchange())
        return true;
    _bus = DBusSocket::connect(addressOfSessionBus());
    if (_bus && !_bus->registerWithBus(DBusSocket::Clock::now() + Timeout))
        _bus.reset();
    return _bus != nullptr;
}

std::string AtspiSessionBus::answerTo(const DBusMessagePointer& call) {
    if (!call || !ensureOpen())
        return {};
    std::string reply = _bus->callAndWait(call.get(), DBusSocket::Clock::now() + Timeout);
    const auto answer = DBusIncoming::parse(reply);
    return answer && answer->type == DBusIncoming::Type::Return ? reply : std::string();
}

std::string AtspiSessionBus::accessibilityBusAddress() {
    if (const char* address = std::getenv("AT_SPI_BUS_ADDRESS"); address != nullptr && *address != '\0')
        return address;
    const std::string reply = answerTo(newCall(Service, "GetAddress"));
    const auto answer = DBusIncoming::parse(reply);
    return answer ? AtspiReply(*answer).readString().value_or(std::string()) : std::string();
}

bool AtspiSessionBus::isEnabled() {
    const DBusMessagePointer call = newCall(DBUS_INTERFACE_PROPERTIES, "Get");
    if (!call
        || !dbus_message_append_args(
            call.get(), DBUS_TYPE_STRING, &StatusInterface, DBUS_TYPE_STRING, &EnabledProperty, DBUS_TYPE_INVALID))
        return false;
    const std::string reply = answerTo(call);
    const auto answer = DBusIncoming::parse(reply);
    if (!answer)
        return false;
    AtspiReply value(*answer);
    return value.enterVariant() && value.readBoolean().value_or(false);
}

bool AtspiSessionBus::enable() {
    const DBusMessagePointer call = newCall(DBUS_INTERFACE_PROPERTIES, "Set");
    if (!call
        || !dbus_message_append_args(
            call.get(), DBUS_TYPE_STRING, &StatusInterface, DBUS_TYPE_STRING, &EnabledProperty, DBUS_TYPE_INVALID))
        return false;
    DBusMessageIter arguments;
    DBusMessageIter variant;
    const dbus_bool_t enabled = TRUE;
    dbus_message_iter_init_append(call.get(), &arguments);
    if (!dbus_message_iter_open_container(&arguments, DBUS_TYPE_VARIANT, "b", &variant)
        || !dbus_message_iter_append_basic(&variant, DBUS_TYPE_BOOLEAN, &enabled)
        || !dbus_message_iter_close_container(&arguments, &variant))
        return false;
    return !answerTo(call).empty();
}

} // namespace tarragon
