#include "OtherClient.h"

#include "platform/linux/x11/QtNativeEvents.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"

#include <atomic>
#include <semaphore>
#include <thread>

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr std::uint32_t Green = 0x00FF00;

// All green.
class Window : public QWidget {
public:
    Window() {
        setPalette(QColor(QRgb(Green)));
        setGeometry(400, 300, 200, 200);
    }
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    int presses = 0;
};

TEST(PauseOnX11, RepaintsAWindowThatIsUncoveredAndLeavesInputForLater) {
    OtherClient user;
    QtRunLoop runLoop;
    int nativeEvents = 0;
    const QtNativeEvents events(
        runLoop,
        [&](const void*) {
            ++nativeEvents;
            return false;
        },
        [](void*) { return false; });
    Window window;
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return user.pixel(500, 400) == Green; }, 5000));
    user.cover(400, 300, 200, 200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return user.pixel(500, 400) != Green; }, 5000));
    QCoreApplication::processEvents();
    nativeEvents = 0;

    // The user uncovers the window and clicks into it while the main thread pauses.
    std::atomic<bool> repainted = false;
    std::atomic<bool> pauseIsOver = false;
    std::binary_semaphore pauseBegins(0);
    std::thread meanwhile([&] {
        pauseBegins.acquire();
        user.uncover();
        user.movePointer(500, 400);
        user.click();
        while (!pauseIsOver && !repainted)
            repainted = user.pixel(500, 400) == Green;
    });
    pauseBegins.release();
    runLoop.pause(0.5);
    const bool repaintedDuringPause = repainted;
    pauseIsOver = true;
    EXPECT_TRUE(repaintedDuringPause);
    EXPECT_EQ(window.presses, 0);
    EXPECT_EQ(nativeEvents, 0);
    meanwhile.join();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.presses == 1 && nativeEvents > 0; }, 5000));
}

TEST(QtDisplaysOnX11, FollowsThePointer) {
    OtherClient user;
    QtRunLoop runLoop;
    QtDisplays displays(runLoop);
    user.movePointer(12, 34);
    EXPECT_EQ(displays.mouseLocationNS(), (Point{12, 800 - 34}));
    EXPECT_EQ(displays.mainDisplayBoundsCG(), (Rect{{0, 0}, {1000, 800}}));
}

TEST(QtX11Connection, IsQtsOwn) {
    EXPECT_NE(qtX11Connection(), nullptr);
}

} // namespace

} // namespace tarragon
