// Where the panel stands, and when it is seen, by the settings of the user.
#include "PanelEndToEndTest.h"

#include <csignal>
#include <vector>

namespace tarragon::e2e {

class PanelSettingsTest : public EveryDesktopPanelTest {
protected:
    TestApplication& launchWithPanel() {
        TestApplication& application = launch(ApplicationKind::Mousepad);
        EXPECT_TRUE(resizeTo(application.window(), 800, 400));
        EXPECT_TRUE(moveTo(application.window(), 300, 400));
        return application;
    }

    struct Look {
        double opacity = 0;
        bool isDrawn = false;
        bool takesClicks = false;
    };
    // At one moment: the program sends all of it together, and does nothing between the looks at each.
    Look look() {
        agent().process().sendSignal(SIGSTOP);
        const Look look{panel().opacity(), panel().isViewable() && !panel().boundingShape().empty(),
            panel().isViewable() && !panel().inputShape().empty()};
        agent().process().sendSignal(SIGCONT);
        return look;
    }
    // What the panel looked like on its way to an opacity.
    std::vector<Look> looksUntil(double opacity) {
        std::vector<Look> looks;
        EXPECT_TRUE(waitUntil([&] {
            looks.push_back(look());
            return looks.back().opacity == opacity;
        }));
        return looks;
    }
    void expectVisibleAsFarAsTheDesktopCan(const Look& look) {
        if (hasCompositor()) {
            EXPECT_TRUE(look.isDrawn) << look.opacity;
            EXPECT_EQ(look.takesClicks, look.opacity > 0) << look.opacity;
        } else {
            EXPECT_EQ(look.isDrawn, look.opacity >= 0.5) << look.opacity;
            EXPECT_EQ(look.takesClicks, look.isDrawn) << look.opacity;
        }
    }
};

TEST_P(PanelSettingsTest, StandsBesideTheWindowButtonsWhenItIsAlwaysToBeThere) {
    TestApplication& application = launchWithPanel();
    EXPECT_TRUE(standsAbove(application.window()));
    set("TarragonAlwaysRight", true);
    EXPECT_TRUE(standsOnTitleBarOf(application.window()));
    // Only the titles are there for the pointer: the window's own buttons are not covered.
    const PixelRect frame = display().outerFrameOf(application.window());
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<PixelRect> titles = panel().inputShape();
        int right = 0;
        for (const PixelRect& title : titles)
            right = std::max(right, panel().frame().x + title.x + title.width);
        return !titles.empty() && right < frame.x + frame.width - 100;
    }));
    set("TarragonAlwaysRight", false);
    EXPECT_TRUE(standsAbove(application.window()));
}

TEST_P(PanelSettingsTest, StandsAsOneButtonWhenItIsNotHorizontal) {
    constexpr int Above = 27; // of the window's top
    constexpr int Raised = 5; // above it on the title bar
    TestApplication& application = launchWithPanel();
    const xcb_window_t window = application.window();
    EXPECT_TRUE(standsAbove(window));
    set("Horizontal", false);
    const auto standsAt = [&](int x, int y) {
        return waitUntil([&] {
            const PixelRect frame = panel().frame();
            return panel().isSeen() && frame.x == x && frame.y == y && frame.width == 56 && frame.height == 25;
        });
    };
    EXPECT_TRUE(standsAt(300, 400 - Above)) << panel().frame().x << "," << panel().frame().y;
    EXPECT_TRUE(liesDirectlyOn(window));
    ASSERT_TRUE(moveTo(window, 410, RoomForPanel - 1));
    EXPECT_TRUE(standsAt(410 + WidthOfWindowButtons, RoomForPanel - 1 - Raised))
        << panel().frame().x << "," << panel().frame().y;
    ASSERT_TRUE(moveTo(window, 300, 400));
    EXPECT_TRUE(standsAt(300, 400 - Above));
}

TEST_P(PanelSettingsTest, AppearsUnderThePointerAloneWhenItIsNotAlwaysVisible) {
    TestApplication& application = launchWithPanel();
    TestApplication& terminal = launch(ApplicationKind::Terminal);
    ASSERT_TRUE(moveTo(terminal.window(), 300, 200));
    const PixelRect below = display().outerFrameOf(terminal.window());
    ASSERT_TRUE(application.bringToFront());
    // The panel's place lies within the terminal.
    ASSERT_TRUE(moveTo(application.window(), below.x + 20, below.y + below.height - 60));
    EXPECT_TRUE(standsAbove(application.window()));
    set("TarragonAlwaysVisible", false);
    for (const Look& look : looksUntil(0))
        expectVisibleAsFarAsTheDesktopCan(look);
    EXPECT_TRUE(waitUntil([&] { return panel().frame() == aboveWindow(application.window()); }));

    const PixelRect frame = panel().frame();
    input().moveTo(frame.x + 20, frame.y + 12);
    for (const Look& look : looksUntil(1))
        expectVisibleAsFarAsTheDesktopCan(look);
    EXPECT_TRUE(standsAbove(application.window()));
    input().moveTo(frame.x + 20, frame.y - 40);
    for (const Look& look : looksUntil(0))
        expectVisibleAsFarAsTheDesktopCan(look);

    // A click comes through while nothing is seen. The program must not show anything in between.
    agent().process().sendSignal(SIGSTOP);
    input().moveTo(frame.x + 20, frame.y + 12);
    input().click();
    const bool reached = waitUntil([&] { return display().activeWindow() == terminal.window(); });
    agent().process().sendSignal(SIGCONT);
    EXPECT_TRUE(reached);
}

INSTANTIATE_TEST_SUITE_P(On, PanelSettingsTest, EveryDesktop, nameOfDesktop);

} // namespace tarragon::e2e
