#pragma once

#include "platform/ModifierFlags.h"

#include <cstdint>
#include <functional>

namespace tarragon {

struct HotKeyIdentifier {
    std::uint32_t signature = 0; // four characters
    std::uint32_t number = 0;
    bool operator==(const HotKeyIdentifier&) const = default;
};

// Names one registration; 0 is none.
using HotKeyReference = std::uint64_t;

// System-wide key combinations. Main thread only.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    // The handler is called for every press of a registered combination, with the newest handler first; one that
    // answers true has handled the press and ends the search. Handlers are never removed.
    virtual void installPressedHandler(std::function<bool()> handler) = 0;

    // keyCode is the system's own virtual key code (49 is the space bar), by position on the keyboard; modifiers are
    // Carbon bits (hotkey::). On success the registration's name is stored in reference. When the desktop refuses the
    // combination, false is answered and reference is left as it is; the back end reports the refusal once.
    [[nodiscard]] virtual bool registerHotKey(
        std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier identifier, HotKeyReference& reference) = 0;
    // False when the reference names no registration, as for one that was unregistered before.
    virtual bool unregisterHotKey(HotKeyReference reference) = 0;
    // True while the last combination that was asked for is one that the desktop refused.
    [[nodiscard]] virtual bool isRefused() const = 0;
};

} // namespace tarragon
