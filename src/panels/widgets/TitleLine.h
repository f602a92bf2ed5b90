#pragma once

#include "panels/PanelContent.h"

#include <optional>

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QString>

namespace tarragon {

// The title of a button, in one line. Lengths are in points.
class TitleLine {
public:
    explicit TitleLine(const ButtonContent& button);

    double width() const;
    // Of a line in this font, or of the characters where they are higher, as those of another font may be.
    double height() const { return _above + _below; }
    // A title that is wider gets an ellipsis in its middle.
    void limitWidth(double width);

    // The height of the baseline that puts the capitals in the middle of that height.
    double baselineAround(double middle) const;

    // Draws the title with its left end there, moved up or down where it would leave a room that is high enough for it.
    // Right-to-left titles are drawn from right to left. With an edge, one point below the
    // characters, they look raised.
    void draw(QPainter& painter, const QPointF& baseline, const QRectF& room, const QColor& color,
        const std::optional<QColor>& raisedEdge = std::nullopt) const;

private:
    double baselineInside(const QRectF& room, double baseline) const;

    void measureHeight();

    QFont _font;
    QString _text;
    double _above = 0; // the baseline
    double _below = 0;
};

} // namespace tarragon
