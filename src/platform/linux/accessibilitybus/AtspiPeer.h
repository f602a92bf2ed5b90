#pragma once

#include "platform/Log.h"
#include "platform/linux/accessibilitybus/AtspiBackOff.h"
#include "platform/linux/accessibilitybus/AtspiTimeout.h"
#include "platform/linux/dbus/DBusIncoming.h"
#include "platform/linux/dbus/DBusMessage.h"
#include "platform/linux/dbus/DBusSocket.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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

    // The connections without the bus take turns, for an application takes one message from each in a round of its
    // loop, and a round costs it as much as a message. nullptr when none is open.
    DBusSocket* nextDirect() {
        for (std::size_t tried = 0; tried < direct.size(); ++tried) {
            DBusSocket* const socket = direct[++_turn % direct.size()].get();
            if (socket->isOpen())
                return socket;
        }
        return nullptr;
    }
    void dropDirect(const DBusSocket* socket) {
        std::erase_if(direct, [socket](const auto& owned) { return owned.get() == socket; });
    }

    AtspiBackOff backOff;
    AtspiTimeout timeout{AtspiTimeout::Clock::time_point{}};
    std::uint64_t operation = 0; // the one that the time-out belongs to
    std::size_t pending = 0; // requests without a reply
    std::uint32_t probeSerial = 0; // of the probe that is under way, 0 when there is none
    std::vector<std::unique_ptr<DBusSocket>> direct; // without the bus in between, where there are such connections

private:
    std::string _busName;
    std::size_t _turn = 0;
};

} // namespace tarragon
