#include "platform/linux/input/X11PointerOwner.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <xcb/xcb.h>

namespace tarragon {

namespace {

// The server gives every client numbers of its own to name its windows with.
bool isOfClient(xcb_connection_t* client, xcb_window_t window) {
    const xcb_setup_t* setup = xcb_get_setup(client);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

} // namespace

bool pointerIsOverOwnWindow(X11Connection& connection, void* toolkit) {
    if (!toolkit)
        return false;
    // From the root window inwards: our window may be inside of a frame. Nothing is nested as deep as this.
    constexpr int MaximumDepth = 16;
    xcb_window_t window = connection.rootWindow();
    for (int depth = 0; depth < MaximumDepth; ++depth) {
        const X11Reply<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(connection.get(), xcb_query_pointer(connection.get(), window), nullptr));
        if (!pointer || pointer->child == XCB_WINDOW_NONE)
            return false;
        window = pointer->child;
        if (isOfClient(static_cast<xcb_connection_t*>(toolkit), window))
            return true;
    }
    return false;
}

} // namespace tarragon
