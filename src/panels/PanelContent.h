#pragma once

#include "mirror/MenuItem.h"
#include "panels/rules/ButtonStyle.h"
#include "platform/Geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

// What is drawn in a panel, as plain values. Points from the panel's bottom-left corner, y up. Every grey is that of a
// light theme; whoever draws turns it round under a dark one.

// The background of a panel.
struct ZDGradientView {
    Grey startingColor{1, 1};
    std::optional<Grey> endingColor; // nothing for a flat fill
    std::int32_t angle = 270; // degrees, counterclockwise from the direction of x
    bool showGradient = false; // nothing is drawn without
    bool roundedCorners = true;
    bool operator==(const ZDGradientView&) const = default;
};

// Who draws a button.
enum class ButtonLook : std::uint8_t {
    Bezel, // with its dress
    MenuBar, // as a title of a menu bar
    ScreenTopBar, // as a title of a screen-top bar
};

struct ButtonContent {
    Rect frame;
    std::string title;
    // Bold for the title of the application. A size of 0 is the desktop's own.
    MenuFont font;
    ButtonLook look = ButtonLook::Bezel;
    ButtonDress dress; // for ButtonLook::Bezel
    bool highlighted = false; // pressed, or its menu is open
    bool mouseIsOver = false;
    bool operator==(const ButtonContent&) const = default;
};

struct PanelContent {
    ZDGradientView background;
    std::vector<ButtonContent> buttons; // in the order of drawing
    bool operator==(const PanelContent&) const = default;
};

} // namespace tarragon
