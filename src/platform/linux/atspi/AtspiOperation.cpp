#include "platform/linux/atspi/AtspiOperation.h"

#include "platform/linux/accessibletree/AtspiItemReading.h"

#include <utility>

namespace tarragon {

AtspiOperation::AtspiOperation(AtspiClients& clients)
    : _client(clients.ofThread())
    , _menuMemory(clients.menuMemory())
    , _batch(clients.batches().ofThread())
    , _lock(_client.mutex) {
    begin();
}

void AtspiOperation::begin() {
    // Nobody waits at a menu that opens while all of them are read.
    constexpr int patientTimes = 4;
    const bool readsAll = _batch != nullptr && _batch->reading == AtspiTree::Reading::AllLevels;
    const bool continues = _batch != nullptr && std::exchange(_batch->hasAskedBus, true);
    _client.connection.beginOperation(
        continues ? AtspiConnection::Start::Continued : AtspiConnection::Start::Fresh, readsAll ? patientTimes : 1);
    // Without a bus the operation finds nothing, and needs no other answer.
    static_cast<void>(_client.connection.ensureOpen());
    if (_client.connection.busIdentity() == _client.busIdentity)
        return;
    _client.applications.forget();
    _client.windows.forget();
    _client.busIdentity = _client.connection.busIdentity();
    _menuMemory.useBus(_client.busIdentity);
}

AtspiTree AtspiOperation::tree() {
    return {_client.connection, nodes(), _menuMemory,
        _batch != nullptr ? _batch->reading : AtspiTree::Reading::OneAttribute};
}

std::optional<AtspiApplication> AtspiOperation::application(std::int64_t processIdentifier) {
    return _client.applications.find(processIdentifier);
}

void AtspiOperation::readRemembered(std::uint32_t window, const AtspiApplication& application) {
    const AtspiWindows::Remembered remembered = _client.windows.remembered(window, application);
    AtspiNodes::Wanted wanted = _client.windows.wantedOf(remembered);
    if (remembered.menuBar && _batch != nullptr && _batch->reading >= AtspiTree::Reading::OneLevel)
        AtspiItemReading(_client.connection, nodes(), _menuMemory, application.toolkit)
            .addWanted(wanted, *remembered.menuBar, AtspiItemReading::UsualLengthOfMenuBar);
    nodes().fetch(_client.connection, wanted);
}

} // namespace tarragon
