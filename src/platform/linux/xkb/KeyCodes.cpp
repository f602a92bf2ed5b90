#include "platform/linux/xkb/KeyCodes.h"

#include "platform/linux/xkb/XkbLayout.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

// By virtual key code; 0 for none. Where the keyboards differ the key in the same place counts: Clear (71) stands where
// Num Lock is, Help (114) where Insert is, the ISO key (10) beside the left Shift key, the two keys beside the JIS
// space bar (102, 104) where Muhenkan and Henkan are. The modifiers (54 to 62) go by their role instead, since Command,
// Option and Control are Ctrl, Alt and Super here. The function key (63) never reaches X.
constexpr std::array<std::uint8_t, 128> X11KeyCodes = {
    // clang-format off
    38, 39, 40, 41, 43, 42, 52, 53, // 0
    54, 55, 94, 56, 24, 25, 26, 27, // 8
    29, 28, 10, 11, 12, 13, 15, 14, // 16
    21, 18, 16, 20, 17, 19, 35, 32, // 24
    30, 34, 31, 33, 36, 46, 44, 48, // 32
    45, 47, 51, 59, 61, 57, 58, 60, // 40
    23, 65, 49, 22, 0, 9, 105, 37, // 48
    50, 66, 64, 133, 62, 108, 134, 0, // 56
    195, 91, 0, 63, 0, 86, 0, 77, // 64
    123, 122, 121, 106, 104, 0, 82, 196, // 72
    197, 125, 90, 87, 88, 89, 83, 84, // 80
    85, 79, 198, 80, 81, 132, 97, 129, // 88
    71, 72, 73, 69, 74, 75, 102, 95, // 96
    100, 191, 194, 192, 0, 76, 135, 96, // 104
    0, 193, 118, 110, 112, 119, 70, 115, // 112
    68, 117, 67, 113, 114, 116, 111, 124, // 120
    // clang-format on
};

} // namespace

std::uint8_t x11KeyCode(std::uint32_t virtualKeyCode) {
    return virtualKeyCode < X11KeyCodes.size() ? X11KeyCodes[virtualKeyCode] : 0;
}

std::optional<std::uint32_t> virtualKeyCode(std::uint8_t x11KeyCode) {
    const auto* const found =
        x11KeyCode == 0 ? X11KeyCodes.end() : std::find(X11KeyCodes.begin(), X11KeyCodes.end(), x11KeyCode);
    return found == X11KeyCodes.end() ? std::nullopt
                                      : std::optional(static_cast<std::uint32_t>(found - X11KeyCodes.begin()));
}

std::string keyName(std::uint32_t virtualKeyCode) {
    static const std::optional<XkbLayout> layout = XkbLayout::named("us");
    const std::uint8_t key = x11KeyCode(virtualKeyCode);
    return layout && key != 0 ? layout->nameOfKey(key) : std::string();
}

} // namespace tarragon
