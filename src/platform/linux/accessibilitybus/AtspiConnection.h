#pragma once

#include "platform/linux/accessibilitybus/AtspiRequest.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tarragon {

class AtspiPeer;
class AtspiSessionBus;
class DBusSocket;

struct AtspiStatistics {
    std::uint64_t messagesSent = 0;
    // How often replies had to be waited for before more could be asked: requests that do not depend on each other
    // count once.
    std::uint64_t roundTrips = 0;
};

// Our connection to the accessibility bus. All requests of a step are in flight at once; an application that stays
// silent is waited for until its time-out and not asked again until it answers a probe. One thread at a time.
class AtspiConnection {
public:
    using Clock = std::chrono::steady_clock;

    explicit AtspiConnection(AtspiSessionBus& sessionBus);
    ~AtspiConnection();
    AtspiConnection(const AtspiConnection&) = delete;
    AtspiConnection& operator=(const AtspiConnection&) = delete;

    // Connects when there is no connection, at most once a second. False when the bus cannot be reached.
    [[nodiscard]] bool ensureOpen();
    // Which accessibility bus this is, 0 when there is none. References to objects hold on this bus only.
    std::uint64_t busIdentity() const { return _busIdentity; }

    // Whether an operation stands for itself or continues the one before, as within a read batch.
    enum class Start : std::uint8_t { Fresh, Continued };

    // Call it at the start of every operation of the seam: time-outs are measured from here, each so many times as long
    // as usual. A fresh start notices a bus that has ended, a continued one costs nothing.
    void beginOperation(Start start = Start::Fresh, int timeoutFactor = 1);
    // Sends all requests and waits for their replies; who handles the end of one may add others to them. Returns when
    // every request was answered or given up.
    void run(const AtspiRequests& requests);
    // Hands one request to the bus and does not wait for an answer. False when it could not be handed over.
    [[nodiscard]] bool post(const AtspiRequest& request);

    // False while the application is in back-off: from its time-out until it answers a probe.
    [[nodiscard]] bool mayAsk(const std::string& busName);
    // The bus said that nobody has this name any more. Unique names are never given out again.
    bool isGone(const std::string& busName) const { return _gone.contains(busName); }

    const AtspiStatistics& statistics() const { return _statistics; }

private:
    class Exchange;

    bool open();
    void close();
    void probe(const std::string& busName, AtspiPeer& peer);
    AtspiPeer& peer(const std::string& busName);

    AtspiSessionBus& _sessionBus;
    std::unique_ptr<DBusSocket> _bus;
    std::uint64_t _busIdentity = 0;
    Clock::time_point _nextAttempt;
    // By bus name. Entries stay where they are in memory: replies on their way point to them.
    std::unordered_map<std::string, std::unique_ptr<AtspiPeer>> _peers;
    std::unordered_set<std::string> _gone;
    std::uint64_t _operation = 1;
    int _timeoutFactor = 1;
    AtspiStatistics _statistics;
};

} // namespace tarragon
