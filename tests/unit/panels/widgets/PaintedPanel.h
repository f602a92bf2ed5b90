#pragma once

#include "panels/widgets/ButtonMetrics.h"
#include "panels/widgets/PanelPainter.h"

#include <initializer_list>
#include <string>

#include <QImage>
#include <QPainter>
#include <QPalette>

namespace tarragon {

// What the painters of panels leave on a transparent picture, pixel by pixel.

inline QPalette lightPalette() {
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

inline QPalette darkPalette() {
    QPalette palette(QColor(49, 54, 59), QColor(35, 38, 41));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

inline QImage paintedPanel(
    const PanelContent& content, const QSize& size, const QPalette& palette = lightPalette(), double scale = 1) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintPanel(painter, content, size, palette);
    painter.end();
    return image;
}

// Sized for its title, at the place of the first one in a panel 24 points high.
inline ButtonContent buttonTitled(const std::string& title, ButtonLook look = ButtonLook::Bezel) {
    ButtonContent button;
    button.title = title;
    button.look = look;
    button.font.pointSize = 13;
    const Size size = buttonSizeThatFits(button, 1000);
    button.frame = {{5, look == ButtonLook::ScreenTopBar ? 1.0 : 3.0}, size};
    return button;
}

inline PanelContent panelWith(std::initializer_list<ButtonContent> buttons) {
    PanelContent content;
    content.buttons = buttons;
    return content;
}

inline int grey(const QImage& image, int x, int y) {
    return qGray(image.pixel(x, y));
}

// Not weighed by its alpha.
inline int red(const QImage& image, int x, int y) {
    return image.pixelColor(x, y).red();
}

inline int alpha(const QImage& image, int x, int y) {
    return qAlpha(image.pixel(x, y));
}

// The part of the picture in which there is anything.
inline QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (alpha(image, x, y) > 0)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace tarragon
