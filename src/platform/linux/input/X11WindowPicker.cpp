#include "platform/linux/input/X11WindowPicker.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/input/X11ClientWindow.h"
#include "platform/linux/windows/WindowApplication.h"
#include "platform/linux/windows/WindowSource.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11KeyboardGrab.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

namespace tarragon {

namespace {

// From the font that every server has for its cursors.
xcb_cursor_t makeCrossCursor(xcb_connection_t* connection) {
    constexpr std::string_view FontName = "cursor";
    constexpr std::uint16_t Cross = 34;
    constexpr std::uint16_t White = 0xFFFF;
    const xcb_font_t font = xcb_generate_id(connection);
    xcb_open_font(connection, font, FontName.size(), FontName.data());
    const xcb_cursor_t cursor = xcb_generate_id(connection);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection,
        xcb_create_glyph_cursor_checked(
            connection, cursor, font, font, Cross, Cross + 1, 0, 0, 0, White, White, White)));
    xcb_close_font(connection, font);
    return error ? xcb_cursor_t(XCB_CURSOR_NONE) : cursor;
}

bool isDock(X11Connection& connection, xcb_window_t window) {
    X11Property types(connection.get(), window, connection.atom("_NET_WM_WINDOW_TYPE"));
    return std::ranges::count(types.numbers(), connection.atom("_NET_WM_WINDOW_TYPE_DOCK")) > 0;
}

bool isHeld(xcb_connection_t* connection, std::uint8_t keyCode) {
    const X11Reply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    return reply && (reply->keys[keyCode / 8] >> (keyCode % 8) & 1U) != 0;
}

bool isEscape(xcb_connection_t* connection, std::uint8_t keyCode) {
    constexpr xcb_keysym_t Escape = 0xFF1B;
    const X11Reply<xcb_get_keyboard_mapping_reply_t> mapping(
        xcb_get_keyboard_mapping_reply(connection, xcb_get_keyboard_mapping(connection, keyCode, 1), nullptr));
    if (!mapping)
        return false;
    const xcb_keysym_t* first = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const xcb_keysym_t* end = first + xcb_get_keyboard_mapping_keysyms_length(mapping.get());
    return std::find(first, end, Escape) != end;
}

} // namespace

X11WindowPicker::X11WindowPicker(
    X11Connection& connection, RunLoop& runLoop, WindowSource& windows, ApplicationDirectory& applications)
    : _otherConnection(connection)
    , _runLoop(runLoop)
    , _windows(windows)
    , _applications(applications) { }

X11WindowPicker::~X11WindowPicker() = default;

bool X11WindowPicker::connect() {
    if (_connection)
        return true;
    _connection = _otherConnection.connectAnother();
    if (!_connection)
        return false;
    _cursor = makeCrossCursor(_connection->get());
    _runLoop.watchDescriptor(_connection->descriptor(), [this] { takeEvents(); });
    return true;
}

bool X11WindowPicker::pickWindow(std::function<void(const std::optional<PickedWindow>& window)> handler) {
    if (_handler || !connect())
        return false;
    // What was still under way belongs to an earlier pick.
    takeEvents();
    if (!grab()) {
        log(LogCategory::X11, [] { return "no window can be picked: another program has pointer or keyboard"; });
        return false;
    }
    _handler = std::move(handler);
    // Events may have come along with the server's answers; the run loop is not woken for these.
    _runLoop.post([this] { takeEvents(); });
    return true;
}

void X11WindowPicker::cancel() {
    if (!_handler)
        return;
    _handler = nullptr;
    letGo();
}

bool X11WindowPicker::grab() {
    constexpr std::uint8_t OwnerEvents = 0;
    constexpr std::uint16_t Events = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    const auto cookie = xcb_grab_pointer(_connection->get(), OwnerEvents, _connection->rootWindow(), Events,
        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, _cursor, XCB_CURRENT_TIME);
    const X11Reply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(_connection->get(), cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        return false;
    if (grabKeyboard(_connection->get(), _connection->rootWindow()))
        return true;
    letGo();
    return false;
}

// Waits for the server, since whoever is told next may ask for the pointer on another connection.
void X11WindowPicker::letGo() {
    _press.reset();
    xcb_connection_t* connection = _connection->get();
    xcb_ungrab_pointer(connection, XCB_CURRENT_TIME);
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

void X11WindowPicker::takeEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_connection->get())}) {
        if (_handler)
            handle(*event);
    }
}

void X11WindowPicker::handle(const xcb_generic_event_t& event) {
    // Events that another client made up have a bit set and are nothing that the user did.
    switch (event.response_type) {
    case XCB_BUTTON_PRESS: {
        const auto& press = reinterpret_cast<const xcb_button_press_event_t&>(event);
        if (_press)
            return;
        _press = {XCB_BUTTON_RELEASE, press.detail, std::nullopt};
        if (press.detail == XCB_BUTTON_INDEX_1)
            _press->window = windowOf(press.child);
        return;
    }
    case XCB_KEY_PRESS: {
        const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(event);
        if (!_press && isEscape(_connection->get(), press.detail))
            _press = {XCB_KEY_RELEASE, press.detail, std::nullopt};
        return;
    }
    case XCB_BUTTON_RELEASE:
    case XCB_KEY_RELEASE:
        // Both are of one form.
        release(event.response_type, reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
        return;
    default:
        return;
    }
}

void X11WindowPicker::release(std::uint8_t type, std::uint8_t detail) {
    if (!_press || _press->releaseType != type || _press->detail != detail)
        return;
    // Repetitions come with releases in between. Whoever has the focus must not get those that follow.
    if (type == XCB_KEY_RELEASE && isHeld(_connection->get(), detail))
        return;
    const std::optional<PickedWindow> window = std::move(_press->window);
    const auto handler = std::exchange(_handler, nullptr);
    letGo();
    handler(window);
}

std::optional<PickedWindow> X11WindowPicker::windowOf(std::uint32_t childOfRoot) {
    if (childOfRoot == XCB_WINDOW_NONE)
        return std::nullopt;
    const auto client = clientWindowOf(_otherConnection.get(), childOfRoot, _windows.managedWindows());
    const auto description = client ? _windows.describe(*client) : std::nullopt;
    if (!description || description->kind == WindowKind::Desktop || description->processIdentifier == getpid()
        || isDock(_otherConnection, *client)) {
        log(LogCategory::X11, [&] { return "no window of another program at window " + std::to_string(childOfRoot); });
        return std::nullopt;
    }
    PickedWindow picked{applicationOfWindow(*description, _applications), std::nullopt};
    if (!description->title.empty())
        picked.title = description->title;
    return picked;
}

} // namespace tarragon
