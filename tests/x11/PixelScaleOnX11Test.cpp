// Whether our points are the toolkit's, whatever its scale is: the tests run with several.
#include "OtherClient.h"
#include "WiredInput.h"

#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/QtPixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class PixelScaleOnX11 : public testing::Test {
protected:
    PixelScaleOnX11() { _current.set(pixelScaleOfQt()); }

    double _scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    CurrentPixelScale _current;
    OtherClient _user;
};

TEST_F(PixelScaleOnX11, IsTheToolkits) {
    const bool isSet = qEnvironmentVariableIsSet("QT_SCALE_FACTOR");
    EXPECT_EQ(_scale, isSet ? qEnvironmentVariable("QT_SCALE_FACTOR").toDouble() : 1);
    const PixelScale scale = _current.get();
    EXPECT_EQ(scale.isOne(), _scale == 1);
    EXPECT_EQ(scale.scaleOfPixels({{0, 0}, {1000, 800}}), _scale);
    const QRect points = QGuiApplication::primaryScreen()->geometry();
    const Rect screen = scale.pointsFromPixels({{0, 0}, {1000, 800}});
    EXPECT_NEAR(screen.size.width, points.width(), 0.5);
    EXPECT_NEAR(screen.size.height, points.height(), 0.5);
}

TEST_F(PixelScaleOnX11, PutsAWindowWhereTheToolkitHasIt) {
    QWidget widget(nullptr, Qt::Tool | Qt::X11BypassWindowManagerHint | Qt::FramelessWindowHint);
    widget.setAttribute(Qt::WA_ShowWithoutActivating);
    widget.setGeometry(40, 30, 120, 60);
    widget.show();
    const auto window = static_cast<xcb_window_t>(widget.winId());
    ASSERT_TRUE(waitUntil([&] { return _user.isMapped(window); }));
    const auto connection = X11Connection::connect();
    ASSERT_TRUE(connection);
    X11Windows windows(*connection, &_current);
    const auto description = windows.describe(window);
    ASSERT_TRUE(description);
    EXPECT_EQ(description->frame, (Rect{{40 * _scale, 30 * _scale}, {120 * _scale, 60 * _scale}}));
    EXPECT_EQ(description->frameCG, (Rect{{40, 30}, {120, 60}}));
}

TEST_F(PixelScaleOnX11, PutsThePointerWhereTheToolkitHasIt) {
    _user.movePointer(300, 150);
    const Point point = _current.get().pointFromPixel({300, 150});
    EXPECT_EQ(QCursor::pos(), QPoint(static_cast<int>(point.x), static_cast<int>(point.y)));
}

} // namespace
} // namespace tarragon
