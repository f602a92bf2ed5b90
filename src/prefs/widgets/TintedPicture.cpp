#include "prefs/widgets/TintedPicture.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <cmath>

// The images lie in a static library, whose resources are not there by themselves.
static void loadPreferencesImages() {
    Q_INIT_RESOURCE(preferences_images);
}

namespace tarragon {

namespace {

constexpr int DefaultLines = 4;

class TintedIconEngine : public QIconEngine {
public:
    explicit TintedIconEngine(QString picture)
        : _picture(std::move(picture)) { }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        drawTinted(*painter, _picture, place, QApplication::palette().color(group, role));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new TintedIconEngine(_picture); }

private:
    QString _picture;
};

} // namespace

void drawTinted(QPainter& painter, const QString& picture, const QRectF& place, const QColor& colour) {
    ::loadPreferencesImages();
    const double scale = painter.device()->devicePixelRatioF();
    QImage image((place.size() * scale).toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(picture);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter ink(&image);
    renderer.render(&ink, QRectF(image.rect()));
    ink.setCompositionMode(QPainter::CompositionMode_SourceIn);
    ink.fillRect(image.rect(), colour);
    ink.end();
    if (painter.layoutDirection() == Qt::RightToLeft)
        image = image.mirrored(true, false);
    painter.drawImage(place, image);
}

QIcon tintedIcon(const QString& picture) {
    return QIcon(new TintedIconEngine(picture));
}

QSize TintedPicture::sizeHint() const {
    constexpr double Proportion = 4.0 / 3;
    const int lines = property("lines").isValid() ? property("lines").toInt() : DefaultLines;
    const int height = fontMetrics().lineSpacing() * lines;
    return {int(std::lround(height * Proportion)), height};
}

void TintedPicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection());
    // The hint's size at the top, however high the text beside it has become.
    const QSize size = sizeHint();
    drawTinted(painter, property("picture").toString(),
        QRectF(QPointF((width() - size.width()) / 2.0, 0), QSizeF(size)), palette().color(QPalette::WindowText));
}

} // namespace tarragon
