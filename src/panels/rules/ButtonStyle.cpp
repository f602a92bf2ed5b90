#include "panels/rules/ButtonStyle.h"

namespace tarragon {

namespace {

ButtonDress bordered(ButtonBezel bezel) {
    return {.bezel = bezel, .bordered = true, .background = std::nullopt};
}

} // namespace

ButtonDress applyStyle(std::int64_t style, const ButtonDress& dress) {
    switch (style) {
    case 0:
        return bordered(ButtonBezel::RoundRect);
    case 1:
        return bordered(ButtonBezel::Recessed);
    case 2:
        return bordered(ButtonBezel::SmallSquare);
    case 3:
        return bordered(ButtonBezel::ShadowlessSquare);
    case 4:
        return {.bezel = dress.bezel, .bordered = false, .background = Grey{.white = 0.7, .alpha = 0.1}};
    default:
        return bordered(dress.bezel);
    }
}

Size growthOf(const ButtonDress& dress) {
    return dress.bordered ? Size{} : Size{.width = 5, .height = 10};
}

} // namespace tarragon
