#include "recorder/control/SRRecorderButton.h"

#include <algorithm>

#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace tarragon {

namespace {

// Both signs in a square of one by one.
QPainterPath cross() {
    QPainterPath path;
    path.moveTo(0.22, 0.22);
    path.lineTo(0.78, 0.78);
    path.moveTo(0.78, 0.22);
    path.lineTo(0.22, 0.78);
    return path;
}

QPainterPath arrowBack() {
    QPainterPath path;
    path.moveTo(0.30, 0.85);
    path.arcTo(QRectF(0.38, 0.35, 0.5, 0.5), 270, 180);
    path.lineTo(0.15, 0.35);
    path.moveTo(0.36, 0.14);
    path.lineTo(0.15, 0.35);
    path.lineTo(0.36, 0.56);
    return path;
}

} // namespace

SRRecorderButton::SRRecorderButton(QWidget* parent)
    : QToolButton(parent) {
    setAutoRaise(true);
}

void SRRecorderButton::setSign(Sign sign, const QString& name) {
    _sign = sign;
    setAccessibleName(name);
    setToolTip(name);
    update();
}

QSize SRRecorderButton::sizeHint() const {
    const int side = fontMetrics().height() + fontMetrics().height() / 2;
    return {side, side};
}

void SRRecorderButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const bool isRaised = option.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    if (isRaised && isEnabled())
        painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);
    if (hasFocus()) {
        QStyleOptionFocusRect ring;
        ring.QStyleOption::operator=(option);
        ring.state |= QStyle::State_KeyboardFocusChange;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, ring);
    }

    const double side = std::min(width(), height()) * 0.6;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    // Back is where lines begin.
    painter.scale(layoutDirection() == Qt::RightToLeft ? -side : side, side);
    painter.translate(-0.5, -0.5);
    painter.setPen(QPen(option.palette.color(QPalette::ButtonText), std::max(1.5, side / 9) / side, Qt::SolidLine,
        Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(_sign == Sign::Clear ? cross() : arrowBack());
}

} // namespace tarragon
