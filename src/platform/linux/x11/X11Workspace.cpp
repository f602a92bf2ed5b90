#include "platform/linux/x11/X11Workspace.h"

#include "platform/RunLoop.h"
#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/x11/X11Windows.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

X11Workspace::X11Workspace(X11Connection& connection, X11Windows& windows, ApplicationDirectory& applications,
    RunLoop& runLoop, OpenURL openURL)
    : _connection(connection)
    , _windows(windows)
    , _applications(applications)
    , _runLoop(runLoop)
    , _openURL(std::move(openURL)) { }

X11Workspace::~X11Workspace() = default;

std::optional<RunningApplication> X11Workspace::activeApplication() {
    const std::optional<std::uint32_t> window = _windows.activeWindow();
    const auto description = window ? _windows.describe(*window) : std::nullopt;
    return description ? std::optional(application(*description)) : std::nullopt;
}

std::vector<RunningApplication> X11Workspace::runningApplications() {
    std::vector<RunningApplication> applications;
    for (const WindowDescription& window : _windows.describe(_windows.managedWindows())) {
        RunningApplication next = application(window);
        // One process can be several applications to the user, as the programs of an office suite are.
        const auto isSame = [&](const RunningApplication& known) {
            return known.processIdentifier == next.processIdentifier && known.name == next.name
                && known.bundleIdentifier == next.bundleIdentifier;
        };
        if (std::none_of(applications.begin(), applications.end(), isSame))
            applications.push_back(std::move(next));
    }
    return applications;
}

RunningApplication X11Workspace::application(const WindowDescription& window) {
    RunningApplication application;
    application.processIdentifier = window.processIdentifier;
    application.name = _applications.applicationName(window);
    if (const auto entry = _applications.entryForWindow(window)) {
        application.bundleIdentifier = entry->identifier;
        application.bundlePath = entry->path;
    } else {
        application.bundleIdentifier = window.className;
    }
    return application;
}

bool X11Workspace::installFrontSwitchedHandler(std::function<void()> handler) {
    if (!watch())
        return false;
    _frontSwitchedHandlers.push_back(std::move(handler));
    return true;
}

bool X11Workspace::installSystemUIModeChangedHandler(std::function<void()> handler) {
    if (!watch())
        return false;
    _systemUIModeChangedHandlers.push_back(std::move(handler));
    return true;
}

// Begins to listen, once. When the server goes away the descriptor stays readable for ever; the user-interface toolkit
// ends the process then.
bool X11Workspace::watch() {
    if (_events)
        return _events->isAlive();
    std::unique_ptr<X11Connection> events = _connection.connectAnother();
    if (!events)
        return false;
    _events = std::move(events);
    selectEvents(_events->rootWindow(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    look();
    _runLoop.watchDescriptor(_events->descriptor(), [this] { handleEvents(); });
    // What came while the requests above waited for their answers would not wake the run loop.
    _runLoop.post([this] { handleEvents(); });
    return true;
}

// Returns after the server has done it, so that whatever is asked on the other connection afterwards is followed by an
// event when it changes.
bool X11Workspace::selectEvents(std::uint32_t window, std::uint32_t mask) {
    const xcb_void_cookie_t cookie =
        xcb_change_window_attributes_checked(_events->get(), window, XCB_CW_EVENT_MASK, &mask);
    // The window may be gone already; that is no failure.
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_events->get(), cookie));
    return !error;
}

// Empties the queue. True when there was an event that may concern the window in front.
bool X11Workspace::takeEvents() {
    const std::uint32_t activeWindow = _events->atom("_NET_ACTIVE_WINDOW");
    const std::uint32_t state = _events->atom("_NET_WM_STATE");
    bool concernsFrontWindow = false;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_events->get())}) {
        constexpr std::uint8_t SentEvent = 0x80;
        const int type = event->response_type & ~SentEvent;
        if (type == XCB_DESTROY_NOTIFY) {
            windowIsGone(reinterpret_cast<const xcb_destroy_notify_event_t&>(*event).window);
            continue;
        }
        if (type != XCB_PROPERTY_NOTIFY)
            continue;
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        concernsFrontWindow |=
            property.window == _events->rootWindow() ? property.atom == activeWindow : property.atom == state;
    }
    return concernsFrontWindow;
}

// Everything that has come is one occasion to look, so that a change that took several events is reported once. A look
// waits for the server and may leave new events in the queue: the queue is found empty before the run loop is relied on
// again.
void X11Workspace::handleEvents() {
    X11FrontWindowChange change;
    while (takeEvents()) {
        const X11FrontWindowChange next = look();
        change.frontSwitched |= next.frontSwitched;
        change.systemUIModeChanged |= next.systemUIModeChanged;
    }
    // Copies, because a handler may install another one.
    if (change.systemUIModeChanged)
        call(Handlers(_systemUIModeChangedHandlers));
    if (change.frontSwitched)
        call(Handlers(_frontSwitchedHandlers));
}

X11FrontWindowChange X11Workspace::look() {
    const std::optional<std::uint32_t> window = _windows.activeWindow();
    if (window && window != _watchedWindow) {
        if (_watchedWindow)
            selectEvents(*_watchedWindow, XCB_EVENT_MASK_NO_EVENT);
        constexpr std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        _watchedWindow = selectEvents(*window, mask) ? window : std::nullopt;
    }
    const auto description = window ? _windows.describe(*window) : std::nullopt;
    // A window that is gone again was not in front: the next one is on its way.
    if (!description)
        return {};
    return _frontWindow.update(window, description->fullScreen);
}

// The server gives the identifier of a window that is gone to the next application that comes.
void X11Workspace::windowIsGone(std::uint32_t window) {
    if (window != _watchedWindow)
        return;
    _watchedWindow.reset();
    _frontWindow.forgetWindow();
}

void X11Workspace::call(const Handlers& handlers) {
    for (const std::function<void()>& handler : handlers)
        handler();
}

} // namespace tarragon
