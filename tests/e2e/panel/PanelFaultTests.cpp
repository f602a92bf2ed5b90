// Windows and applications that make it hard for a panel: restless, tiny, huge, crowded, stopped, killed.
#include "PanelUseEndToEndTest.h"
#include "ProcessTree.h"

#include <atomic>
#include <csignal>
#include <thread>

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

const std::vector<std::string> HerbTitles{"Basil", "Chervil", "Dill"};

// Somebody who asks for another place of a window 500 times a second, as the window's own application would.
class RestlessMover {
public:
    RestlessMover(const Desktop& desktop, xcb_window_t window)
        : _display(desktop.environment().at("DISPLAY"))
        , _thread([this, window](const std::stop_token& stop) {
            for (int step = 0; !stop.stop_requested(); ++step) {
                const std::uint32_t place[] = {
                    200U + static_cast<std::uint32_t>(step % 300), 150U + static_cast<std::uint32_t>(step % 200)};
                xcb_configure_window(_display.connection(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, place);
                xcb_flush(_display.connection());
                ++_moves;
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        }) { }

    int moves() const { return _moves; }

private:
    XDisplay _display;
    std::atomic<int> _moves = 0;
    std::jthread _thread; // ends before what it uses
};

} // namespace

class PanelFaultTest : public WindowManagerPanelUseTest {
protected:
    // That the panel of this window is whole and its menus work.
    void expectWorks(const TestApplication& application, const std::string& title) {
        EXPECT_TRUE(standsAbove(application.window()));
        EXPECT_TRUE(panel().waitUntilOpaque());
        ASSERT_TRUE(openTitle(title));
        ASSERT_TRUE(popUp().chooseByMouse({"Cherry of " + title}));
        EXPECT_TRUE(waitForWindowTitle(application, "Cherry of " + title));
    }
};

TEST_P(PanelFaultTest, AWindowThatMovesAllTheTimeLeavesTheProgramResponsive) {
    TestApplication& application = launchTitled(HerbTitles);
    ASSERT_TRUE(place(application, {150, 200, 900, 300}));
    ASSERT_TRUE(showsTitles(HerbTitles));
    {
        const RestlessMover mover(desktop(), application.window());
        const auto start = Clock::now();
        const auto before = processorTimeOf(agent().identifier());
        ASSERT_TRUE(waitUntil([&] { return mover.moves() >= 1000; }, Duration(60000)));
        const auto used = processorTimeOf(agent().identifier()) - before;
        EXPECT_LT(used, (Clock::now() - start) * 7 / 10);
        input().moveTo(1200, 900);
        for (int round = 0; round < 2; ++round) {
            ASSERT_TRUE(popUp().open(Duration(3000))) << "round " << round;
            ASSERT_TRUE(popUp().close()) << "round " << round;
        }
    }
    ASSERT_TRUE(moveTo(application.window(), 260, 180));
    expectWorks(application, "Chervil");
}

TEST_P(PanelFaultTest, WindowsOfEverySizeHaveAPanel) {
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{1, 1}, {30000, 200}, {200, 30000}}) {
        TestApplication& application = launchTitled(HerbTitles, width, height);
        // Window managers put the larger ones where they like.
        display().moveWindow(application.window(), 150, 200);
        EXPECT_TRUE(waitUntil([&] {
            const xcb_window_t window = application.window();
            const bool hasRoom = display().outerFrameOf(window).y >= RoomForPanel;
            return panel().isSeen() && panel().frame() == (hasRoom ? aboveWindow(window) : onTitleBar(window));
        })) << width
            << " x " << height;
        EXPECT_TRUE(panel().waitUntilOpaque()) << width << " x " << height;
        EXPECT_TRUE(waitUntil([&] { return !panel().titles().empty(); })) << width << " x " << height;
        const std::string title = panel().frameOfTitle("Basil") ? "Basil" : Panel::OverflowTitle;
        if (panel().frameOfTitle(title) && display().bounds().contains(*panel().frameOfTitle(title)) && width > 1) {
            ASSERT_TRUE(openTitle(title)) << width << " x " << height;
            ASSERT_TRUE(popUp().close());
        }
        quit(application);
        EXPECT_TRUE(isNotSeen()) << width << " x " << height;
    }
    TestApplication& usual = launchTitled(HerbTitles);
    ASSERT_TRUE(place(usual, {150, 200, 900, 300}));
    ASSERT_TRUE(showsTitles(HerbTitles));
    expectWorks(usual, "Dill");
}

TEST_P(PanelFaultTest, TwoHundredTitlesFindRoomInTheOverflow) {
    std::vector<std::string> titles;
    for (int index = 1; index <= 200; ++index)
        titles.push_back("Title " + std::to_string(index));
    TestApplication& application = launchTitled(titles);
    ASSERT_TRUE(place(application, {150, 200, 900, 300}));
    ASSERT_TRUE(showsTitles(titles));
    expectWorks(application, "Title 2");
    // There is no room for all of them below the panel.
    ASSERT_TRUE(pointAtTitle(Panel::OverflowTitle));
    input().click();
    ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == 1 && display().keyboardIsGrabbed(); }));
    EXPECT_TRUE(display().bounds().contains(agent().openMenus().at(0).frame));
    // Up from the first item is the last one, the program's own; before it comes a line.
    input().tap(XK_Down);
    input().tap(XK_Up);
    ASSERT_TRUE(waitForHighlight("Tarragon"));
    input().tap(XK_Up);
    ASSERT_TRUE(waitForHighlight("Title 200"));
    input().tap(XK_Right);
    ASSERT_TRUE(waitForHighlight("Apricot of Title 200"));
    input().tap(XK_Return);
    EXPECT_TRUE(waitForWindowTitle(application, "Apricot of Title 200"));
}

TEST_P(PanelFaultTest, TitlesOfTenThousandCharactersLeaveTheOthersUsable) {
    TestApplication& application = launchTitled({"Basil", std::string(10000, 'w'), "Chervil"});
    ASSERT_TRUE(place(application, {150, 200, 900, 300}));
    ASSERT_TRUE(waitUntil([&] { return panel().frameOfTitle(Panel::OverflowTitle).has_value(); }));
    expectWorks(application, "Basil");
    ASSERT_TRUE(openTitle(Panel::OverflowTitle));
    EXPECT_TRUE(display().bounds().contains(agent().openMenus().at(0).frame));
    ASSERT_TRUE(popUp().chooseByMouse({"Chervil", "Banana of Chervil"}));
    EXPECT_TRUE(waitForWindowTitle(application, "Banana of Chervil"));
}

TEST_P(PanelFaultTest, AnotherWindowManagerFindsThePanelInItsPlace) {
    TestApplication& application = launchTitled(HerbTitles);
    ASSERT_TRUE(place(application, {150, 200, 900, 300}));
    ASSERT_TRUE(showsTitles(HerbTitles));
    desktop().restartWindowManager();
    ASSERT_TRUE(waitUntil([&] { return !display().managedWindows().empty(); }));
    ASSERT_TRUE(application.bringToFront());
    ASSERT_TRUE(moveTo(application.window(), 220, 260));
    EXPECT_TRUE(liesDirectlyOn(application.window()));
    expectWorks(application, "Basil");
}

TEST_P(PanelFaultTest, AStoppedApplicationCostsNoMoreThanItsOwnMenus) {
    TestApplication& herbs = launchTitled(HerbTitles);
    ASSERT_TRUE(place(herbs, {150, 500, 900, 300}));
    ASSERT_TRUE(showsTitles(HerbTitles));
    TestApplication& stopped = launchTitled({"Anise", "Borage"});
    ASSERT_TRUE(place(stopped, {200, 150, 900, 300}));
    ASSERT_TRUE(showsTitles({"Anise", "Borage"}));
    stopped.process().sendSignal(SIGSTOP);
    ASSERT_TRUE(pointAtTitle("Anise"));
    input().click();
    // It shows what it knows of the menu, or nothing. Either way it is back within a time-out or two.
    const auto start = Clock::now();
    waitUntil([&] { return !agent().openMenus().empty(); }, Duration(2000));
    EXPECT_TRUE(popUp().close());
    EXPECT_TRUE(waitForNoMenu());
    EXPECT_LE(Clock::now() - start, Duration(5000));

    ASSERT_TRUE(herbs.bringToFront());
    ASSERT_TRUE(showsTitles(HerbTitles));
    expectWorks(herbs, "Dill");

    stopped.process().sendSignal(SIGCONT);
    ASSERT_TRUE(stopped.bringToFront());
    ASSERT_TRUE(showsTitles({"Anise", "Borage"}));
    expectWorks(stopped, "Anise");
}

TEST_P(PanelFaultTest, AnApplicationThatDiesUnderItsOpenMenuLeavesNothingBehind) {
    TestApplication& herbs = launchTitled(HerbTitles);
    ASSERT_TRUE(place(herbs, {150, 500, 900, 300}));
    TestApplication& dying = launchTitled({"Anise", "Borage"});
    ASSERT_TRUE(place(dying, {200, 150, 900, 300}));
    ASSERT_TRUE(showsTitles({"Anise", "Borage"}));
    ASSERT_TRUE(openTitle("Borage"));
    quit(dying);
    input().tap(XK_Down);
    input().tap(XK_Return);
    // Whether that found something to choose or not.
    EXPECT_TRUE(popUp().close());
    EXPECT_TRUE(waitForNoMenu());
    herbs.bringToFront();
    ASSERT_TRUE(showsTitles(HerbTitles));
    expectWorks(herbs, "Basil");
    quit(herbs);
    EXPECT_TRUE(isNotSeen());
}

INSTANTIATE_TEST_SUITE_P(Under, PanelFaultTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
