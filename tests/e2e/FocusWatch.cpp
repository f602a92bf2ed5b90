#include "FocusWatch.h"

#include <cstdlib>
#include <memory>

namespace tarragon::e2e {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeMemory>;

} // namespace

FocusWatch::FocusWatch(XDisplay& display)
    : _display(display)
    , _window(display.focusedWindow()) {
    std::uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(display.connection(), _window, XCB_CW_EVENT_MASK, &mask);
}

FocusWatch::~FocusWatch() {
    std::uint32_t mask = 0;
    xcb_change_window_attributes(_display.connection(), _window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(_display.connection());
}

int FocusWatch::changes() {
    // The server answers after everything that it had to tell before.
    _display.focusedWindow();
    while (Owned<xcb_generic_event_t> event{xcb_poll_for_event(_display.connection())}) {
        int type = event->response_type & 0x7F;
        if (type != XCB_FOCUS_IN && type != XCB_FOCUS_OUT)
            continue;
        ++_changes;
        const std::uint8_t mode = reinterpret_cast<const xcb_focus_in_event_t&>(*event).mode;
        _moves += mode == XCB_NOTIFY_MODE_GRAB || mode == XCB_NOTIFY_MODE_UNGRAB ? 0 : 1;
    }
    return _changes;
}

int FocusWatch::moves() {
    changes();
    return _moves;
}

} // namespace tarragon::e2e
