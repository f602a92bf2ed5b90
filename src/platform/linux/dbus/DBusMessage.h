#pragma once

#include <dbus/dbus.h>

#include <memory>

namespace tarragon {

struct DBusMessageUnref {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
// A message of the bus protocol that this pointer owns a reference of.
using DBusMessagePointer = std::unique_ptr<DBusMessage, DBusMessageUnref>;

} // namespace tarragon
