#include "panels/widgets/LogoImage.h"

#include "panels/widgets/PixelGrid.h"

#include <QPixmap>
#include <QSvgRenderer>

// Outside of every namespace, as its name is made of the file's.
static void loadPanelImages() {
    Q_INIT_RESOURCE(panel_images);
}

namespace tarragon {

namespace {

QString fileOf(LogoImage image) {
    switch (image) {
    case LogoImage::AppleSymbol:
        return ":/panels/apple_symbol.svg";
    case LogoImage::AppleSymbolInverse:
        return ":/panels/apple_symbol_inverse.svg";
    case LogoImage::AppleSymbolInverseWindow:
        return ":/panels/apple_symbol_inverse_window.svg";
    }
    return {};
}

QRectF placeAt(const QPainter& painter, const QPointF& topLeft) {
    const PixelGrid grid(painter);
    return {QPointF(grid.aligned(topLeft.x()), grid.aligned(topLeft.y())), logoSize()};
}

} // namespace

QSizeF logoSize() {
    return {15, 14};
}

void drawLogo(QPainter& painter, LogoImage image, const QPointF& topLeft) {
    loadPanelImages();
    QSvgRenderer(fileOf(image)).render(&painter, placeAt(painter, topLeft));
}

void drawLogo(QPainter& painter, const QColor& color, const QPointF& topLeft) {
    const double scale = painter.device()->devicePixelRatioF();
    QImage picture((logoSize() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter shape(&picture);
    drawLogo(shape, LogoImage::AppleSymbol, QPointF(0, 0));
    shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
    shape.fillRect(QRectF(QPointF(0, 0), logoSize()), color);
    shape.end();
    painter.drawImage(placeAt(painter, topLeft).topLeft(), picture);
}

} // namespace tarragon
