#include "platform/linux/xkb/X11HotKeys.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/KeyCodes.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

// Kinds of keyboard extension events, from the extension's protocol: XCB's own header for it is no C++.
constexpr std::uint8_t NewKeyboardNotify = 0;
constexpr std::uint8_t MapNotify = 1;

// The number of the extension's events; 0 when the server does not have it.
std::uint8_t firstKeyboardEvent(xcb_connection_t* connection) {
    constexpr std::string_view Name = "XKEYBOARD";
    const xcb_query_extension_cookie_t cookie = xcb_query_extension(connection, Name.size(), Name.data());
    const X11Reply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(connection, cookie, nullptr));
    return reply && reply->present ? reply->first_event : 0;
}

} // namespace

X11HotKeys::X11HotKeys(xcb_connection_t* connection, std::uint32_t rootWindow, RunLoop& runLoop)
    : _connection(connection)
    , _rootWindow(rootWindow)
    , _runLoop(runLoop)
    , _firstKeyboardEvent(firstKeyboardEvent(connection))
    , _modifiers(modifiersOfMapping(requestKeyboardMapping(_connection))) { }

void X11HotKeys::installPressedHandler(std::function<bool()> handler) {
    _handlers.push_back(std::move(handler));
}

bool X11HotKeys::registerHotKey(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier /*identifier*/, HotKeyReference& reference) {
    const Combination combination = {keyCode, modifiers};
    _isRefused = !grab(combination);
    if (_isRefused) {
        refuse(combination);
        return false;
    }
    reference = ++_lastReference;
    _registrations.emplace(reference, combination);
    return true;
}

bool X11HotKeys::unregisterHotKey(HotKeyReference reference) {
    const auto found = _registrations.find(reference);
    if (found == _registrations.end())
        return false;
    const Combination combination = found->second;
    _registrations.erase(found);
    if (!isRegistered(combination))
        ungrab(combination);
    return true;
}

// With every combination of the locks, because a grab holds for exactly the modifiers that it names. Waits for the
// server's answers; one refusal undoes the rest.
bool X11HotKeys::grab(const Combination& combination) {
    const std::uint8_t keyCode = x11KeyCode(combination.keyCode);
    if (keyCode == 0)
        return false;
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t locks : _modifiers.lockCombinations) {
        const auto state = static_cast<std::uint16_t>(_modifiers.bitsOfHotKey(combination.modifiers) | locks);
        // Events are reported to the root window alone, which tells a hot key from a key typed into one of our windows.
        constexpr std::uint8_t OwnerEvents = 0;
        cookies.push_back(xcb_grab_key_checked(
            _connection, OwnerEvents, _rootWindow, state, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool isGranted = true;
    for (const xcb_void_cookie_t cookie : cookies) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(_connection, cookie));
        isGranted &= !error;
    }
    isGranted &= xcb_connection_has_error(_connection) == 0;
    if (isGranted)
        _granted.insert(combination);
    else if (!_granted.contains(combination))
        ungrab(combination);
    return isGranted;
}

void X11HotKeys::ungrab(const Combination& combination) {
    _granted.erase(combination);
    for (const std::uint16_t locks : _modifiers.lockCombinations) {
        const auto state = static_cast<std::uint16_t>(_modifiers.bitsOfHotKey(combination.modifiers) | locks);
        xcb_ungrab_key(_connection, x11KeyCode(combination.keyCode), _rootWindow, state);
    }
    xcb_flush(_connection);
}

bool X11HotKeys::isOwnCombination(std::uint32_t keyCode, std::uint32_t modifiers) const {
    return _granted.contains({keyCode, modifiers});
}

bool X11HotKeys::isRegistered(const Combination& combination) const {
    return std::any_of(_registrations.begin(), _registrations.end(),
        [&](const auto& registration) { return registration.second == combination; });
}

bool X11HotKeys::isHotKey(std::uint8_t keyCode, std::uint16_t state) const {
    return std::any_of(_registrations.begin(), _registrations.end(), [&](const auto& registration) {
        const Combination& combination = registration.second;
        return x11KeyCode(combination.keyCode) == keyCode
            && _modifiers.bitsOfHotKey(combination.modifiers) == _modifiers.withoutLocks(state);
    });
}

bool X11HotKeys::handleEvent(const xcb_generic_event_t* event) {
    constexpr std::uint8_t SentEvent = 0x80;
    const std::uint8_t type = event->response_type;
    // Events that another client made up have a bit set and are no keys of the user.
    if (type == XCB_KEY_PRESS) {
        const auto& press = *reinterpret_cast<const xcb_key_press_event_t*>(event);
        // Our own pop-up menu, which takes the keyboard, must not get the repetitions of the key that opened it.
        if (_keyRepeat.isRepeat(press.detail, press.time))
            return true;
        if (press.event != _rootWindow || !isHotKey(press.detail, press.state))
            return false;
        _keyRepeat.begin(press.detail, press.time);
        _runLoop.post([this] { callHandlers(); });
        return true;
    }
    if (type == XCB_KEY_RELEASE) {
        const auto& release = *reinterpret_cast<const xcb_key_release_event_t*>(event);
        _keyRepeat.release(release.detail, release.time);
        return false;
    }
    // A client that selects the keyboard extension's events does not get the core protocol's, and the other way round.
    const bool isKeyboardEvent = _firstKeyboardEvent != 0 && (type & ~SentEvent) == _firstKeyboardEvent;
    const bool isNewKeyboard = isKeyboardEvent && (event->pad0 == NewKeyboardNotify || event->pad0 == MapNotify);
    if (isNewKeyboard || (type & ~SentEvent) == XCB_MAPPING_NOTIFY)
        takeOverMapping();
    return false;
}

// Grabs go by key code and modifier bits. The key codes stay where they are when the layout changes; the bits may not.
void X11HotKeys::takeOverMapping() {
    X11Modifiers modifiers = modifiersOfMapping(requestKeyboardMapping(_connection));
    if (modifiers == _modifiers)
        return;
    std::set<Combination> combinations;
    for (const auto& [reference, combination] : _registrations)
        combinations.insert(combination);
    for (const Combination& combination : combinations)
        ungrab(combination);
    _modifiers = std::move(modifiers);
    for (const Combination& combination : combinations) {
        if (grab(combination))
            continue;
        _isRefused = true;
        refuse(combination);
    }
}

void X11HotKeys::refuse(const Combination& combination) {
    if (!_reported.insert(combination).second)
        return;
    const std::string reason = x11KeyCode(combination.keyCode) == 0
        ? "this keyboard has no such key"
        : "another program, most likely the window manager, has taken it";
    logError(LogCategory::Triggers,
        "the hot key " + nameOfHotKey(combination.keyCode, combination.modifiers) + " does not work: " + reason);
}

void X11HotKeys::callHandlers() {
    // A copy, because a handler may install another one.
    const std::vector<std::function<bool()>> current = _handlers;
    std::any_of(current.rbegin(), current.rend(), [](const std::function<bool()>& handler) { return handler(); });
}

} // namespace tarragon
