#pragma once

#include "platform/linux/AtspiRequest.h"
#include "platform/linux/DBusMessage.h"

namespace tarragon {

// The method call of a request; nullptr when it names what cannot exist. Without a bus in between there are no names.
DBusMessagePointer messageFor(const AtspiRequest& request, bool hasDestination);

} // namespace tarragon
