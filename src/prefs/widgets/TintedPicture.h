#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

class QPainter;

namespace tarragon {

// Draws a picture of one ink, an SVG, in a colour: sharp at every size, and legible on light and dark alike. Mirrored
// for layouts from right to left.
void drawTinted(QPainter& painter, const QString& picture, const QRectF& place, const QColor& colour);

// The same as an icon, in the colour of the palette's text.
QIcon tintedIcon(const QString& picture);

// Shows such a picture, as high as a number of lines of text. The dynamic properties "picture" (a path) and "lines"
// choose it.
class TintedPicture : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarragon
