#include "platform/linux/panelsurfaces/X11PanelSurfaces.h"

#include "platform/RunLoop.h"
#include "platform/linux/panelsurfaces/X11PanelSurface.h"
#include "platform/linux/panelsurfaces/X11PanelWindow.h"
#include "platform/linux/panelsurfaces/X11StackingPlaces.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <utility>

namespace tarragon {

namespace {

// Whom an event about a window's place or visibility is about; none for other events.
xcb_window_t windowOfEvent(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7F) {
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    case XCB_UNMAP_NOTIFY:
        return reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
    case XCB_REPARENT_NOTIFY:
        return reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window;
    default:
        return XCB_WINDOW_NONE;
    }
}

// Told by the window itself: the root window may tell the same.
bool isAboutMapping(const xcb_generic_event_t& event) {
    const auto& mapping = reinterpret_cast<const xcb_map_notify_event_t&>(event);
    return (event.response_type & 0x7F) == XCB_MAP_NOTIFY && mapping.event == mapping.window;
}

} // namespace

X11PanelSurfaces::X11PanelSurfaces(X11Connection& connection, RunLoop& runLoop, const CurrentPixelScale* scale)
    : _connection(connection)
    , _runLoop(runLoop)
    , _scale(scale)
    , _aboveFrontWindow(connection, "_NET_ACTIVE_WINDOW", frontWindow)
    , _aboveOrdinaryWindows(connection, "_NET_CLIENT_LIST_STACKING", topmostOrdinaryWindow, &_aboveFrontWindow)
    , _pointerTracking(connection, runLoop) { }

X11PanelSurfaces::~X11PanelSurfaces() = default;

std::unique_ptr<PanelSurface> X11PanelSurfaces::makeSurface(std::uint64_t window) {
    const X11PanelWindow panel(_connection, static_cast<xcb_window_t>(window));
    if (!panel.exists() || !watch())
        return nullptr;
    // A dock is inside of a frame, about which alone the root window tells.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(_events->get(), panel.identifier(), XCB_CW_EVENT_MASK, &mask);
    xcb_flush(_events->get());
    // Whoever asks or writes also reads what has come; the run loop is not woken for that any more.
    _runLoop.post([this] { handleEvents(); });
    return std::make_unique<X11PanelSurface>(*this, panel);
}

void X11PanelSurfaces::joinAllSpaces(std::uint64_t window) {
    X11PanelWindow ordinary(_connection, static_cast<xcb_window_t>(window));
    // The window manager reads the properties when the window is shown, and writes them from then on. The question has
    // the server have it by then: the toolkit shows the window over a connection of its own.
    if (!ordinary.visibleFrame())
        ordinary.stickToScreen();
    ordinary.joinAllWorkspaces();
    if (ordinary.exists())
        ordinary.askForAllWorkspaces();
}

void X11PanelSurfaces::scaleMayHaveChanged() {
    for (X11PanelSurface* surface : _surfaces) {
        surface->frameMayHaveChanged();
        surface->updateFrame();
    }
}

PixelScale X11PanelSurfaces::scale() const {
    return _scale ? _scale->get() : PixelScale();
}

bool X11PanelSurfaces::watch() {
    if (_events)
        return true;
    _events = _connection.connectAnother();
    if (!_events)
        return false;
    const std::uint32_t mask =
        XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(_events->get(), _events->rootWindow(), XCB_CW_EVENT_MASK, &mask);
    _compositor.emplace(_connection, *_events);
    xcb_flush(_events->get());
    _runLoop.watchDescriptor(_events->descriptor(), [this] { handleEvents(); });
    return true;
}

void X11PanelSurfaces::handleEvents() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_events->get())})
        handleEvent(*event);
    _aboveFrontWindow.restackIfNeeded();
    _aboveOrdinaryWindows.restackIfNeeded();
    for (X11PanelSurface* surface : _surfaces)
        surface->updateFrame();
}

void X11PanelSurfaces::handleEvent(const xcb_generic_event_t& event) {
    _aboveFrontWindow.handleEvent(event);
    _aboveOrdinaryWindows.handleEvent(event);
    if (_compositor->handleEvent(event)) {
        for (X11PanelSurface* surface : _surfaces)
            surface->applyAppearance();
    }
    const xcb_window_t window = windowOfEvent(event);
    for (X11PanelSurface* surface : _surfaces) {
        // The root window is configured when the monitors change.
        if (window == surface->window() || window == _connection.rootWindow())
            surface->frameMayHaveChanged();
        if (window == surface->window() && isAboutMapping(event))
            surface->wasMapped();
    }
}

} // namespace tarragon
