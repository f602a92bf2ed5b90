#include "platform/linux/AtspiMessage.h"

namespace tarragon {

namespace {

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
