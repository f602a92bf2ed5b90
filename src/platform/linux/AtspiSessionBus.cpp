#include "platform/linux/AtspiSessionBus.h"

#include "platform/linux/AtspiLibrary.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <systemd/sd-bus.h>

namespace tarragon {

namespace {

constexpr const char* Service = "org.a11y.Bus";
constexpr const char* Path = "/org/a11y/bus";
constexpr const char* StatusInterface = "org.a11y.Status";
// The first call may start the accessibility bus.
constexpr std::uint64_t TimeoutInMicroseconds = 2'000'000;

struct MessageUnref {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, MessageUnref>;

Message newCall(sd_bus* bus, const char* interface, const char* member) {
    sd_bus_message* message = nullptr;
    if (sd_bus_message_new_method_call(bus, &message, Service, Path, interface, member) < 0)
        return {};
    return Message(message);
}

} // namespace

AtspiSessionBus::~AtspiSessionBus() {
    sd_bus_close_unref(_bus);
}

bool AtspiSessionBus::ensureOpen() {
    if (_bus != nullptr && sd_bus_is_open(_bus) > 0)
        return true;
    _bus = sd_bus_close_unref(_bus);
    return AtspiLibrary::openSessionBus(&_bus) >= 0;
}

void AtspiSessionBus::closeIfLost(int error) {
    if (error == -ENOTCONN || error == -ECONNRESET || error == -EPIPE)
        _bus = sd_bus_close_unref(_bus);
}

std::string AtspiSessionBus::accessibilityBusAddress() {
    if (const char* address = std::getenv("AT_SPI_BUS_ADDRESS"); address != nullptr && *address != '\0')
        return address;
    if (!ensureOpen())
        return {};
    const Message call = newCall(_bus, Service, "GetAddress");
    sd_bus_message* answer = nullptr;
    const int result = call ? sd_bus_call(_bus, call.get(), TimeoutInMicroseconds, nullptr, &answer) : -ENOMEM;
    const Message reply(answer);
    const char* address = nullptr;
    if (result >= 0 && sd_bus_message_read(reply.get(), "s", &address) > 0)
        return address;
    closeIfLost(result);
    return {};
}

bool AtspiSessionBus::isEnabled() {
    if (!ensureOpen())
        return false;
    const Message call = newCall(_bus, "org.freedesktop.DBus.Properties", "Get");
    if (!call || sd_bus_message_append(call.get(), "ss", StatusInterface, "IsEnabled") < 0)
        return false;
    sd_bus_message* answer = nullptr;
    const int result = sd_bus_call(_bus, call.get(), TimeoutInMicroseconds, nullptr, &answer);
    const Message reply(answer);
    int enabled = 0;
    if (result >= 0 && sd_bus_message_read(reply.get(), "v", "b", &enabled) > 0)
        return enabled != 0;
    closeIfLost(result);
    return false;
}

bool AtspiSessionBus::enable() {
    if (!ensureOpen())
        return false;
    const Message call = newCall(_bus, "org.freedesktop.DBus.Properties", "Set");
    if (!call || sd_bus_message_append(call.get(), "ssv", StatusInterface, "IsEnabled", "b", 1) < 0)
        return false;
    const int result = sd_bus_call(_bus, call.get(), TimeoutInMicroseconds, nullptr, nullptr);
    closeIfLost(result);
    return result >= 0;
}

} // namespace tarragon
