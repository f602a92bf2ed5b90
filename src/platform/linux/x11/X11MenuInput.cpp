#include "platform/linux/x11/X11MenuInput.h"

#include "platform/linux/x11/X11KeyboardGrab.h"
#include "platform/linux/x11/X11Reply.h"

#include <xcb/xinput.h>

namespace tarragon {

namespace {

constexpr std::uint32_t PointerEvents = XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE
    | XCB_INPUT_XI_EVENT_MASK_MOTION | XCB_INPUT_XI_EVENT_MASK_ENTER | XCB_INPUT_XI_EVENT_MASK_LEAVE;

} // namespace

bool X11MenuInput::take(std::uint64_t window) {
    _menuWindow = static_cast<xcb_window_t>(window);
    const bool hasKeyboard = takeKeyboard();
    if (hasKeyboard)
        takePointers();
    return hasKeyboard;
}

// Gives back what may have been lost in between as well, which does no harm.
void X11MenuInput::release() {
    if (_menuWindow == XCB_WINDOW_NONE)
        return;
    _menuWindow = XCB_WINDOW_NONE;
    _grabWindow = XCB_WINDOW_NONE;
    xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
    xcb_ungrab_pointer(_connection, XCB_CURRENT_TIME);
    for (const std::uint16_t pointer : _grabbedPointers)
        xcb_input_xi_ungrab_device(_connection, XCB_CURRENT_TIME, pointer);
    _grabbedPointers.clear();
    xcb_flush(_connection);
}

bool X11MenuInput::redirect(xcb_generic_event_t* event) const {
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

bool X11MenuInput::takeKeyboard() {
    const xcb_window_t focused = focusedWindow(_connection);
    const xcb_window_t window = focused != XCB_WINDOW_NONE ? focused : _menuWindow;
    const auto cookie =
        xcb_grab_keyboard(_connection, 0, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const X11Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(_connection, cookie, nullptr));
    const bool hasKeyboard = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    // The former grab may still hold.
    if (hasKeyboard)
        _grabWindow = window;
    return hasKeyboard;
}

// What happens over our own windows is reported for these, everything else for the menu's.
void X11MenuInput::takePointers() {
    const std::vector<std::uint16_t> found = pointers();
    if (found.empty()) {
        takeCorePointer();
        return;
    }
    _grabbedPointers.clear();
    for (const std::uint16_t pointer : found) {
        const auto cookie = xcb_input_xi_grab_device(_connection, _menuWindow, XCB_CURRENT_TIME, XCB_CURSOR_NONE,
            pointer, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_OWNER_OWNER, 1,
            &PointerEvents);
        const X11Reply<xcb_input_xi_grab_device_reply_t> reply(
            xcb_input_xi_grab_device_reply(_connection, cookie, nullptr));
        if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS)
            _grabbedPointers.push_back(pointer);
    }
}

// For servers without the input extension.
void X11MenuInput::takeCorePointer() {
    constexpr std::uint16_t events = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE
        | XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
    const auto cookie = xcb_grab_pointer(_connection, 1, _menuWindow, events, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
        XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const X11Reply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(_connection, cookie, nullptr));
}

// A desktop may have several, each with a cursor of its own.
std::vector<std::uint16_t> X11MenuInput::pointers() const {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(_connection, &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return {};
    const auto cookie = xcb_input_xi_query_device(_connection, XCB_INPUT_DEVICE_ALL_MASTER);
    const X11Reply<xcb_input_xi_query_device_reply_t> reply(
        xcb_input_xi_query_device_reply(_connection, cookie, nullptr));
    std::vector<std::uint16_t> result;
    if (!reply)
        return result;
    for (auto devices = xcb_input_xi_query_device_infos_iterator(reply.get()); devices.rem > 0;
         xcb_input_xi_device_info_next(&devices)) {
        if (devices.data->type == XCB_INPUT_DEVICE_TYPE_MASTER_POINTER)
            result.push_back(devices.data->deviceid);
    }
    return result;
}

} // namespace tarragon
