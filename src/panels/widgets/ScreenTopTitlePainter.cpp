#include "panels/widgets/ScreenTopTitlePainter.h"

#include "panels/widgets/GreyColours.h"
#include "panels/widgets/LogoImage.h"
#include "panels/widgets/TitleFonts.h"
#include "panels/widgets/TitleLine.h"

#include <algorithm>

#include <QLinearGradient>

namespace tarragon {

namespace {

constexpr double LogoLeft = 10;
// As much as there is at the other side of a title, so that the highlight reaches as far to its right as to its left.
constexpr double TextLeft = 8;

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
    if (button.highlighted) {
        const QRectF bounds = frame.intersected(place.visible);
        painter.fillRect(bounds, highlightGradient(bounds));
    }
    // Whatever the height of the button and the font, so that all titles of a bar are in line.
    const double middle = roomForTitle(ButtonLook::ScreenTopBar) / 2;
    // White on the blue under every theme.
    const bool drawsWhite = button.highlighted || colours.isDark();
    if (button.title == LogoTitle) {
        drawLogo(painter, drawsWhite ? LogoImage::AppleSymbolInverse : LogoImage::AppleSymbol,
            {frame.left() + LogoLeft, middle - logoSize().height() / 2});
        return;
    }
    TitleLine title(button);
    // The button of the bunch menu may have less room than titles have; one that fits is shown whole.
    if (title.width() > frame.width())
        title.limitWidth(frame.width() - 2 * TextLeft);
    const double left = std::clamp((frame.width() - title.width()) / 2, 0.0, TextLeft);
    title.draw(painter, {frame.left() + left, title.baselineAround(middle)}, place.visible,
        drawsWhite ? Qt::white : Qt::black);
}

} // namespace tarragon
