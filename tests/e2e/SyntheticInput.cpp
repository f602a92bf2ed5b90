#include "SyntheticInput.h"

#include "XDisplay.h"

#include <algorithm>
#include <cstdlib>
#include <ranges>
#include <stdexcept>

#include <xcb/xtest.h>

namespace tarragon::e2e {

SyntheticInput::SyntheticInput(XDisplay& display)
    : _display(display) {
    xcb_connection_t* connection = display.connection();
    const xcb_setup_t* setup = xcb_get_setup(connection);
    _firstKeyCode = setup->min_keycode;
    auto cookie = xcb_get_keyboard_mapping(
        connection, _firstKeyCode, static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1));
    xcb_get_keyboard_mapping_reply_t* reply = xcb_get_keyboard_mapping_reply(connection, cookie, nullptr);
    if (!reply)
        throw std::runtime_error("the X server has no keyboard");
    _symbolsPerKey = reply->keysyms_per_keycode;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply);
    _symbols.assign(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(reply));
    std::free(reply);
}

xcb_keycode_t SyntheticInput::keyCodeOf(xcb_keysym_t symbol) const {
    auto found = std::find(_symbols.begin(), _symbols.end(), symbol);
    if (found == _symbols.end())
        return 0;
    return static_cast<xcb_keycode_t>(_firstKeyCode + (found - _symbols.begin()) / _symbolsPerKey);
}

void SyntheticInput::send(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(_display.connection(), type, detail, XCB_CURRENT_TIME, _display.root(),
        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
}

void SyntheticInput::synchronize() {
    xcb_connection_t* connection = _display.connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

void SyntheticInput::tap(xcb_keysym_t symbol, const std::vector<xcb_keysym_t>& modifiers) {
    for (xcb_keysym_t modifier : modifiers)
        send(XCB_KEY_PRESS, keyCodeOf(modifier));
    send(XCB_KEY_PRESS, keyCodeOf(symbol));
    send(XCB_KEY_RELEASE, keyCodeOf(symbol));
    for (xcb_keysym_t modifier : std::views::reverse(modifiers))
        send(XCB_KEY_RELEASE, keyCodeOf(modifier));
    synchronize();
}

void SyntheticInput::moveTo(int x, int y) {
    send(XCB_MOTION_NOTIFY, 0, x, y);
    synchronize();
}

void SyntheticInput::click(std::uint8_t button) {
    send(XCB_BUTTON_PRESS, button);
    send(XCB_BUTTON_RELEASE, button);
    synchronize();
}

void SyntheticInput::press(std::uint8_t button) {
    send(XCB_BUTTON_PRESS, button);
    synchronize();
}

void SyntheticInput::release(std::uint8_t button) {
    send(XCB_BUTTON_RELEASE, button);
    synchronize();
}

void SyntheticInput::hold(xcb_keysym_t symbol) {
    send(XCB_KEY_PRESS, keyCodeOf(symbol));
    synchronize();
}

void SyntheticInput::releaseAll() {
    xcb_connection_t* connection = _display.connection();
    xcb_query_keymap_reply_t* keys = xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr);
    for (int code = 0; keys && code < 256; ++code) {
        if (keys->keys[code / 8] & (1U << (code % 8)))
            send(XCB_KEY_RELEASE, static_cast<std::uint8_t>(code));
    }
    std::free(keys);
    for (std::uint8_t button : {1, 2, 3, 8, 9})
        send(XCB_BUTTON_RELEASE, button);
    synchronize();
}

} // namespace tarragon::e2e
