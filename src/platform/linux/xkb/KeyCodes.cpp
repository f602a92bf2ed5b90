#include "platform/linux/xkb/KeyCodes.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

struct Key {
    std::uint8_t x11KeyCode = 0; // 0 for none
    std::string_view name;
};

// By virtual key code. Where the keyboards differ the key in the same place counts: Clear stands where Num Lock is,
// Help where Insert is, the ISO key (10) beside the left
// Shift key, the two keys beside the JIS space bar where Muhenkan and Henkan are. The modifiers go by their
// role instead, since Command, Option and Control are Ctrl, Alt and Super here. The function key (63) never reaches X.
constexpr std::array<Key, 128> Keys = {{
    // clang-format off
    {38, "A"}, {39, "S"}, {40, "D"}, {41, "F"}, // 0
    {43, "H"}, {42, "G"}, {52, "Z"}, {53, "X"}, // 4
    {54, "C"}, {55, "V"}, {94, "ISO key beside Shift"}, {56, "B"}, // 8
    {24, "Q"}, {25, "W"}, {26, "E"}, {27, "R"}, // 12
    {29, "Y"}, {28, "T"}, {10, "1"}, {11, "2"}, // 16
    {12, "3"}, {13, "4"}, {15, "6"}, {14, "5"}, // 20
    {21, "="}, {18, "9"}, {16, "7"}, {20, "-"}, // 24
    {17, "8"}, {19, "0"}, {35, "]"}, {32, "O"}, // 28
    {30, "U"}, {34, "["}, {31, "I"}, {33, "P"}, // 32
    {36, "Return"}, {46, "L"}, {44, "J"}, {48, "'"}, // 36
    {45, "K"}, {47, ";"}, {51, "\\"}, {59, ","}, // 40
    {61, "/"}, {57, "N"}, {58, "M"}, {60, "."}, // 44
    {23, "Tab"}, {65, "Space"}, {49, "`"}, {22, "Backspace"}, // 48
    {}, {9, "Escape"}, {105, "Right Ctrl"}, {37, "Ctrl"}, // 52
    {50, "Shift"}, {66, "Caps Lock"}, {64, "Alt"}, {133, "Super"}, // 56
    {62, "Right Shift"}, {108, "Right Alt"}, {134, "Right Super"}, {}, // 60
    {195, "F17"}, {91, "Keypad ."}, {}, {63, "Keypad *"}, // 64
    {}, {86, "Keypad +"}, {}, {77, "Num Lock"}, // 68
    {123, "Volume Up"}, {122, "Volume Down"}, {121, "Mute"}, {106, "Keypad /"}, // 72
    {104, "Keypad Enter"}, {}, {82, "Keypad -"}, {196, "F18"}, // 76
    {197, "F19"}, {125, "Keypad ="}, {90, "Keypad 0"}, {87, "Keypad 1"}, // 80
    {88, "Keypad 2"}, {89, "Keypad 3"}, {83, "Keypad 4"}, {84, "Keypad 5"}, // 84
    {85, "Keypad 6"}, {79, "Keypad 7"}, {198, "F20"}, {80, "Keypad 8"}, // 88
    {81, "Keypad 9"}, {132, "Yen"}, {97, "JIS key beside right Shift"}, {129, "Keypad ,"}, // 92
    {71, "F5"}, {72, "F6"}, {73, "F7"}, {69, "F3"}, // 96
    {74, "F8"}, {75, "F9"}, {102, "Muhenkan"}, {95, "F11"}, // 100
    {100, "Henkan"}, {191, "F13"}, {194, "F16"}, {192, "F14"}, // 104
    {}, {76, "F10"}, {135, "Menu"}, {96, "F12"}, // 108
    {}, {193, "F15"}, {118, "Insert"}, {110, "Home"}, // 112
    {112, "Page Up"}, {119, "Delete"}, {70, "F4"}, {115, "End"}, // 116
    {68, "F2"}, {117, "Page Down"}, {67, "F1"}, {113, "Left"}, // 120
    {114, "Right"}, {116, "Down"}, {111, "Up"}, {124, "Power"}, // 124
    // clang-format on
}};

} // namespace

std::uint8_t x11KeyCode(std::uint32_t virtualKeyCode) {
    return virtualKeyCode < Keys.size() ? Keys[virtualKeyCode].x11KeyCode : 0;
}

std::optional<std::uint32_t> virtualKeyCode(std::uint8_t x11KeyCode) {
    const auto* const key = std::find_if(Keys.begin(), Keys.end(),
        [&](const Key& candidate) { return x11KeyCode != 0 && candidate.x11KeyCode == x11KeyCode; });
    return key == Keys.end() ? std::nullopt : std::optional(static_cast<std::uint32_t>(key - Keys.begin()));
}

std::string_view keyName(std::uint32_t virtualKeyCode) {
    return virtualKeyCode < Keys.size() ? Keys[virtualKeyCode].name : std::string_view();
}

} // namespace tarragon
