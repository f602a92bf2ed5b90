#include "X11PanelSurfacesFixture.h"

#include <array>
#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include <unistd.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(X11PanelSurfacesTest, KeepsThePanelFromTheKeyboardAndOnEveryWorkspace) {
    EXPECT_THAT(toolkit->numbers(panel, "_NET_WM_DESKTOP"), ElementsAre(0xFFFFFFFF));
    const std::vector<std::uint32_t> hints = toolkit->numbers(panel, "WM_HINTS");
    ASSERT_EQ(hints.size(), 9U);
    EXPECT_EQ(hints[0] & 1, 1U);
    EXPECT_EQ(hints[1], 0U);
}

TEST_F(X11PanelSurfacesTest, PutsAnOrdinaryWindowOnEveryWorkspaceBeforeItIsShown) {
    const xcb_window_t window = toolkit->makeWindow();
    const xcb_atom_t modal = toolkit->atom("_NET_WM_STATE_MODAL");
    const xcb_atom_t sticky = toolkit->atom("_NET_WM_STATE_STICKY");
    toolkit->setNumbers(window, "_NET_WM_STATE", XCB_ATOM_ATOM, {modal});
    for (int time = 0; time < 2; ++time) {
        surfaces->joinAllSpaces(window);
        // The server has heard of it already, whoever asks.
        EXPECT_THAT(toolkit->numbers(window, "_NET_WM_DESKTOP"), ElementsAre(0xFFFFFFFF));
        EXPECT_THAT(toolkit->numbers(window, "_NET_WM_STATE"), ElementsAre(modal, sticky));
    }
    toolkit->destroy(window);
    surfaces->joinAllSpaces(window);
}

TEST_F(X11PanelSurfacesTest, LeavesTheStatesOfAShownWindowToTheWindowManager) {
    const xcb_window_t window = toolkit->makeWindow();
    toolkit->map(window);
    settle();
    surfaces->joinAllSpaces(window);
    EXPECT_THAT(toolkit->numbers(window, "_NET_WM_STATE"), IsEmpty());
}

TEST_F(X11PanelSurfacesTest, KeepsTheToolkitsOtherHintsAndProtocols) {
    const xcb_window_t window = toolkit->makeWindow({.overrideRedirect = true});
    toolkit->setNumbers(window, "WM_HINTS", XCB_ATOM_WM_HINTS, {3, 1, 1, 0, 0, 0, 0, 0, 7});
    toolkit->setNumbers(window, "WM_PROTOCOLS", XCB_ATOM_ATOM,
        {toolkit->atom("WM_DELETE_WINDOW"), toolkit->atom("WM_TAKE_FOCUS"), toolkit->atom("_NET_WM_PING")});
    const auto another = surfaces->makeSurface(window);
    settle();
    EXPECT_THAT(toolkit->numbers(window, "WM_HINTS"), ElementsAre(3, 0, 1, 0, 0, 0, 0, 0, 7));
    EXPECT_THAT(toolkit->numbers(window, "WM_PROTOCOLS"),
        ElementsAre(toolkit->atom("WM_DELETE_WINDOW"), toolkit->atom("_NET_WM_PING")));
}

TEST_F(X11PanelSurfacesTest, LeavesTheFocusWhereItIsWhenThePanelIsClicked) {
    other->focus(frame);
    settle();
    other->takeEvents();
    EXPECT_EQ(pressesAfterClick(50, 40), ToPanel);
    settle();
    EXPECT_EQ(other->focusedWindow(), frame);
    EXPECT_EQ(other->countEvents(XCB_FOCUS_OUT), 0);
}

TEST_F(X11PanelSurfacesTest, HasNoSurfaceForAWindowThatIsNotThere) {
    const xcb_window_t gone = toolkit->makeWindow();
    toolkit->destroy(gone);
    EXPECT_FALSE(surfaces->makeSurface(gone));
}

TEST_F(X11PanelSurfacesTest, LiesDirectlyAboveTheWindowInFront) {
    const xcb_window_t above = makeWindow(100, 80);
    EXPECT_THAT(order({frame, panel, above}), ElementsAre(frame, panel, above));
    toolkit->raise(panel);
    ASSERT_TRUE(becomes({frame, panel, above}));
}

TEST_F(X11PanelSurfacesTest, FollowsTheWindowInFrontThroughTheStack) {
    const xcb_window_t second = makeWindow(100, 80);
    const xcb_window_t top = makeWindow(120, 90);
    setFront(second);
    ASSERT_TRUE(becomes({frame, second, panel, top}));
    setFront(frame);
    ASSERT_TRUE(becomes({frame, panel, second, top}));
    other->raise(frame);
    ASSERT_TRUE(becomes({second, top, frame, panel}));
}

TEST_F(X11PanelSurfacesTest, ComesBackWhenTheWindowInFrontIsRaisedAfterItsNeighbourWasTakenAway) {
    const xcb_window_t neighbour = makeWindow(60, 60);
    const xcb_window_t front = makeWindow(100, 80);
    setFront(front);
    ASSERT_TRUE(becomes({frame, neighbour, front, panel}));
    settle();
    other->move(front, 101, 80); // tells which window is its neighbour
    settle();
    other->raise(neighbour);
    settle();
    other->raise(front);
    ASSERT_TRUE(becomes({frame, neighbour, front, panel}));
}

TEST_F(X11PanelSurfacesTest, ComesBackEachTimeTheWindowInFrontIsRaised) {
    for (int round = 0; round < 3; ++round) {
        other->raise(frame);
        ASSERT_TRUE(becomes({frame, panel})) << round;
        settle();
    }
}

TEST_F(X11PanelSurfacesTest, ComesBackWhenTheWindowInFrontIsRaisedAfterItsNeighbourHasCirculated) {
    const xcb_window_t neighbour = makeWindow(60, 60);
    const xcb_window_t front = makeWindow(100, 80);
    setFront(front);
    ASSERT_TRUE(becomes({frame, neighbour, front, panel}));
    settle();
    other->move(front, 101, 80); // tells which window is its neighbour
    settle();
    // The lowest window that another one covers comes to the top.
    other->circulate();
    other->circulate();
    settle();
    ASSERT_EQ(order({neighbour, front, panel}).back(), neighbour);
    other->raise(front);
    ASSERT_TRUE(becomes({frame, neighbour, front, panel}));
}

TEST_F(X11PanelSurfacesTest, LetsNothingComeBetweenItAndTheWindowInFront) {
    const xcb_window_t between = makeWindow(100, 80);
    const std::array<std::uint32_t, 2> values = {frame, XCB_STACK_MODE_ABOVE};
    xcb_configure_window(
        other->connection(), between, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
    other->synchronize();
    ASSERT_TRUE(becomes({frame, panel, between}));
}

TEST_F(X11PanelSurfacesTest, LiesAboveTheFrameThatAWindowManagerGivesTheWindow) {
    const xcb_window_t client = makeWindow(100, 80);
    const xcb_window_t top = makeWindow(120, 90);
    setFront(client);
    ASSERT_TRUE(becomes({client, panel, top}));
    // A window manager starts and puts the window into a frame.
    const xcb_window_t decorations = makeWindow(90, 70);
    xcb_reparent_window(other->connection(), client, decorations, 5, 20);
    other->synchronize();
    ASSERT_TRUE(becomes({top, decorations, panel}));
}

TEST_F(X11PanelSurfacesTest, StaysWhereItIsWhileAWindowOfItsOwnProgramIsInFront) {
    const xcb_window_t top = makeWindow(120, 90);
    const xcb_window_t preferences = toolkit->makeWindow({.x = 130, .y = 90});
    toolkit->map(preferences);
    setFront(preferences);
    settle();
    EXPECT_THAT(order({frame, panel, top, preferences}), ElementsAre(frame, panel, top, preferences));
    setFront(XCB_WINDOW_NONE);
    settle();
    EXPECT_THAT(order({frame, panel, top, preferences}), ElementsAre(frame, panel, top, preferences));
}

TEST_F(X11PanelSurfacesTest, SurvivesTheEndOfTheWindowInFront) {
    const xcb_window_t next = makeWindow(100, 80);
    other->destroy(frame);
    settle();
    setFront(next);
    ASSERT_TRUE(becomes({next, panel}));
}

TEST_F(X11PanelSurfacesTest, KeepsTheOrderOfSeveralPanels) {
    const xcb_window_t second = toolkit->makeWindow({.overrideRedirect = true});
    const auto another = surfaces->makeSurface(second);
    toolkit->map(second);
    const xcb_window_t top = makeWindow(100, 80);
    ASSERT_TRUE(becomes({frame, panel, second, top}));
    toolkit->raise(panel);
    ASSERT_TRUE(becomes({frame, panel, second, top}));
    other->raise(frame);
    ASSERT_TRUE(becomes({top, frame, panel, second}));
}

TEST_F(X11PanelSurfacesTest, RestsWhenTheWindowInFrontOnlyMoves) {
    settle();
    other->move(frame, 11, 10);
    settle();
    // Requests are numbered.
    const unsigned before = xcb_no_operation(connection->get()).sequence;
    for (int x = 0; x < 50; ++x)
        other->move(frame, x, 10);
    runLoop.runReadable();
    EXPECT_EQ(xcb_no_operation(connection->get()).sequence, before + 1);
    EXPECT_THAT(order({frame, panel}), ElementsAre(frame, panel));
}

TEST_F(X11PanelSurfacesTest, LiesAboveEverythingAtTheLevelOfPopUpMenusUntilItGoesBack) {
    const xcb_window_t top = makeWindow(100, 80);
    surface->setLevel(PanelLevel::PopUpMenu);
    ASSERT_TRUE(becomes({frame, top, panel}));
    settle();
    EXPECT_THAT(order({frame, top, panel}), ElementsAre(frame, top, panel));
    surface->setLevel(PanelLevel::FrontWindow);
    ASSERT_TRUE(becomes({frame, panel, top}));
}

TEST_F(X11PanelSurfacesTest, LetsClicksBesideWhatItPaintsReachTheWindowBelow) {
    EXPECT_EQ(pressesAfterClick(25, 40), ToPanel);
    surface->setClickableRegion({{{30, 2}, {20, 10}}, {{70.5, 2}, {9.2, 10}}});
    settle();
    EXPECT_EQ(pressesAfterClick(25, 40), ToOther);
    EXPECT_EQ(pressesAfterClick(20 + 30, 30 + 2), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 50, 30 + 2), ToOther);
    EXPECT_EQ(pressesAfterClick(20 + 30, 30 + 12), ToOther);
    EXPECT_EQ(pressesAfterClick(20 + 70, 30 + 5), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 79, 30 + 5), ToPanel);
    EXPECT_EQ(pressesAfterClick(20 + 80, 30 + 5), ToOther);
    surface->setClickableRegion({});
    settle();
    EXPECT_EQ(pressesAfterClick(50, 32), ToOther);
}

TEST_F(X11PanelSurfacesTest, CutsOffWhatItDoesNotPaintUnlessACompositorRuns) {
    surface->setClickableRegion({{{30, 2}, {20, 10}}});
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 200);
    EXPECT_FALSE(surface->isTranslucent());
    startCompositor();
    ASSERT_TRUE(runLoop.runUntil([&] { return toolkit->shapeArea(panel) == 100 * 20; }));
    EXPECT_TRUE(surface->isTranslucent());
    EXPECT_EQ(pressesAfterClick(25, 40), ToOther);
    EXPECT_EQ(pressesAfterClick(52, 34), ToPanel);
    stopCompositor();
    ASSERT_TRUE(runLoop.runUntil([&] { return toolkit->shapeArea(panel) == 200; }));
}

// To make a surface also reads what the server has told by then.
TEST_F(X11PanelSurfacesTest, LearnsOfACompositorThatCameBeforeAnotherPanel) {
    surface->setClickableRegion({{{30, 2}, {20, 10}}});
    settle();
    const xcb_window_t another = toolkit->makeWindow({.overrideRedirect = true});
    settle();
    startCompositor();
    const auto anotherSurface = surfaces->makeSurface(another);
    EXPECT_TRUE(runLoop.runUntil([&] { return toolkit->shapeArea(panel) == 100 * 20; }));
}

TEST_F(X11PanelSurfacesTest, IsVisibleFromOneHalfOnWithoutACompositor) {
    surface->setAlpha(0.49);
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 0);
    EXPECT_EQ(pressesAfterClick(50, 40), ToOther);
    surface->setAlpha(0.5);
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 100 * 20);
    EXPECT_EQ(pressesAfterClick(50, 40), ToPanel);
}

TEST_F(X11PanelSurfacesTest, IsTranslucentWithACompositorAndLetsClicksThroughOnceInvisible) {
    startCompositor();
    settle();
    surface->setAlpha(0.25);
    settle();
    EXPECT_THAT(toolkit->numbers(panel, "_NET_WM_WINDOW_OPACITY"), ElementsAre(0x40000000));
    EXPECT_EQ(toolkit->shapeArea(panel), 100 * 20);
    EXPECT_EQ(pressesAfterClick(50, 40), ToPanel);
    surface->setAlpha(0);
    settle();
    EXPECT_THAT(toolkit->numbers(panel, "_NET_WM_WINDOW_OPACITY"), ElementsAre(0));
    EXPECT_EQ(pressesAfterClick(50, 40), ToOther);
}

TEST_F(X11PanelSurfacesTest, KnowsACompositorThatWasThereBefore) {
    surface.reset();
    startCompositor();
    X11PanelSurfaces later(*connection, runLoop);
    const auto another = later.makeSurface(panel);
    another->setAlpha(0.25);
    settle();
    EXPECT_EQ(toolkit->shapeArea(panel), 100 * 20);
}

class X11PanelPointerTest : public X11PanelSurfacesTest {
protected:
    void SetUp() override {
        X11PanelSurfacesTest::SetUp();
        if (IsSkipped())
            return;
        surface->setPointerHandler([this](const std::optional<Point>& location) {
            locations.push_back(location);
            if (told.empty() || told.back() != location.has_value())
                told.push_back(location.has_value());
        });
        settle();
    }
    bool isTold(const std::vector<bool>& expected) {
        const bool done = runLoop.runUntil([&] { return told.size() >= expected.size(); });
        settle();
        return done && told == expected;
    }
    std::vector<bool> told; // each entering and leaving
    std::vector<std::optional<Point>> locations;
};

TEST_F(X11PanelPointerTest, TellsWhereThePointerIsFromTheTopLeftCorner) {
    other->movePointer(20, 30);
    EXPECT_TRUE(isTold({true}));
    other->movePointer(57, 44);
    EXPECT_TRUE(runLoop.runUntil([&] { return locations.size() >= 2; }));
    EXPECT_THAT(locations, testing::ElementsAre(Point{0, 0}, Point{37, 14}));
}

TEST_F(X11PanelPointerTest, TellsThatThePointerEntersAndLeavesTheFrame) {
    other->movePointer(20, 30);
    EXPECT_TRUE(isTold({true}));
    other->movePointer(119, 49);
    settle();
    EXPECT_EQ(told.size(), 1U);
    other->movePointer(120, 49);
    EXPECT_TRUE(isTold({true, false}));
    other->movePointer(50, 29);
    settle();
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(X11PanelPointerTest, TellsOfThePointerWhileThePanelIsInvisible) {
    surface->setAlpha(0);
    settle();
    other->movePointer(50, 40);
    EXPECT_TRUE(isTold({true}));
    other->movePointer(300, 200);
    EXPECT_TRUE(isTold({true, false}));
}

TEST_F(X11PanelPointerTest, TellsOfThePointerWhileAnotherClientHasIt) {
    ASSERT_TRUE(other->grabPointer());
    other->movePointer(50, 40);
    EXPECT_TRUE(isTold({true}));
    other->ungrabPointer();
}

TEST_F(X11PanelPointerTest, TellsOfAFrameThatMovesUnderAPointerAtRest) {
    other->movePointer(200, 150);
    settle();
    EXPECT_THAT(told, IsEmpty());
    toolkit->move(panel, 190, 140);
    EXPECT_TRUE(isTold({true}));
    toolkit->move(panel, 0, 0);
    EXPECT_TRUE(isTold({true, false}));
}

TEST_F(X11PanelPointerTest, TakesAHiddenPanelForLeft) {
    other->movePointer(50, 40);
    EXPECT_TRUE(isTold({true}));
    toolkit->unmap(panel);
    EXPECT_TRUE(isTold({true, false}));
    other->movePointer(51, 40);
    settle();
    EXPECT_EQ(told.size(), 2U);
    toolkit->map(panel);
    EXPECT_TRUE(isTold({true, false, true}));
}

TEST_F(X11PanelPointerTest, DoesNotWakeForThePointerWithoutAVisiblePanel) {
    toolkit->unmap(panel);
    settle();
    const int before = runLoop.wakeUps();
    for (int x = 0; x < 50; ++x)
        other->movePointer(20 + x, 150);
    settle();
    EXPECT_EQ(runLoop.wakeUps(), before);
}

TEST_F(X11PanelPointerTest, TellsNothingAfterTheSurfacesEnd) {
    surface.reset();
    other->movePointer(50, 40);
    settle();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(X11PanelPointerTest, LetsTheHandlerEndTheSurface) {
    surface->setPointerHandler([this](const std::optional<Point>&) { surface.reset(); });
    other->movePointer(50, 40);
    ASSERT_TRUE(runLoop.runUntil([&] { return !surface; }));
    other->movePointer(300, 200);
    settle();
}

class X11DockTest : public X11PanelSurfacesTest {
protected:
    // A bar of 22 pixels that is not shown yet.
    void makeBar(std::int16_t x, std::int16_t y, std::uint16_t width) {
        bar = toolkit->makeWindow({.x = x, .y = y, .width = width, .height = 22, .overrideRedirect = true});
        barSurface = surfaces->makeSurface(bar);
        barSurface->setLevel(PanelLevel::Dock);
    }

    xcb_window_t bar = 0;
    std::unique_ptr<PanelSurface> barSurface;
};

TEST_F(X11DockTest, IsADockThatReservesItsRoomAtTheTopOfItsMonitor) {
    other->setMonitors({{0, 0, 160, 240, true}, {160, 0, 160, 240, false}});
    makeBar(160, 0, 160);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return !strut().empty(); }));
    EXPECT_THAT(strut(), ElementsAre(0, 0, 22, 0, 0, 0, 0, 0, 160, 319, 0, 0));
    EXPECT_THAT(toolkit->numbers(bar, "_NET_WM_WINDOW_TYPE"), ElementsAre(toolkit->atom("_NET_WM_WINDOW_TYPE_DOCK")));
    EXPECT_THAT(toolkit->numbers(bar, "_NET_WM_STATE"), ElementsAre(toolkit->atom("_NET_WM_STATE_STICKY")));
    EXPECT_FALSE(toolkit->isOverrideRedirect(bar));
    EXPECT_TRUE(toolkit->isOverrideRedirect(panel));
    other->setMonitors({});
}

TEST_F(X11DockTest, ReservesItsRoomWithADockThatNobodySeesOrClicks) {
    makeBar(0, 0, 320);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return toolkit->isMapped(room()); }));
    EXPECT_EQ(toolkit->shapeArea(room()), 0);
    EXPECT_FALSE(toolkit->isOverrideRedirect(room()));
    EXPECT_THAT(
        toolkit->numbers(room(), "_NET_WM_WINDOW_TYPE"), ElementsAre(toolkit->atom("_NET_WM_WINDOW_TYPE_DOCK")));
    EXPECT_THAT(toolkit->numbers(room(), "_NET_WM_STRUT"), ElementsAre(0, 0, 22, 0));
    EXPECT_THAT(toolkit->numbers(room(), "_NET_WM_PID"), ElementsAre(getpid()));
    EXPECT_THAT(toolkit->numbers(room(), "_NET_WM_DESKTOP"), ElementsAre(0xFFFFFFFF));
    EXPECT_EQ(toolkit->numbers(room(), "WM_HINTS").at(1), 0U);
}

TEST_F(X11DockTest, KeepsItsRoomWhileItIsHidden) {
    makeBar(0, 0, 320);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return toolkit->isMapped(room()); }));
    const xcb_window_t before = room();
    toolkit->unmap(bar);
    settle();
    EXPECT_EQ(room(), before);
    EXPECT_TRUE(toolkit->isMapped(before));
    toolkit->map(bar);
    settle();
    EXPECT_EQ(room(), before);
}

TEST_F(X11DockTest, GivesItsRoomBackInTheEnd) {
    makeBar(0, 0, 320);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return !strut().empty(); }));
    const xcb_window_t before = room();
    barSurface.reset();
    settle();
    EXPECT_FALSE(toolkit->exists(before));
}

TEST_F(X11DockTest, FollowsItsMonitorWithItsRoom) {
    other->setMonitors({{0, 0, 160, 240, true}, {160, 0, 160, 240, false}});
    makeBar(160, 0, 160);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return !strut().empty(); }));
    toolkit->move(bar, 0, 0);
    ASSERT_TRUE(runLoop.runUntil([&] { return strut().at(8) == 0; }));
    EXPECT_THAT(strut(), ElementsAre(0, 0, 22, 0, 0, 0, 0, 0, 0, 159, 0, 0));
    // Its monitor is taken away while it is hidden.
    toolkit->unmap(bar);
    settle();
    other->setMonitors({{0, 10, 320, 230, true}});
    ASSERT_TRUE(runLoop.runUntil([&] { return strut().empty(); }));
    other->setMonitors({});
}

// A window manager forgets which workspaces a window is on that was hidden.
TEST_F(X11DockTest, AsksForAllWorkspacesEachTimeItIsShown) {
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(other->connection(), other->root(), XCB_CW_EVENT_MASK, &mask);
    makeBar(0, 0, 320);
    for (int time = 0; time < 2; ++time) {
        settle();
        other->takeEvents();
        toolkit->map(bar);
        EXPECT_TRUE(runLoop.runUntil([&] { return other->countEvents(XCB_CLIENT_MESSAGE) == 1; }));
        toolkit->unmap(bar);
    }
}

TEST_F(X11DockTest, IsLetAloneByTheWindowManagerOnceItsLevelIsAnother) {
    makeBar(0, 0, 320);
    // The server knows as soon as the level is chosen: the toolkit shows the window over another connection.
    EXPECT_FALSE(toolkit->isOverrideRedirect(bar));
    barSurface->setLevel(PanelLevel::OrdinaryWindows);
    EXPECT_TRUE(toolkit->isOverrideRedirect(bar));
}

TEST_F(X11DockTest, HasAnAlphaWithACompositorAndIsOpaqueWithout) {
    makeBar(0, 0, 320);
    toolkit->map(bar);
    barSurface->setAlpha(0.75);
    settle();
    EXPECT_FALSE(barSurface->isTranslucent());
    EXPECT_EQ(toolkit->shapeArea(bar), 320 * 22);
    startCompositor();
    ASSERT_TRUE(runLoop.runUntil([&] { return barSurface->isTranslucent(); }));
    EXPECT_THAT(toolkit->numbers(bar, "_NET_WM_WINDOW_OPACITY"), ElementsAre(0xBFFFFFFF));
    barSurface->setAlpha(0.9);
    settle();
    EXPECT_THAT(toolkit->numbers(bar, "_NET_WM_WINDOW_OPACITY"), ElementsAre(0xE6666666));
}

TEST_F(X11DockTest, ReservesNothingBelowAnotherMonitor) {
    other->setMonitors({{0, 0, 320, 120, true}, {0, 120, 320, 120, false}});
    makeBar(0, 120, 320);
    toolkit->map(bar);
    settle();
    EXPECT_THAT(strut(), IsEmpty());
    toolkit->move(bar, 0, 0);
    ASSERT_TRUE(runLoop.runUntil([&] { return !strut().empty(); }));
    toolkit->move(bar, 0, 120);
    ASSERT_TRUE(runLoop.runUntil([&] { return strut().empty(); }));
    other->setMonitors({});
}

TEST_F(X11DockTest, LooksAgainWhenTheMonitorsChange) {
    other->setMonitors({{0, 0, 160, 240, true}, {160, 10, 160, 230, false}});
    makeBar(160, 0, 160);
    toolkit->map(bar);
    settle();
    EXPECT_THAT(strut(), IsEmpty());
    other->setMonitors({{0, 0, 160, 240, true}, {160, 0, 160, 240, false}});
    ASSERT_TRUE(runLoop.runUntil([&] { return !strut().empty(); }));
    other->setMonitors({});
}

TEST_F(X11DockTest, GivesItsRoomBackAtAnotherLevel) {
    makeBar(0, 0, 320);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return !strut().empty(); }));
    toolkit->unmap(bar);
    barSurface->setLevel(PanelLevel::FrontWindow);
    toolkit->map(bar);
    ASSERT_TRUE(runLoop.runUntil([&] { return strut().empty(); }));
    EXPECT_TRUE(toolkit->isOverrideRedirect(bar));
    ASSERT_TRUE(becomes({frame, panel, bar}));
}

// A bar that lies above ordinary windows, whichever of them is in front.
class X11PanelAboveOrdinaryWindowsTest : public X11PanelSurfacesTest {
protected:
    void SetUp() override {
        X11PanelSurfacesTest::SetUp();
        if (IsSkipped())
            return;
        bar = toolkit->makeWindow({.x = 160, .y = 0, .width = 160, .height = 22, .overrideRedirect = true});
        barSurface = surfaces->makeSurface(bar);
        barSurface->setLevel(PanelLevel::OrdinaryWindows);
        toolkit->map(bar);
    }
    // As a window manager does it, for windows that it does not restack.
    void tellOrder(const std::vector<xcb_window_t>& windows) {
        other->setNumbers(other->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, windows);
    }
    xcb_window_t makeDock(
        const char* property = "_NET_WM_WINDOW_TYPE", const char* value = "_NET_WM_WINDOW_TYPE_DOCK") {
        const xcb_window_t window = makeWindow(0, 0);
        other->setNumbers(window, property, XCB_ATOM_ATOM, {other->atom(value)});
        return window;
    }

    xcb_window_t bar = 0;
    std::unique_ptr<PanelSurface> barSurface;
};

TEST_F(X11PanelAboveOrdinaryWindowsTest, LiesAboveAWindowThatIsNotInFront) {
    const xcb_window_t maximised = makeWindow(160, 0);
    tellOrder({frame, maximised});
    ASSERT_TRUE(becomes({frame, panel, maximised, bar}));
    other->raise(maximised);
    ASSERT_TRUE(becomes({frame, panel, maximised, bar}));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, NeedsNoWindowInFront) {
    const xcb_window_t maximised = makeWindow(160, 0);
    setFront(XCB_WINDOW_NONE);
    tellOrder({maximised});
    ASSERT_TRUE(becomes({maximised, bar}));
    // The desktop of the file manager is in front.
    setFront(frame);
    tellOrder({frame, maximised});
    settle();
    EXPECT_THAT(order({frame, panel, maximised, bar}), ElementsAre(frame, panel, maximised, bar));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, LiesBelowDocksAndWindowsThatAreKeptAboveAndOpenMenus) {
    const xcb_window_t maximised = makeWindow(160, 0);
    const xcb_window_t above = makeDock("_NET_WM_STATE", "_NET_WM_STATE_ABOVE");
    const xcb_window_t dock = makeDock();
    const xcb_window_t menu = other->makeWindow({.x = 160, .y = 0, .overrideRedirect = true});
    other->map(menu);
    tellOrder({frame, maximised, above, dock});
    ASSERT_TRUE(becomes({frame, panel, maximised, bar, above, dock, menu}));
    tellOrder({maximised, frame, above, dock});
    ASSERT_TRUE(becomes({frame, panel, bar, maximised, above, dock, menu}));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, RestsAboveAPanelThatLiesAboveTheSameWindow) {
    tellOrder({frame});
    ASSERT_TRUE(becomes({frame, panel, bar}));
    other->raise(frame);
    ASSERT_TRUE(becomes({frame, panel, bar}));
    settle();
    const unsigned before = xcb_no_operation(connection->get()).sequence;
    settle();
    settle();
    // Neither puts itself below the other for ever.
    EXPECT_LE(xcb_no_operation(connection->get()).sequence, before + 10);
    EXPECT_THAT(order({frame, panel, bar}), ElementsAre(frame, panel, bar));
}

TEST_F(X11PanelAboveOrdinaryWindowsTest, StaysWhereItIsWithoutAWindowManager) {
    const xcb_window_t maximised = makeWindow(160, 0);
    settle();
    EXPECT_THAT(order({frame, panel, bar, maximised}), ElementsAre(frame, panel, bar, maximised));
}

} // namespace
} // namespace tarragon
