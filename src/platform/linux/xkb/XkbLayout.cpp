#include "platform/linux/xkb/XkbLayout.h"

#include "platform/UnicodeText.h"

#include <array>
#include <string_view>
#include <utility>

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace tarragon {

namespace {

constexpr std::uint8_t FirstKeyCode = 8;
constexpr std::uint8_t LastKeyCode = 255;

struct ContextDeleter {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};
using Context = std::unique_ptr<xkb_context, ContextDeleter>;

Context newContext() {
    Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    // What is wrong with a keyboard description is not for our users to hear of.
    if (context)
        xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    return context;
}

std::shared_ptr<xkb_state> newState(xkb_keymap* keymap, std::uint32_t lockedModifiers, std::uint32_t layoutNumber) {
    std::shared_ptr<xkb_state> state(xkb_state_new(keymap), xkb_state_unref);
    if (state)
        xkb_state_update_mask(state.get(), 0, 0, lockedModifiers, 0, 0, layoutNumber);
    return state;
}

std::uint32_t numLock(xkb_keymap* keymap) {
    const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, XKB_MOD_NAME_NUM);
    return index == XKB_MOD_INVALID ? 0 : 1U << index;
}

// The marks of the dead keys, in the order of their symbols.
constexpr std::array<std::string_view, 14> DeadKeyMarks{
    "`", "´", "^", "~", "¯", "˘", "˙", "¨", "˚", "˝", "ˇ", "¸", "˛", "ͺ"};

bool isControlCharacter(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    return first < 0x20 || first == 0x7F;
}

} // namespace

XkbLayout::XkbLayout(Keymap keymap, std::uint32_t layoutNumber)
    : _keymap(std::move(keymap))
    , _state(newState(_keymap.get(), numLock(_keymap.get()), layoutNumber)) { }

std::optional<XkbLayout> XkbLayout::ofKeymap(xkb_keymap* keymap, std::uint32_t layoutNumber) {
    if (!keymap)
        return std::nullopt;
    XkbLayout layout(Keymap(keymap, xkb_keymap_unref), layoutNumber);
    return layout._state ? std::optional(layout) : std::nullopt;
}

std::optional<XkbLayout> XkbLayout::named(const std::string& layout, const std::string& variant) {
    const Context context = newContext();
    if (!context)
        return std::nullopt;
    const xkb_rule_names names{"evdev", "pc105", layout.c_str(), variant.c_str(), ""};
    return ofKeymap(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS), 0);
}

std::optional<XkbLayout> XkbLayout::ofServer(xcb_connection_t* connection, std::uint32_t layoutNumber) {
    const Context context = newContext();
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    if (!context || device < 0)
        return std::nullopt;
    return ofKeymap(
        xkb_x11_keymap_new_from_device(context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS), layoutNumber);
}

std::optional<std::string> XkbLayout::textOfKey(std::uint8_t keyCode) const {
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(_state.get(), keyCode);
    if (symbol >= XKB_KEY_dead_grave && symbol < XKB_KEY_dead_grave + DeadKeyMarks.size())
        return std::string(DeadKeyMarks[symbol - XKB_KEY_dead_grave]);
    // The text of the key, not of its symbol: a key may type several characters.
    const int length = xkb_state_key_get_utf8(_state.get(), keyCode, nullptr, 0);
    if (length <= 0)
        return std::nullopt;
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    xkb_state_key_get_utf8(_state.get(), keyCode, text.data(), text.size());
    text.pop_back();
    return isControlCharacter(text) ? std::nullopt : std::optional(text);
}

std::string XkbLayout::nameOfKey(std::uint8_t keyCode) const {
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(_state.get(), keyCode);
    if (symbol == XKB_KEY_NoSymbol)
        return {};
    constexpr std::size_t LongestName = 64;
    std::array<char, LongestName> name{};
    // A keypad types the same characters as other keys do, so its keys go by the names of their symbols.
    const bool isKeypadKey = symbol >= XKB_KEY_KP_Space && symbol <= XKB_KEY_KP_Equal;
    const std::string text = isKeypadKey ? std::string() : textOfKey(keyCode).value_or("");
    if (!text.empty() && symbol != XKB_KEY_space)
        return uppercaseText(text);
    const int length = xkb_keysym_get_name(symbol, name.data(), name.size());
    return length > 0 ? uppercaseText(std::string_view(name.data(), 1)) + (name.data() + 1) : std::string();
}

std::uint32_t XkbLayout::symbolOfKey(std::uint8_t keyCode) const {
    const xkb_layout_index_t layout = xkb_state_key_get_layout(_state.get(), keyCode);
    const xkb_keysym_t* symbols = nullptr;
    if (layout == XKB_LAYOUT_INVALID)
        return XKB_KEY_NoSymbol;
    const int count = xkb_keymap_key_get_syms_by_level(_keymap.get(), keyCode, layout, 0, &symbols);
    return count > 0 ? symbols[0] : XKB_KEY_NoSymbol;
}

std::optional<std::uint8_t> XkbLayout::keyOfSymbol(const std::string& name) const {
    const xkb_keysym_t symbol = xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_CASE_INSENSITIVE);
    if (symbol == XKB_KEY_NoSymbol)
        return std::nullopt;
    for (unsigned keyCode = FirstKeyCode; keyCode <= LastKeyCode; ++keyCode) {
        const xkb_keysym_t candidate = symbolOfKey(static_cast<std::uint8_t>(keyCode));
        if (candidate != XKB_KEY_NoSymbol && xkb_keysym_to_lower(candidate) == xkb_keysym_to_lower(symbol))
            return static_cast<std::uint8_t>(keyCode);
    }
    return std::nullopt;
}

} // namespace tarragon
