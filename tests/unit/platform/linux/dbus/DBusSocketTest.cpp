#include "platform/linux/dbus/DBusSocket.h"
#include "MarshalledMessage.h"
#include "platform/linux/accessibilitybus/AtspiReply.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarragon {
namespace {

using namespace std::chrono_literals;
using Clock = DBusSocket::Clock;

// The other end of a socket, which says what the test wants.
class OtherEnd {
public:
    OtherEnd() {
        char folder[] = "/tmp/socket-test-XXXXXX";
        _folder = ::mkdtemp(folder);
        _path = _folder + "/socket";
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        _path.copy(address.sun_path, sizeof address.sun_path - 1);
        _listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::bind(_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(_listener, 4), 0);
    }
    ~OtherEnd() {
        hangUp();
        ::close(_listener);
        ::unlink(_path.c_str());
        ::rmdir(_folder.c_str());
    }

    std::string address() const { return "unix:path=" + _path; }
    void accept() { _connection = ::accept(_listener, nullptr, nullptr); }
    void say(const std::string& bytes) {
        EXPECT_EQ(::send(_connection, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
    }
    void hangUp() {
        if (_connection >= 0)
            ::close(_connection);
        _connection = -1;
    }
    // What has arrived by now.
    std::string heard() {
        std::string bytes;
        char buffer[4096];
        ssize_t count = 0;
        while ((count = ::recv(_connection, buffer, sizeof buffer, MSG_DONTWAIT)) > 0)
            bytes.append(buffer, static_cast<std::size_t>(count));
        return bytes;
    }

private:
    std::string _folder;
    std::string _path;
    int _listener = -1;
    int _connection = -1;
};

class Receiver final : public DBusReplyReceiver {
public:
    void receive(const DBusIncoming& reply) override {
        ++replies;
        text = AtspiReply(reply).readString().value_or("");
    }
    int replies = 0;
    std::string text;
};

std::string answer(std::uint32_t call, const std::string& text) {
    const DBusMessagePointer message(dbus_message_new(DBUS_MESSAGE_TYPE_METHOD_RETURN));
    dbus_message_set_reply_serial(message.get(), call);
    const char* characters = text.c_str();
    dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &characters, DBUS_TYPE_INVALID);
    return marshalled(message.get(), 77);
}

// What is to be numbered by the socket.
std::string callOf(const DBusMessagePointer& message) {
    return marshalled(message.get(), 1);
}

class DBusSocketTest : public ::testing::Test {
protected:
    void SetUp() override {
        socket = DBusSocket::connect(other.address());
        ASSERT_TRUE(socket);
        other.accept();
        message.reset(dbus_message_new_method_call(nullptr, "/object", "some.Interface", "Ask"));
    }

    OtherEnd other;
    std::unique_ptr<DBusSocket> socket;
    Receiver receiver;
    DBusMessagePointer message;
};

TEST_F(DBusSocketTest, SaysWhoWeAreAndSendsNothingElseUntilItIsLetIn) {
    ASSERT_NE(socket->call(callOf(message), receiver), 0U);
    EXPECT_TRUE(socket->exchange());
    const std::string greeting = other.heard();
    EXPECT_EQ(greeting.substr(0, 15), std::string("\0AUTH EXTERNAL ", 15));
    EXPECT_TRUE(greeting.ends_with("\r\nBEGIN\r\n"));
    EXPECT_EQ(socket->eventsToWaitFor(), POLLIN);
    other.say("OK 0123abcd\r\n");
    EXPECT_TRUE(socket->exchange());
    EXPECT_EQ(socket->identifierOfOtherEnd(), "0123abcd");
    EXPECT_NE(other.heard().find("some.Interface"), std::string::npos);
}

TEST_F(DBusSocketTest, GathersMessagesUntilTheyAreExchanged) {
    other.say("OK 1\r\n");
    ASSERT_TRUE(socket->exchange());
    other.heard();
    EXPECT_NE(socket->call(callOf(message), receiver), 0U);
    const DBusMessagePointer second(dbus_message_copy(message.get()));
    EXPECT_NE(socket->call(callOf(second), receiver), 0U);
    EXPECT_EQ(other.heard(), "");
    socket->exchange();
    EXPECT_GT(other.heard().size(), 100U);
}

TEST_F(DBusSocketTest, HandsEachAnswerToWhoAsked) {
    Receiver another;
    const auto first = socket->call(callOf(message), receiver);
    const DBusMessagePointer copy(dbus_message_copy(message.get()));
    const auto second = socket->call(callOf(copy), another);
    other.say("OK 1\r\n" + answer(second, "second") + answer(first, "first") + answer(first, "again"));
    EXPECT_TRUE(socket->exchange());
    EXPECT_EQ(receiver.text, "first");
    EXPECT_EQ(receiver.replies, 1);
    EXPECT_EQ(another.text, "second");
}

TEST_F(DBusSocketTest, PutsAnswersTogetherThatComeInPieces) {
    const auto call = socket->call(callOf(message), receiver);
    for (const char byte : "OK 1\r\n" + answer(call, "in pieces")) {
        EXPECT_EQ(receiver.replies, 0);
        other.say(std::string(1, byte));
        ASSERT_TRUE(socket->exchange());
    }
    EXPECT_EQ(receiver.text, "in pieces");
}

TEST_F(DBusSocketTest, ForgetsCallsWhoseAnswerIsNotWanted) {
    const auto call = socket->call(callOf(message), receiver);
    socket->forget(call);
    other.say("OK 1\r\n" + answer(call, "late"));
    EXPECT_TRUE(socket->exchange());
    EXPECT_EQ(receiver.replies, 0);
}

TEST_F(DBusSocketTest, IsLostWhenItIsRefused) {
    other.say("REJECTED EXTERNAL\r\n");
    EXPECT_FALSE(socket->exchange());
    EXPECT_FALSE(socket->isOpen());
    EXPECT_EQ(socket->call(callOf(message), receiver), 0U);
}

TEST_F(DBusSocketTest, IsLostWhenItHearsNonsense) {
    other.say("OK 1\r\n" + std::string(64, 'x'));
    EXPECT_FALSE(socket->exchange());
}

TEST_F(DBusSocketTest, IsLostWhenTheGreetingNeverEnds) {
    other.say("OK " + std::string(5000, 'x'));
    EXPECT_FALSE(socket->exchange());
}

TEST_F(DBusSocketTest, TakesWhatWasSaidBeforeTheEnd) {
    const auto call = socket->call(callOf(message), receiver);
    other.say("OK 1\r\n");
    ASSERT_TRUE(socket->exchange());
    other.say(answer(call, "goodbye"));
    other.heard();
    other.hangUp();
    socket->exchange();
    EXPECT_EQ(receiver.text, "goodbye");
    EXPECT_FALSE(socket->exchange());
}

TEST_F(DBusSocketTest, SkipsAMessageThatIsTooLongAndGoesOn) {
    const auto call = socket->call(callOf(message), receiver);
    other.say("OK 1\r\n");
    ASSERT_TRUE(socket->exchange());
    const std::string huge = answer(12345, std::string(9'000'000, 'x'));
    for (std::size_t sent = 0; sent < huge.size(); sent += 60'000) {
        other.say(huge.substr(sent, 60'000));
        ASSERT_TRUE(socket->exchange());
    }
    other.say(answer(call, "after it"));
    EXPECT_TRUE(socket->exchange());
    EXPECT_EQ(receiver.text, "after it");
}

TEST_F(DBusSocketTest, RefusesWhatIsAskedOfIt) {
    other.say("OK 1\r\n");
    ASSERT_TRUE(socket->exchange());
    other.heard();
    other.say(marshalled(message.get(), 5));
    EXPECT_TRUE(socket->exchange());
    const std::string heard = other.heard();
    const auto refusal = DBusIncoming::parse(heard);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->type, DBusIncoming::Type::Error);
    EXPECT_EQ(refusal->errorName, DBUS_ERROR_UNKNOWN_METHOD);
    EXPECT_EQ(refusal->replySerial, 5U);
}

TEST_F(DBusSocketTest, WaitsNoLongerThanTold) {
    const auto start = Clock::now();
    EXPECT_EQ(socket->callAndWait(message.get(), start + 50ms), "");
    EXPECT_GE(Clock::now() - start, 50ms);
    EXPECT_LT(Clock::now() - start, 5s);
}

TEST_F(DBusSocketTest, CannotFlushToSomebodyWhoDoesNotLetItIn) {
    EXPECT_TRUE(socket->send(callOf(message)));
    EXPECT_FALSE(socket->flush(Clock::now() + 20ms));
}

TEST(DBusSocketAddressTest, TakesTheFirstAddressThatAccepts) {
    const OtherEnd other;
    EXPECT_TRUE(DBusSocket::connect("unix:path=/nowhere/at/all;" + other.address() + ",guid=00"));
}

TEST(DBusSocketAddressTest, StartsNoProgramsAndCallsNoOtherMachine) {
    for (const char* address : {"", "nonsense", "unixexec:path=/bin/true", "tcp:host=127.0.0.1,port=1",
             "unix:path=", "unix:path=/nowhere/at/all", "unix:abstract=nobody-listens-here", "unix:tmpdir=/tmp"})
        EXPECT_FALSE(DBusSocket::connect(address)) << address;
    EXPECT_FALSE(DBusSocket::connect("unix:path=/" + std::string(500, 'x')));
}

} // namespace
} // namespace tarragon
