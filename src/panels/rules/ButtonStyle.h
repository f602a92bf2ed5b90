#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <optional>

namespace tarragon {

// The looks of a button's border. The numbers are the system's own.
enum class ButtonBezel : std::uint8_t {
    Rounded = 1, // as buttons are made
    ShadowlessSquare = 6,
    SmallSquare = 10,
    RoundRect = 12,
    Recessed = 13,
};

// A grey, 0 black to 1 white, as it is under a light theme.
struct Grey {
    double white = 0;
    double alpha = 1;
    bool operator==(const Grey&) const = default;
};

// How a button is drawn whatever its title.
struct ButtonDress {
    ButtonBezel bezel = ButtonBezel::Rounded;
    bool bordered = true;
    std::optional<Grey> background;
    bool operator==(const ButtonDress&) const = default;
};

// The title of the system's own menu, a private-use character that is drawn as an image.
inline constexpr const char* LogoTitle = "\xEF\xA3\xBF"; // U+F8FF

// The style in which titles look like those of a menu bar; it has no dress.
inline constexpr std::int64_t MenuBarLook = 5;
inline constexpr std::int32_t MenuBarLookFontSize = 13;
// By how much the menu-bar look widens a title in a horizontal panel.
inline constexpr double MenuBarLookExtraWidth = 8;

// The dress after a style was applied to it. Styles that are not known leave the bezel as it is.
ButtonDress applyStyle(std::int64_t style, const ButtonDress& dress);

// What is added to the size that fits the title.
Size growthOf(const ButtonDress& dress);

} // namespace tarragon
