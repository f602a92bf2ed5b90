#include "platform/linux/input/X11InputEvents.h"

#include "platform/linux/input/X11ButtonNumber.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

constexpr std::uint32_t LeftButton = 0;
constexpr std::uint32_t RightButton = 1;

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

std::unique_ptr<EventTap> X11InputEvents::createEventTap(
    InputEventMask mask, std::function<bool(const InputEvent& event)> handler) {
    const EventMonitor watcher = watch({mask, true, true, std::move(handler)});
    return watcher == 0 ? nullptr : std::make_unique<Tap>(*this, watcher);
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

// Nobody is woken by a moving pointer unless somebody is dragging.
void X11InputEvents::listen() {
    if (!_input)
        return;
    constexpr InputEventMask drags = inputEventMask(InputEventType::LeftMouseDragged);
    const auto isHeard = [](const auto& entry) { return entry.second.enabled && entry.second.mask != 0; };
    const auto hearsDrags = [](const auto& entry) { return entry.second.enabled && (entry.second.mask & drags) != 0; };
    const bool hearsButtons = std::ranges::any_of(_watchers, isHeard);
    // Its release will not be heard of.
    if (!hearsButtons)
        _leftIsHeld = _leftPressWasOurs = false;
    _input->listen(hearsButtons, _leftIsHeld && std::ranges::any_of(_watchers, hearsDrags));
}

void X11InputEvents::handle(const X11RawEvent& event) {
    if (event.kind == X11RawEvent::Kind::Motion) {
        if (_leftIsHeld)
            tell({InputEventType::LeftMouseDragged, LeftButton}, _leftPressWasOurs);
        return;
    }
    const std::optional<std::uint32_t> button = buttonNumberFromX11(event.button);
    if (!button)
        return;
    if (event.kind == X11RawEvent::Kind::ButtonPress) {
        handlePress(*button);
    } else if (*button == LeftButton) {
        _leftIsHeld = false;
        listen();
        tell({InputEventType::LeftMouseUp, LeftButton}, std::exchange(_leftPressWasOurs, false));
    }
}

void X11InputEvents::handlePress(std::uint32_t button) {
    const bool isOurs = _pointerIsOurs();
    if (button == LeftButton) {
        _leftIsHeld = true;
        _leftPressWasOurs = isOurs;
        listen();
    } else if (button != RightButton) {
        tell({InputEventType::OtherMouseDown, button}, isOurs);
    }
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
