#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

namespace tarragon {

// Draws the text with an edge one point below it, so that it looks raised where the light comes from above.
void drawRaisedText(
    QPainter& painter, const QPointF& baseline, const QString& text, const QColor& color, const QColor& edge);

} // namespace tarragon
