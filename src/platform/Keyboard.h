#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// One of the desktop's own key combinations, as for switching between windows.
struct SymbolicHotKey {
    bool isEnabled = true;
    std::int64_t keyCode = 0; // the system's own virtual key code, by position on the keyboard
    std::uint32_t modifiers = 0; // bits of hotkey::
    // Who has it and what for, as people would say it ("Xfce: Close window"); empty when that is not known.
    std::string owner = {};
    bool operator==(const SymbolicHotKey&) const = default;
};

// The user's keyboard. Main thread only.
class Keyboard {
public:
    virtual ~Keyboard() = default;

    // What the key with that virtual key code types in the layout that is current now, without modifiers: UTF-8, one
    // character or a few. For a dead key, the mark that it puts on letters. Nothing when the key types nothing or the
    // layout cannot be read.
    [[nodiscard]] virtual std::optional<std::string> translateKeyCode(std::uint16_t keyCode) = 0;

    // The desktop's own key combinations, in no particular order; nothing when they cannot be had.
    [[nodiscard]] virtual std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() = 0;
};

} // namespace tarragon
