#include "platform/linux/x11/X11KeyboardGrab.h"

#include "platform/Log.h"
#include "platform/linux/x11/X11Reply.h"

#include <string>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

constexpr int NoAnswer = -1;

// The server's answer, XCB_GRAB_STATUS_….
int grabFor(xcb_connection_t* connection, xcb_window_t window) {
    constexpr std::uint8_t OwnerEvents = 0;
    const auto cookie =
        xcb_grab_keyboard(connection, OwnerEvents, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const X11Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection, cookie, nullptr));
    return reply ? reply->status : NoAnswer;
}

} // namespace

std::uint32_t focusedWindow(xcb_connection_t* connection) {
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    const bool isWindow = reply && reply->focus != XCB_INPUT_FOCUS_NONE && reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT;
    return isWindow ? reply->focus : xcb_window_t(XCB_WINDOW_NONE);
}

std::optional<std::uint32_t> grabKeyboard(xcb_connection_t* connection, std::uint32_t rootWindow) {
    const xcb_window_t focused = focusedWindow(connection);
    if (focused != XCB_WINDOW_NONE && grabFor(connection, focused) == XCB_GRAB_STATUS_SUCCESS)
        return focused;
    // The focused window may have gone meanwhile.
    const int status = grabFor(connection, rootWindow);
    if (status == XCB_GRAB_STATUS_SUCCESS)
        return rootWindow;
    log(LogCategory::X11, [&] { return "the keyboard cannot be had: the server answers " + std::to_string(status); });
    return std::nullopt;
}

} // namespace tarragon
