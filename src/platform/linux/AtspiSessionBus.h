#pragma once

#include <string>

struct sd_bus;

namespace tarragon {

// The session bus as far as accessibility goes: where the accessibility bus is and whether it is switched on. One
// thread at a time.
class AtspiSessionBus {
public:
    AtspiSessionBus() = default;
    ~AtspiSessionBus();
    AtspiSessionBus(const AtspiSessionBus&) = delete;
    AtspiSessionBus& operator=(const AtspiSessionBus&) = delete;

    // Empty when there is no accessibility bus. $AT_SPI_BUS_ADDRESS goes first, as for applications.
    std::string accessibilityBusAddress();
    bool isEnabled();
    // False when the switch could not be set.
    bool enable();

private:
    bool ensureOpen();
    void closeIfLost(int error);

    sd_bus* _bus = nullptr;
};

} // namespace tarragon
