#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct xcb_connection_t;
struct xkb_keymap;
struct xkb_state;

namespace tarragon {

// What the keys of a keyboard do in one layout. Keys are named by X key codes. Immutable.
class XkbLayout {
public:
    // A keyboard's first layout, by the names of the keyboard configuration ("de", "nodeadkeys"); nothing when there is
    // no such layout.
    static std::optional<XkbLayout> named(const std::string& layout, const std::string& variant = {});
    // The X server's keyboard in the layout of that number, counted from 0; nothing when the server does not tell. The
    // connection's keyboard extension must be set up.
    static std::optional<XkbLayout> ofServer(xcb_connection_t* connection, std::uint32_t layoutNumber);

    // The text that the key types without modifiers, and with Num Lock so that keypads type numbers. A dead key types
    // its mark. Nothing for keys that type nothing or control characters.
    std::optional<std::string> textOfKey(std::uint8_t keyCode) const;
    // What the key is called: the character that it types in upper case, or the name of its symbol ("Space", "F4",
    // "KP_1"). Empty for a key without a symbol.
    std::string nameOfKey(std::uint8_t keyCode) const;
    // The key that gives the symbol of that name ("F4", "Delete", "t") without modifiers, whatever its case.
    std::optional<std::uint8_t> keyOfSymbol(const std::string& name) const;

private:
    using Keymap = std::shared_ptr<xkb_keymap>;

    static std::optional<XkbLayout> ofKeymap(xkb_keymap* keymap, std::uint32_t layoutNumber);
    XkbLayout(Keymap keymap, std::uint32_t layoutNumber);
    std::uint32_t symbolOfKey(std::uint8_t keyCode) const;

    Keymap _keymap;
    std::shared_ptr<xkb_state> _state; // no modifiers but Num Lock
};

} // namespace tarragon
