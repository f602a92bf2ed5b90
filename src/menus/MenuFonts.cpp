#include "menus/MenuFonts.h"

#include <algorithm>
#include <cmath>

namespace tarragon {

QFont menuFont(const MenuFont& font, const QFont& standardFont) {
    // Larger ones would not leave room for a single item.
    constexpr double LargestSize = 200;

    QFont result = standardFont;
    // A point of ours is a device-independent pixel.
    if (font.pointSize > 0)
        result.setPixelSize(std::max(1, static_cast<int>(std::lround(std::min(font.pointSize, LargestSize)))));
    if (font.bold)
        result.setBold(true);
    return result;
}

std::optional<MenuFont> fontOfMenu(const Menu& menu) {
    for (const Menu* above = &menu; above; above = above->supermenu()) {
        if (above->font())
            return above->font();
    }
    return std::nullopt;
}

} // namespace tarragon
