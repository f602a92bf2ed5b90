#pragma once

#include "platform/linux/dbus/DBusMessage.h"
#include "platform/linux/dbus/DBusSocket.h"

#include <memory>
#include <string>

namespace tarragon {

// The session bus as far as accessibility goes: where the accessibility bus is and whether it is switched on. One
// thread at a time.
class AtspiSessionBus {
public:
    AtspiSessionBus() = default;
    AtspiSessionBus(const AtspiSessionBus&) = delete;
    AtspiSessionBus& operator=(const AtspiSessionBus&) = delete;

    // Empty when there is no accessibility bus. $AT_SPI_BUS_ADDRESS goes first, as for applications.
    std::string accessibilityBusAddress();
    [[nodiscard]] bool isEnabled();
    // False when the switch could not be set.
    [[nodiscard]] bool enable();

private:
    bool ensureOpen();
    // The bytes of the answer to a call; none when there is none, or a refusal.
    std::string answerTo(const DBusMessagePointer& call);

    std::unique_ptr<DBusSocket> _bus;
};

} // namespace tarragon
