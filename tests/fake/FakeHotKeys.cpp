#include "fake/FakeHotKeys.h"

#include <algorithm>
#include <utility>

namespace tarragon {

bool FakeHotKeys::press(std::uint32_t keyCode, std::uint32_t modifiers) {
    const bool registered = std::ranges::any_of(_registrations,
        [&](const auto& entry) { return entry.second.keyCode == keyCode && entry.second.modifiers == modifiers; });
    if (!registered)
        return false;
    // A handler may install another one.
    const auto handlers = _handlers;
    return std::any_of(handlers.rbegin(), handlers.rend(), [](const auto& handler) { return handler(); });
}

void FakeHotKeys::installPressedHandler(std::function<bool()> handler) {
    _handlers.push_back(std::move(handler));
}

bool FakeHotKeys::registerHotKey(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier identifier, HotKeyReference& reference) {
    _requested.push_back({keyCode, modifiers, identifier});
    _lastRefused = _refuses;
    if (_refuses)
        return false;
    reference = _nextReference++;
    _registrations[reference] = _requested.back();
    return true;
}

bool FakeHotKeys::unregisterHotKey(HotKeyReference reference) {
    _unregistered.push_back(reference);
    return _registrations.erase(reference) > 0;
}

} // namespace tarragon
