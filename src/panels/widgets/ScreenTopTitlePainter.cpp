#include "panels/widgets/ScreenTopTitlePainter.h"

#include "panels/widgets/GreyColours.h"
#include "panels/widgets/LogoImage.h"
#include "panels/widgets/TitleLine.h"

#include <QLinearGradient>

namespace tarragon {

namespace {

constexpr QPointF LogoOffset = {10, 1};
constexpr QPointF TextOffset = {4, 1};
// Within the area of the text, so that the highlight reaches as far to the right of the title as to the left.
constexpr double TextMargin = 4;

// From the bottom to the top.
QLinearGradient highlightGradient(const QRectF& rect) {
    QLinearGradient gradient(rect.bottomLeft(), rect.topLeft());
    gradient.setColorAt(0, QColor::fromRgbF(0.416F, 0.529F, 0.961F));
    gradient.setColorAt(1, QColor::fromRgbF(0.212F, 0.365F, 0.949F));
    return gradient;
}

} // namespace

void paintScreenTopTitle(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette) {
    const GreyColours colours(palette);
    const QRectF frame(place.frame);
    if (button.highlighted)
        painter.fillRect(frame, highlightGradient(frame));
    // White on the blue under every theme.
    const bool drawsWhite = button.highlighted || colours.isDark();
    if (button.title == LogoTitle) {
        drawLogo(
            painter, drawsWhite ? LogoImage::AppleSymbolInverse : LogoImage::AppleSymbol, frame.topLeft() + LogoOffset);
        return;
    }
    TitleLine title(button);
    const QPointF topLeft = frame.topLeft() + TextOffset + QPointF(TextMargin, 0);
    title.limitWidth(frame.right() - topLeft.x());
    title.draw(
        painter, {topLeft.x(), title.baselineBelow(topLeft.y())}, place.visible, drawsWhite ? Qt::white : Qt::black);
}

} // namespace tarragon
