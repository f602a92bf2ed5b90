#include "fake/FakeInputEvents.h"

#include <algorithm>
#include <utility>

namespace tarragon {

class FakeInputEvents::Tap : public EventTap {
public:
    Tap(FakeInputEvents& events, EventMonitor identifier)
        : _events(events)
        , _identifier(identifier) { }
    ~Tap() override { _events._watchers.erase(_identifier); }
    Tap(const Tap&) = delete;
    Tap& operator=(const Tap&) = delete;
    void setEnabled(bool enabled) override { _events._watchers.at(_identifier).enabled = enabled; }

private:
    FakeInputEvents& _events;
    EventMonitor _identifier;
};

EventMonitor FakeInputEvents::addGlobalMonitor(
    InputEventMask mask, std::function<void(const InputEvent& event)> handler) {
    if (_refuses)
        return 0;
    _watchers[++_last] = {mask, false, true, [handler = std::move(handler)](const InputEvent& event) {
                              handler(event);
                              return true;
                          }};
    return _last;
}

void FakeInputEvents::removeMonitor(EventMonitor monitor) {
    _removed.push_back(monitor);
    _watchers.erase(monitor);
}

std::unique_ptr<EventTap> FakeInputEvents::createEventTap(
    InputEventMask mask, std::function<bool(const InputEvent& event)> handler) {
    if (_refuses)
        return nullptr;
    _watchers[++_last] = {mask, true, true, std::move(handler)};
    return std::make_unique<Tap>(*this, _last);
}

// A handler may add and remove watchers.
std::vector<EventMonitor> FakeInputEvents::identifiers() const {
    std::vector<EventMonitor> result;
    for (const auto& [identifier, watcher] : _watchers)
        result.push_back(identifier);
    return result;
}

bool FakeInputEvents::deliver(const InputEvent& event, bool toUs) {
    if (event.type == InputEventType::OtherMouseDown)
        _held.insert(event.buttonNumber);
    else if (event.type == InputEventType::OtherMouseUp)
        _held.erase(event.buttonNumber);
    bool passesOn = true;
    for (const EventMonitor identifier : identifiers()) {
        const auto found = _watchers.find(identifier);
        if (found == _watchers.end())
            continue;
        const Watcher watcher = found->second;
        if (watcher.enabled && (watcher.mask & inputEventMask(event.type)) != 0 && (watcher.isTap || !toUs))
            passesOn &= watcher.handler(event);
    }
    return passesOn;
}

bool FakeInputEvents::disableTaps(InputEventType reason) {
    bool passesOn = true;
    for (const EventMonitor identifier : identifiers()) {
        const auto found = _watchers.find(identifier);
        if (found == _watchers.end() || !found->second.isTap)
            continue;
        found->second.enabled = false;
        const auto handler = found->second.handler;
        passesOn &= handler({reason, 0});
    }
    return passesOn;
}

std::vector<InputEventMask> FakeInputEvents::monitorMasks() const {
    std::vector<InputEventMask> masks;
    for (const auto& [identifier, watcher] : _watchers) {
        if (!watcher.isTap)
            masks.push_back(watcher.mask);
    }
    return masks;
}

std::vector<InputEventMask> FakeInputEvents::enabledTapMasks() const {
    std::vector<InputEventMask> masks;
    for (const auto& [identifier, watcher] : _watchers) {
        if (watcher.isTap && watcher.enabled)
            masks.push_back(watcher.mask);
    }
    return masks;
}

std::size_t FakeInputEvents::tapCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(_watchers, [](const auto& entry) { return entry.second.isTap; }));
}

} // namespace tarragon
