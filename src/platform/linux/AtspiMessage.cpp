#include "platform/linux/AtspiMessage.h"

namespace tarragon {

namespace {

// The bits of a set, in as many words as it takes. The numbers are bit numbers.
template <typename Number>
std::vector<std::int32_t> bitsOf(const std::vector<Number>& numbers) {
    std::vector<std::uint32_t> words;
    for (const Number number : numbers) {
        const auto bit = static_cast<std::uint32_t>(number);
        if (words.size() <= bit / 32)
            words.resize(bit / 32 + 1);
        words[bit / 32] |= 1U << bit % 32;
    }
    return {words.begin(), words.end()};
}

// Writes the parts of a rule one after another.
class RuleWriter {
public:
    explicit RuleWriter(DBusMessageIter& arguments) { isComplete = open(arguments, DBUS_TYPE_STRUCT, nullptr, rule); }

    // How a list of the rule is meant.
    enum Match : std::int32_t { All = 1, Any = 2 };

    void appendBits(const std::vector<std::int32_t>& words, Match match) {
        DBusMessageIter array;
        const std::int32_t* data = words.data();
        isComplete = isComplete && open(rule, DBUS_TYPE_ARRAY, DBUS_TYPE_INT32_AS_STRING, array)
            && (words.empty()
                || dbus_message_iter_append_fixed_array(&array, DBUS_TYPE_INT32, &data, static_cast<int>(words.size())))
            && dbus_message_iter_close_container(&rule, &array) && appendMatch(match);
    }
    void appendNothing(const char* elementType) {
        DBusMessageIter array;
        isComplete = isComplete && open(rule, DBUS_TYPE_ARRAY, elementType, array)
            && dbus_message_iter_close_container(&rule, &array) && appendMatch(All);
    }
    // Not the other way round.
    bool close(DBusMessageIter& arguments) {
        constexpr dbus_bool_t inverted = FALSE;
        return isComplete && dbus_message_iter_append_basic(&rule, DBUS_TYPE_BOOLEAN, &inverted)
            && dbus_message_iter_close_container(&arguments, &rule);
    }

private:
    static bool open(DBusMessageIter& parent, int type, const char* contents, DBusMessageIter& container) {
        return dbus_message_iter_open_container(&parent, type, contents, &container) != FALSE;
    }
    bool appendMatch(std::int32_t match) {
        return dbus_message_iter_append_basic(&rule, DBUS_TYPE_INT32, &match) != FALSE;
    }

    DBusMessageIter rule = {};
    bool isComplete = false;
};

bool appendRule(DBusMessage* message, const AtspiMatchRule& rule) {
    DBusMessageIter arguments;
    dbus_message_iter_init_append(message, &arguments);
    RuleWriter writer(arguments);
    writer.appendBits(bitsOf(rule.states), RuleWriter::All);
    writer.appendNothing("{ss}");
    writer.appendBits(bitsOf(rule.roles), rule.roles.empty() ? RuleWriter::All : RuleWriter::Any);
    writer.appendNothing(DBUS_TYPE_STRING_AS_STRING);
    constexpr std::uint32_t inOrderOfTheTree = 1;
    constexpr std::int32_t asManyAsThereAre = 0;
    constexpr dbus_bool_t allLevels = FALSE;
    return writer.close(arguments) && dbus_message_iter_append_basic(&arguments, DBUS_TYPE_UINT32, &inOrderOfTheTree)
        && dbus_message_iter_append_basic(&arguments, DBUS_TYPE_INT32, &asManyAsThereAre)
        && dbus_message_iter_append_basic(&arguments, DBUS_TYPE_BOOLEAN, &allLevels);
}

struct ArgumentAppender {
    DBusMessage* message;

    template <typename... Arguments>
    bool append(Arguments... arguments) const {
        return dbus_message_append_args(message, arguments..., DBUS_TYPE_INVALID) != FALSE;
    }
    bool operator()(std::monostate) const { return true; }
    bool operator()(const AtspiRequest::Property& property) const {
        return append(DBUS_TYPE_STRING, &property.interface, DBUS_TYPE_STRING, &property.name);
    }
    bool operator()(std::int32_t number) const { return append(DBUS_TYPE_INT32, &number); }
    bool operator()(AtspiRequest::CoordinatesOfScreen) const {
        constexpr std::uint32_t screen = 0;
        return append(DBUS_TYPE_UINT32, &screen);
    }
    bool operator()(const AtspiScreenPoint& point) const {
        constexpr std::uint32_t screen = 0;
        return append(DBUS_TYPE_INT32, &point.x, DBUS_TYPE_INT32, &point.y, DBUS_TYPE_UINT32, &screen);
    }
    bool operator()(const AtspiRequest::TextRange& range) const {
        return append(DBUS_TYPE_INT32, &range.start, DBUS_TYPE_INT32, &range.end);
    }
    bool operator()(const AtspiMatchRule& rule) const { return appendRule(message, rule); }
    bool operator()(const std::string& text) const {
        const char* characters = text.c_str();
        return dbus_validate_utf8(characters, nullptr) && append(DBUS_TYPE_STRING, &characters);
    }
};

} // namespace

DBusMessagePointer messageFor(const AtspiRequest& request, bool hasDestination) {
    // Names and paths come from applications, and the library ends the program over those that are none.
    const char* busName = request.target.busName.c_str();
    const char* path = request.target.path.c_str();
    if (!dbus_validate_path(path, nullptr) || !dbus_validate_bus_name(busName, nullptr))
        return nullptr;
    DBusMessagePointer message(
        dbus_message_new_method_call(hasDestination ? busName : nullptr, path, request.interface, request.member));
    if (message && !std::visit(ArgumentAppender{message.get()}, request.argument))
        message.reset();
    return message;
}

} // namespace tarragon
