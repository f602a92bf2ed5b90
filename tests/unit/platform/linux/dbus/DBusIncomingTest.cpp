#include "platform/linux/dbus/DBusIncoming.h"

#include "MarshalledMessage.h"
#include "platform/linux/accessibilitybus/AtspiReply.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tarragon {
namespace {

DBusMessagePointer newAnswer() {
    DBusMessagePointer message(dbus_message_new(DBUS_MESSAGE_TYPE_METHOD_RETURN));
    dbus_message_set_reply_serial(message.get(), 42);
    dbus_message_set_sender(message.get(), ":1.5");
    return message;
}

// References, a text in a variant, states and a rectangle, as applications answer.
std::string richAnswer() {
    const DBusMessagePointer message = newAnswer();
    DBusMessageIter arguments;
    DBusMessageIter array;
    DBusMessageIter fields;
    dbus_message_iter_init_append(message.get(), &arguments);
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "(so)", &array);
    for (const char* path : {"/a", "/org/a11y/atspi/null", "/long/path"}) {
        const char* name = ":1.5";
        dbus_message_iter_open_container(&array, DBUS_TYPE_STRUCT, nullptr, &fields);
        dbus_message_iter_append_basic(&fields, DBUS_TYPE_STRING, &name);
        dbus_message_iter_append_basic(&fields, DBUS_TYPE_OBJECT_PATH, &path);
        dbus_message_iter_close_container(&array, &fields);
    }
    dbus_message_iter_close_container(&arguments, &array);
    const char* text = "Ça va";
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_VARIANT, "s", &fields);
    dbus_message_iter_append_basic(&fields, DBUS_TYPE_STRING, &text);
    dbus_message_iter_close_container(&arguments, &fields);
    return marshalled(message.get(), 7);
}

std::string numbersAnswer() {
    const DBusMessagePointer message = newAnswer();
    DBusMessageIter arguments;
    DBusMessageIter inner;
    dbus_message_iter_init_append(message.get(), &arguments);
    const std::uint8_t byte = 200;
    const std::int16_t small = -3;
    const std::uint64_t large = 1ULL << 40U;
    const double fraction = 0.5;
    const dbus_bool_t truth = TRUE;
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_BYTE, &byte);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_INT16, &small);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_UINT64, &large);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_DOUBLE, &fraction);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_BOOLEAN, &truth);
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "u", &inner);
    for (const std::uint32_t word : {5U, 1U, 9U})
        dbus_message_iter_append_basic(&inner, DBUS_TYPE_UINT32, &word);
    dbus_message_iter_close_container(&arguments, &inner);
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_STRUCT, nullptr, &inner);
    for (const std::int32_t number : {1, -2, 30, 40})
        dbus_message_iter_append_basic(&inner, DBUS_TYPE_INT32, &number);
    dbus_message_iter_close_container(&arguments, &inner);
    return marshalled(message.get(), 7);
}

// Everything that one may ask of a message; the answers do not matter.
void readAll(const std::string& bytes) {
    DBusIncoming::lengthOf(bytes);
    const auto message = DBusIncoming::parse(bytes);
    if (!message)
        return;
    AtspiReply reply(*message);
    for (int round = 0; round < 3; ++round) {
        reply.readReferences();
        static_cast<void>(reply.enterVariant());
        reply.readString();
        reply.readInteger();
        reply.readNumber();
        reply.readBoolean();
        reply.readStates();
        reply.readReference();
        reply.readRect();
    }
}

TEST(DBusIncomingTest, ReadsWhatAnotherImplementationWrites) {
    const std::string bytes = richAnswer();
    EXPECT_EQ(DBusIncoming::lengthOf(bytes.substr(0, 16)), bytes.size());
    EXPECT_EQ(DBusIncoming::lengthOf(bytes.substr(0, 15)), 0U);
    const auto message = DBusIncoming::parse(bytes);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, DBusIncoming::Type::Return);
    EXPECT_EQ(message->serial, 7U);
    EXPECT_EQ(message->replySerial, 42U);
    EXPECT_EQ(message->sender, ":1.5");
    EXPECT_EQ(message->signature, "a(so)v");
    AtspiReply reply(*message);
    EXPECT_FALSE(reply.readString());
    const auto references = reply.readReferences();
    ASSERT_TRUE(references);
    EXPECT_EQ(*references, (std::vector<AtspiReference>{{":1.5", "/a"}, {":1.5", "/long/path"}}));
    EXPECT_TRUE(reply.enterVariant());
    EXPECT_EQ(reply.readString(), "Ça va");
    EXPECT_FALSE(reply.readString());
}

TEST(DBusIncomingTest, ReadsNumbersOfEveryKind) {
    const std::string bytes = numbersAnswer();
    const auto message = DBusIncoming::parse(bytes);
    ASSERT_TRUE(message);
    AtspiReply reply(*message);
    EXPECT_EQ(reply.readInteger(), 200);
    EXPECT_EQ(reply.readInteger(), -3);
    EXPECT_EQ(reply.readInteger(), std::int64_t{1} << 40U);
    EXPECT_EQ(reply.readNumber(), 0.5);
    EXPECT_EQ(reply.readBoolean(), true);
    EXPECT_EQ(reply.readStates(), (std::uint64_t{1} << 32U) | 5U);
    EXPECT_EQ(reply.readRect(), (Rect{{1, -2}, {30, 40}}));
}

TEST(DBusIncomingTest, KnowsErrorsByTheirNames) {
    const DBusMessagePointer error(dbus_message_new(DBUS_MESSAGE_TYPE_ERROR));
    dbus_message_set_error_name(error.get(), DBUS_ERROR_SERVICE_UNKNOWN);
    dbus_message_set_reply_serial(error.get(), 3);
    const std::string bytes = marshalled(error.get(), 7);
    const auto message = DBusIncoming::parse(bytes);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, DBusIncoming::Type::Error);
    EXPECT_EQ(message->errorName, DBUS_ERROR_SERVICE_UNKNOWN);
}

TEST(DBusIncomingTest, TakesNothingForAMessageThatIsCutShortOrTooLong) {
    for (const std::string& bytes : {richAnswer(), numbersAnswer()}) {
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_FALSE(DBusIncoming::parse(bytes.substr(0, length))) << length;
        EXPECT_FALSE(DBusIncoming::parse(bytes + "x"));
    }
}

bool liesWithin(std::string_view part, std::string_view whole) {
    const std::less_equal<const char*> notAfter;
    return part.empty()
        || (notAfter(whole.data(), part.data()) && notAfter(part.data() + part.size(), whole.data() + whole.size()));
}

TEST(DBusIncomingTest, SurvivesEveryOtherValueOfEveryByte) {
    for (const std::string& bytes : {richAnswer(), numbersAnswer()}) {
        for (std::size_t position = 0; position < bytes.size(); ++position) {
            for (int value = 0; value < 256; ++value) {
                std::string changed = bytes;
                changed[position] = static_cast<char>(value);
                readAll(changed);
                const auto message = DBusIncoming::parse(changed);
                if (!message)
                    continue;
                for (const std::string_view part :
                    {message->sender, message->errorName, message->signature, message->body, message->bytes})
                    ASSERT_TRUE(liesWithin(part, changed)) << position << ": " << value;
            }
        }
    }
}

TEST(DBusIncomingTest, StepsOverTheOtherByteOrder) {
    std::string bytes = richAnswer();
    bytes[0] = bytes[0] == 'l' ? 'B' : 'l';
    for (const std::size_t position : {4U, 12U})
        std::reverse(bytes.begin() + position, bytes.begin() + position + 4);
    EXPECT_EQ(DBusIncoming::lengthOf(bytes), bytes.size());
    const auto message = DBusIncoming::parse(bytes);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, DBusIncoming::Type::Signal);
    EXPECT_FALSE(AtspiReply(*message).readReferences());
    bytes[0] = 'x';
    EXPECT_FALSE(DBusIncoming::lengthOf(bytes));
    EXPECT_FALSE(DBusIncoming::parse(bytes));
}

TEST(DBusIncomingTest, StepsOverAMessageWithAFieldOfAnUnknownKind) {
    std::string bytes = richAnswer();
    // The type of the first field.
    ASSERT_EQ(bytes[17], 1);
    bytes[18] = 'x';
    const auto message = DBusIncoming::parse(bytes);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->type, DBusIncoming::Type::Signal);
}

TEST(DBusIncomingTest, TakesNoInvalidTextForATitle) {
    const DBusMessagePointer message = newAnswer();
    const char* text = "valid";
    dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    std::string bytes = marshalled(message.get(), 7);
    bytes[bytes.find("valid")] = '\xff';
    const auto incoming = DBusIncoming::parse(bytes);
    ASSERT_TRUE(incoming);
    EXPECT_FALSE(AtspiReply(*incoming).readString());
}

} // namespace
} // namespace tarragon
