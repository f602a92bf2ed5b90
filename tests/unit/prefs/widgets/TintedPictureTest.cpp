#include "prefs/widgets/TintedPicture.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

// A square picture whose left half is inked.
class TintedPictureTest : public testing::Test {
protected:
    TintedPictureTest() {
        QPalette palette = before;
        palette.setColor(QPalette::Active, QPalette::ButtonText, Qt::red);
        palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::blue);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::gray);
        palette.setColor(QPalette::WindowText, Qt::darkGreen);
        palette.setColor(QPalette::Window, Qt::white);
        QApplication::setPalette(palette);
        write("half.svg", 8);
        write("whole.svg", 16);
    }
    ~TintedPictureTest() override { QApplication::setPalette(before); }

    QString path(const char* name) const { return folder.filePath(name); }
    void write(const char* name, int width) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            QString(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16"><path d="M0 0H%1V16H0Z"/></svg>)")
                .arg(width)
                .toUtf8());
    }
    QImage drawn(const char* name, Qt::LayoutDirection direction = Qt::LeftToRight) const {
        QImage canvas(40, 20, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        painter.setLayoutDirection(direction);
        drawTinted(painter, path(name), QRectF(0, 0, 40, 20), Qt::red);
        return canvas;
    }

    QPalette before = QApplication::palette();
    QTemporaryDir folder;
};

TEST_F(TintedPictureTest, IsDrawnInOneColourAndInItsOwnProportions) {
    EXPECT_EQ(drawn("whole.svg").pixelColor(25, 10), QColor(Qt::red));
    const QImage picture = drawn("half.svg");
    EXPECT_EQ(picture.pixelColor(15, 10), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(25, 10).alpha(), 0) << "the half without ink";
    EXPECT_EQ(picture.pixelColor(5, 10).alpha(), 0) << "beside the picture";
}

TEST_F(TintedPictureTest, IsMirroredWhereReadingStartsFromTheRight) {
    const QImage picture = drawn("half.svg", Qt::RightToLeft);
    EXPECT_EQ(picture.pixelColor(25, 10), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(15, 10).alpha(), 0);
}

TEST_F(TintedPictureTest, HasTheColourOfTheTextAroundItAsAnIcon) {
    const QIcon icon = tintedIcon(path("half.svg"));
    const std::pair<QIcon::Mode, QColor> rows[] = {
        {QIcon::Normal, Qt::red}, {QIcon::Selected, Qt::blue}, {QIcon::Disabled, Qt::gray}};
    for (const auto& [mode, colour] : rows) {
        const QImage picture = icon.pixmap(QSize(20, 20), mode).toImage();
        EXPECT_EQ(picture.pixelColor(5, 10), colour) << mode;
        EXPECT_EQ(picture.pixelColor(15, 10).alpha(), 0) << mode;
    }
}

TEST_F(TintedPictureTest, IsAsHighAsItsLinesOfText) {
    TintedPicture picture;
    const int line = picture.fontMetrics().lineSpacing();
    EXPECT_EQ(picture.sizeHint().height(), 4 * line);
    picture.setProperty("lines", 3);
    EXPECT_EQ(picture.sizeHint(), QSize(4 * line, 3 * line));
}

TEST_F(TintedPictureTest, StandsAtTheTopInTheColourOfText) {
    TintedPicture picture;
    picture.setProperty("picture", path("half.svg"));
    picture.setProperty("lines", 3);
    const QSize hint = picture.sizeHint();
    picture.resize(2 * hint.width(), 2 * hint.height());
    const auto colour = [&picture](int x, int y) { return picture.grab().toImage().pixelColor(x, y); };
    const int middle = picture.width() / 2;
    EXPECT_EQ(colour(middle - 5, hint.height() / 2), QColor(Qt::darkGreen));
    EXPECT_EQ(colour(middle + 5, hint.height() / 2), QColor(Qt::white));
    EXPECT_EQ(colour(middle - 5, hint.height() + 5), QColor(Qt::white));
    picture.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(colour(middle + 5, hint.height() / 2), QColor(Qt::darkGreen));
    EXPECT_EQ(colour(middle - 5, hint.height() / 2), QColor(Qt::white));
}

TEST_F(TintedPictureTest, GrowsWithTheFont) {
    QWidget host;
    auto* column = new QVBoxLayout(&host);
    auto* picture = new TintedPicture;
    column->addWidget(picture);
    host.show();
    const int narrow = column->minimumSize().height();
    QFont large = picture->font();
    large.setPointSize(large.pointSize() * 2);
    picture->setFont(large);
    EXPECT_GT(column->minimumSize().height(), narrow);
}

} // namespace
} // namespace tarragon
