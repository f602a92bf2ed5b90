#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/xkb/X11KeyRepeat.h"
#include "platform/linux/xkb/X11Modifiers.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class RunLoop;

// System-wide key combinations as passive grabs on the root window. A combination belongs to the first client that
// grabs it; later ones are refused.
//
// The connection is the user-interface toolkit's own: while a grabbed key is held its connection has the keyboard, and
// no other could open a pop-up menu that takes the keyboard. Connection and run loop outlive this object. Main thread
// only.
class X11HotKeys : public HotKeys {
public:
    X11HotKeys(xcb_connection_t* connection, std::uint32_t rootWindow, RunLoop& runLoop);

    void installPressedHandler(std::function<bool()> handler) override;
    bool registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier identifier,
        HotKeyReference& reference) override;
    bool unregisterHotKey(HotKeyReference reference) override;
    bool isRefused() const override { return _isRefused; }

    // True while the combination, bits of hotkey::, is registered here and granted by the server: nobody else has it.
    bool isOwnCombination(std::uint32_t keyCode, std::uint32_t modifiers) const;

    // To be called with every event of the connection before the toolkit sees it. True when the event was a press of a
    // hot key, or its repetition while held, and nobody else is to see it. The handlers are called later, from the run
    // loop.
    bool handleEvent(const xcb_generic_event_t* event);

private:
    struct Combination {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        bool operator==(const Combination&) const = default;
        bool operator<(const Combination& other) const {
            return std::pair(keyCode, modifiers) < std::pair(other.keyCode, other.modifiers);
        }
    };

    bool grab(const Combination& combination);
    void ungrab(const Combination& combination);
    bool isRegistered(const Combination& combination) const;
    bool isHotKey(std::uint8_t x11KeyCode, std::uint16_t state) const;
    void takeOverMapping();
    void refuse(const Combination& combination);
    void callHandlers();

    xcb_connection_t* _connection;
    std::uint32_t _rootWindow;
    RunLoop& _runLoop;
    std::uint8_t _firstKeyboardEvent; // of the keyboard extension; 0 when the server has none
    X11Modifiers _modifiers;
    X11KeyRepeat _keyRepeat;
    std::map<HotKeyReference, Combination> _registrations;
    std::set<Combination> _granted; // a registered one may be lost with a new keyboard mapping
    HotKeyReference _lastReference = 0;
    std::vector<std::function<bool()>> _handlers;
    std::set<Combination> _reported; // refusals that were told already
    bool _isRefused = false;
};

} // namespace tarragon
