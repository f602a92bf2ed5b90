#include "platform/qt/WholePixelStyle.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QListWidget>
#include <QStyleFactory>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tarragon {
namespace {

// Whether a line crosses the pixels, which run from outside a frame into it.
bool hasLine(const std::vector<QRgb>& pixels) {
    return std::any_of(pixels.begin(), pixels.end(), [&](QRgb pixel) { return pixel != pixels.front(); });
}

// A list with a frame at a place of its window.
QImage pictureOfList(QStyle& style, double scale, const QPoint& place, const QSize& size) {
    QWidget window;
    window.resize(60, 60);
    QListWidget list(&window);
    list.setStyle(&style);
    // Of the colour around it.
    list.viewport()->setBackgroundRole(QPalette::Window);
    list.setGeometry(QRect(place, size));
    QImage picture(window.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    window.render(&picture);
    return picture;
}

// The edges of the list's frame, as the first letters of their names where they can be seen.
std::string visibleEdges(QStyle& style, double scale, const QPoint& place, const QSize& size) {
    const QImage picture = pictureOfList(style, scale, place, size);
    const QPoint middle = (QPointF(QRect(place, size).center()) * scale).toPoint();
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

TEST(WholePixelStyleTest, LetsOtherStylesDrawAsTheyDo) {
    const std::unique_ptr<QStyle> plain(QStyleFactory::create("Windows"));
    WholePixelStyle style("Windows");
    EXPECT_EQ(pictureOfList(style, 1.5, {11, 11}, {30, 30}), pictureOfList(*plain, 1.5, {11, 11}, {30, 30}));
}

TEST(WholePixelStyleTest, TheStyleItselfLosesEdges) {
    const std::unique_ptr<QStyle> style(QStyleFactory::create("Fusion"));
    EXPECT_NE(visibleEdges(*style, 1.5, {11, 11}, {30, 30}), "ltrb");
}

} // namespace
} // namespace tarragon
