#include "panels/widgets/BezelPainter.h"

#include "panels/widgets/GreyColours.h"
#include "panels/widgets/LogoImage.h"
#include "panels/widgets/PixelGrid.h"
#include "panels/widgets/TitleLine.h"

#include <QLinearGradient>
#include <QPainterPath>

namespace tarragon {

namespace {

QColor mixed(const QColor& first, const QColor& second, float share) {
    const float rest = 1 - share;
    return QColor::fromRgbF(first.redF() * rest + second.redF() * share,
        first.greenF() * rest + second.greenF() * share, first.blueF() * rest + second.blueF() * share);
}

QColor withAlpha(QColor color, float alpha) {
    color.setAlphaF(alpha);
    return color;
}

struct BezelColours {
    QColor top;
    QColor bottom;
    QColor border;
    QColor shadow;
    QColor title;
    std::optional<QColor> titleEdge;
};

BezelColours coloursOf(const ButtonContent& button, const QPalette& palette) {
    const QColor face = palette.color(QPalette::Button);
    const QColor text = palette.color(QPalette::ButtonText);
    const GreyColours greys(palette);
    BezelColours colours{
        .top = greys.isDark() ? mixed(face, Qt::white, 0.08F) : mixed(face, Qt::white, 0.6F),
        .bottom = greys.isDark() ? mixed(face, Qt::black, 0.06F) : mixed(face, Qt::black, 0.03F),
        .border = mixed(face, text, greys.isDark() ? 0.32F : 0.4F),
        .shadow = withAlpha(Qt::black, greys.isDark() ? 0.45F : 0.22F),
        .title = text,
        .titleEdge = greys.color({1, 0.55}),
    };
    if (button.highlighted) {
        const QColor highlight = palette.color(QPalette::Highlight);
        colours.top = highlight.lighter(108);
        colours.bottom = highlight;
        colours.border = mixed(highlight, Qt::black, 0.3F);
        colours.title = palette.color(QPalette::HighlightedText);
        colours.titleEdge = std::nullopt;
    } else if (button.mouseIsOver) {
        const QColor highlight = palette.color(QPalette::Highlight);
        colours.top = mixed(colours.top, highlight, 0.16F);
        colours.bottom = mixed(colours.bottom, highlight, 0.16F);
        colours.border = mixed(colours.border, highlight, 0.5F);
    }
    return colours;
}

// A face with a border of one line inside its edge.
void drawFace(QPainter& painter, const QRectF& rect, double radius, const BezelColours& colours, bool isFlat) {
    const double line = PixelGrid(painter).line();
    QPainterPath outer;
    outer.addRoundedRect(rect, radius, radius);
    const QRectF within = rect.adjusted(line, line, -line, -line);
    const double innerRadius = std::max(0.0, radius - line);
    QPainterPath inner;
    inner.addRoundedRect(within, innerRadius, innerRadius);
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, isFlat ? colours.bottom : colours.top);
    gradient.setColorAt(1, colours.bottom);
    painter.fillPath(outer - inner, colours.border);
    painter.fillPath(inner, gradient);
}

// The same with its shadow below, in the last line of the rectangle.
void drawRaisedFace(QPainter& painter, const QRectF& rect, double radius, const BezelColours& colours) {
    const double line = PixelGrid(painter).line();
    QPainterPath shadow;
    shadow.addRoundedRect(rect.adjusted(0, line, 0, 0), radius, radius);
    QPainterPath face;
    face.addRoundedRect(rect.adjusted(0, 0, 0, -line), radius, radius);
    painter.fillPath(shadow - face, colours.shadow);
    drawFace(painter, rect.adjusted(0, 0, 0, -line), radius, colours, false);
}

// Flat on what is below it.
void drawTint(QPainter& painter, const QRectF& rect, double radius, const QColor& tint) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    painter.fillPath(path, tint);
}

// A hollow with a border, on what is below it.
void drawRecess(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
    const double line = PixelGrid(painter).line();
    const QRectF within = rect.adjusted(line, line, -line, -line);
    drawTint(painter, within, radius - line, withAlpha(color, 0.14F));
    QPainterPath border;
    border.addRoundedRect(rect, radius, radius);
    QPainterPath inner;
    inner.addRoundedRect(within, radius - line, radius - line);
    painter.fillPath(border - inner, withAlpha(color, 0.4F));
}

void drawBorderless(QPainter& painter, const QRectF& rect, const ButtonContent& button, BezelColours& colours,
    const QPalette& palette) {
    if (button.dress.background)
        painter.fillRect(rect, GreyColours(palette).color(*button.dress.background));
    constexpr double Radius = 3;
    if (button.highlighted)
        drawTint(painter, rect, Radius, palette.color(QPalette::Highlight));
    else if (button.mouseIsOver)
        drawTint(painter, rect, Radius, withAlpha(colours.title, 0.12F));
}

void drawBezel(QPainter& painter, const QRectF& rect, const ButtonContent& button, const BezelColours& colours) {
    constexpr double Radius = 4;
    switch (button.dress.bezel) {
    case ButtonBezel::Rounded:
        drawRaisedFace(painter, rect, rect.height() / 3, colours);
        break;
    case ButtonBezel::RoundRect:
        drawFace(painter, rect, Radius, colours, false);
        break;
    case ButtonBezel::Recessed:
        // A border on hover only.
        if (button.highlighted)
            drawFace(painter, rect, Radius, colours, true);
        else if (button.mouseIsOver)
            drawRecess(painter, rect, Radius, colours.title);
        break;
    case ButtonBezel::SmallSquare:
        drawRaisedFace(painter, rect, 0, colours);
        break;
    case ButtonBezel::ShadowlessSquare:
        drawFace(painter, rect, 0, colours, true);
        break;
    }
}

} // namespace

void paintBezelButton(
    QPainter& painter, const ButtonContent& button, const ButtonPlace& place, const QPalette& palette) {
    const QRectF rect = PixelGrid(painter).aligned(place.visible);
    BezelColours colours = coloursOf(button, palette);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (button.dress.bordered)
        drawBezel(painter, rect, button, colours);
    else
        drawBorderless(painter, rect, button, colours, palette);
    painter.restore();

    if (button.title == LogoTitle) {
        const QSizeF size = logoSize();
        drawLogo(painter, colours.title, rect.center() - QPointF(size.width() / 2, size.height() / 2));
        return;
    }
    TitleLine title(button);
    title.limitWidth(rect.width());
    title.draw(painter, {rect.center().x() - title.width() / 2, title.baselineAround(rect.center().y())}, place.visible,
        colours.title, colours.titleEdge);
}

} // namespace tarragon
