#include "platform/linux/accessibilitybus/AtspiExchange.h"

#include "platform/Log.h"
#include "platform/linux/accessibilitybus/AtspiCall.h"

#include <algorithm>
#include <thread>

namespace tarragon {

namespace {

// As many requests are on their way at most: enough to keep application and bus busy, few enough for every bus.
constexpr std::size_t InFlightLimit = 500;
// Requests go out in portions, so that the application is at work while we still write.
constexpr std::size_t Portion = 8;
// With more replies on their way, we look again after a moment rather than being woken for each: to wake us costs those
// who answer a good part of what the answer itself costs them.
constexpr std::size_t FewReplies = 8;
constexpr std::chrono::microseconds NapForEachReply{8};
constexpr std::chrono::microseconds LongestNap{200};

// The method, or the property, that a request asks for.
std::string nameOf(const AtspiRequest& request) {
    const auto* property = std::get_if<AtspiRequest::Property>(&request.argument);
    return property != nullptr ? property->name : request.member;
}

} // namespace

AtspiConnection::Exchange::~Exchange() {
    for (const Pending& pending : _pending) {
        if (pending.serial != 0)
            _connection._bus->forget(pending.serial);
    }
    for (AtspiPeer* peer : _peers)
        peer->pending = 0;
    _connection._statistics.roundTrips += _lastRound;
}

bool AtspiConnection::Exchange::run() {
    while (true) {
        while (_next < _requests.size() && _inFlight < InFlightLimit) {
            sendNext();
            if (_next % Portion == 0 && !exchange())
                return false;
        }
        if (_inFlight == 0)
            return true;
        if (!exchange())
            return false;
        if (_inFlight == 0 || (_next < _requests.size() && _inFlight < InFlightLimit / 2))
            continue;
        const Clock::time_point deadline = nextDeadline();
        if (Clock::now() >= deadline)
            giveUpTheSilent();
        else if (!wait(deadline))
            return false;
    }
}

void AtspiConnection::Exchange::sendNext() {
    Pending& pending = _pending.emplace_back();
    pending.exchange = this;
    pending.request = &_requests[_next];
    pending.round = _rounds[_next];
    ++_next;
    if (!send(pending))
        end(pending);
}

bool AtspiConnection::Exchange::send(Pending& pending) {
    const AtspiRequest& request = *pending.request;
    const std::string& busName = request.target.busName;
    if (_lastName == nullptr || *_lastName != busName) {
        _lastName = &busName;
        _lastPeer = &_connection.peer(busName);
        _lastMayBeAsked = !_connection.isGone(busName) && _connection.mayAsk(busName);
    }
    if (!_lastMayBeAsked || _lastPeer->backOff.isSuspended())
        return false;
    pending.peer = _lastPeer;
    // The time-out is ours to keep: it depends on what else the application answers.
    pending.serial = _connection._bus->call(callFor(request), pending);
    if (pending.serial == 0)
        return false;
    ++_connection._statistics.messagesSent;
    _lastRound = std::max(_lastRound, pending.round);
    if (pending.peer->pending++ == 0)
        pending.peer->timeout.noteReply(Clock::now());
    if (std::ranges::find(_peers, pending.peer) == _peers.end())
        _peers.push_back(pending.peer);
    ++_inFlight;
    return true;
}

void AtspiConnection::Exchange::end(const Pending& pending) {
    if (!pending.request->handleEnd)
        return;
    pending.request->handleEnd();
    _rounds.resize(_requests.size(), pending.round + 1);
}

void AtspiConnection::Exchange::receive(Pending& pending, const DBusIncoming& reply) {
    pending.serial = 0;
    pending.peer->timeout.noteReply(Clock::now());
    --pending.peer->pending;
    --_inFlight;
    if (reply.type == DBusIncoming::Type::Error) {
        receiveError(pending, reply);
    } else if (pending.request->handleReply) {
        receiveReturn(*pending.request, reply);
    }
    end(pending);
}

void AtspiConnection::Exchange::receiveReturn(const AtspiRequest& request, const DBusIncoming& reply) {
    AtspiReply answer(reply);
    const bool isEntered = !request.isForProperty() || answer.enterVariant();
    if (isEntered)
        request.handleReply(answer);
    if (isEntered && answer.isReadWhole())
        return;
    log(LogCategory::Accessibility, [&] {
        return "the reply of " + request.target.busName + " " + request.target.path + " to " + nameOf(request)
            + " is malformed: its signature is \"" + std::string(reply.signature) + "\"";
    });
}

void AtspiConnection::Exchange::receiveError(const Pending& pending, const DBusIncoming& error) {
    const std::string& busName = pending.request->target.busName;
    if (error.sender != DBUS_SERVICE_DBUS) {
        if (pending.request->handleError)
            pending.request->handleError();
        return;
    }
    const bool isAboutName =
        error.errorName == DBUS_ERROR_SERVICE_UNKNOWN || error.errorName == DBUS_ERROR_NAME_HAS_NO_OWNER;
    // Other names may find an owner again; and the bus itself says this of the names that it is asked about.
    if (isAboutName && busName.starts_with(':'))
        _connection._gone.insert(busName);
}

void AtspiConnection::Exchange::giveUp(Pending& pending) {
    _connection._bus->forget(pending.serial);
    pending.serial = 0;
    --pending.peer->pending;
    --_inFlight;
}

void AtspiConnection::Exchange::giveUpTheSilent() {
    const Clock::time_point now = Clock::now();
    for (Pending& pending : _pending) {
        if (pending.serial == 0 || !pending.peer->timeout.isExhausted(now))
            continue;
        giveUp(pending);
        end(pending);
        if (!pending.peer->backOff.isSuspended()) {
            log(LogCategory::Accessibility, [&] {
                return "application " + pending.request->target.busName + " has timed out at "
                    + nameOf(*pending.request) + " of " + pending.request->target.path;
            });
        }
        pending.peer->backOff.noteTimeout();
        _connection.probe(pending.request->target.busName, *pending.peer);
    }
}

bool AtspiConnection::Exchange::exchange() {
    return _connection._bus->exchange();
}

bool AtspiConnection::Exchange::wait(Clock::time_point deadline) {
    const bool hasProgressed = _inFlight != _inFlightAtLastWait;
    _inFlightAtLastWait = _inFlight;
    if (_inFlight > FewReplies && hasProgressed) {
        std::this_thread::sleep_for(std::min<std::chrono::microseconds>(_inFlight * NapForEachReply, LongestNap));
        return true;
    }
    return _connection._bus->wait(deadline);
}

AtspiConnection::Clock::time_point AtspiConnection::Exchange::nextDeadline() const {
    Clock::time_point deadline = Clock::time_point::max();
    for (const AtspiPeer* peer : _peers) {
        if (peer->pending > 0)
            deadline = std::min(deadline, peer->timeout.deadline());
    }
    return deadline;
}

} // namespace tarragon
