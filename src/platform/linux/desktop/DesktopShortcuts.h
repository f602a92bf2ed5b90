#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// One key combination in a desktop's settings.
struct DesktopShortcut {
    bool isEnabled = true;
    std::uint32_t modifiers = 0; // bits of hotkey::
    std::string keyName; // of the key's symbol, such as "F4"
    // Who has it and what for, as people would say it: "Xfce: Close window". Empty for one that is off.
    std::string owner = {};
    bool operator==(const DesktopShortcut&) const = default;
};

// The combinations in the keyboard settings of the Xfce desktop, xfce4-keyboard-shortcuts.xml: its commands and its
// window manager's actions. Those with modifiers that hot keys do not know are left out, as is what is no combination.
std::vector<DesktopShortcut> xfceShortcuts(std::string_view settings);

// The same for the settings of the Openbox window manager, rc.xml. Of a chain of keys the first one counts.
std::vector<DesktopShortcut> openboxShortcuts(std::string_view settings);

} // namespace tarragon
