#pragma once

#include "platform/linux/dbus/DBusMessage.h"

#include <cstddef>
#include <string>

namespace tarragon {

// The bytes of a message as another implementation of the protocol writes them.
inline std::string marshalled(DBusMessage* message, dbus_uint32_t number) {
    dbus_message_set_serial(message, number);
    char* data = nullptr;
    int length = 0;
    if (!dbus_message_marshal(message, &data, &length))
        return {};
    std::string bytes(data, static_cast<std::size_t>(length));
    dbus_free(data);
    return bytes;
}

} // namespace tarragon
