#include "panels/widgets/MenuBarTitlePainter.h"

#include "panels/widgets/GreyColours.h"
#include "panels/widgets/LogoImage.h"
#include "panels/widgets/PixelGrid.h"
#include "panels/widgets/TitleLine.h"

#include <QPainterPath>

namespace tarragon {

namespace {

constexpr Grey Sheen = {1, 0.1};
constexpr double SheenInset = 3;
// Behind titles that turn white, on what may be nearly white.
constexpr Grey HoverShade = {0, 0.45};
constexpr Grey HighlightShade = {0, 0.65};
constexpr QPointF LogoOffset = {5, 2};

void drawShade(QPainter& painter, const QRectF& rect, const QColor& color) {
    constexpr double Radius = 4;
    QPainterPath path;
    path.addRoundedRect(rect, Radius, Radius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, color);
    painter.restore();
}

} // namespace

void paintMenuBarTitle(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette) {
    const GreyColours colours(palette);
    const QRectF frame(place.frame);
    const bool inverse = button.highlighted || button.mouseIsOver;
    painter.fillRect(frame.adjusted(0, SheenInset, 0, -SheenInset), colours.color(Sheen));
    if (inverse) {
        const QRectF rect = PixelGrid(painter).aligned(place.visible);
        drawShade(painter, rect, colours.color(button.highlighted ? HighlightShade : HoverShade));
    }
    if (button.title == LogoTitle) {
        // What is black turns white under a dark theme, and back.
        const bool drawsWhite = inverse != colours.isDark();
        drawLogo(painter, drawsWhite ? LogoImage::AppleSymbolInverseWindow : LogoImage::AppleSymbol,
            frame.topLeft() + LogoOffset);
        return;
    }
    TitleLine title(button);
    title.limitWidth(frame.width());
    title.draw(painter,
        {frame.center().x() - title.width() / 2, title.baselineAround(QRectF(place.visible).center().y())},
        place.visible, inverse ? colours.white() : colours.black());
}

} // namespace tarragon
