#include "Sheet.h"

#include "panels/widgets/PanelPainter.h"

namespace tarragon {

namespace {

constexpr int Gap = 8;
constexpr int NameWidth = 145;

} // namespace

Sheet::Sheet(const QSize& size, double scale, const QPalette& palette)
    : _image(size * scale, QImage::Format_ARGB32_Premultiplied)
    , _palette(palette) {
    _image.setDevicePixelRatio(scale);
    _image.fill(palette.color(QPalette::Window));
    _painter.begin(&_image);
}

void Sheet::add(const std::string& name, const PanelContent& content, const QSize& size, double alpha) {
    _painter.setFont(QFont("DejaVu Sans", 7));
    _painter.setPen(_palette.color(QPalette::WindowText));
    _painter.drawText(QPointF(_left, _top + 16), QString::fromStdString(name));
    const QRect place(QPoint(_left + NameWidth, _top), size);
    if (_striped)
        drawStripes(place.adjusted(0, -Gap / 2, 0, Gap / 2));
    // As a window is, which is made translucent as a whole.
    QImage window(size * _image.devicePixelRatio(), QImage::Format_ARGB32_Premultiplied);
    window.setDevicePixelRatio(_image.devicePixelRatio());
    window.fill(Qt::transparent);
    QPainter painter(&window);
    paintPanel(painter, content, size, _palette);
    painter.end();
    _painter.setOpacity(alpha);
    _painter.drawImage(place.topLeft(), window);
    _painter.setOpacity(1);
    _top += size.height() + Gap;
}

void Sheet::beginColumn(int width) {
    _left += width;
    _top = Gap;
}

bool Sheet::save(const QString& file) {
    _painter.end();
    return _image.save(file);
}

void Sheet::drawStripes(const QRect& rect) {
    constexpr int Width = 40;
    for (int x = 0; x < rect.width(); x += Width) {
        const QRect stripe(rect.left() + x, rect.top(), std::min(Width, rect.width() - x), rect.height());
        _painter.fillRect(stripe, QColor::fromHsv(x * 360 / rect.width(), 160, x / Width % 2 == 0 ? 220 : 90));
    }
}

} // namespace tarragon
