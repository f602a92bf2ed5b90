#pragma once

#include "platform/linux/accessibilitybus/AtspiRequest.h"

#include <string>

namespace tarragon {

// The method call of a request as it goes over the bus, its serial left open; empty when the request names what cannot
// exist.
std::string callFor(const AtspiRequest& request);

} // namespace tarragon
