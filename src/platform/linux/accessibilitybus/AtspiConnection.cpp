#include "platform/linux/accessibilitybus/AtspiConnection.h"

#include "platform/Log.h"
#include "platform/linux/accessibilitybus/AtspiCall.h"
#include "platform/linux/accessibilitybus/AtspiExchange.h"
#include "platform/linux/accessibilitybus/AtspiSessionBus.h"

#include <algorithm>
#include <dbus/dbus.h>
#include <functional>

namespace tarragon {

namespace {

constexpr std::chrono::seconds ReconnectInterval{1};

// Never 0.
std::uint64_t identityOf(const DBusSocket& bus) {
    const std::uint64_t identity = std::hash<std::string>()(bus.identifierOfOtherEnd());
    return identity != 0 ? identity : 1;
}

} // namespace

AtspiConnection::AtspiConnection(AtspiSessionBus& sessionBus)
    : _sessionBus(sessionBus) {
    // The library does so by itself at its first use, for which two connections of two threads may race.
    dbus_threads_init_default();
}

AtspiConnection::~AtspiConnection() = default;

bool AtspiConnection::ensureOpen() {
    if (_bus && _bus->isOpen())
        return true;
    close();
    const Clock::time_point now = Clock::now();
    if (now < _nextAttempt)
        return false;
    if (open())
        return true;
    close();
    // A service that is slow to refuse is asked less often: the wait for it is the caller's.
    const Clock::time_point end = Clock::now();
    _nextAttempt = end + std::max<Clock::duration>(ReconnectInterval, 5 * (end - now));
    return false;
}

bool AtspiConnection::open() {
    const std::string address = _sessionBus.accessibilityBusAddress();
    _bus = DBusSocket::connect(address);
    if (_bus && _bus->registerWithBus(Clock::now() + AtspiTimeout::Silence)) {
        _busIdentity = identityOf(*_bus);
        return true;
    }
    log(LogCategory::Accessibility, [&]() -> std::string {
        if (address.empty())
            return "the accessibility bus cannot be reached: the session bus does not tell its address";
        return "the accessibility bus cannot be reached: " + address
            + (_bus ? " does not let us in" : " does not accept connections");
    });
    return false;
}

void AtspiConnection::close() {
    _bus.reset();
    _peers.clear();
    _gone.clear();
    _busIdentity = 0;
}

void AtspiConnection::beginOperation(Start start, int timeoutFactor) {
    // A bus that has ended is noticed before it is believed in.
    if (_bus && start == Start::Fresh)
        _bus->exchange();
    ++_operation;
    _timeoutFactor = timeoutFactor;
}

void AtspiConnection::run(const AtspiRequests& requests) {
    if (requests.empty() || !ensureOpen())
        return;
    bool connected = false;
    {
        Exchange exchange(*this, requests);
        connected = exchange.run();
    }
    if (!connected)
        close();
}

bool AtspiConnection::post(const AtspiRequest& request) {
    if (!ensureOpen() || isGone(request.target.busName) || !mayAsk(request.target.busName))
        return false;
    if (!_bus->send(callFor(request)))
        return false;
    ++_statistics.messagesSent;
    if (_bus->flush(Clock::now() + AtspiTimeout::Silence))
        return true;
    // What was said to have failed must not go out later.
    close();
    return false;
}

bool AtspiConnection::mayAsk(const std::string& busName) {
    AtspiPeer& asked = peer(busName);
    if (!asked.backOff.isSuspended())
        return true;
    // The answer to a probe may have arrived.
    if (_bus->exchange() && !asked.backOff.isSuspended())
        return true;
    log(LogCategory::Accessibility,
        [&] { return "application " + busName + " is in back-off after a time-out and not asked"; });
    if (asked.backOff.needsProbe(Clock::now()))
        probe(busName, asked);
    return false;
}

void AtspiConnection::probe(const std::string& busName, AtspiPeer& peer) {
    const Clock::time_point now = Clock::now();
    if (!peer.backOff.needsProbe(now))
        return;
    peer.backOff.noteProbe(now);
    if (peer.probeSerial != 0)
        _bus->forget(peer.probeSerial);
    // A question to the user interface itself. A ping would be answered by a library's own thread, hung or not.
    peer.probeSerial = _bus->call(
        callFor({{busName, "/org/a11y/atspi/accessible/root"}, "org.a11y.atspi.Accessible", "GetRole", {}, {}}), peer);
    if (peer.probeSerial == 0)
        return;
    ++_statistics.messagesSent;
    _bus->exchange();
}

AtspiPeer& AtspiConnection::peer(const std::string& busName) {
    std::unique_ptr<AtspiPeer>& entry = _peers[busName];
    if (!entry)
        entry = std::make_unique<AtspiPeer>(busName);
    if (entry->operation != _operation) {
        entry->operation = _operation;
        entry->timeout = AtspiTimeout(Clock::now(), _timeoutFactor);
    }
    return *entry;
}

} // namespace tarragon
