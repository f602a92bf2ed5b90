// Whether our points are the toolkit's, whatever its scale is: the tests run with several.
#include "OtherClient.h"
#include "WiredInput.h"

#include "panels/rules/ScreenTopBarRules.h"
#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/QtPixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"
#include "support/X11Client.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

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

// What slides a hidden bar in.
class TopOfAScreenOnX11 : public PixelScaleOnX11 {
protected:
    ~TopOfAScreenOnX11() override {
        _server.setMonitors({});
        EXPECT_TRUE(waitUntil([this] { return _displays.screens().size() == 1; }));
    }
    // The first is the primary one.
    bool arrange(const std::vector<X11ClientMonitor>& monitors) {
        _server.setMonitors(monitors);
        return waitUntil([&] {
            const auto isShown = [&](const QScreen* screen, const X11ClientMonitor& monitor) {
                return screen->geometry().topLeft() == QPoint(monitor.x, monitor.y)
                    && std::abs(screen->size().width() * _scale - monitor.width) <= _scale;
            };
            return std::ranges::equal(QGuiApplication::screens(), monitors, isShown);
        });
    }
    // In Cocoa space.
    Point locationOf(int x, int y) {
        _user.movePointer(x, y);
        return _displays.mouseLocationNS();
    }

    X11Client _server{std::getenv("DISPLAY")};
    QtRunLoop _runLoop;
    QtDisplays _displays{_runLoop};
};

TEST_F(TopOfAScreenOnX11, IsInTheHotZoneAlongTheTopmostPixelsAndNotBelowThem) {
    const std::vector<std::vector<X11ClientMonitor>> arrangements = {
        {{0, 0, 500, 800, true}, {500, 0, 500, 800, false}},
        {{500, 0, 500, 800, true}, {0, 0, 500, 800, false}},
        {{0, 0, 1000, 400, true}, {0, 400, 1000, 400, false}},
        {{0, 400, 1000, 400, true}, {0, 0, 1000, 400, false}},
        {{0, 0, 500, 800, true}, {500, 133, 500, 500, false}},
    };
    for (const auto& arrangement : arrangements) {
        ASSERT_TRUE(arrange(arrangement));
        const X11ClientMonitor& second = arrangement[1];
        const Rect screen = _displays.screens().at(1).frameNS;
        const Rect hotZone = hotZoneNS(screen, false);
        const Rect leftHalf = hotZoneNS(screen, true);
        for (const int x : {0, 1, second.width / 2 - 3, second.width / 2 + 3, second.width - 3}) {
            const Point top = locationOf(second.x + x, second.y);
            EXPECT_EQ(top.y, screen.origin.y + screen.size.height) << second.x << " " << second.y << " " << x;
            EXPECT_TRUE(contains(hotZone, top)) << second.x << " " << second.y << " " << x;
            EXPECT_EQ(contains(leftHalf, top), x < second.width / 2) << second.x << " " << second.y << " " << x;
            EXPECT_FALSE(contains(hotZone, locationOf(second.x + x, second.y + int(std::ceil(_scale)))));
        }
    }
}

} // namespace
} // namespace tarragon
