#include "platform/linux/x11/X11RoomCache.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11PrimaryMonitor.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include <unistd.h>

namespace tarragon {

namespace {

constexpr std::uint32_t RootEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
// Of a window that keeps room free: that it is gone is told by no property.
constexpr std::uint32_t PanelEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr std::uint32_t OtherEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;

constexpr const char* PartialStrut = "_NET_WM_STRUT_PARTIAL";
constexpr const char* PlainStrut = "_NET_WM_STRUT";
constexpr const char* ManagedWindows = "_NET_CLIENT_LIST";

std::optional<Rect> frameOfWindow(X11Connection& connection, xcb_window_t window) {
    const auto geometryCookie = xcb_get_geometry(connection.get(), window);
    const auto originCookie = xcb_translate_coordinates(connection.get(), window, connection.rootWindow(), 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection.get(), geometryCookie, nullptr));
    const X11Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection.get(), originCookie, nullptr));
    if (!geometry || !origin)
        return std::nullopt;
    return Rect{{double(origin->dst_x), double(origin->dst_y)}, {double(geometry->width), double(geometry->height)}};
}

bool isOfThisProgram(X11Connection& connection, xcb_window_t window) {
    X11Property process(connection.get(), window, connection.atom("_NET_WM_PID"));
    return process.number() == static_cast<std::uint32_t>(getpid());
}

} // namespace

X11RoomCache::X11RoomCache(std::unique_ptr<X11Connection> connection, CurrentLook currentLook)
    : _connection(std::move(connection))
    , _currentLook(std::move(currentLook)) {
    if (!_connection) {
        log(LogCategory::X11, [] { return std::string("no connection for what panels keep free"); });
        _room.emplace();
        return;
    }
    selectEvents(_connection->rootWindow(), RootEvents);
    _monitorEvents.emplace(*_connection);
}

X11RoomCache::~X11RoomCache() = default;

const X11Room& X11RoomCache::room() {
    if (_connection)
        takeEventsForAnswer();
    if (!_room)
        _room = readRoom();
    return *_room;
}

void X11RoomCache::takeEventsIn(RunLoop& runLoop) {
    if (!_connection)
        return;
    runLoop.watchDescriptor(_connection->descriptor(), [this] { takeArrivedEvents(); });
}

// In a look what has arrived so far is enough.
void X11RoomCache::takeEventsForAnswer() {
    const std::optional<std::uint64_t> look = _currentLook ? _currentLook() : std::nullopt;
    const bool isSameLook = std::exchange(_lastLook, look) == look;
    if (!look) {
        waitForServer();
    } else if (isSameLook) {
        return;
    }
    takeArrivedEvents();
    if (_dependsOnPlaces)
        _room.reset();
}

void X11RoomCache::waitForServer() {
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(_connection->get(), xcb_get_input_focus(_connection->get()), nullptr));
    if (!reply)
        _room.reset();
}

void X11RoomCache::takeArrivedEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_connection->get())})
        takeEvent(*event);
}

// Questions about windows that are gone end in errors, which come here too and say nothing.
void X11RoomCache::takeEvent(const xcb_generic_event_t& event) {
    constexpr std::uint8_t SentEvent = 0x80;
    const std::uint8_t type = event.response_type & ~SentEvent;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const bool changes = property.window == _connection->rootWindow()
            ? property.atom == _connection->atom(ManagedWindows)
            : property.atom == _connection->atom(PartialStrut) || property.atom == _connection->atom(PlainStrut);
        if (changes)
            _room.reset();
    } else if (type == XCB_DESTROY_NOTIFY || _monitorEvents->include(event)) {
        _room.reset();
    } else if (type == XCB_CONFIGURE_NOTIFY) {
        if (reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == _connection->rootWindow())
            _room.reset();
    }
}

X11Room X11RoomCache::readRoom() {
    X11PrimaryMonitor primary(*_connection);
    std::vector<X11Strut> struts = readStruts();
    return {primary.origin(), std::move(struts)};
}

// Each window is watched before it is asked, so that a change in between is told.
std::vector<X11Strut> X11RoomCache::readStruts() {
    _dependsOnPlaces = false;
    // The size of the root window changes with the monitors.
    const xcb_get_geometry_cookie_t rootCookie = xcb_get_geometry(_connection->get(), _connection->rootWindow());
    X11Property managed(_connection->get(), _connection->rootWindow(), _connection->atom(ManagedWindows));
    const std::vector<std::uint32_t> windows = managed.numbers();
    for (const xcb_window_t window : std::exchange(_watched, windows)) {
        if (std::ranges::find(windows, window) == windows.end())
            selectEvents(window, XCB_EVENT_MASK_NO_EVENT);
    }
    std::vector<std::pair<X11Property, X11Property>> properties;
    properties.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        selectEvents(window, PanelEvents);
        properties.emplace_back(X11Property(_connection->get(), window, _connection->atom(PartialStrut)),
            X11Property(_connection->get(), window, _connection->atom(PlainStrut)));
    }
    const X11Reply<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(_connection->get(), rootCookie, nullptr));
    if (!root)
        return {};
    const Size rootSize{double(root->width), double(root->height)};
    std::vector<X11Strut> struts;
    for (std::size_t index = 0; index < windows.size(); ++index) {
        auto& [partial, plain] = properties[index];
        std::vector<X11Strut> found = strutsOfProperty(partial.numbers(), rootSize);
        if (!found.empty() && isOfThisProgram(*_connection, windows[index]))
            continue;
        if (found.empty()) {
            found = strutsOfProperty(plain.numbers(), rootSize);
            // It does not say where along the edge it is meant, which is where the panel lies.
            _dependsOnPlaces |= !found.empty();
            if (const auto frame = found.empty() ? std::nullopt : frameOfWindow(*_connection, windows[index]))
                found = strutsAlongside(found, *frame);
        }
        if (found.empty())
            selectEvents(windows[index], OtherEvents);
        struts.insert(struts.end(), found.begin(), found.end());
    }
    // Nobody waits for the requests that have no reply.
    xcb_flush(_connection->get());
    return struts;
}

void X11RoomCache::selectEvents(xcb_window_t window, std::uint32_t mask) {
    xcb_change_window_attributes(_connection->get(), window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace tarragon
