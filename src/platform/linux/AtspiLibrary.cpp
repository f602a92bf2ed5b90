#include "platform/linux/AtspiLibrary.h"

#include <cstdint>
#include <mutex>

namespace tarragon::AtspiLibrary {

namespace {

std::mutex& libraryMutex() {
    static std::mutex mutex;
    return mutex;
}

} // namespace

int openSessionBus(sd_bus** bus) {
    const std::lock_guard lock(libraryMutex());
    return sd_bus_open_user(bus);
}

int start(sd_bus* bus) {
    const std::lock_guard lock(libraryMutex());
    return sd_bus_start(bus);
}

int process(sd_bus* bus) {
    const std::lock_guard lock(libraryMutex());
    return sd_bus_process(bus, nullptr);
}

int callAsync(
    sd_bus* bus, sd_bus_slot** slot, sd_bus_message* message, sd_bus_message_handler_t handler, void* userdata) {
    const std::lock_guard lock(libraryMutex());
    return sd_bus_call_async(bus, slot, message, handler, userdata, UINT64_MAX);
}

} // namespace tarragon::AtspiLibrary
