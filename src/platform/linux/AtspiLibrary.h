#pragma once

#include <systemd/sd-bus.h>

// Calls of sd-bus that may not run in two threads at once, although each is on a connection of its own: the library
// keeps one key for all its hash tables, and changes it, unguarded, when a table grows. None of them waits for anybody.
namespace tarragon::AtspiLibrary {

int openSessionBus(sd_bus** bus);
int start(sd_bus* bus);
int process(sd_bus* bus);
// Without a time-out of the library's own.
int callAsync(
    sd_bus* bus, sd_bus_slot** slot, sd_bus_message* message, sd_bus_message_handler_t handler, void* userdata);

} // namespace tarragon::AtspiLibrary
