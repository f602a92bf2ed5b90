#include "platform/qt/QtScreenGeometry.h"

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
    result.reserve(screens.size());
    for (const QtScreenGeometry& screen : screens) {
        const Rect& primary = screens.front().geometry;
        result.push_back({rectNSFromQt(screen.geometry, primary), rectNSFromQt(screen.availableGeometry, primary)});
    }
    return result;
}

} // namespace tarragon
