#include "panels/widgets/GreyColours.h"

#include <algorithm>

namespace tarragon {

GreyColours::GreyColours(const QPalette& palette)
    : _isDark(palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()) { }

QColor GreyColours::color(const Grey& grey) const {
    const double white = std::clamp(grey.white, 0.0, 1.0);
    const auto shade = static_cast<float>(_isDark ? 1 - white : white);
    return QColor::fromRgbF(shade, shade, shade, static_cast<float>(std::clamp(grey.alpha, 0.0, 1.0)));
}

} // namespace tarragon
