#pragma once

#include "platform/linux/accessibilitybus/AtspiRequest.h"

#include <string>

namespace tarragon {

// The method call of a request as it goes over a socket, its serial left open; empty when the request names what
// cannot exist. Without a bus in between there are no names.
std::string callFor(const AtspiRequest& request, bool hasDestination);

} // namespace tarragon
