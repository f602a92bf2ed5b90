#include "platform/linux/x11/X11ActiveWindowCache.h"

#include "platform/Log.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <string>
#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

constexpr std::uint8_t SentEvent = 0x80;
constexpr std::uint32_t RootEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr std::uint32_t WindowEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
// Of the window manager's frame around a window.
constexpr std::uint32_t FrameEvents = XCB_EVENT_MASK_STRUCTURE_NOTIFY;

// The window around another one; the root window's is none.
std::uint32_t parentOf(xcb_connection_t* connection, std::uint32_t window) {
    const X11Reply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    return reply ? reply->parent : 0;
}

} // namespace

X11ActiveWindowCache::X11ActiveWindowCache(X11Connection& connection, Questions questions)
    : _connection(connection)
    , _questions(std::move(questions))
    , _activeWindowAtom(connection.atom("_NET_ACTIVE_WINDOW"))
    , _monitorEvents(connection) {
    (void)selectEvents(connection.rootWindow(), RootEvents);
}

std::optional<std::uint32_t> X11ActiveWindowCache::activeWindow() {
    const std::lock_guard lock(_mutex);
    takeAllEvents();
    return knownActiveWindow();
}

std::optional<WindowDescription> X11ActiveWindowCache::describe(std::uint32_t window) {
    const std::lock_guard lock(_mutex);
    takeAllEvents();
    return window == _activeWindow.value_or(std::nullopt) ? knownDescription(window) : _questions.description(window);
}

std::optional<WindowDescription> X11ActiveWindowCache::describeActiveWindow() {
    const std::lock_guard lock(_mutex);
    takeAllEvents();
    const std::optional<std::uint32_t> window = knownActiveWindow();
    return window ? knownDescription(*window) : std::nullopt;
}

void X11ActiveWindowCache::beginLook() {
    const std::lock_guard lock(_mutex);
    const auto [look, isNew] = _looks.try_emplace(std::this_thread::get_id());
    if (isNew)
        look->second.number = ++_lastLook;
    ++look->second.nesting;
}

std::optional<std::uint64_t> X11ActiveWindowCache::currentLook() {
    const std::lock_guard lock(_mutex);
    const auto look = _looks.find(std::this_thread::get_id());
    return look == _looks.end() ? std::nullopt : std::optional(look->second.number);
}

void X11ActiveWindowCache::endLook() {
    const std::lock_guard lock(_mutex);
    const auto look = _looks.find(std::this_thread::get_id());
    if (look != _looks.end() && --look->second.nesting == 0)
        _looks.erase(look);
}

void X11ActiveWindowCache::takeEvents() {
    const std::lock_guard lock(_mutex);
    takeArrivedEvents();
}

void X11ActiveWindowCache::takeArrivedEvents() {
    // Reads what has arrived; the rest is in the queue then.
    const X11Reply<xcb_generic_event_t> event(xcb_poll_for_event(_connection.get()));
    if (event)
        takeEvent(*event);
    takeQueuedEvents();
}

// Outside a look the server is waited for, so that nothing is missing of what it has done so far.
void X11ActiveWindowCache::takeAllEvents() {
    if (const auto look = _looks.find(std::this_thread::get_id()); look != _looks.end()) {
        if (!std::exchange(look->second.hasBegun, true))
            takeArrivedEvents();
        return;
    }
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(_connection.get(), xcb_get_input_focus(_connection.get()), nullptr));
    if (!reply) {
        log(LogCategory::X11, [] { return std::string("the server does not answer"); });
        _activeWindow.reset();
        _description.reset();
    }
    takeQueuedEvents();
}

void X11ActiveWindowCache::takeQueuedEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(_connection.get())})
        takeEvent(*event);
}

// What the server tells every client, as of new keyboard layouts, says nothing here.
void X11ActiveWindowCache::takeEvent(const xcb_generic_event_t& event) {
    const std::uint8_t type = event.response_type & ~SentEvent;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (property.window != _connection.rootWindow())
            _description.reset();
        else if (property.atom == _activeWindowAtom)
            _activeWindow.reset();
    } else if (type == XCB_REPARENT_NOTIFY || type == XCB_DESTROY_NOTIFY) {
        unwatch();
    } else if (type == XCB_CONFIGURE_NOTIFY || type == XCB_MAP_NOTIFY || type == XCB_UNMAP_NOTIFY
        || type == XCB_GRAVITY_NOTIFY || type == XCB_CIRCULATE_NOTIFY || _monitorEvents.include(event)) {
        _description.reset();
    }
}

std::optional<std::uint32_t> X11ActiveWindowCache::knownActiveWindow() {
    if (!_activeWindow)
        _activeWindow = _questions.activeWindow();
    return *_activeWindow;
}

std::optional<WindowDescription> X11ActiveWindowCache::knownDescription(std::uint32_t window) {
    if (_description && _description->identifier == window)
        return _description;
    // Whatever changes after this is told, whether or not the answer has it already.
    const bool isWatched = (!_watched.empty() && _watched.front() == window) || watch(window);
    std::optional<WindowDescription> description = _questions.description(window);
    if (isWatched)
        _description = description;
    return description;
}

// False when the window is gone, or goes meanwhile: another one may get its identifier, of which nothing is told.
bool X11ActiveWindowCache::watch(std::uint32_t window) {
    unwatch();
    _watched.push_back(window);
    bool isThere = selectEvents(window, WindowEvents);
    // Each is asked for its parent after it is watched itself, so that a change in between is told.
    while (isThere) {
        const std::uint32_t parent = parentOf(_connection.get(), _watched.back());
        if (parent == _connection.rootWindow())
            return true;
        isThere = parent != 0 && selectEvents(parent, FrameEvents);
        _watched.push_back(parent);
    }
    log(LogCategory::X11, [&] { return "window " + std::to_string(window) + " is gone before it can be watched"; });
    unwatch();
    return false;
}

// What was told of the window holds no longer: nothing more is told of it.
void X11ActiveWindowCache::unwatch() {
    _description.reset();
    for (const std::uint32_t window : std::exchange(_watched, {}))
        (void)selectEvents(window, XCB_EVENT_MASK_NO_EVENT);
}

// False when there is no such window.
bool X11ActiveWindowCache::selectEvents(std::uint32_t window, std::uint32_t mask) {
    const xcb_void_cookie_t cookie =
        xcb_change_window_attributes_checked(_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_connection.get(), cookie));
    return !error;
}

} // namespace tarragon
