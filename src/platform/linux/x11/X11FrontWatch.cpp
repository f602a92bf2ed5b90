#include "platform/linux/x11/X11FrontWatch.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/windows/MenuBarSource.h"
#include "platform/linux/windows/WindowApplication.h"
#include "platform/linux/x11/X11ActivationOrder.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/x11/X11Windows.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

// Longer than any window manager takes from one window to the next.
constexpr double AbsenceSettlingTime = 0.3;
// From each question for a late menu bar to the next.
constexpr std::array<double, 4> LateMenuBarDelays = {0.25, 0.5, 1, 2};

// Of a window that was active before, only its end matters.
constexpr std::uint32_t FormerWindowEvents = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr std::uint32_t ActiveWindowEvents =
    FormerWindowEvents | XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_FOCUS_CHANGE;

bool isPassing(WindowKind kind) {
    return kind == WindowKind::Dialog || kind == WindowKind::Sheet || kind == WindowKind::Floating;
}

X11FrontWindowChange bothOf(const X11FrontWindowChange& first, const X11FrontWindowChange& second) {
    return {.frontSwitched = first.frontSwitched || second.frontSwitched,
        .systemUIModeChanged = first.systemUIModeChanged || second.systemUIModeChanged};
}

} // namespace

X11FrontWatch::X11FrontWatch(X11Connection& connection, X11Windows& windows, ApplicationDirectory& applications,
    RunLoop& runLoop, MenuBarSource* menuBars)
    : _connection(connection)
    , _windows(windows)
    , _applications(applications)
    , _runLoop(runLoop)
    , _menuBars(menuBars) { }

X11FrontWatch::~X11FrontWatch() = default;

// When the server goes away the descriptor stays readable for ever; the user-interface toolkit ends the process then.
bool X11FrontWatch::begin(Changed changed) {
    if (_events)
        return _events->isAlive();
    std::unique_ptr<X11Connection> events = _connection.connectAnother();
    if (!events) {
        log(LogCategory::X11, [] { return std::string("the server takes no connection for events"); });
        return false;
    }
    _events = std::move(events);
    _changed = std::move(changed);
    selectEvents(_events->rootWindow(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    look();
    _runLoop.watchDescriptor(_events->descriptor(), [this] { handleEvents(); });
    // What came while the requests above waited for their answers would not wake the run loop.
    _runLoop.post([this] {
        learnMenuBar();
        handleEvents();
    });
    return true;
}

// Returns after the server has done it, so that whatever is asked on the other connection afterwards is followed by an
// event when it changes. False when the window is gone.
bool X11FrontWatch::selectEvents(std::uint32_t window, std::uint32_t mask) {
    const xcb_void_cookie_t cookie =
        xcb_change_window_attributes_checked(_events->get(), window, XCB_CW_EVENT_MASK, &mask);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_events->get(), cookie));
    return !error;
}

// Empties the queue. True when there was an event that may concern the window in front.
bool X11FrontWatch::takeEvents() {
    const std::uint32_t state = _events->atom("_NET_WM_STATE");
    bool concernsFrontWindow = false;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_events->get())}) {
        constexpr std::uint8_t SentEvent = 0x80;
        const std::uint8_t type = event->response_type & ~SentEvent;
        if (type == XCB_DESTROY_NOTIFY) {
            windowIsGone(reinterpret_cast<const xcb_destroy_notify_event_t&>(*event).window);
            concernsFrontWindow = true;
        } else if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
            // Both are of one form.
            const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(*event);
            if (focus.event == _watchedWindow)
                concernsFrontWindow |= takeFocusChange(type, focus.mode);
        } else if (type == XCB_PROPERTY_NOTIFY) {
            const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            concernsFrontWindow |= property.window == _events->rootWindow()
                ? takeRootChange(property.atom)
                : property.window == _watchedWindow && property.atom == state;
        }
    }
    return concernsFrontWindow;
}

bool X11FrontWatch::takeRootChange(std::uint32_t atom) {
    if (atom == _events->atom("_NET_CLIENT_LIST")) {
        const std::uint32_t menuBar = _front.menuBar();
        forgetUnmanagedWindows();
        return _front.menuBar() != menuBar;
    }
    return atom == _events->atom("_NET_ACTIVE_WINDOW");
}

// True when a grab has ended that held the keyboard while no window was active.
bool X11FrontWatch::takeFocusChange(std::uint8_t type, std::uint8_t mode) {
    if (mode == XCB_NOTIFY_MODE_NORMAL)
        return false;
    // A focus that moves during a grab, as from a window that is put away, is gone for good: the grab's end is told to
    // another window.
    const bool wasHeld = std::exchange(_keyboardIsHeld, type == XCB_FOCUS_OUT && mode == XCB_NOTIFY_MODE_GRAB);
    return wasHeld && !_keyboardIsHeld && _isAbsent;
}

// The server gives the identifier of a window that is gone to the next application that comes.
void X11FrontWatch::windowIsGone(std::uint32_t window) {
    _windows.activationOrder().forget(window);
    _front.forgetWindow(window);
    if (window == _watchedWindow) {
        _watchedWindow.reset();
        _keyboardIsHeld = false;
    }
    if (window == _lateWindow) {
        _lateWindow = 0;
        _lateMenuBarTimer.reset();
    }
}

// A window can also be put away by its application and live on unseen.
void X11FrontWatch::forgetUnmanagedWindows() {
    const std::vector<std::uint32_t> managed = _windows.managedWindows();
    _windows.activationOrder().keepOnly(managed);
    const std::uint32_t menuBar = _front.menuBar();
    if (menuBar != 0 && menuBar != _watchedWindow && std::ranges::find(managed, menuBar) == managed.end())
        _front.forgetWindow(menuBar);
}

// Everything that has come is one occasion to look, so that a change that took several events is reported once. A look
// waits for the server and may leave new events in the queue: the queue is found empty before the run loop is relied on
// again.
void X11FrontWatch::handleEvents() {
    _windows.takeEvents();
    X11FrontWindowChange change;
    while (takeEvents() || _menuBarIsDue) {
        const Look next = look();
        change = bothOf(change, next.change);
        if (next.isAbsent)
            windowIsAbsent();
    }
    report(change);
}

X11FrontWatch::Look X11FrontWatch::look() {
    const std::optional<std::uint32_t> window = _windows.activeWindow();
    if (window && window != _watchedWindow)
        watchWindow(*window);
    const auto description = window ? _windows.describe(*window) : std::nullopt;
    _isAbsent = !description;
    if (!description) {
        if (window)
            log(LogCategory::X11, [&] { return "the active window " + std::to_string(*window) + " is gone"; });
        _menuBarIsDue = false;
        return {.change = {}, .isAbsent = true};
    }
    _absenceTimer.reset();
    _windows.activationOrder().becameActive(*window);
    return {.change = updateFront(*description), .isAbsent = false};
}

void X11FrontWatch::watchWindow(std::uint32_t window) {
    if (_watchedWindow)
        selectEvents(*_watchedWindow, FormerWindowEvents);
    _keyboardIsHeld = false;
    _watchedWindow = selectEvents(window, ActiveWindowEvents) ? std::optional(window) : std::nullopt;
}

X11FrontWindowChange X11FrontWatch::updateFront(const WindowDescription& description) {
    const RunningApplication application = applicationOfWindow(description, _applications);
    const X11ActiveWindow active = {.window = description.identifier,
        .processIdentifier = description.processIdentifier,
        .application = application.bundleIdentifier + '\n' + application.name,
        .isPassing = isPassing(description.kind),
        .transientFor = description.transientFor,
        .fullScreen = description.fullScreen};
    _watchedIsPassing = active.isPassing;
    const bool isDue = std::exchange(_menuBarIsDue, false) && _lateWindow == active.window;
    std::optional<std::uint32_t> menuBar;
    if (isDue || _front.needsMenuBar(active)) {
        menuBar = menuBarOf(active.window, active.isPassing);
        expectLateMenuBar(active.window, active.isPassing, *menuBar);
    }
    const X11FrontWindowChange change = _front.update(active, menuBar);
    logLook(description, change);
    return change;
}

// It will be certain after a while.
void X11FrontWatch::windowIsAbsent() {
    const bool isAwaited = _absenceTimer && _absenceTimer->isValid();
    if (_front.hasWindow() && !isAwaited)
        _absenceTimer = _runLoop.scheduleTimer(AbsenceSettlingTime, false, [this] { settleAbsence(); });
}

void X11FrontWatch::settleAbsence() {
    // What has happened in between counts first.
    handleEvents();
    if (!_isAbsent)
        return;
    if (_keyboardIsHeld) {
        log(LogCategory::Front,
            [] { return std::string("no window is active while the keyboard is held: no switch"); });
        return;
    }
    _lateMenuBarTimer.reset();
    const X11FrontWindowChange change = _front.lose();
    log(LogCategory::Front, [] { return std::string("no window is active: no application is in front"); });
    report(change);
}

void X11FrontWatch::report(X11FrontWindowChange change) {
    while (change.frontSwitched || change.systemUIModeChanged) {
        // What others were told before is not about this switch.
        static_cast<void>(_windows.takeToldWindows());
        _changed(change);
        change = lookWhenOthersWereTold();
    }
    learnMenuBar();
}

// What those have seen who were told of a switch, if it was not the window in front, and then what is in front now.
X11FrontWindowChange X11FrontWatch::lookWhenOthersWereTold() {
    X11FrontWindowChange change;
    const std::uint32_t front = _front.window();
    bool isOther = false;
    for (const std::uint32_t window : _windows.takeToldWindows()) {
        const auto description = window != front ? _windows.describe(window) : std::nullopt;
        if (!description)
            continue;
        isOther = true;
        change = bothOf(change, updateFront(*description));
    }
    if (!isOther)
        return change;
    const Look now = look();
    if (now.isAbsent)
        windowIsAbsent();
    return bothOf(change, now.change);
}

std::uint32_t X11FrontWatch::menuBarOf(std::uint32_t window, bool isPassing) {
    if (_menuBars)
        return _menuBars->windowWithMenuBar(window);
    return isPassing ? 0 : window;
}

// A switch of applications is reported before anybody is asked, and the question is cheap once the application has been
// read. A menu bar that came while it was being read has been read too, and is no switch.
void X11FrontWatch::learnMenuBar() {
    const std::optional<std::uint32_t> window = _front.windowWithUnknownMenuBar();
    if (!window)
        return;
    const std::uint32_t menuBar = menuBarOf(*window, _watchedIsPassing);
    _front.learnMenuBar(menuBar);
    expectLateMenuBar(*window, _watchedIsPassing, menuBar);
}

void X11FrontWatch::expectLateMenuBar(std::uint32_t window, bool isPassing, std::uint32_t menuBar) {
    if (std::exchange(_lateWindow, window) != window)
        _lateQuestions = 0;
    _lateMenuBarTimer.reset();
    if (isPassing || menuBar == window || _lateQuestions == LateMenuBarDelays.size())
        return;
    _lateMenuBarTimer = _runLoop.scheduleTimer(LateMenuBarDelays[_lateQuestions++], false, [this] {
        _menuBarIsDue = true;
        handleEvents();
    });
}

void X11FrontWatch::logLook(const WindowDescription& description, const X11FrontWindowChange& change) const {
    log(LogCategory::Front, [&] {
        return std::string(change.frontSwitched ? "switch to \"" : "no switch to \"")
            + _applications.applicationName(description) + "\", process "
            + std::to_string(description.processIdentifier) + ", window " + std::to_string(description.identifier)
            + " \"" + description.title + "\", menu bar of window " + std::to_string(_front.menuBar()) + ": "
            + std::string(_front.reason());
    });
}

} // namespace tarragon
