#include "MenuWatcher.h"

#include <xcb/xtest.h>

#include <poll.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace tarragon {

using e2e::Clock;

MenuWatcher::MenuWatcher(e2e::XDisplay& display)
    : _connection(display.connection())
    , _root(display.root()) {
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(_connection, _root, XCB_CW_EVENT_MASK, &events);
    drain();
}

MenuWatcher::~MenuWatcher() {
    const std::uint32_t none = 0;
    xcb_change_window_attributes(_connection, _root, XCB_CW_EVENT_MASK, &none);
    drain();
}

double MenuWatcher::timeToMenu(xcb_keycode_t code) {
    return timeToWindow([&] { press(code); });
}

double MenuWatcher::timeToMenuOfButton() {
    return timeToWindow([&] { send(XCB_BUTTON_PRESS, LeftButton); });
}

void MenuWatcher::send(std::uint8_t type, xcb_keycode_t code) {
    xcb_test_fake_input(_connection, type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_flush(_connection);
}

Clock::time_point MenuWatcher::waitForMenu() {
    const auto deadline = Clock::now() + std::chrono::seconds(5);
    while (Clock::now() < deadline) {
        while (auto* raw = xcb_poll_for_event(_connection)) {
            const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(raw, &std::free);
            if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY)
                continue;
            if (reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->override_redirect)
                return Clock::now();
        }
        pollfd descriptor{xcb_get_file_descriptor(_connection), POLLIN, 0};
        poll(&descriptor, 1, 100);
    }
    throw std::runtime_error("no menu has opened");
}

void MenuWatcher::drain() {
    std::free(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
    while (auto* event = xcb_poll_for_event(_connection))
        std::free(event);
}

} // namespace tarragon
