#include "panels/widgets/RaisedText.h"

namespace tarragon {

void drawRaisedText(
    QPainter& painter, const QPointF& baseline, const QString& text, const QColor& color, const QColor& edge) {
    painter.setPen(edge);
    painter.drawText(baseline + QPointF(0, 1), text);
    painter.setPen(color);
    painter.drawText(baseline, text);
}

} // namespace tarragon
