#include "platform/linux/xkb/X11KeyboardMapping.h"

#include "platform/linux/x11/X11Reply.h"

#include <xcb/xcb.h>

namespace tarragon {

X11KeyboardMapping requestKeyboardMapping(xcb_connection_t* connection) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const xcb_get_modifier_mapping_cookie_t modifierCookie = xcb_get_modifier_mapping(connection);
    const xcb_get_keyboard_mapping_cookie_t symbolCookie =
        xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifierCookie, nullptr));
    const X11Reply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection, symbolCookie, nullptr));
    X11KeyboardMapping mapping;
    if (!modifiers || !symbols)
        return mapping;

    const xcb_keycode_t* keyCodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    mapping.keyCodesPerModifier = modifiers->keycodes_per_modifier;
    mapping.modifierKeyCodes.assign(keyCodes, keyCodes + xcb_get_modifier_mapping_keycodes_length(modifiers.get()));
    const xcb_keysym_t* firstSymbol = xcb_get_keyboard_mapping_keysyms(symbols.get());
    mapping.firstKeyCode = setup->min_keycode;
    mapping.symbolsPerKeyCode = symbols->keysyms_per_keycode;
    mapping.symbols.assign(firstSymbol, firstSymbol + xcb_get_keyboard_mapping_keysyms_length(symbols.get()));
    return mapping;
}

} // namespace tarragon
