#include "platform/qt/QtScreenGeometry.h"

#include <algorithm>
#include <cstddef>
#include <ranges>

namespace tarragon {

Rect rectCGFromQt(const Rect& rect, const Rect& primary) {
    return {{rect.origin.x - primary.origin.x, rect.origin.y - primary.origin.y}, rect.size};
}

Rect rectNSFromQt(const Rect& rect, const Rect& primary) {
    const Rect rectCG = rectCGFromQt(rect, primary);
    return {{rectCG.origin.x, primary.size.height - (rectCG.origin.y + rectCG.size.height)}, rectCG.size};
}

Point pointNSFromQt(const Point& point, const Rect& primary) {
    return rectNSFromQt({point, {}}, primary).origin;
}

std::vector<Screen> screensFromQt(const std::vector<QtScreenGeometry>& screens) {
    std::vector<Screen> result;
    for (std::size_t index = 0; index < screens.size(); ++index) {
        const QtScreenGeometry& screen = screens[index];
        const auto isSame = [&](const QtScreenGeometry& other) { return other.geometry == screen.geometry; };
        if (std::ranges::any_of(screens | std::views::take(index), isSame))
            continue;
        const Rect& primary = screens.front().geometry;
        result.push_back({rectNSFromQt(screen.geometry, primary), rectNSFromQt(screen.availableGeometry, primary)});
    }
    return result;
}

} // namespace tarragon
