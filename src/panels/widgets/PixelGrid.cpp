#include "panels/widgets/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace tarragon {

double PixelGrid::line(double points) const {
    // Rounded down: a line that is a little too thin looks sharper than one that is too thick.
    return std::max(1.0, std::floor(points * _pixelsPerPoint)) * pixel();
}

double PixelGrid::aligned(double coordinate) const {
    return std::floor(coordinate * _pixelsPerPoint + 0.5) * pixel();
}

QRectF PixelGrid::aligned(const QRectF& rect) const {
    return {QPointF(aligned(rect.left()), aligned(rect.top())), QPointF(aligned(rect.right()), aligned(rect.bottom()))};
}

} // namespace tarragon
