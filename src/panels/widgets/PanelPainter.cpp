#include "panels/widgets/PanelPainter.h"

#include "panels/widgets/BezelPainter.h"
#include "panels/widgets/GreyColours.h"
#include "panels/widgets/MenuBarTitlePainter.h"
#include "panels/widgets/PixelGrid.h"
#include "panels/widgets/ScreenTopTitlePainter.h"

#include <cmath>
#include <numbers>

#include <QLinearGradient>
#include <QPainterPath>

namespace tarragon {

namespace {

constexpr double CornerRadiusX = 2;
constexpr double CornerRadiusY = 10;
constexpr Grey DarkGrey = {1.0 / 3, 1};
constexpr double BottomRuleWidth = 1.5;

// From corner to corner of the rectangle in the direction of the angle.
QLinearGradient gradientAtAngle(const QRectF& rect, double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    const QPointF direction(std::cos(radians), -std::sin(radians));
    const double length = std::abs(rect.width() * direction.x()) + std::abs(rect.height() * direction.y());
    return {rect.center() - direction * (length / 2), rect.center() + direction * (length / 2)};
}

void strokeOutline(QPainter& painter, const QRectF& rect, const QColor& color) {
    // A line of one pixel, in the middle of the pixels at the edge.
    const double pixel = PixelGrid(painter).pixel();
    QPainterPath path;
    path.addRoundedRect(rect.adjusted(pixel / 2, pixel / 2, -pixel / 2, -pixel / 2), CornerRadiusX, CornerRadiusY);
    painter.strokePath(path, QPen(color, pixel));
}

// Under a dark theme as well: a bright line would be the brightest thing on the bar.
void drawBottomRule(QPainter& painter, const QRectF& rect, const QColor& color) {
    // The line runs along the edge, so that half of it is seen.
    const double height = PixelGrid(painter).line(BottomRuleWidth / 2);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - height, rect.width(), height), color);
}

} // namespace

void paintBackground(QPainter& painter, const ZDGradientView& background, const QSize& size, const QPalette& palette) {
    if (!background.showGradient)
        return;
    const GreyColours colours(palette);
    const QRectF rect(QPointF(0, 0), QSizeF(size));
    if (!background.endingColor || *background.endingColor == background.startingColor) {
        painter.fillRect(rect, colours.color(background.startingColor));
        return;
    }
    QLinearGradient gradient = gradientAtAngle(rect, background.angle);
    gradient.setColorAt(0, colours.color(background.startingColor));
    gradient.setColorAt(1, colours.color(*background.endingColor));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (background.roundedCorners) {
        QPainterPath path;
        path.addRoundedRect(rect, CornerRadiusX, CornerRadiusY);
        painter.fillPath(path, gradient);
        strokeOutline(painter, rect, colours.color(DarkGrey));
    } else {
        painter.fillRect(rect, gradient);
        drawBottomRule(painter, rect, Qt::black);
    }
    painter.restore();
}

void paintPanel(QPainter& painter, const PanelContent& content, const QSize& size, const QPalette& palette) {
    paintBackground(painter, content.background, size, palette);
    const PixelGrid grid(painter);
    for (const ButtonContent& button : content.buttons) {
        const ButtonPlace place = placeOf(button, size);
        if (place.visible.isEmpty())
            continue;
        painter.save();
        painter.setClipRect(grid.aligned(place.visible), Qt::IntersectClip);
        switch (button.look) {
        case ButtonLook::Bezel:
            paintBezelButton(painter, button, place, palette);
            break;
        case ButtonLook::MenuBar:
            paintMenuBarTitle(painter, button, place, palette);
            break;
        case ButtonLook::ScreenTopBar:
            paintScreenTopTitle(painter, button, place, palette);
            break;
        }
        painter.restore();
    }
}

} // namespace tarragon
