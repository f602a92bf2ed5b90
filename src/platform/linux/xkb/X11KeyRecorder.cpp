#include "platform/linux/xkb/X11KeyRecorder.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11KeyboardGrab.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/X11HeldKeys.h"
#include "platform/linux/xkb/X11KeyboardMapping.h"
#include "platform/linux/xkb/XcbXkb.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace tarragon {

namespace {

// A held key then repeats its press alone, which tells a repetition from a key that is pressed again.
void leaveOutReleasesOfRepetitions(xcb_connection_t* connection) {
    const X11Reply<xcb_xkb_use_extension_reply_t> extension(xcb_xkb_use_extension_reply(
        connection, xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    if (!extension || extension->supported == 0)
        return;
    constexpr std::uint32_t Flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const X11Reply<xcb_xkb_per_client_flags_reply_t> flags(xcb_xkb_per_client_flags_reply(
        connection, xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, Flag, Flag, 0, 0, 0), nullptr));
}

X11HeldKeys::Keys requestHeldKeys(xcb_connection_t* connection) {
    const X11Reply<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    X11HeldKeys::Keys held;
    for (std::size_t key = 0; reply && key < held.size(); ++key)
        held[key] = (reply->keys[key / 8] >> (key % 8) & 1U) != 0;
    return held;
}

bool isViewable(xcb_connection_t* connection, xcb_window_t window) {
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

void selectEvents(xcb_connection_t* connection, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

// Until it has done all that it was asked.
void waitForServer(xcb_connection_t* connection) {
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

class X11KeyRecorder::Recording : public KeyRecording {
public:
    Recording(X11KeyRecorder& recorder, xcb_window_t grabWindow, X11HeldKeys heldKeys,
        std::function<void(const RecordedKey& key)> handleKey, std::function<void()> handleEnd)
        : window(grabWindow)
        , keys(std::move(heldKeys))
        , handler(std::move(handleKey))
        , ended(std::move(handleEnd))
        , _recorder(recorder) { }
    ~Recording() override { _recorder.letGo(*this); }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    const xcb_window_t window; // of the grab
    X11HeldKeys keys;
    const std::function<void(const RecordedKey& key)> handler;
    const std::function<void()> ended;

private:
    X11KeyRecorder& _recorder;
};

X11KeyRecorder::X11KeyRecorder(const X11Connection& connection, RunLoop& runLoop)
    : _otherConnection(connection)
    , _runLoop(runLoop) { }

X11KeyRecorder::~X11KeyRecorder() = default;

bool X11KeyRecorder::connect() {
    if (_connection)
        return true;
    _connection = _otherConnection.connectAnother();
    if (!_connection)
        return false;
    leaveOutReleasesOfRepetitions(_connection->get());
    _runLoop.watchDescriptor(_connection->descriptor(), [this] { takeEvents(); });
    return true;
}

std::unique_ptr<KeyRecording> X11KeyRecorder::recordKeys(
    std::function<void(const RecordedKey& key)> handler, std::function<void()> ended) {
    if (_recording || !connect())
        return nullptr;
    xcb_connection_t* connection = _connection->get();
    X11HeldKeys keys(requestKeyboardMapping(connection), requestHeldKeys(connection));
    // What was still under way belongs to an earlier recording.
    takeEvents();
    const std::optional<std::uint32_t> window = grabKeyboard(connection, _connection->rootWindow());
    if (!window) {
        log(LogCategory::Triggers, [] { return "no keys can be recorded: another program has the keyboard"; });
        return nullptr;
    }
    selectEvents(connection, *window, XCB_EVENT_MASK_FOCUS_CHANGE);
    // The window may have gone, and the keys with it, before anybody listened to that.
    if (!isViewable(connection, *window)) {
        xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
        return nullptr;
    }
    auto recording = std::make_unique<Recording>(*this, *window, std::move(keys), std::move(handler), std::move(ended));
    _recording = recording.get();
    // Keys may have come along with the server's answer; the run loop is not woken for these.
    _runLoop.post([this] { takeEvents(); });
    return recording;
}

void X11KeyRecorder::letGo(const Recording& recording) {
    if (_recording != &recording)
        return;
    _recording = nullptr;
    xcb_ungrab_keyboard(_connection->get(), XCB_CURRENT_TIME);
    selectEvents(_connection->get(), recording.window, XCB_EVENT_MASK_NO_EVENT);
    // Whoever wants the keyboard next, a menu of ours for one, asks on another connection.
    waitForServer(_connection->get());
}

void X11KeyRecorder::takeEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_connection->get())}) {
        if (_recording)
            handle(*event);
    }
}

// The handlers may end the recording, and with it themselves: copies are called.
void X11KeyRecorder::handle(const xcb_generic_event_t& event) {
    // Events that another client made up have a bit set and are no keys of the user.
    switch (event.response_type) {
    case XCB_KEY_PRESS: {
        const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(event);
        const auto handler = _recording->handler;
        if (const std::optional<RecordedKey> key = _recording->keys.press(press.detail, press.state))
            handler(*key);
        return;
    }
    case XCB_KEY_RELEASE: {
        const auto& release = reinterpret_cast<const xcb_key_release_event_t&>(event);
        const auto handler = _recording->handler;
        handler(_recording->keys.release(release.detail, release.state));
        return;
    }
    case XCB_FOCUS_OUT:
        handleFocusOut(reinterpret_cast<const xcb_focus_out_event_t&>(event));
        return;
    default:
        return;
    }
}

// While the keyboard is grabbed the server says so in what it tells of the focus. Anything else means that the grab is
// over, as when its window has gone.
void X11KeyRecorder::handleFocusOut(const xcb_focus_out_event_t& focus) {
    const bool isGrabbed = focus.mode == XCB_NOTIFY_MODE_WHILE_GRABBED || focus.mode == XCB_NOTIFY_MODE_GRAB;
    if (isGrabbed || focus.event != _recording->window)
        return;
    const auto ended = _recording->ended;
    letGo(*_recording);
    if (ended)
        ended();
}

} // namespace tarragon
