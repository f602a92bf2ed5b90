#pragma once

#include "platform/HotKeys.h"

#include <map>
#include <vector>

namespace tarragon {

// Hot keys that tests press. Keeps a log of what was asked for.
class FakeHotKeys : public HotKeys {
public:
    struct Registration {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        HotKeyIdentifier identifier;
        bool operator==(const Registration&) const = default;
    };

    void setRefuses(bool refuses) { _refuses = refuses; }
    // Presses a combination; true when it is registered and a handler has handled it.
    bool press(std::uint32_t keyCode, std::uint32_t modifiers);
    // In force at this moment, by reference.
    const std::map<HotKeyReference, Registration>& registrations() const { return _registrations; }
    // Every registration that was asked for, the refused ones included.
    const std::vector<Registration>& requested() const { return _requested; }
    // Every reference that was given back, those included that name no registration.
    const std::vector<HotKeyReference>& unregistered() const { return _unregistered; }
    std::size_t handlerCount() const { return _handlers.size(); }

    void installPressedHandler(std::function<bool()> handler) override;
    bool registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier identifier,
        HotKeyReference& reference) override;
    bool unregisterHotKey(HotKeyReference reference) override;
    bool isRefused() const override { return _lastRefused; }

private:
    std::vector<std::function<bool()>> _handlers;
    std::map<HotKeyReference, Registration> _registrations;
    std::vector<Registration> _requested;
    std::vector<HotKeyReference> _unregistered;
    HotKeyReference _nextReference = 1;
    bool _refuses = false;
    bool _lastRefused = false;
};

} // namespace tarragon
