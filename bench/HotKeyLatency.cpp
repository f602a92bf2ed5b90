#include "HotKeyLatency.h"

#include "Wait.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <poll.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace tarragon {

namespace {

using e2e::Clock;

// A connection of its own that hears of every window that is mapped or unmapped below the root.
class Watcher {
public:
    explicit Watcher(e2e::XDisplay& display)
        : _connection(display.connection())
        , _root(display.root()) {
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(_connection, _root, XCB_CW_EVENT_MASK, &events);
        drain();
    }
    ~Watcher() {
        const std::uint32_t none = 0;
        xcb_change_window_attributes(_connection, _root, XCB_CW_EVENT_MASK, &none);
        drain();
    }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    void key(std::uint8_t type, xcb_keycode_t code) {
        xcb_test_fake_input(_connection, type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        xcb_flush(_connection);
    }

    // The time at which a window past the window manager was mapped.
    Clock::time_point waitForPopUp() {
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
        throw std::runtime_error("the hot key opened no pop-up");
    }

    void drain() {
        std::free(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
        while (auto* event = xcb_poll_for_event(_connection))
            std::free(event);
    }

private:
    xcb_connection_t* _connection;
    xcb_window_t _root;
};

} // namespace

Samples measureHotKeyLatency(e2e::Desktop& desktop, e2e::Agent& agent, int presses) {
    constexpr xcb_keysym_t Escape = 0xFF1B;
    e2e::SyntheticInput& input = desktop.input();
    const e2e::HotKey hotKey = agent.hotKey();
    // The program notices by itself that the application came to the front; until then there is nothing to show.
    if (!e2e::waitUntil([&] {
            agent.pressHotKey();
            return e2e::waitUntil([&] { return !agent.openMenus().empty(); }, e2e::Duration(1000));
        }))
        throw std::runtime_error("the hot key opens no pop-up");

    Samples latencies;
    for (int press = 0; press < presses; ++press) {
        // Pressed again when the menu that was just mapped had no ear for it yet.
        if (!e2e::waitUntil([&] {
                input.tap(Escape);
                // The keyboard is given back a moment after the menu has gone.
                return e2e::waitUntil(
                    [&] { return agent.openMenus().empty() && !desktop.display().keyboardIsGrabbed(); },
                    e2e::Duration(500));
            }))
            throw std::runtime_error("the pop-up does not close");
        input.moveTo(200 + 7 * press, 150 + 5 * press);
        Watcher watcher(desktop.display());
        for (const xcb_keysym_t modifier : hotKey.modifierSymbols)
            watcher.key(XCB_KEY_PRESS, input.keyCodeOf(modifier));
        watcher.drain();
        const auto start = Clock::now();
        watcher.key(XCB_KEY_PRESS, input.keyCodeOf(hotKey.symbol));
        const auto mapped = watcher.waitForPopUp();
        latencies.add(std::chrono::duration<double, std::milli>(mapped - start).count());
        watcher.key(XCB_KEY_RELEASE, input.keyCodeOf(hotKey.symbol));
        for (const xcb_keysym_t modifier : hotKey.modifierSymbols)
            watcher.key(XCB_KEY_RELEASE, input.keyCodeOf(modifier));
    }
    input.tap(Escape);
    return latencies;
}

} // namespace tarragon
