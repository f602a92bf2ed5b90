#pragma once

#include "platform/linux/atspi/AtspiClients.h"

#include <mutex>
#include <optional>
#include <string>

namespace tarragon {

// One call of the seam that needs the accessibility bus. Connects to the bus where there is no connection, and keeps
// the calling thread's client locked meanwhile: to make one may take as long as an application may be waited for, so
// nothing that the window system alone can answer may need it.
class AtspiOperation {
public:
    explicit AtspiOperation(AtspiClients& clients);
    AtspiOperation(const AtspiOperation&) = delete;
    AtspiOperation& operator=(const AtspiOperation&) = delete;

    AtspiConnection& connection() { return _client.connection; }
    AtspiSessionBus& sessionBus() { return _client.sessionBus; }
    AtspiWindows& windows() { return _client.windows; }
    std::uint64_t busIdentity() const { return _client.busIdentity; }
    // Where to read into: what a batch of the thread remembers, or what lasts as long as this object.
    AtspiNodes& nodes() { return _batch != nullptr ? _batch->nodes : _ownNodes; }
    AtspiTree tree();
    // Nothing for a process that is not on the bus.
    std::optional<AtspiApplication> application(std::int64_t processIdentifier);
    // Asks at once whether frame and menu bar of a window are still there, where they are remembered. In a batch that
    // reads menus, the items of the menu bar are wanted next.
    void readRemembered(std::uint32_t window, const AtspiApplication& application);
    // False for objects of an accessibility bus that is no more.
    [[nodiscard]] bool reaches(const AtspiElement& element) const {
        return element.busIdentity != 0 && element.busIdentity == _client.busIdentity;
    }

private:
    void begin();

    AtspiClient& _client;
    AtspiMenuMemory& _menuMemory;
    BatchMemory* _batch; // nullptr outside a batch
    std::unique_lock<std::mutex> _lock;
    AtspiNodes _ownNodes;
};

} // namespace tarragon
