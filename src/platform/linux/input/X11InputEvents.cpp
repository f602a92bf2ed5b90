#include "platform/linux/input/X11InputEvents.h"

#include "platform/linux/input/X11ButtonNumber.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

constexpr std::uint32_t LeftButton = 0;
constexpr std::uint32_t RightButton = 1;

InputEventType dragOf(std::uint32_t button) {
    return button == LeftButton ? InputEventType::LeftMouseDragged : InputEventType::OtherMouseDragged;
}

InputEventType releaseOf(std::uint32_t button) {
    return button == LeftButton ? InputEventType::LeftMouseUp : InputEventType::OtherMouseUp;
}

} // namespace

class X11InputEvents::Tap : public EventTap {
public:
    Tap(X11InputEvents& events, EventMonitor watcher)
        : _events(events)
        , _watcher(watcher) { }
    ~Tap() override { _events.removeMonitor(_watcher); }
    Tap(const Tap&) = delete;
    Tap& operator=(const Tap&) = delete;
    void setEnabled(bool enabled) override { _events.setEnabled(_watcher, enabled); }

private:
    X11InputEvents& _events;
    EventMonitor _watcher;
};

X11InputEvents::X11InputEvents(const X11Connection& connection, RunLoop& runLoop, std::function<bool()> pointerIsOurs)
    : _connection(connection)
    , _runLoop(runLoop)
    , _pointerIsOurs(std::move(pointerIsOurs)) { }

X11InputEvents::~X11InputEvents() = default;

EventMonitor X11InputEvents::addGlobalMonitor(
    InputEventMask mask, std::function<void(const InputEvent& event)> handler) {
    return watch({mask, false, true, std::move(handler)});
}

void X11InputEvents::removeMonitor(EventMonitor monitor) {
    _watchers.erase(monitor);
    listen();
}

bool X11InputEvents::leftButtonIsHeld() {
    const auto cookie = xcb_query_pointer(_connection.get(), _connection.rootWindow());
    const X11Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(_connection.get(), cookie, nullptr));
    return reply && (reply->mask & XCB_BUTTON_MASK_1) != 0;
}

std::unique_ptr<EventTap> X11InputEvents::createEventTap(
    InputEventMask mask, std::function<bool(const InputEvent& event)> handler) {
    const EventMonitor watcher = watch({mask, true, true, std::move(handler)});
    return watcher == 0 ? nullptr : std::make_unique<Tap>(*this, watcher);
}

bool X11InputEvents::isOtherButtonHeld() const {
    return std::ranges::any_of(_held, [](const auto& entry) { return entry.first != LeftButton; });
}

EventMonitor X11InputEvents::watch(Watcher watcher) {
    if (!_input)
        _input = X11RawInput::create(_connection, _runLoop, [this](const X11RawEvent& event) { handle(event); });
    if (!_input)
        return 0;
    _watchers[++_lastWatcher] = std::move(watcher);
    listen();
    return _lastWatcher;
}

void X11InputEvents::setEnabled(EventMonitor watcher, bool enabled) {
    _watchers.at(watcher).enabled = enabled;
    listen();
}

// Nobody is woken by a moving pointer unless somebody cares for the drag that it is part of.
void X11InputEvents::listen() {
    if (!_input)
        return;
    const auto isHeard = [](const auto& entry) { return entry.second.enabled && entry.second.mask != 0; };
    const bool hearsButtons = std::ranges::any_of(_watchers, isHeard);
    // Their releases will not be heard of.
    if (!hearsButtons)
        _held.clear();
    InputEventMask drags = 0;
    for (const auto& [button, wasOurs] : _held)
        drags |= inputEventMask(dragOf(button));
    const auto hearsDrags = [&](const auto& entry) { return entry.second.enabled && (entry.second.mask & drags) != 0; };
    _input->listen(hearsButtons, std::ranges::any_of(_watchers, hearsDrags));
}

void X11InputEvents::handle(const X11RawEvent& event) {
    if (event.kind == X11RawEvent::Kind::Motion)
        return handleMotion();
    const std::optional<std::uint32_t> button = buttonNumberFromX11(event.button);
    // Nobody can ask for the right one.
    if (!button || *button == RightButton)
        return;
    if (event.kind == X11RawEvent::Kind::ButtonPress)
        handlePress(*button);
    else
        handleRelease(*button);
}

void X11InputEvents::handlePress(std::uint32_t button) {
    const bool isOurs = _pointerIsOurs();
    _held[button] = isOurs;
    listen();
    if (button != LeftButton)
        tell({InputEventType::OtherMouseDown, button}, isOurs);
}

void X11InputEvents::handleRelease(std::uint32_t button) {
    const auto held = _held.find(button);
    const bool wasOurs = held != _held.end() && held->second;
    _held.erase(button);
    listen();
    tell({releaseOf(button), button}, wasOurs);
}

void X11InputEvents::handleMotion() {
    const std::map<std::uint32_t, bool> held = _held; // a handler may end all watching
    for (const auto& [button, wasOurs] : held)
        tell({dragOf(button), button}, wasOurs);
}

// A handler may add and remove watchers, itself included, so each is looked up anew and called as a copy.
void X11InputEvents::tell(const InputEvent& event, bool goesToUs) {
    std::vector<EventMonitor> identifiers;
    for (const auto& [identifier, watcher] : _watchers)
        identifiers.push_back(identifier);
    for (const EventMonitor identifier : identifiers) {
        const auto found = _watchers.find(identifier);
        if (found == _watchers.end())
            continue;
        const Watcher& watcher = found->second;
        if (!watcher.enabled || (watcher.mask & inputEventMask(event.type)) == 0 || (goesToUs && !watcher.seesOurOwn))
            continue;
        const auto handler = watcher.handler;
        handler(event);
    }
}

} // namespace tarragon
