#include "X11PanelSurfacesFixture.h"

#include <array>
#include <vector>

#include <gmock/gmock.h>

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

// As on another workspace, where the window in front, which is on all of them, stays in front.
TEST_F(X11PanelSurfacesTest, GoesToTheWindowOfTheSameApplicationThatIsSeenBehindAWindowOfItsOwnProgram) {
    const auto stranger = connectStranger();
    const xcb_window_t second = makeWindow(100, 80);
    other->unmap(second);
    const xcb_window_t strange = stranger->makeWindow();
    stranger->map(strange);
    const xcb_window_t preferences = toolkit->makeWindow({.x = 130, .y = 90});
    toolkit->map(preferences);
    tellOrder({frame, second, strange, preferences});
    setFront(preferences);
    settle();
    const std::vector<xcb_window_t> onFrame{frame, panel, second, strange, preferences};
    const std::vector<xcb_window_t> onSecond{frame, second, panel, strange, preferences};
    EXPECT_EQ(order(onFrame), onFrame);
    for (int round = 0; round < 2; ++round) {
        // Some window managers show what there is to be seen first.
        other->map(second);
        settle();
        other->unmap(frame);
        ASSERT_TRUE(becomes(onSecond)) << round;
        // With none to be seen it stays.
        other->unmap(second);
        settle();
        EXPECT_EQ(order(onSecond), onSecond) << round;
        other->map(frame);
        ASSERT_TRUE(becomes(onFrame)) << round;
    }
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

} // namespace
} // namespace tarragon
