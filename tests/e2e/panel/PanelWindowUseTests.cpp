// The window below the panel: its own buttons and title bar, and dragging either of the two.
#include "PanelUseEndToEndTest.h"

#include <algorithm>
#include <array>

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

const std::vector<std::string> HerbTitles{"Basil", "Chervil", "Dill"};

enum class WindowButton { Close, Maximize, Minimize };

} // namespace

class PanelOverWindowTest : public ApplicationPanelUseTest {
protected:
    WindowManager windowManager() const { return std::get<0>(GetParam()); }
    // In the middle of the title bar's height.
    int titleBarMiddle(const TestApplication& application) {
        return display().outerFrameOf(application.window()).y + (windowManager() == WindowManager::Openbox ? 10 : 13);
    }
    void clickButton(const TestApplication& application, WindowButton button) {
        // From the frame's right edge, as both themes draw them.
        constexpr std::array<int, 3> Openbox{10, 26, 42};
        constexpr std::array<int, 3> Xfwm4{14, 37, 60};
        const auto& places = windowManager() == WindowManager::Openbox ? Openbox : Xfwm4;
        const PixelRect frame = display().outerFrameOf(application.window());
        input().moveTo(frame.x + frame.width - places[static_cast<std::size_t>(button)], titleBarMiddle(application));
        input().click();
    }
    bool isMaximized(const TestApplication& application) {
        return display().hasState(application.window(), "_NET_WM_STATE_MAXIMIZED_VERT");
    }
    // Every button works, the last one for good.
    void useButtons(TestApplication& application) {
        const bool before = isMaximized(application);
        clickButton(application, WindowButton::Maximize);
        ASSERT_TRUE(waitUntil([&] { return isMaximized(application) != before; }));
        ASSERT_TRUE(standsOnTitleBarOf(application.window()));
        clickButton(application, WindowButton::Maximize);
        ASSERT_TRUE(waitUntil([&] { return isMaximized(application) == before; }));
        ASSERT_TRUE(standsOnTitleBarOf(application.window()));

        clickButton(application, WindowButton::Minimize);
        ASSERT_TRUE(waitUntil([&] { return display().hasState(application.window(), "_NET_WM_STATE_HIDDEN"); }));
        EXPECT_TRUE(isNotSeen());
        ASSERT_TRUE(application.bringToFront());
        ASSERT_TRUE(standsOnTitleBarOf(application.window()));
        ASSERT_TRUE(showsTitlesOf(application));

        clickButton(application, WindowButton::Close);
        EXPECT_TRUE(waitUntil([&] { return !application.process().isRunning(); }));
        EXPECT_TRUE(isNotSeen());
    }
};

TEST_P(PanelOverWindowTest, LeavesTheButtonsOfAMaximisedWindowUsable) {
    TestApplication& application = launch();
    const std::vector<std::string> titles = application.expectedTitles();
    change("TarragonAlwaysRight", true);
    // Some applications start as large as they were at their end.
    display().setMaximized(application.window(), false);
    ASSERT_TRUE(waitUntil([&] { return !isMaximized(application); }));
    ASSERT_TRUE(resizeTo(application.window(), 1200, 400) && moveTo(application.window(), 100, 200));
    clickButton(application, WindowButton::Maximize);
    ASSERT_TRUE(waitUntil([&] { return isMaximized(application); }));
    ASSERT_TRUE(standsOnTitleBarOf(application.window()));
    ASSERT_TRUE(showsTitles(titles));
    useButtons(application);
}

TEST_P(PanelOverWindowTest, LeavesTheTitleBarBesideTheTitlesUsable) {
    TestApplication& application = launch();
    change("TarragonAlwaysRight", true);
    // Some applications start as large as they were at their end.
    display().setMaximized(application.window(), false);
    ASSERT_TRUE(waitUntil([&] { return !isMaximized(application); }));
    ASSERT_TRUE(resizeTo(application.window(), 1200, 400) && moveTo(application.window(), 100, 200));
    ASSERT_TRUE(standsOnTitleBarOf(application.window()));
    ASSERT_TRUE(showsTitlesOf(application));
    ASSERT_TRUE(openTitle("File"));
    input().tap(XK_Escape);
    ASSERT_TRUE(waitForNoMenu());
    // The panel reaches over this place and paints nothing there.
    const int x = 1000;
    const int y = titleBarMiddle(application);
    ASSERT_TRUE(panel().frame().contains(x, y));
    input().moveTo(x, y);
    input().press();
    glide(x, y, x + 100, y + 150);
    // Window managers begin with the drag a few pixels late, and count from where the pointer is by then.
    int step = 0;
    EXPECT_TRUE(waitUntil([&] {
        step = std::min(step + 1, 100);
        input().moveTo(x + 100 + step, y + 150 + step);
        const PixelRect frame = display().outerFrameOf(application.window());
        return frame.x > 180 && frame.y > 330;
    }));
    input().release();
    EXPECT_TRUE(standsOnTitleBarOf(application.window()));
    EXPECT_TRUE(panel().waitUntilOpaque());
}

INSTANTIATE_TEST_SUITE_P(
    Under, PanelOverWindowTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

class PanelDragTest : public WindowManagerPanelUseTest {
protected:
    TestApplication& launchHerbs() {
        TestApplication& application = launchTitled(HerbTitles);
        EXPECT_TRUE(place(application, {150, 200, 900, 300}));
        EXPECT_TRUE(showsTitles(HerbTitles));
        return application;
    }
    // Right of the titles, where the panel is nothing but a handle.
    std::pair<int, int> handle() {
        const PixelRect frame = panel().frame();
        return {frame.x + frame.width - 40, frame.y + frame.height / 2};
    }
    bool windowIsAt(const TestApplication& application, int x, int y) {
        return waitUntil([&] {
            const PixelRect frame = display().outerFrameOf(application.window());
            return frame.x == x && frame.y == y;
        });
    }
    // The panel follows a window that moves without the pointer, which only the ticks do.
    void expectTicksGoOn(const TestApplication& application) {
        EXPECT_TRUE(moveTo(application.window(), 300, 400));
        EXPECT_TRUE(standsAbove(application.window()));
        EXPECT_TRUE(panel().waitUntilOpaque());
    }
};

TEST_P(PanelDragTest, DraggingThePanelMovesTheWindow) {
    TestApplication& application = launchHerbs();
    for (const auto& [byX, byY] : std::vector<std::pair<int, int>>{{120, 90}, {-200, 40}, {60, -100}}) {
        const auto [x, y] = handle();
        const PixelRect before = display().outerFrameOf(application.window());
        input().moveTo(x, y);
        input().press();
        glide(x, y, x + byX, y + byY);
        // It stays attached on the way.
        EXPECT_TRUE(windowIsAt(application, before.x + byX, before.y + byY));
        EXPECT_TRUE(standsAbove(application.window()));
        input().release();
        EXPECT_TRUE(panel().isSeen());
        EXPECT_TRUE(standsAbove(application.window()));
    }
    EXPECT_EQ(display().activeWindow(), application.window());
    expectTicksGoOn(application);
}

TEST_P(PanelDragTest, ADraggedPanelStopsAtTheTopOfTheScreen) {
    TestApplication& application = launchHerbs();
    const auto [x, y] = handle();
    input().moveTo(x, y);
    input().press();
    glide(x, y, x, 0);
    EXPECT_TRUE(windowIsAt(application, 150, 24));
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_EQ(panel().frame().y, 0);
    // Back to where it came from.
    glide(x, 0, x, y);
    EXPECT_TRUE(windowIsAt(application, 150, 200));
    input().release();
    EXPECT_TRUE(standsAbove(application.window()));
}

TEST_P(PanelDragTest, APressOnATitleDragsNothing) {
    TestApplication& application = launchHerbs();
    const auto title = panel().frameOfTitle("Chervil");
    ASSERT_TRUE(title);
    ASSERT_TRUE(pointAtTitle("Chervil"));
    input().press();
    ASSERT_TRUE(waitForMenuBelow("Chervil"));
    glide(title->x + 10, title->y + 12, title->x + 500, title->y + 300);
    input().release();
    EXPECT_TRUE(waitForNoMenu());
    EXPECT_TRUE(windowIsAt(application, 150, 200));
    EXPECT_TRUE(standsAbove(application.window()));
}

TEST_P(PanelDragTest, DraggingTheWindowFadesThePanelOutAndInAgain) {
    TestApplication& application = launchHerbs();
    for (int round = 0; round < 2; ++round) {
        const PixelRect before = display().outerFrameOf(application.window());
        const int x = before.x + before.width / 2;
        const int y = before.y + 10;
        input().moveTo(x, y);
        input().press();
        bool fades = false;
        // Hands do not jump: the drag goes on until the panel is gone.
        for (int step = 1; step <= 100 && !fades; ++step) {
            input().moveTo(x + step, y + step);
            fades = waitUntil([&] { return !panel().isSeen(); }, Duration(20));
        }
        EXPECT_TRUE(fades) << "round " << round;
        // Faded out it stays.
        EXPECT_TRUE(holdsFor(Duration(700), [&] { return !panel().isSeen(); })) << "round " << round;
        // Window managers begin a few pixels late.
        input().moveTo(x + 110, y + 120);
        ASSERT_TRUE(waitUntil([&] {
            const PixelRect frame = display().outerFrameOf(application.window());
            return frame.x > before.x && frame.y > before.y;
        })) << "round "
            << round;
        input().release();
        EXPECT_TRUE(standsAbove(application.window())) << "round " << round;
        EXPECT_TRUE(panel().waitUntilOpaque()) << "round " << round;
    }
    expectTicksGoOn(application);
}

TEST_P(PanelDragTest, ADragThatStartsOverAButtonFadesNothing) {
    TestApplication& application = launchHerbs();
    const PixelRect window = display().frameOf(application.window());
    const int x = window.x + window.width / 2;
    const int y = window.y + window.height / 2;
    input().moveTo(x, y);
    input().press();
    for (int step = 1; step <= 30; ++step) {
        input().moveTo(x + step, y);
        ASSERT_TRUE(holdsFor(Duration(30), [&] { return panel().isSeen() && panel().opacity() >= 1; })) << step;
    }
    input().release();
    EXPECT_TRUE(waitForWindowTitle(application, "Button"));
    expectTicksGoOn(application);
}

INSTANTIATE_TEST_SUITE_P(Under, PanelDragTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
