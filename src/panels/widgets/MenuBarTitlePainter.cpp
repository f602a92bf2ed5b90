#include "panels/widgets/MenuBarTitlePainter.h"

#include "panels/widgets/GreyColours.h"
#include "panels/widgets/LogoImage.h"
#include "panels/widgets/TitleLine.h"

namespace tarragon {

namespace {

constexpr Grey Sheen = {1, 0.1};
constexpr double SheenInset = 3;
constexpr QPointF LogoOffset = {5, 2};

} // namespace

void paintMenuBarTitle(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette) {
    const GreyColours colours(palette);
    const QRectF frame(place.frame);
    const bool inverse = button.highlighted || button.mouseIsOver;
    painter.fillRect(frame.adjusted(0, SheenInset, 0, -SheenInset), colours.color(Sheen));
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
        {frame.center().x() - title.width() / 2, title.baselineAround(QRectF(place.visible).center().y())}, place.panel,
        inverse ? colours.white() : colours.black());
}

} // namespace tarragon
