#pragma once

#include "platform/linux/x11/X11Reply.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

// One property of one window. The constructor sends the request and does not wait, so that many can be in flight; the
// first question waits for the reply. A property that is absent, of another kind or of a window that is gone gives
// nothing.
class X11Property {
public:
    X11Property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property);
    X11Property(X11Property&& other) noexcept;
    X11Property(const X11Property&) = delete;
    X11Property& operator=(const X11Property&) = delete;
    X11Property& operator=(X11Property&&) = delete;
    ~X11Property();

    // Cardinals, atoms or windows.
    std::vector<std::uint32_t> numbers();
    std::optional<std::uint32_t> number();
    // The bytes as they stand; several strings are separated by a null byte.
    std::string bytes();
    // Valid UTF-8, from whatever text encoding the property has.
    std::string text();

private:
    const xcb_get_property_reply_t* reply();

    xcb_connection_t* _connection;
    xcb_get_property_cookie_t _cookie;
    bool _isPending = true;
    X11Reply<xcb_get_property_reply_t> _reply;
};

} // namespace tarragon
