#pragma once

#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibilitybus/AtspiPeer.h"

#include <deque>
#include <vector>

namespace tarragon {

// The requests of one run and who still owes a reply.
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
        DBusSocket* socket = nullptr;
        std::uint32_t call = 0; // 0 when no reply is expected (any more)
        std::uint32_t round = 0;
    };

    void sendNext();
    // False when it is not to be asked.
    bool send(Pending& pending);
    // No answer is expected any more.
    void end(const Pending& pending);
    void receive(Pending& pending, const DBusIncoming& reply);
    void receiveError(const Pending& pending, const DBusIncoming& error);
    void giveUp(Pending& pending);
    void giveUpTheSilent();
    // Handles what has arrived. False when the bus broke.
    bool exchange();
    bool wait(Clock::time_point deadline);
    // What was asked over this connection is asked over the bus again.
    void loseDirect(DBusSocket* socket);
    Clock::time_point nextDeadline() const;

    AtspiConnection& _connection;
    const AtspiRequests& _requests; // grow while we run
    std::vector<std::uint32_t> _rounds; // of each request: one more than that whose end it was added at
    std::deque<Pending> _pending; // of each request that was sent; sockets point to them
    std::vector<AtspiPeer*> _peers; // those that were asked something
    std::vector<DBusSocket*> _sockets; // those over which they were asked
    std::size_t _next = 0;
    std::uint32_t _lastRound = 0; // in which something was sent
    std::size_t _inFlight = 0;
    std::size_t _inFlightAtLastWait = 0;
    const std::string* _lastName = nullptr;
    AtspiPeer* _lastPeer = nullptr;
    bool _lastMayBeAsked = false;
};

} // namespace tarragon
