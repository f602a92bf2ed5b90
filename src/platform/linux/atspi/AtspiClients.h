#pragma once

#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibilitybus/AtspiSessionBus.h"
#include "platform/linux/accessibletree/AtspiMenuMemory.h"
#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/atspi/AtspiWindows.h"
#include "platform/linux/atspi/BatchMemories.h"

#include <cstdint>
#include <mutex>
#include <thread>

namespace tarragon {

// One connection to the accessibility bus with everything that was learnt over it. Used under its mutex, which is held
// while an application is waited for.
struct AtspiClient {
    explicit AtspiClient(std::int64_t ownProcessIdentifier)
        : applications(connection, ownProcessIdentifier) { }

    std::mutex mutex;
    AtspiSessionBus sessionBus;
    AtspiConnection connection{sessionBus};
    AtspiApplications applications;
    AtspiWindows windows{connection};
    std::uint64_t busIdentity = 0; // of the bus that this was learnt on
};

// All that reading from applications takes: a connection for the thread that made this object, another one for all
// other threads, what both have learnt about menus, and the read batches.
class AtspiClients {
public:
    // Our own process is never asked: it could not answer while it waits.
    explicit AtspiClients(std::int64_t ownProcessIdentifier)
        : _main(ownProcessIdentifier)
        , _other(ownProcessIdentifier) { }

    AtspiClient& ofThread() { return std::this_thread::get_id() == _mainThread ? _main : _other; }
    BatchMemories& batches() { return _batches; }
    AtspiMenuMemory& menuMemory() { return _menuMemory; }

private:
    std::thread::id _mainThread = std::this_thread::get_id();
    BatchMemories _batches;
    AtspiMenuMemory _menuMemory;
    AtspiClient _main;
    AtspiClient _other;
};

} // namespace tarragon
