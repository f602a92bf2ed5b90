#include "OtherClient.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xtest.h>

namespace tarragon {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> owned(T* reply) {
    return {reply, &std::free};
}

} // namespace

OtherClient::OtherClient()
    : _connection(xcb_connect(nullptr, nullptr))
    , _screen(xcb_setup_roots_iterator(xcb_get_setup(_connection)).data)
    , _window(makeWindow(0, 0, 300, 200, true)) {
    takeFocus();
}

OtherClient::~OtherClient() {
    xcb_disconnect(_connection);
}

xcb_window_t OtherClient::makeWindow(
    std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, bool managed) {
    const xcb_window_t window = xcb_generate_id(_connection);
    const std::array<std::uint32_t, 3> values = {_screen->white_pixel, managed ? 0U : 1U,
        XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(_connection, XCB_COPY_FROM_PARENT, window, _screen->root, x, y, width, height, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, _screen->root_visual,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_map_window(_connection, window);
    synchronize();
    return window;
}

void OtherClient::cover(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height) {
    _cover = makeWindow(x, y, width, height, false);
}

void OtherClient::uncover() {
    xcb_destroy_window(_connection, _cover);
    synchronize();
}

bool OtherClient::grabKeyboard() {
    const auto reply = owned(xcb_grab_keyboard_reply(_connection,
        xcb_grab_keyboard(_connection, 0, _screen->root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

bool OtherClient::grabPointer() {
    const auto reply = owned(xcb_grab_pointer_reply(_connection,
        xcb_grab_pointer(_connection, 0, _screen->root, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherClient::releaseGrabs() {
    xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
    xcb_ungrab_pointer(_connection, XCB_CURRENT_TIME);
    synchronize();
}

bool OtherClient::grabsAreFree() {
    const bool keyboard = grabKeyboard();
    const bool pointer = grabPointer();
    releaseGrabs();
    return keyboard && pointer;
}

void OtherClient::takeFocus() {
    xcb_set_input_focus(_connection, XCB_INPUT_FOCUS_PARENT, _window, XCB_CURRENT_TIME);
    synchronize();
}

void OtherClient::focusNothing() {
    xcb_set_input_focus(_connection, XCB_INPUT_FOCUS_NONE, XCB_INPUT_FOCUS_NONE, XCB_CURRENT_TIME);
    synchronize();
}

OtherClient::Told OtherClient::told() {
    synchronize();
    Told told;
    while (const auto event = owned(xcb_poll_for_event(_connection))) {
        const int type = event->response_type & 0x7F;
        told.keyPresses += type == XCB_KEY_PRESS;
        told.buttonPresses += type == XCB_BUTTON_PRESS;
        told.focusLosses += type == XCB_FOCUS_OUT;
        if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT)
            _believesToHaveFocus = type == XCB_FOCUS_IN;
    }
    told.believesToHaveFocus = _believesToHaveFocus;
    return told;
}

bool OtherClient::hasFocus() {
    const auto reply = owned(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
    return reply && reply->focus == _window;
}

bool OtherClient::isMapped(xcb_window_t window) {
    const auto reply =
        owned(xcb_get_window_attributes_reply(_connection, xcb_get_window_attributes(_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::uint32_t OtherClient::pixel(std::int16_t x, std::int16_t y) {
    const auto reply = owned(xcb_get_image_reply(
        _connection, xcb_get_image(_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, _screen->root, x, y, 1, 1, ~0U), nullptr));
    std::uint32_t value = 0;
    if (reply && xcb_get_image_data_length(reply.get()) >= static_cast<int>(sizeof value))
        std::memcpy(&value, xcb_get_image_data(reply.get()), sizeof value);
    return value & 0xFFFFFF;
}

void OtherClient::movePointer(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void OtherClient::press(std::uint8_t button) {
    fake(XCB_BUTTON_PRESS, button);
}

void OtherClient::release(std::uint8_t button) {
    fake(XCB_BUTTON_RELEASE, button);
}

void OtherClient::click(std::uint8_t button) {
    press(button);
    release(button);
}

void OtherClient::type(std::uint32_t keysym) {
    pressKey(keysym);
    releaseKey(keysym);
}

void OtherClient::pressKey(std::uint32_t keysym) {
    fake(XCB_KEY_PRESS, keycodeOf(keysym));
}

void OtherClient::releaseKey(std::uint32_t keysym) {
    fake(XCB_KEY_RELEASE, keycodeOf(keysym));
}

void OtherClient::sendMessage(xcb_window_t window, std::uint32_t number) {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = XCB_ATOM_INTEGER;
    message.data.data32[0] = number;
    // Without a mask it goes to whoever made the window.
    xcb_send_event(_connection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    synchronize();
}

void OtherClient::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(_connection, type, detail, XCB_CURRENT_TIME, _screen->root, static_cast<std::int16_t>(x),
        static_cast<std::int16_t>(y), 0);
    synchronize();
}

std::uint8_t OtherClient::keycodeOf(std::uint32_t keysym) {
    const xcb_setup_t* setup = xcb_get_setup(_connection);
    const std::uint8_t first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto reply = owned(
        xcb_get_keyboard_mapping_reply(_connection, xcb_get_keyboard_mapping(_connection, first, count), nullptr));
    if (!reply)
        return 0;
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (std::size_t key = 0; key < count; ++key) {
        if (keysyms[key * reply->keysyms_per_keycode] == keysym)
            return static_cast<std::uint8_t>(first + key);
    }
    return 0;
}

// The server has done everything asked of it.
void OtherClient::synchronize() {
    owned(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
}

} // namespace tarragon
