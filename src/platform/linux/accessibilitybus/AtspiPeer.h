#pragma once

#include "platform/Log.h"
#include "platform/linux/accessibilitybus/AtspiBackOff.h"
#include "platform/linux/accessibilitybus/AtspiTimeout.h"
#include "platform/linux/dbus/DBusIncoming.h"
#include "platform/linux/dbus/DBusMessage.h"
#include "platform/linux/dbus/DBusSocket.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace tarragon {

// One application on the accessibility bus as our connection knows it. Receives the answers to its probes.
class AtspiPeer final : public DBusReplyReceiver {
public:
    explicit AtspiPeer(std::string busName)
        : _busName(std::move(busName)) { }

    // An error of the application counts as an answer, one of the bus does not.
    void receive(const DBusIncoming& reply) override {
        probeSerial = 0;
        if (reply.sender == DBUS_SERVICE_DBUS)
            return;
        backOff.noteReply();
        log(LogCategory::Accessibility, [&] { return "application " + _busName + " answers again"; });
    }

    AtspiBackOff backOff;
    AtspiTimeout timeout{AtspiTimeout::Clock::time_point{}};
    std::uint64_t operation = 0; // the one that the time-out belongs to
    std::size_t pending = 0; // requests without a reply
    std::uint32_t probeSerial = 0; // of the probe that is under way, 0 when there is none

private:
    std::string _busName;
};

} // namespace tarragon
