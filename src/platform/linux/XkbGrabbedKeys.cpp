#include "platform/linux/XkbGrabbedKeys.h"

#include "platform/HotKeys.h"
#include "platform/linux/KeyCodes.h"
#include "platform/linux/X11Reply.h"
#include "platform/linux/XkbLayout.h"

#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

constexpr std::uint32_t LastKeyCode = 127;

struct ModifierBits {
    std::uint32_t hotKey;
    std::uint16_t x11;
};

// Every combination of the modifiers, none included.
std::vector<ModifierBits> modifierCombinations(const XkbLayout& layout) {
    const auto bitsOr = [&layout](const char* name, std::uint16_t usual) {
        const std::uint16_t bits = layout.modifierBitsOfSymbol(name);
        return bits ? bits : usual;
    };
    const ModifierBits modifiers[] = {{hotkey::ShiftKey, XCB_MOD_MASK_SHIFT},
        {hotkey::CommandKey, XCB_MOD_MASK_CONTROL}, {hotkey::OptionKey, bitsOr("Alt_L", XCB_MOD_MASK_1)},
        {hotkey::ControlKey, bitsOr("Super_L", XCB_MOD_MASK_4)}};
    std::vector<ModifierBits> combinations{{0, 0}};
    for (const ModifierBits& modifier : modifiers) {
        const std::size_t count = combinations.size();
        for (std::size_t index = 0; index < count; ++index) {
            combinations.push_back({combinations[index].hotKey | modifier.hotKey,
                static_cast<std::uint16_t>(combinations[index].x11 | modifier.x11)});
        }
    }
    return combinations;
}

} // namespace

std::optional<std::vector<SymbolicHotKey>> keysGrabbedByOthers(
    xcb_connection_t* connection, std::uint32_t rootWindow, const XkbLayout& layout) {
    // Nobody else is served meanwhile, so that no other program is refused a combination because of the attempt.
    xcb_grab_server(connection);
    std::vector<std::pair<SymbolicHotKey, xcb_void_cookie_t>> attempts;
    const std::vector<ModifierBits> combinations = modifierCombinations(layout);
    for (std::uint32_t keyCode = 0; keyCode <= LastKeyCode; ++keyCode) {
        const std::uint8_t x11Key = x11KeyCode(keyCode);
        if (x11Key == 0)
            continue;
        for (const ModifierBits& modifiers : combinations) {
            attempts.emplace_back(SymbolicHotKey{true, keyCode, modifiers.hotKey},
                xcb_grab_key_checked(
                    connection, 0, rootWindow, modifiers.x11, x11Key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    }
    xcb_ungrab_key(connection, XCB_GRAB_ANY, rootWindow, XCB_MOD_MASK_ANY);
    xcb_ungrab_server(connection);

    std::vector<SymbolicHotKey> taken;
    for (const auto& [hotKey, cookie] : attempts) {
        const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        if (error && error->error_code == XCB_ACCESS)
            taken.push_back(hotKey);
    }
    return xcb_connection_has_error(connection) == 0 ? std::optional(taken) : std::nullopt;
}

} // namespace tarragon
