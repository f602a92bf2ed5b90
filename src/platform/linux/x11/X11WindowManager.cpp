#include "platform/linux/x11/X11WindowManager.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Property.h"

#include <cstdint>
#include <optional>

namespace tarragon {

std::string windowManagerName(X11Connection& connection) {
    X11Property check(connection.get(), connection.rootWindow(), connection.atom("_NET_SUPPORTING_WM_CHECK"));
    const std::optional<std::uint32_t> window = check.number();
    return window ? X11Property(connection.get(), *window, connection.atom("_NET_WM_NAME")).text() : std::string();
}

} // namespace tarragon
