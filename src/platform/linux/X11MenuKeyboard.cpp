#include "platform/linux/X11MenuKeyboard.h"

#include "platform/linux/X11Reply.h"

namespace tarragon {

bool X11MenuKeyboard::take(std::uint64_t window) {
    _menuWindow = static_cast<xcb_window_t>(window);
    _grabWindow = focusedWindow();
    if (_grabWindow == XCB_WINDOW_NONE)
        return false;
    const auto cookie =
        xcb_grab_keyboard(_connection, 0, _grabWindow, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const X11Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(_connection, cookie, nullptr));
    if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS)
        return true;
    _grabWindow = XCB_WINDOW_NONE;
    return false;
}

void X11MenuKeyboard::release() {
    if (_grabWindow == XCB_WINDOW_NONE)
        return;
    _grabWindow = XCB_WINDOW_NONE;
    xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
    xcb_flush(_connection);
}

bool X11MenuKeyboard::redirect(xcb_generic_event_t* event) const {
    if (_grabWindow == XCB_WINDOW_NONE)
        return false;
    switch (event->response_type & 0x7F) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE: {
        // Presses and releases are of one form.
        auto* key = reinterpret_cast<xcb_key_press_event_t*>(event);
        if (key->event == _grabWindow)
            key->event = _menuWindow;
        return false;
    }
    case XCB_FOCUS_OUT: {
        const auto* focus = reinterpret_cast<const xcb_focus_out_event_t*>(event);
        return focus->event == _menuWindow && focus->mode == XCB_NOTIFY_MODE_GRAB;
    }
    default:
        return false;
    }
}

// None when the focus is nowhere or follows the pointer.
xcb_window_t X11MenuKeyboard::focusedWindow() const {
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
    const bool isWindow = reply && reply->focus != XCB_INPUT_FOCUS_NONE && reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT;
    return isWindow ? reply->focus : xcb_window_t(XCB_WINDOW_NONE);
}

} // namespace tarragon
