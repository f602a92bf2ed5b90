#include "prefs/widgets/NoticeView.h"

#include "prefs/widgets/MixedColour.h"

#include <QPainter>

namespace tarragon {

void NoticeView::paintEvent(QPaintEvent* /*event*/) {
    const QColor amber(230, 150, 20);
    const QColor ground = palette().color(QPalette::Window);
    constexpr double Tint = 0.18;
    constexpr double Radius = 5;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(mixedColour(amber, ground, 0.7));
    painter.setBrush(mixedColour(amber, ground, Tint));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
}

} // namespace tarragon
