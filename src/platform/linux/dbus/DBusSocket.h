#pragma once

#include "platform/linux/dbus/DBusIncoming.h"
#include "platform/linux/dbus/DBusMessage.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarragon {

// Gets the reply to one method call.
class DBusReplyReceiver {
public:
    // A return or an error, valid during the call.
    virtual void receive(const DBusIncoming& reply) = 0;

protected:
    ~DBusReplyReceiver() = default;
};

// A socket over which messages of the bus protocol go: to a bus, or to a program without a bus in between. Messages are
// gathered and written together, and whatever has arrived is read at once. Never waits but where that is said. One
// thread at a time.
class DBusSocket {
public:
    using Clock = std::chrono::steady_clock;

    // Connects to the first address of a list that accepts: sockets of this machine only ("unix:path=...",
    // "unix:abstract=..."). nullptr when none does. What is sent goes out as soon as the other side has let us in.
    static std::unique_ptr<DBusSocket> connect(const std::string& addresses);
    ~DBusSocket();
    DBusSocket(const DBusSocket&) = delete;
    DBusSocket& operator=(const DBusSocket&) = delete;

    // Registers with the bus at the other end; what is sent goes out afterwards. Waits until the deadline at most;
    // false when the bus did not let us in.
    [[nodiscard]] bool registerWithBus(Clock::time_point deadline);

    // Gathers a method call that expects no reply; exchange writes it. The bytes are those of a whole message.
    [[nodiscard]] bool send(std::string_view call);
    // The same, and hands the reply to the receiver, which is forgotten then. Gives the serial of the call, 0 when it
    // cannot be made.
    [[nodiscard]] std::uint32_t call(std::string_view call, DBusReplyReceiver& receiver);
    // The reply to the call with this serial is not wanted any more.
    void forget(std::uint32_t serial) { _receivers.erase(serial); }

    // Writes what the other side takes and hands out the replies that have arrived. False when the connection is lost.
    bool exchange();
    // Waits until there is something to read, or to write where something is left, or until the deadline. False when
    // the connection is lost.
    [[nodiscard]] bool wait(Clock::time_point deadline) const;
    // Exchanges until everything is written; false when that was not so at the deadline, or the connection is lost.
    [[nodiscard]] bool flush(Clock::time_point deadline);
    // Sends a call and waits for its reply: the bytes of a message. Empty when there was none in time; an error is a
    // reply.
    std::string callAndWait(DBusMessage* message, Clock::time_point deadline);

    bool isOpen() const { return _descriptor >= 0; }
    int descriptor() const { return _descriptor; }
    // For poll(): reading, and writing where something is left that may be written.
    short eventsToWaitFor() const;
    // What the other end calls itself; one bus, or program, has always the same. Empty until it has let us in.
    const std::string& identifierOfOtherEnd() const { return _identifier; }

private:
    explicit DBusSocket(int descriptor);

    void close();
    bool hasUnwritten() const { return _written < _outgoing.size(); }
    bool read();
    bool write();
    // Takes the line that lets us in, or not.
    bool takeGreeting();
    bool takeMessages();
    void handle(const DBusIncoming& message);
    void refuse(const DBusIncoming& call);
    bool append(DBusMessage* message);
    // The same of a message's bytes, which get the next serial and these flags.
    bool append(std::string_view message, char flags);

    int _descriptor;
    bool _letIn = false;
    std::string _identifier;
    std::uint32_t _lastSerial = 0;
    std::vector<char> _outgoing;
    std::size_t _written = 0; // of _outgoing
    std::unique_ptr<char[]> _buffer; // what a read fills
    std::vector<char> _incoming;
    std::size_t _skipped = 0; // bytes still to come of a message that is too long for us
    std::unordered_map<std::uint32_t, DBusReplyReceiver*> _receivers; // by serial of their call
};

} // namespace tarragon
