#include "X11PanelSurfacesFixture.h"

#include <memory>

#include <gmock/gmock.h>

#include <unistd.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
} // namespace tarragon
