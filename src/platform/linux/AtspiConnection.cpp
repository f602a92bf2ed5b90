#include "platform/linux/AtspiConnection.h"

#include "platform/linux/AtspiLibrary.h"
#include "platform/linux/AtspiSessionBus.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <systemd/sd-bus.h>

namespace tarragon {

namespace {

// As many requests are on their way at most: enough to keep application and bus busy, few enough for every bus.
constexpr std::size_t InFlightLimit = 400;
constexpr std::chrono::seconds ReconnectInterval{1};

struct MessageUnref {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, MessageUnref>;

int appendArgument(sd_bus_message* message, const AtspiRequest::Argument& argument) {
    struct Appender {
        sd_bus_message* message;
        int operator()(std::monostate) const { return 0; }
        int operator()(const AtspiRequest::Property& property) const {
            return sd_bus_message_append(message, "ss", property.interface, property.name);
        }
        int operator()(std::int32_t number) const { return sd_bus_message_append(message, "i", number); }
        int operator()(AtspiRequest::CoordinatesOfScreen) const { return sd_bus_message_append(message, "u", 0U); }
        int operator()(const AtspiScreenPoint& point) const {
            return sd_bus_message_append(message, "iiu", point.x, point.y, 0U);
        }
        int operator()(const AtspiRequest::TextRange& range) const {
            return sd_bus_message_append(message, "ii", range.start, range.end);
        }
        int operator()(const std::string& text) const { return sd_bus_message_append(message, "s", text.c_str()); }
    };
    return std::visit(Appender{message}, argument);
}

// There are no names without a bus.
Message newMessage(sd_bus* bus, const AtspiRequest& request, bool hasDestination = true) {
    sd_bus_message* message = nullptr;
    if (sd_bus_message_new_method_call(bus, &message, hasDestination ? request.target.busName.c_str() : nullptr,
            request.target.path.c_str(), request.interface, request.member)
        < 0)
        return {};
    Message result(message);
    if (appendArgument(message, request.argument) < 0)
        return {};
    return result;
}

std::uint64_t microsecondsUntil(AtspiConnection::Clock::time_point time) {
    const auto remaining =
        std::chrono::duration_cast<std::chrono::microseconds>(time - AtspiConnection::Clock::now()).count();
    return remaining > 0 ? static_cast<std::uint64_t>(remaining) + 1 : 0;
}

std::uint64_t identityOfBus(sd_bus* bus) {
    sd_id128_t identifier = {};
    if (sd_bus_get_bus_id(bus, &identifier) < 0)
        return 1;
    std::uint64_t identity = 0;
    std::memcpy(&identity, identifier.bytes, sizeof identity);
    return identity != 0 ? identity : 1;
}

} // namespace

struct AtspiConnection::Application {
    AtspiSuspension suspension;
    AtspiPatience patience{Clock::time_point{}};
    std::uint64_t operation = 0; // the one that the patience belongs to
    std::size_t pending = 0;
    sd_bus_slot* probe = nullptr;
    sd_bus* direct = nullptr; // a connection without the bus, where there is one

    static int onProbeReply(sd_bus_message* message, void* userdata, sd_bus_error*);
};

int AtspiConnection::Application::onProbeReply(sd_bus_message*, void* userdata, sd_bus_error*) {
    // An error is an answer too: somebody at home said it.
    auto* application = static_cast<Application*>(userdata);
    application->suspension.noteReply();
    application->probe = sd_bus_slot_unref(application->probe);
    return 0;
}

// The requests of one run and who still owes a reply.
class AtspiConnection::Exchange {
public:
    Exchange(AtspiConnection& connection, const std::vector<AtspiRequest>& requests)
        : _connection(connection)
        , _requests(requests) {
        _pending.resize(requests.size());
    }
    ~Exchange() {
        for (Pending& pending : _pending)
            sd_bus_slot_unref(pending.slot);
        for (Application* application : _applications)
            application->pending = 0;
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    // False when the connection broke.
    bool run() {
        while (true) {
            while (_next < _requests.size() && _inFlight < InFlightLimit)
                send(_next++);
            if (_inFlight == 0)
                return true;
            const int processed = process();
            if (processed < 0)
                return false;
            if (_inFlight == 0)
                continue;
            const Clock::time_point deadline = nextDeadline();
            if (Clock::now() >= deadline)
                giveUpTheSilent();
            else if (processed == 0 && !wait(deadline))
                return false;
        }
    }

private:
    struct Pending {
        Exchange* exchange = nullptr;
        const AtspiRequest* request = nullptr;
        Application* application = nullptr;
        sd_bus* bus = nullptr;
        sd_bus_slot* slot = nullptr;
    };

    // Handles what has arrived. Less than 0 when the bus broke.
    int process() {
        int processed = 0;
        for (std::size_t index = 0; index < _buses.size(); ++index) {
            const int result = AtspiLibrary::process(_buses[index]);
            if (result < 0 && _buses[index] == _connection._bus)
                return result;
            if (result < 0)
                loseDirect(_buses[index--]);
            else
                processed += result;
        }
        return processed;
    }

    bool wait(Clock::time_point deadline) {
        const std::uint64_t microseconds = microsecondsUntil(deadline);
        if (_buses.size() == 1)
            return sd_bus_wait(_buses.front(), microseconds) >= 0 || _buses.front() != _connection._bus;
        std::vector<pollfd> descriptors;
        for (sd_bus* bus : _buses)
            descriptors.push_back({sd_bus_get_fd(bus), static_cast<short>(sd_bus_get_events(bus)), 0});
        const auto milliseconds = static_cast<int>(microseconds / 1000 + 1);
        return ::poll(descriptors.data(), descriptors.size(), milliseconds) >= 0 || errno == EINTR;
    }

    // What was asked over this connection stays without answer.
    void loseDirect(sd_bus* bus) {
        for (Pending& pending : _pending) {
            if (pending.slot == nullptr || pending.bus != bus)
                continue;
            pending.slot = sd_bus_slot_unref(pending.slot);
            --pending.application->pending;
            --_inFlight;
        }
        std::erase(_buses, bus);
        for (Application* application : _applications) {
            if (application->direct == bus)
                application->direct = sd_bus_close_unref(application->direct);
        }
    }

    void send(std::size_t index) {
        const AtspiRequest& request = _requests[index];
        const std::string& busName = request.target.busName;
        if (_lastName == nullptr || *_lastName != busName) {
            _lastName = &busName;
            _lastApplication = &_connection.application(busName);
            _lastMayBeAsked = !_connection.isGone(busName) && _connection.mayAsk(busName);
        }
        if (!_lastMayBeAsked || _lastApplication->suspension.isSuspended())
            return;
        sd_bus* const bus = _connection.busOf(*_lastApplication);
        const Message message = newMessage(bus, request, bus == _connection._bus);
        if (!message)
            return;
        Pending& pending = _pending[index];
        pending = {this, &request, _lastApplication, bus, nullptr};
        // The time-out is ours to keep: it depends on what else the application answers.
        if (AtspiLibrary::callAsync(bus, &pending.slot, message.get(), onReply, &pending) < 0)
            return;
        ++_connection._statistics.messagesSent;
        if (pending.application->pending++ == 0)
            pending.application->patience.noteReply(Clock::now());
        if (std::ranges::find(_applications, pending.application) == _applications.end())
            _applications.push_back(pending.application);
        if (std::ranges::find(_buses, bus) == _buses.end())
            _buses.push_back(bus);
        ++_inFlight;
    }

    static int onReply(sd_bus_message* message, void* userdata, sd_bus_error*) {
        auto* pending = static_cast<Pending*>(userdata);
        pending->exchange->receive(*pending, message);
        return 0;
    }

    void receive(Pending& pending, sd_bus_message* message) {
        pending.slot = sd_bus_slot_unref(pending.slot);
        pending.application->patience.noteReply(Clock::now());
        --pending.application->pending;
        --_inFlight;
        if (const sd_bus_error* error = sd_bus_message_get_error(message)) {
            if (sd_bus_error_has_name(error, SD_BUS_ERROR_SERVICE_UNKNOWN) > 0
                || sd_bus_error_has_name(error, SD_BUS_ERROR_NAME_HAS_NO_OWNER) > 0)
                _connection._gone.insert(pending.request->target.busName);
            else if (pending.request->handleError)
                pending.request->handleError();
            return;
        }
        if (!pending.request->handleReply)
            return;
        AtspiReply reply(message);
        pending.request->handleReply(reply);
    }

    Clock::time_point nextDeadline() const {
        Clock::time_point deadline = Clock::time_point::max();
        for (const Application* application : _applications) {
            if (application->pending > 0)
                deadline = std::min(deadline, application->patience.deadline());
        }
        return deadline;
    }

    void giveUpTheSilent() {
        const Clock::time_point now = Clock::now();
        for (Pending& pending : _pending) {
            if (pending.slot == nullptr || !pending.application->patience.isExhausted(now))
                continue;
            pending.slot = sd_bus_slot_unref(pending.slot);
            --pending.application->pending;
            --_inFlight;
            pending.application->suspension.noteTimeout();
            _connection.probe(pending.request->target.busName, *pending.application);
        }
    }

    AtspiConnection& _connection;
    const std::vector<AtspiRequest>& _requests;
    std::vector<Pending> _pending;
    std::vector<Application*> _applications; // those that were asked something
    std::vector<sd_bus*> _buses; // those over which they were asked
    std::size_t _next = 0;
    std::size_t _inFlight = 0;
    const std::string* _lastName = nullptr;
    Application* _lastApplication = nullptr;
    bool _lastMayBeAsked = false;
};

AtspiConnection::AtspiConnection(AtspiSessionBus& sessionBus)
    : _sessionBus(sessionBus) { }

AtspiConnection::~AtspiConnection() {
    close();
}

bool AtspiConnection::ensureOpen() {
    if (_bus != nullptr && sd_bus_is_open(_bus) > 0)
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
    if (address.empty() || sd_bus_new(&_bus) < 0)
        return false;
    if (sd_bus_set_description(_bus, "accessibility") < 0 || sd_bus_set_address(_bus, address.c_str()) < 0
        || sd_bus_set_bus_client(_bus, 1) < 0 || AtspiLibrary::start(_bus) < 0 || !waitUntilReady())
        return false;
    _busIdentity = identityOfBus(_bus);
    return true;
}

bool AtspiConnection::waitUntilReady() {
    const Clock::time_point deadline = Clock::now() + AtspiPatience::Silence;
    while (sd_bus_is_ready(_bus) == 0) {
        const int processed = AtspiLibrary::process(_bus);
        if (processed < 0 || Clock::now() >= deadline)
            return false;
        if (processed == 0 && sd_bus_wait(_bus, microsecondsUntil(deadline)) < 0)
            return false;
    }
    return sd_bus_is_ready(_bus) > 0;
}

void AtspiConnection::close() {
    for (auto& [name, application] : _applications) {
        application->probe = sd_bus_slot_unref(application->probe);
        application->direct = sd_bus_close_unref(application->direct);
    }
    _applications.clear();
    _gone.clear();
    _busIdentity = 0;
    _bus = sd_bus_close_unref(_bus);
}

void AtspiConnection::beginOperation() {
    ++_operation;
}

void AtspiConnection::run(const std::vector<AtspiRequest>& requests) {
    if (requests.empty() || !ensureOpen())
        return;
    ++_statistics.roundTrips;
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
    sd_bus* const bus = busOf(application(request.target.busName));
    const Message message = newMessage(bus, request, bus == _bus);
    if (!message || sd_bus_message_set_expect_reply(message.get(), 0) < 0
        || sd_bus_send(bus, message.get(), nullptr) < 0)
        return false;
    ++_statistics.messagesSent;
    return flush(bus);
}

void AtspiConnection::connectDirectly(const std::string& busName, const std::string& address) {
    // The application's word alone is not enough to start programs or to call other machines.
    const bool isLocalSocket = address.starts_with("unix:path=") || address.starts_with("unix:abstract=");
    if (!isLocalSocket || address.find(';') != std::string::npos || address.find("unixexec") != std::string::npos)
        return;
    sd_bus*& direct = application(busName).direct;
    if (direct != nullptr || sd_bus_new(&direct) < 0)
        return;
    if (sd_bus_set_address(direct, address.c_str()) < 0 || AtspiLibrary::start(direct) < 0)
        direct = sd_bus_close_unref(direct);
}

sd_bus* AtspiConnection::busOf(const Application& application) const {
    return application.direct != nullptr && sd_bus_is_open(application.direct) > 0 ? application.direct : _bus;
}

bool AtspiConnection::flush(sd_bus* bus) {
    const Clock::time_point deadline = Clock::now() + AtspiPatience::Silence;
    while (true) {
        std::uint64_t queued = 0;
        if (sd_bus_get_n_queued_write(bus, &queued) < 0)
            return false;
        if (queued == 0)
            return true;
        const int processed = AtspiLibrary::process(bus);
        if (processed < 0 || Clock::now() >= deadline)
            return false;
        if (processed == 0 && sd_bus_wait(bus, microsecondsUntil(deadline)) < 0)
            return false;
    }
}

bool AtspiConnection::mayAsk(const std::string& busName) {
    Application& asked = application(busName);
    if (!asked.suspension.isSuspended())
        return true;
    drain();
    if (!asked.suspension.isSuspended())
        return true;
    if (asked.suspension.needsProbe(Clock::now()))
        probe(busName, asked);
    return false;
}

void AtspiConnection::drain() {
    // Bounded, so that nobody who floods the bus keeps us here.
    constexpr int limit = 10'000;
    for (int count = 0; count < limit && AtspiLibrary::process(_bus) > 0; ++count) { }
}

void AtspiConnection::probe(const std::string& busName, Application& application) {
    const Clock::time_point now = Clock::now();
    if (!application.suspension.needsProbe(now))
        return;
    application.suspension.noteProbe(now);
    application.probe = sd_bus_slot_unref(application.probe);
    // A question to the user interface itself. A ping would be answered by a library's own thread, hung or not.
    const Message message = newMessage(
        _bus, {{busName, "/org/a11y/atspi/accessible/root"}, "org.a11y.atspi.Accessible", "GetRole", {}, {}});
    if (message
        && AtspiLibrary::callAsync(_bus, &application.probe, message.get(), Application::onProbeReply, &application)
            >= 0)
        ++_statistics.messagesSent;
}

AtspiConnection::Application& AtspiConnection::application(const std::string& busName) {
    std::unique_ptr<Application>& entry = _applications[busName];
    if (!entry)
        entry = std::make_unique<Application>();
    if (entry->operation != _operation) {
        entry->operation = _operation;
        entry->patience = AtspiPatience(Clock::now());
    }
    return *entry;
}

} // namespace tarragon
