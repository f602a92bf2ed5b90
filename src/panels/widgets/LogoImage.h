#pragma once

#include <QPainter>
#include <QSizeF>

#include <cstdint>

namespace tarragon {

// The pictures that stand for the title of the system's own menu, drawn sharp at every scale.
enum class LogoImage : std::uint8_t {
    AppleSymbol, // black
    AppleSymbolInverse, // white
    AppleSymbolInverseWindow, // white, for the menu-bar look
};

// In points.
QSizeF logoSize();

void drawLogo(QPainter& painter, LogoImage image, const QPointF& topLeft);
// The shape of the picture in another colour.
void drawLogo(QPainter& painter, const QColor& color, const QPointF& topLeft);

} // namespace tarragon
