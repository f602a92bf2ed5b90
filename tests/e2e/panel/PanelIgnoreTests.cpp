// The menu that takes the panel away from windows, and that it stays away.
#include "PanelUseEndToEndTest.h"

#include <X11/keysym.h>

namespace tarragon::e2e {

class PanelIgnoreTest : public WindowManagerPanelUseTest {
protected:
    void TearDown() override {
        agent().preferences().remove("IgnoreWindowList");
        WindowManagerPanelUseTest::TearDown();
    }
    static std::vector<std::string> ignoreItems(const std::string& application) {
        return {"Ignore all " + application + " windows", "Ignore all " + application + " windows with current title"};
    }
    // The titles of the menu that is open, once an item is highlighted.
    std::vector<std::string> itemsOfOpenMenu() {
        const std::size_t seen = session().observer().count();
        input().tap(XK_Down);
        if (!waitUntil([&] { return session().observer().count() > seen; }))
            return {};
        return titlesOf(session().observer().last().menu);
    }
    bool ignoreMenuIsOpen() {
        constexpr int Distance = 6; // below the panel
        return waitUntil([&] {
            const std::vector<XWindow> menus = agent().openMenus();
            const PixelRect frame = panel().frame();
            return menus.size() == 1 && menus[0].frame.x == frame.x
                && menus[0].frame.y == frame.y + frame.height + Distance && display().keyboardIsGrabbed();
        });
    }
    // Chooses from the menu of a right click, by its number.
    bool ignore(const std::string& title, int item) {
        if (!pointAtTitle(title))
            return false;
        input().click(3);
        if (!ignoreMenuIsOpen())
            return false;
        for (int step = 0; step < item; ++step)
            input().tap(XK_Down);
        input().tap(XK_Return);
        return waitForNoMenu();
    }
    // Long enough for several ticks.
    bool staysAway() {
        return panel().waitUntilNotSeen() && holdsFor(Duration(1200), [&] { return !panel().isSeen(); });
    }
};

TEST_P(PanelIgnoreTest, ARightClickAndAControlClickOpenTheMenu) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(showsTitlesOf(application));
    ASSERT_TRUE(pointAtTitle("Edit"));
    input().click(3);
    ASSERT_TRUE(ignoreMenuIsOpen());
    EXPECT_EQ(itemsOfOpenMenu(), ignoreItems("Mousepad"));
    input().tap(XK_Escape);
    ASSERT_TRUE(waitForNoMenu());

    input().hold(XK_Control_L);
    input().click();
    input().releaseAll();
    ASSERT_TRUE(ignoreMenuIsOpen());
    EXPECT_EQ(itemsOfOpenMenu(), ignoreItems("Mousepad"));
    input().tap(XK_Escape);
    EXPECT_TRUE(waitForNoMenu());
    EXPECT_TRUE(panel().isSeen());
    // Beside the titles there is no such menu.
    const PixelRect frame = panel().frame();
    input().moveTo(frame.x + frame.width - 5, frame.y + 12);
    input().click(3);
    EXPECT_TRUE(holdsFor(Duration(300), [&] { return agent().openMenus().empty(); }));
}

TEST_P(PanelIgnoreTest, AnIgnoredApplicationHasNoPanelAnyMore) {
    TestApplication& geany = launch(ApplicationKind::Geany);
    ASSERT_TRUE(place(geany, {150, 200, 900, 400}));
    ASSERT_TRUE(showsTitlesOf(geany));
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(showsTitlesOf(mousepad));
    ASSERT_TRUE(ignore("File", 1));
    EXPECT_TRUE(staysAway());
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(geany.bringToFront());
        EXPECT_TRUE(standsAbove(geany.window())) << "round " << round;
        EXPECT_TRUE(showsTitlesOf(geany)) << "round " << round;
        ASSERT_TRUE(mousepad.bringToFront());
        EXPECT_TRUE(staysAway()) << "round " << round;
    }
    // Its menus are still at the pointer.
    input().moveTo(700, 300);
    EXPECT_TRUE(popUp().openWith(mousepad.expectedTitles()));
}

TEST_P(PanelIgnoreTest, AnIgnoredTitleKeepsThePanelFromThatWindowOnly) {
    TestApplication& application = launch(ApplicationKind::TwoWindows);
    std::vector<xcb_window_t> windows = display().managedWindowsOf(application.identifier());
    ASSERT_EQ(windows.size(), 2U);
    if (display().titleOf(windows[0]) == "Garden")
        std::swap(windows[0], windows[1]);
    ASSERT_TRUE(moveTo(windows[0], 200, 200));
    ASSERT_TRUE(moveTo(windows[1], 800, 500));
    ASSERT_TRUE(application.bringToFront(windows[0]));
    ASSERT_TRUE(standsAbove(windows[0]));
    ASSERT_TRUE(showsTitles({"Cook", "Serve"}));
    ASSERT_TRUE(ignore("Cook", 2));
    EXPECT_TRUE(staysAway());
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(application.bringToFront(windows[1]));
        EXPECT_TRUE(standsAbove(windows[1])) << "round " << round;
        EXPECT_TRUE(showsTitles({"Plant", "Harvest"})) << "round " << round;
        ASSERT_TRUE(application.bringToFront(windows[0]));
        EXPECT_TRUE(staysAway()) << "round " << round;
    }
}

TEST_P(PanelIgnoreTest, AnIgnoredApplicationHasNoPanelUnderAnotherTitleEither) {
    TestApplication& application = launch(ApplicationKind::TwoWindows);
    const std::vector<xcb_window_t> windows = display().managedWindowsOf(application.identifier());
    ASSERT_EQ(windows.size(), 2U);
    ASSERT_TRUE(moveTo(windows[0], 200, 200));
    ASSERT_TRUE(moveTo(windows[1], 800, 500));
    ASSERT_TRUE(application.bringToFront(windows[0]));
    ASSERT_TRUE(standsAbove(windows[0]));
    ASSERT_TRUE(panel().waitUntilOpaque());
    ASSERT_TRUE(ignore("Tarragon", 1));
    for (const xcb_window_t window : {windows[1], windows[0]}) {
        ASSERT_TRUE(application.bringToFront(window));
        EXPECT_TRUE(staysAway()) << display().titleOf(window);
    }
}

TEST_P(PanelIgnoreTest, AWindowThatLosesAnIgnoredTitleHasItsPanelBack) {
    TestApplication& application = launchTitled({"Basil", "Chervil"});
    ASSERT_TRUE(showsTitles({"Basil", "Chervil"}));
    ASSERT_TRUE(ignore("Basil", 2));
    EXPECT_TRUE(staysAway());
    input().moveTo(700, 300);
    ASSERT_TRUE(popUp().openWith({"Basil", "Chervil"}));
    ASSERT_TRUE(popUp().chooseByKeyboard({"Basil", "Banana of Basil"}));
    ASSERT_TRUE(waitForWindowTitle(application, "Banana of Basil"));
    EXPECT_TRUE(standsAbove(application.window()));
    EXPECT_TRUE(panel().waitUntilOpaque());
}

INSTANTIATE_TEST_SUITE_P(Under, PanelIgnoreTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
