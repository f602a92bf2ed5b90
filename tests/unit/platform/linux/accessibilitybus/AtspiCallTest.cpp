#include "platform/linux/accessibilitybus/AtspiCall.h"

#include "platform/linux/dbus/DBusMessage.h"
#include "platform/linux/dbus/DBusSocket.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {
namespace {

AtspiRequest requestWith(AtspiRequest::Argument argument, std::string path = "/org/a11y/atspi/accessible/7") {
    return {{":1.42", std::move(path)}, "org.a11y.atspi.Accessible", "Ask", std::move(argument), {}};
}

// As another implementation of the protocol reads it; nothing when it does not.
DBusMessagePointer asReadByOthers(std::string call) {
    // Only numbered messages are valid.
    if (call.size() > 8)
        call[8] = 1;
    return DBusMessagePointer(dbus_message_demarshal(call.data(), static_cast<int>(call.size()), nullptr));
}

std::string valuesOf(DBusMessageIter& values) {
    std::string text;
    for (int type = 0; (type = dbus_message_iter_get_arg_type(&values)) != DBUS_TYPE_INVALID;
         dbus_message_iter_next(&values)) {
        text += text.empty() ? "" : " ";
        if (dbus_type_is_container(type)) {
            DBusMessageIter inner;
            dbus_message_iter_recurse(&values, &inner);
            text += "[";
            text += valuesOf(inner);
            text += "]";
            continue;
        }
        DBusBasicValue value;
        dbus_message_iter_get_basic(&values, &value);
        text += type == DBUS_TYPE_STRING ? std::string(value.str) : std::to_string(value.i32);
    }
    return text;
}

std::string argumentsOf(const AtspiRequest::Argument& argument) {
    const DBusMessagePointer message = asReadByOthers(callFor(requestWith(argument)));
    if (!message)
        return "not a message";
    DBusMessageIter values;
    dbus_message_iter_init(message.get(), &values);
    return std::string(dbus_message_get_signature(message.get())) + ": " + valuesOf(values);
}

TEST(AtspiCallTest, NamesWhatIsCalled) {
    const DBusMessagePointer message = asReadByOthers(callFor(requestWith({})));
    ASSERT_TRUE(message);
    EXPECT_EQ(dbus_message_get_type(message.get()), DBUS_MESSAGE_TYPE_METHOD_CALL);
    EXPECT_STREQ(dbus_message_get_destination(message.get()), ":1.42");
    EXPECT_STREQ(dbus_message_get_path(message.get()), "/org/a11y/atspi/accessible/7");
    EXPECT_STREQ(dbus_message_get_interface(message.get()), "org.a11y.atspi.Accessible");
    EXPECT_STREQ(dbus_message_get_member(message.get()), "Ask");
    EXPECT_FALSE(dbus_message_get_no_reply(message.get()));
}

TEST(AtspiCallTest, WritesEveryKindOfArgument) {
    EXPECT_EQ(argumentsOf({}), ": ");
    EXPECT_EQ(argumentsOf(AtspiRequest::Property{"some.Interface", "Name"}), "ss: some.Interface Name");
    EXPECT_EQ(argumentsOf(std::int32_t{-5}), "i: -5");
    EXPECT_EQ(argumentsOf(AtspiRequest::CoordinatesOfScreen{}), "u: 0");
    EXPECT_EQ(argumentsOf(AtspiScreenPoint{-3, 70000}), "iiu: -3 70000 0");
    EXPECT_EQ(argumentsOf(AtspiRequest::TextRange{0, 200}), "ii: 0 200");
    EXPECT_EQ(argumentsOf(std::string(":1.7 \u2713")), "s: :1.7 \u2713");
}

TEST(AtspiCallTest, WritesRulesWithTheBitsOfTheirStatesAndRoles) {
    EXPECT_EQ(argumentsOf(AtspiMatchRule{}), "(aiia{ss}iaiiasib)uib: [[] 1 [] 1 [] 1 [] 1 0] 1 0 0");
    // Visible is bit 30, checked bit 4; a role of 33 stands in the second word.
    EXPECT_EQ(argumentsOf(AtspiMatchRule{.roles = {33, 3}, .states = {AtspiState::Visible, AtspiState::Checked}}),
        "(aiia{ss}iaiiasib)uib: [[1073741840] 1 [] 1 [8 2] 2 [] 1 0] 1 0 0");
}

TEST(AtspiCallTest, StandsAtTheRightPlaceWhateverTheLengthOfTheNames) {
    std::string path = "/";
    for (int length = 1; length < 20; ++length) {
        path += 'a';
        const AtspiRequest request = requestWith(AtspiRequest::Property{"some.Interface", "Name"}, path);
        const DBusMessagePointer message = asReadByOthers(callFor(request));
        ASSERT_TRUE(message) << length;
        EXPECT_EQ(dbus_message_get_path(message.get()), path);
    }
}

TEST(AtspiCallTest, CallsNobodyByAnImpossibleNameOrPath) {
    EXPECT_EQ(callFor(requestWith({}, "no path")), "");
    EXPECT_EQ(callFor(requestWith({}, "")), "");
    AtspiRequest request = requestWith({});
    request.target.busName = "not a name";
    EXPECT_EQ(callFor(request), "");
    EXPECT_EQ(callFor(requestWith(std::string("\xff"))), "");
}

} // namespace
} // namespace tarragon
