// Bars that hide themselves above their screens until the pointer comes to the top.
#include "bars/BarEndToEndTest.h"

#include <X11/keysym.h>

#include <utility>

namespace tarragon::e2e {

class BarAutoHideTest : public WindowManagerBarTest {
protected:
    // With the window in front on the monitor of the bar, where the program looks for the pointer.
    TestApplication& launchWithHiddenBar(const Arrangement& arrangement) {
        const PixelRect monitor = arrangement.others().front();
        input().moveTo(5, display().bounds().height - 5);
        arrange(arrangement);
        if (!std::exchange(_barsHide, true)) {
            // A bar hides itself from the next application on that comes to the front.
            EXPECT_TRUE(hasBarsOn({monitor}));
            EXPECT_TRUE(tellSetting("ScreenTopAutoHide", true));
        }
        TestApplication& application =
            launchOnBar({"Basil", "Chervil", "Dill"}, {monitor.x + 50, monitor.y + 200, 500, 250});
        EXPECT_TRUE(hasNoBar());
        return application;
    }
    void pointAtTopOf(const PixelRect& monitor, int x) { input().moveTo(monitor.x + x, monitor.y); }
    void pointAwayFrom(const PixelRect& monitor) {
        input().moveTo(monitor.x + monitor.width / 2, monitor.y + monitor.height / 2);
    }

private:
    bool _barsHide = false;
};

TEST_P(BarAutoHideTest, SlidesInWhileThePointerIsAtTheTopOrOnIt) {
    for (const Arrangement& arrangement : {besideEachOther(0), besideEachOther(1), aboveEachOther(0)}) {
        const PixelRect monitor = arrangement.others().front();
        TestApplication& application = launchWithHiddenBar(arrangement);
        pointAtTopOf(monitor, monitor.width - 10);
        EXPECT_TRUE(hasBarsOn({monitor}));
        // On the bar, below the topmost pixels.
        input().moveTo(monitor.x + monitor.width / 2, monitor.y + 15);
        EXPECT_TRUE(holdsFor(Duration(1000), [&] { return bars().seenOn(monitor).has_value(); }));
        pointAwayFrom(monitor);
        EXPECT_TRUE(hasNoBar());
        quit(application);
    }
}

TEST_P(BarAutoHideTest, StaysWhileAMenuOfItIsOpen) {
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    launchWithHiddenBar(arrangement);
    pointAtTopOf(monitor, 300);
    ASSERT_TRUE(hasBarsOn({monitor}));
    ASSERT_TRUE(openTitleOnBar(1, monitor, "Chervil"));
    pointAwayFrom(monitor);
    EXPECT_TRUE(holdsFor(Duration(1500), [&] { return bars().seenOn(monitor).has_value(); }));
    input().tap(XK_Escape);
    ASSERT_TRUE(waitForNoMenu());
    EXPECT_TRUE(hasNoBar());
}

TEST_P(BarAutoHideTest, SlidesInAtTheLeftHalfAloneWhenTheUserWantsThat) {
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    launchWithHiddenBar(arrangement);
    ASSERT_TRUE(tellSetting("ScreenTopHalfHotZone", true));
    pointAtTopOf(monitor, monitor.width / 2 + 10);
    EXPECT_TRUE(hasNoBar());
    pointAtTopOf(monitor, monitor.width / 2 - 10);
    EXPECT_TRUE(hasBarsOn({monitor}));
    ASSERT_TRUE(tellSetting("ScreenTopHalfHotZone", false));
    pointAwayFrom(monitor);
    ASSERT_TRUE(hasNoBar());
    pointAtTopOf(monitor, monitor.width / 2 + 10);
    EXPECT_TRUE(hasBarsOn({monitor}));
}

INSTANTIATE_TEST_SUITE_P(Under, BarAutoHideTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
