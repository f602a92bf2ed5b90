#pragma once

#include <QPainter>
#include <QRectF>

namespace tarragon {

// The pixels of what is painted on, for edges that are not blurred. One point is one pixel, or more on a dense screen,
// and not always a whole number of them.
class PixelGrid {
public:
    // The painter is not rotated, and starts at a whole pixel.
    explicit PixelGrid(const QPainter& painter)
        : _pixelsPerPoint(painter.device()->devicePixelRatioF()) { }

    // Both in points.
    double pixel() const { return 1 / _pixelsPerPoint; }
    // As close to the number of points as whole pixels get, one pixel at least.
    double line(double points = 1) const;
    double aligned(double coordinate) const;
    QRectF aligned(const QRectF& rect) const;

private:
    double _pixelsPerPoint;
};

} // namespace tarragon
