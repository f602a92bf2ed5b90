#include "panels/widgets/TitleLine.h"

#include "menus/MenuText.h"
#include "panels/widgets/PixelGrid.h"
#include "panels/widgets/TitleFonts.h"

#include <algorithm>
#include <cmath>

#include <QFontInfo>
#include <QFontMetricsF>

namespace tarragon {

namespace {

// Measuring a text takes time, and this many characters are wider than every screen.
constexpr int LargestWidth = 30000;
// In pixels at scale 1. Characters with towers of accents are cut off rather than shown smaller.
constexpr int SmallestLegibleSize = 9;

} // namespace

TitleLine::TitleLine(const ButtonContent& button)
    : _font(titleFont(button))
    , _text(elidedToWidth(lineOfText(button.title), QFontMetrics(_font), LargestWidth)) {
    measureHeight();
    for (int size = QFontInfo(_font).pixelSize(); height() > roomForTitle(button.look) && size > SmallestLegibleSize;
         --size) {
        _font.setPixelSize(size - 1);
        measureHeight();
    }
}

void TitleLine::measureHeight() {
    const QFontMetricsF metrics(_font);
    const QRectF ink = metrics.tightBoundingRect(_text);
    // Smoothed edges reach into the next pixel.
    _above = std::ceil(std::max(metrics.ascent(), -ink.top()));
    _below = std::ceil(std::max(metrics.descent(), ink.bottom()));
}

double TitleLine::width() const {
    return QFontMetricsF(_font).horizontalAdvance(_text);
}

void TitleLine::limitWidth(double width) {
    // Not for the fraction of a point that rounding took from a button.
    if (this->width() >= width + 1)
        _text = elidedToWidth(_text, QFontMetrics(_font), std::max(0, static_cast<int>(width)));
}

double TitleLine::baselineAround(double middle) const {
    return middle + QFontMetricsF(_font).capHeight() / 2;
}

double TitleLine::baselineInside(const QRectF& room, double baseline) const {
    return std::max(std::min(baseline, room.bottom() - _below), room.top() + _above);
}

void TitleLine::draw(QPainter& painter, const QPointF& baseline, const QRectF& room, const QColor& color,
    const std::optional<QColor>& raisedEdge) const {
    const PixelGrid grid(painter);
    const QPointF start(grid.aligned(baseline.x()), grid.aligned(baselineInside(room, baseline.y())));
    painter.save();
    painter.setFont(_font);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    if (raisedEdge) {
        painter.setPen(*raisedEdge);
        painter.drawText(start + QPointF(0, 1), _text);
    }
    painter.setPen(color);
    painter.drawText(start, _text);
    painter.restore();
}

} // namespace tarragon
