// Where the pop-up appears.
#include "EndToEndTest.h"

#include <array>

namespace tarragon::e2e {

class PlacementTest : public WindowManagerTest {
protected:
    void expectPopUpWithin(int x, int y, const PixelRect& screen) {
        input().moveTo(x, y);
        ASSERT_TRUE(popUp().open());
        PixelRect frame = agent().openMenus().at(0).frame;
        EXPECT_TRUE(screen.contains(frame))
            << "at " << x << "," << y << ": " << frame.x << "," << frame.y << " " << frame.width << "x" << frame.height;
        EXPECT_TRUE(popUp().close());
    }
};

TEST_P(PlacementTest, KeepsThePopUpOnTheScreen) {
    TestApplication& application = launch(ApplicationKind::Geany);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    PixelRect screen = display().bounds();
    for (int x : {0, screen.width / 2, screen.width - 1}) {
        for (int y : {0, screen.height / 2, screen.height - 1})
            expectPopUpWithin(x, y, screen);
    }
}

TEST_P(PlacementTest, KeepsSubmenusOnTheScreen) {
    TestApplication& application = launch(ApplicationKind::Geany);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    PixelRect screen = display().bounds();
    input().moveTo(screen.width - 1, screen.height - 1);
    ASSERT_TRUE(popUp().open());
    ASSERT_FALSE(popUp().openByKeyboard({"Document", "Indent Type"}).empty());
    for (const XWindow& menu : agent().openMenus())
        EXPECT_TRUE(screen.contains(menu.frame)) << menu.frame.x << "," << menu.frame.y;
}

TEST_P(PlacementTest, KeepsThePopUpOnTheMonitorOfThePointer) {
    TestApplication& application = launch(ApplicationKind::Geany);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    display().setTwoMonitors();
    PixelRect whole = display().bounds();
    int half = whole.width / 2;
    PixelRect left{0, 0, half, whole.height};
    PixelRect right{half, 0, whole.width - half, whole.height};
    // The program has noticed the second monitor when it keeps to the first.
    EXPECT_TRUE(waitUntil([&] {
        input().moveTo(half - 1, whole.height / 2);
        bool within = popUp().open() && left.contains(agent().openMenus().at(0).frame);
        popUp().close();
        return within;
    }));
    for (int y : {0, whole.height - 1}) {
        expectPopUpWithin(half - 1, y, left);
        expectPopUpWithin(half, y, right);
        expectPopUpWithin(whole.width - 1, y, right);
    }
    display().setOneMonitor();
}

INSTANTIATE_TEST_SUITE_P(Under, PlacementTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
