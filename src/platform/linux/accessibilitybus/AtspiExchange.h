#pragma once

#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibilitybus/AtspiPeer.h"

#include <deque>
#include <vector>

namespace tarragon {

// The requests of one run, and which of them still wait for a reply.
class AtspiConnection::Exchange {
public:
    Exchange(AtspiConnection& connection, const AtspiRequests& requests)
        : _connection(connection)
        , _requests(requests)
        , _rounds(requests.size(), 1) { }
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    // False when the connection to the bus broke.
    bool run();

private:
    class Pending final : public DBusReplyReceiver {
    public:
        void receive(const DBusIncoming& reply) override { exchange->receive(*this, reply); }

        Exchange* exchange = nullptr;
        const AtspiRequest* request = nullptr;
        AtspiPeer* peer = nullptr;
        std::uint32_t serial = 0; // of the call, 0 when no reply is expected (any more)
        std::uint32_t round = 0;
    };

    void sendNext();
    // False when the application is gone or in back-off.
    [[nodiscard]] bool send(Pending& pending);
    // Ends a request: no reply is expected any more.
    void end(const Pending& pending);
    void receive(Pending& pending, const DBusIncoming& reply);
    void receiveReturn(const AtspiRequest& request, const DBusIncoming& reply);
    void receiveError(const Pending& pending, const DBusIncoming& error);
    void giveUp(Pending& pending);
    void giveUpTheSilent();
    // Handles what has arrived. False when the bus broke.
    bool exchange();
    bool wait(Clock::time_point deadline);
    Clock::time_point nextDeadline() const;

    AtspiConnection& _connection;
    const AtspiRequests& _requests; // grow while we run
    std::vector<std::uint32_t> _rounds; // by request: 1, or one more than that of the request whose end added it
    std::deque<Pending> _pending; // of each request that was sent; the bus points to them
    std::vector<AtspiPeer*> _peers; // those that were asked something
    std::size_t _next = 0;
    std::uint32_t _lastRound = 0; // the latest round of a request that was sent
    std::size_t _inFlight = 0;
    std::size_t _inFlightAtLastWait = 0;
    const std::string* _lastName = nullptr;
    AtspiPeer* _lastPeer = nullptr;
    bool _lastMayBeAsked = false;
};

} // namespace tarragon
