#include "platform/qt/StatusItemImage.h"

#include "platform/Log.h"

#include <QFile>
#include <QPainter>

namespace tarragon {

namespace {

void load(QSvgRenderer& renderer, const std::string& name) {
    const QString path = ":/images/" + QString::fromStdString(name) + ".svg";
    if (!QFile::exists(path) || !renderer.load(path))
        log(LogCategory::Panel, [&] { return "no image named " + name; });
}

} // namespace

ImageGround groundOfColour(const QColor& colour) {
    // The eye takes green for brighter than red, and red than blue.
    const double brightness = 0.299 * colour.redF() + 0.587 * colour.greenF() + 0.114 * colour.blueF();
    return brightness < 0.5 ? ImageGround::Dark : ImageGround::Light;
}

StatusItemImage::StatusItemImage(const StatusItemDescription& description) {
    load(_onLight, description.imageName);
    if (!description.alternateImageName.empty())
        load(_onDark, description.alternateImageName);
}

QImage StatusItemImage::image(int pixels, ImageGround ground) {
    QSvgRenderer& preferred = ground == ImageGround::Dark && _onDark.isValid() ? _onDark : _onLight;
    if (!preferred.isValid())
        return QIcon::fromTheme("open-menu").pixmap(pixels, pixels).toImage();
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    preferred.render(&painter, QRectF(0, 0, pixels, pixels));
    return image;
}

QIcon StatusItemImage::icon(ImageGround ground) {
    QIcon icon;
    for (const int pixels : {16, 22, 24, 32, 48, 64}) {
        icon.addPixmap(QPixmap::fromImage(image(pixels, ground)));
        icon.addPixmap(QPixmap::fromImage(image(pixels, ImageGround::Dark)), QIcon::Selected);
    }
    return icon;
}

} // namespace tarragon
