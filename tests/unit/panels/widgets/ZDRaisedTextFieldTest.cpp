#include "panels/widgets/ZDRaisedTextField.h"
#include "PaintedPanel.h"

#include <gtest/gtest.h>

namespace tarragon {

namespace {

// On a ground of middle grey, where both white and black are seen.
QImage painted(QPalette palette) {
    ZDRaisedTextField field("III");
    palette.setColor(field.foregroundRole(), palette.color(QPalette::WindowText));
    field.setPalette(palette);
    field.resize(field.sizeHint());
    QImage image(field.size(), QImage::Format_RGB32);
    image.fill(QColor(128, 128, 128));
    field.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

struct Rows {
    int first = -1;
    int last = -1;
};

Rows rowsWith(const QImage& image, bool (*isOfInterest)(int)) {
    Rows rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!isOfInterest(grey(image, x, y)))
                continue;
            rows.first = rows.first < 0 ? y : rows.first;
            rows.last = y;
        }
    }
    return rows;
}

bool isDarker(int shade) {
    return shade < 110;
}

bool isLighter(int shade) {
    return shade > 146;
}

TEST(ZDRaisedTextField, HasALightEdgeOnePointBelowItsText) {
    const QImage image = painted(lightPalette());
    const Rows text = rowsWith(image, isDarker);
    const Rows edge = rowsWith(image, isLighter);
    ASSERT_GE(text.first, 0);
    EXPECT_EQ(edge.last, text.last + 1);
    EXPECT_GT(edge.first, text.first);
}

TEST(ZDRaisedTextField, HasADarkEdgeUnderADarkTheme) {
    const QImage image = painted(darkPalette());
    const Rows text = rowsWith(image, isLighter);
    const Rows edge = rowsWith(image, isDarker);
    ASSERT_GE(text.first, 0);
    EXPECT_EQ(edge.last, text.last + 1);
}

TEST(ZDRaisedTextField, HasRoomForItsEdge) {
    ZDRaisedTextField field("Version 1");
    EXPECT_EQ(field.sizeHint().height(), QLabel("Version 1").sizeHint().height() + 1);
}

TEST(ZDRaisedTextField, TakesMarkupForText) {
    EXPECT_EQ(ZDRaisedTextField("<b>1</b>").textFormat(), Qt::PlainText);
}

} // namespace

} // namespace tarragon
