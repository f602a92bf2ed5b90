#include "platform/qt/WholePixelStyle.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QImage>
#include <QListWidget>
#include <QStyleFactory>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tarragon {
namespace {

// Whether a line crosses the pixels, which run from outside a frame into it.
bool hasLine(const std::vector<QRgb>& pixels) {
    return std::any_of(pixels.begin(), pixels.end(), [&](QRgb pixel) { return pixel != pixels.front(); });
}

QImage pictureOf(QWidget& window, double scale) {
    QImage picture(window.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    window.render(&picture);
    return picture;
}

// The edges of a list's frame at a place of its window, as the first letters of their names where they can be seen.
std::string visibleEdges(QStyle& style, double scale, const QPoint& place, const QSize& size) {
    QWidget window;
    window.resize(60, 60);
    QListWidget frame(&window);
    frame.setStyle(&style);
    // Of the colour around it.
    frame.viewport()->setBackgroundRole(QPalette::Window);
    frame.setGeometry(QRect(place, size));
    const QImage picture = pictureOf(window, scale);

    const QPoint middle = (QPointF(frame.geometry().center()) * scale).toPoint();
    constexpr int Near = 4; // pixels
    const auto fromOutside = [&](const QPointF& edge, const QPoint& inwards) {
        std::vector<QRgb> pixels;
        for (int step = -Near; step < Near; ++step)
            pixels.push_back(picture.pixel((edge * scale).toPoint() + step * inwards));
        return pixels;
    };
    const double left = place.x();
    const double top = place.y();
    const double middleX = middle.x() / scale;
    const double middleY = middle.y() / scale;
    std::string edges;
    if (hasLine(fromOutside({left, middleY}, {1, 0})))
        edges += 'l';
    if (hasLine(fromOutside({middleX, top}, {0, 1})))
        edges += 't';
    if (hasLine(fromOutside({left + size.width(), middleY}, {-1, 0})))
        edges += 'r';
    if (hasLine(fromOutside({middleX, top + size.height()}, {0, -1})))
        edges += 'b';
    return edges;
}

TEST(WholePixelStyleTest, ShowsEveryEdgeOfAFrameAtEveryScale) {
    WholePixelStyle style("Fusion");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 2.5}) {
        for (int place = 10; place < 20; ++place) {
            for (int size = 30; size < 38; ++size)
                EXPECT_EQ(visibleEdges(style, scale, {place, place}, {size, size}), "ltrb")
                    << scale << ": " << place << ", " << size;
        }
    }
}

// A line of shade and one of light.
TEST(WholePixelStyleTest, ShowsBothLinesOfASeparatorAtEveryScale) {
    WholePixelStyle style("Fusion");
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 2.5}) {
        for (int place = 10; place < 20; ++place) {
            QWidget window;
            window.resize(60, 60);
            QFrame separator(&window);
            separator.setStyle(&style);
            separator.setFrameStyle(QFrame::HLine | QFrame::Sunken);
            separator.setGeometry(10, place, 40, 2);
            const QImage picture = pictureOf(window, scale);
            std::set<QRgb> colours;
            for (int y = 0; y < picture.height(); ++y)
                colours.insert(picture.pixel(picture.width() / 2, y));
            EXPECT_EQ(colours.size(), 3) << scale << ": " << place;
        }
    }
}

TEST(WholePixelStyleTest, TheStyleItselfLosesEdges) {
    const std::unique_ptr<QStyle> style(QStyleFactory::create("Fusion"));
    EXPECT_NE(visibleEdges(*style, 1.5, {11, 11}, {30, 30}), "ltrb");
}

} // namespace
} // namespace tarragon
