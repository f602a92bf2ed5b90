#include "platform/qt/WholePixelStyle.h"

#include <QPainter>
#include <QStyleOption>
#include <QtMath>

namespace tarragon {

void WholePixelStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
    const auto* frame = element == PE_Frame ? qstyleoption_cast<const QStyleOptionFrame*>(option) : nullptr;
    const QTransform toPixels = painter->deviceTransform();
    const int unit = qFloor(toPixels.m11()); // pixels
    if (frame == nullptr || baseStyle()->name() != "fusion" || unit < 1 || qFuzzyCompare(toPixels.m11(), unit)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QRectF exact = toPixels.mapRect(QRectF(option->rect));
    const QRect pixels(exact.topLeft().toPoint(), exact.bottomRight().toPoint() - QPoint(1, 1));
    QStyleOptionFrame whole(*frame);
    whole.rect = {0, 0, qCeil(double(pixels.width()) / unit), qCeil(double(pixels.height()) / unit)};
    painter->save();
    // Half of a line lies on either side of its coordinates; a hair inwards none is cut off by inexact numbers.
    constexpr QPointF Hair(1.0 / 64, 1.0 / 64);
    painter->translate(toPixels.inverted().map(pixels.topLeft() + Hair));
    painter->scale(unit / toPixels.m11(), unit / toPixels.m22());
    QProxyStyle::drawPrimitive(element, &whole, painter, widget);
    painter->restore();
}

} // namespace tarragon
