#include "platform/linux/xkb/XkbGrabbedKeys.h"

#include "platform/HotKeys.h"
#include "platform/linux/x11/X11Reply.h"
#include "platform/linux/xkb/KeyCodes.h"
#include "platform/linux/xkb/X11Modifiers.h"

#include <set>
#include <utility>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace tarragon {

namespace {

constexpr std::uint32_t LastKeyCode = 127;

// Every combination of the modifiers of hot keys, none included.
std::vector<std::uint32_t> modifierCombinations() {
    std::vector<std::uint32_t> combinations{0};
    for (const std::uint32_t modifier : {hotkey::ShiftKey, hotkey::CommandKey, hotkey::OptionKey, hotkey::ControlKey}) {
        const std::vector<std::uint32_t> before = combinations;
        for (const std::uint32_t combination : before)
            combinations.push_back(combination | modifier);
    }
    return combinations;
}

// Key codes with combinations of modifiers, as a hot key has them.
using TakenKeys = std::set<std::pair<std::uint32_t, std::uint32_t>>;

// Tries to grab keys, both as the core protocol and as the input extension does it: grabs of one kind are no obstacle
// to those of the other, and there are window managers of either. The attempts are sent first and their outcome is
// collected later, so that the server is not waited for again and again.
class GrabAttempts {
public:
    GrabAttempts(xcb_connection_t* connection, std::uint32_t rootWindow, const X11Modifiers& modifiers)
        : _connection(connection)
        , _rootWindow(rootWindow)
        , _modifiers(modifiers)
        , _hasInputExtension(hasInputExtension(connection)) { }

    void send() {
        // Nobody else is served meanwhile, so that no other program is refused a combination because of the attempt.
        xcb_grab_server(_connection);
        for (std::uint32_t keyCode = 0; keyCode <= LastKeyCode; ++keyCode) {
            if (x11KeyCode(keyCode) == 0)
                continue;
            sendForCoreProtocol(keyCode);
            if (_hasInputExtension)
                sendForInputExtension(keyCode);
        }
        xcb_ungrab_server(_connection);
    }

    TakenKeys collect() {
        TakenKeys taken;
        for (const auto& [key, cookie] : _coreAttempts) {
            const X11Reply<xcb_generic_error_t> error(xcb_request_check(_connection, cookie));
            if (error && error->error_code == XCB_ACCESS)
                taken.insert(key);
        }
        for (const auto& [keyCode, cookie] : _extensionAttempts) {
            const X11Reply<xcb_input_xi_passive_grab_device_reply_t> reply(
                xcb_input_xi_passive_grab_device_reply(_connection, cookie, nullptr));
            if (reply)
                insertFailures(*reply, keyCode, taken);
        }
        return taken;
    }

private:
    static bool hasInputExtension(xcb_connection_t* connection) {
        const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_input_id);
        if (!extension || !extension->present)
            return false;
        const X11Reply<xcb_input_xi_query_version_reply_t> version(
            xcb_input_xi_query_version_reply(connection, xcb_input_xi_query_version(connection, 2, 0), nullptr));
        return version && version->major_version >= 2;
    }

    // Given up key by key: the server compares each grab with all that there are.
    void sendForCoreProtocol(std::uint32_t keyCode) {
        for (const std::uint32_t combination : _combinations) {
            _coreAttempts.emplace_back(std::pair(keyCode, combination),
                xcb_grab_key_checked(_connection, 0, _rootWindow, _modifiers.bitsOfHotKey(combination),
                    x11KeyCode(keyCode), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
        xcb_ungrab_key(_connection, x11KeyCode(keyCode), _rootWindow, XCB_MOD_MASK_ANY);
    }

    // One attempt is for all combinations of a key; its answer names those that failed.
    void sendForInputExtension(std::uint32_t keyCode) {
        const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
        std::vector<std::uint32_t> bits;
        for (const std::uint32_t combination : _combinations)
            bits.push_back(_modifiers.bitsOfHotKey(combination));
        _extensionAttempts.emplace_back(keyCode,
            xcb_input_xi_passive_grab_device(_connection, XCB_CURRENT_TIME, _rootWindow, XCB_CURSOR_NONE,
                x11KeyCode(keyCode), XCB_INPUT_DEVICE_ALL_MASTER, static_cast<std::uint16_t>(bits.size()), 1,
                XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
                XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, bits.data()));
        xcb_input_xi_passive_ungrab_device(_connection, _rootWindow, x11KeyCode(keyCode), XCB_INPUT_DEVICE_ALL_MASTER,
            static_cast<std::uint16_t>(bits.size()), XCB_INPUT_GRAB_TYPE_KEYCODE, bits.data());
    }

    void insertFailures(
        const xcb_input_xi_passive_grab_device_reply_t& reply, std::uint32_t keyCode, TakenKeys& taken) const {
        const xcb_input_grab_modifier_info_t* failures = xcb_input_xi_passive_grab_device_modifiers(&reply);
        for (int index = 0; index < xcb_input_xi_passive_grab_device_modifiers_length(&reply); ++index) {
            for (const std::uint32_t combination : _combinations) {
                if (_modifiers.bitsOfHotKey(combination) == failures[index].modifiers)
                    taken.emplace(keyCode, combination);
            }
        }
    }

    xcb_connection_t* _connection;
    std::uint32_t _rootWindow;
    const X11Modifiers& _modifiers;
    bool _hasInputExtension;
    std::vector<std::uint32_t> _combinations = modifierCombinations();
    std::vector<std::pair<std::pair<std::uint32_t, std::uint32_t>, xcb_void_cookie_t>> _coreAttempts;
    std::vector<std::pair<std::uint32_t, xcb_input_xi_passive_grab_device_cookie_t>> _extensionAttempts;
};

} // namespace

std::optional<std::vector<SymbolicHotKey>> keysGrabbedByOthers(
    xcb_connection_t* connection, std::uint32_t rootWindow, const X11Modifiers& modifiers) {
    GrabAttempts attempts(connection, rootWindow, modifiers);
    attempts.send();
    std::vector<SymbolicHotKey> hotKeys;
    for (const auto& [keyCode, combination] : attempts.collect())
        hotKeys.push_back({true, keyCode, combination});
    return xcb_connection_has_error(connection) == 0 ? std::optional(hotKeys) : std::nullopt;
}

} // namespace tarragon
