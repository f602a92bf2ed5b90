#include "panels/widgets/LogoImage.h"
#include "PaintedPanel.h"

#include <functional>
#include <utility>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

QImage painted(const std::function<void(QPainter&)>& paint, double scale = 1) {
    QImage image(QSize(40, 30) * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    return image;
}

bool isOfOneColour(const QImage& image, QRgb color) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (alpha(image, x, y) == 255 && image.pixel(x, y) != color)
                return false;
        }
    }
    return true;
}

TEST(LogoImage, IsBlackOrWhite) {
    const auto drawn = [](LogoImage image) {
        return painted([image](QPainter& painter) { drawLogo(painter, image, {10, 8}); }, 4);
    };
    for (const auto& [image, color] : {std::pair(LogoImage::AppleSymbol, qRgb(0, 0, 0)),
             std::pair(LogoImage::AppleSymbolInverse, qRgb(255, 255, 255)),
             std::pair(LogoImage::AppleSymbolInverseWindow, qRgb(255, 255, 255))}) {
        EXPECT_FALSE(inkOf(drawn(image)).isNull());
        EXPECT_TRUE(isOfOneColour(drawn(image), color));
    }
}

TEST(LogoImage, FillsItsSizeAtEveryScale) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const QImage image = painted(
            [](QPainter& painter) {
                drawLogo(painter, LogoImage::AppleSymbol, {10, 8});
            },
            scale);
        const QRectF room(QPointF(10, 8) * scale, logoSize() * scale);
        const QRect ink = inkOf(image);
        EXPECT_TRUE(room.toAlignedRect().contains(ink)) << scale;
        EXPECT_GT(ink.width(), room.width() * 0.75) << scale;
        EXPECT_GT(ink.height(), room.height() * 0.9) << scale;
    }
}

TEST(LogoImage, TakesOnOtherColours) {
    for (const double scale : {1.0, 1.5, 4.0}) {
        const QImage image = painted([](QPainter& painter) { drawLogo(painter, QColor(10, 200, 30), {10, 8}); }, scale);
        EXPECT_FALSE(inkOf(image).isNull());
        EXPECT_TRUE(isOfOneColour(image, qRgb(10, 200, 30))) << scale;
    }
}

} // namespace

} // namespace tarragon
