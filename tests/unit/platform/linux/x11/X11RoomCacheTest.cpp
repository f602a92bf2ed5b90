// What panels keep free of a desktop, on a real X server of 320 by 240 pixels, and how rarely it is asked for.
#include "platform/linux/x11/X11RoomCache.h"

#include "fake/PollingRunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include <unistd.h>
#include <xcb/randr.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class X11RoomCacheTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        desktop = std::make_unique<X11Client>(server.displayName());
        auto own = X11Connection::connect(server.displayName());
        ASSERT_TRUE(own);
        connection = own.get();
        cache = std::make_unique<X11RoomCache>(std::move(own), [this] { return look; });
    }

    xcb_window_t openWindow() {
        const xcb_window_t window = desktop->makeWindow({.x = 0, .y = 0, .width = 320, .height = 30});
        managed.push_back(window);
        tellManaged();
        return window;
    }
    void tellManaged() { desktop->setNumbers(desktop->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, managed); }
    xcb_window_t openBar(std::uint32_t height) {
        const xcb_window_t window = openWindow();
        keepTop(window, height);
        return window;
    }
    void keepTop(xcb_window_t window, std::uint32_t height) {
        desktop->setNumbers(
            window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, {0, 0, height, 0, 0, 0, 0, 0, 0, 319, 0, 0});
    }
    void removeProperty(xcb_window_t window, const char* property) {
        xcb_delete_property(desktop->connection(), window, desktop->atom(property));
        desktop->synchronize();
    }

    // The heights of the bars at the top.
    std::vector<double> tops() {
        std::vector<double> heights;
        for (const X11Strut& strut : cache->room().struts)
            heights.push_back(strut.area.size.height);
        return heights;
    }
    // How many requests the server gets for the room.
    unsigned requests() {
        const unsigned before = xcb_no_operation(connection->get()).sequence;
        (void)cache->room();
        return xcb_no_operation(connection->get()).sequence - before - 1;
    }
    bool hasQueuedEvents() {
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection->get())};
        return event != nullptr;
    }

    XkbServer server;
    std::unique_ptr<X11Client> desktop;
    X11Connection* connection = nullptr;
    std::optional<std::uint64_t> look;
    std::unique_ptr<X11RoomCache> cache;
    std::vector<std::uint32_t> managed;
};

TEST_F(X11RoomCacheTest, AsksTheServerForNothingThatItWouldHaveTold) {
    openWindow();
    openBar(30);
    EXPECT_GT(requests(), 5U);
    // But for the question that has it tell all of it.
    EXPECT_EQ(requests(), 1U);
    EXPECT_THAT(tops(), ElementsAre(30));
}

TEST_F(X11RoomCacheTest, AsksForNothingAtAllWithinOneLook) {
    openBar(30);
    look = 1;
    EXPECT_THAT(tops(), ElementsAre(30));
    EXPECT_EQ(requests(), 0U);
    openBar(20);
    EXPECT_THAT(tops(), ElementsAre(30));
    // What the server tells takes a moment to arrive.
    for (*look = 2; *look < 1000 && tops().size() < 2; ++*look)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_THAT(tops(), ElementsAre(30, 20));
    look = std::nullopt;
    EXPECT_EQ(requests(), 1U);
    EXPECT_EQ(requests(), 1U);
}

TEST_F(X11RoomCacheTest, SeesWhatHasChangedAtOnce) {
    EXPECT_THAT(tops(), IsEmpty());
    const xcb_window_t bar = openBar(30);
    EXPECT_THAT(tops(), ElementsAre(30));
    keepTop(bar, 40);
    EXPECT_THAT(tops(), ElementsAre(40));
    removeProperty(bar, "_NET_WM_STRUT_PARTIAL");
    EXPECT_THAT(tops(), IsEmpty());
    keepTop(bar, 20);
    EXPECT_THAT(tops(), ElementsAre(20));
    managed.clear();
    tellManaged();
    EXPECT_THAT(tops(), IsEmpty());
}

TEST_F(X11RoomCacheTest, LeavesOutWhatThisProgramKeepsFreeItself) {
    openBar(30);
    const xcb_window_t own = openWindow();
    desktop->setNumbers(own, "_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid())});
    keepTop(own, 40);
    const xcb_window_t another = openWindow();
    desktop->setNumbers(another, "_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid() + 1)});
    keepTop(another, 20);
    EXPECT_THAT(tops(), ElementsAre(30, 20));
}

TEST_F(X11RoomCacheTest, SeesThatABarIsGoneOfWhichTheWindowManagerHasNotTold) {
    const xcb_window_t bar = openBar(30);
    EXPECT_THAT(tops(), ElementsAre(30));
    desktop->destroy(bar);
    EXPECT_THAT(tops(), IsEmpty());
}

TEST_F(X11RoomCacheTest, FollowsABarThatKeepsRoomWhereItLies) {
    const xcb_window_t bar = openWindow();
    desktop->setNumbers(bar, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, {0, 0, 30, 0});
    ASSERT_EQ(cache->room().struts.size(), 1U);
    EXPECT_EQ(cache->room().struts[0].area, (Rect{{0, 0}, {320, 30}}));
    desktop->move(bar, 100, 0);
    EXPECT_EQ(cache->room().struts[0].area.origin.x, 100);
    desktop->setNumbers(bar, "_NET_WM_STRUT", XCB_ATOM_CARDINAL, {0, 0, 0, 0});
    EXPECT_THAT(tops(), IsEmpty());
    EXPECT_EQ(requests(), 1U);
}

TEST_F(X11RoomCacheTest, FollowsThePrimaryMonitor) {
    EXPECT_EQ(cache->room().primaryOrigin, Point());
    desktop->setMonitors({{0, 0, 160, 240, false}, {160, 0, 160, 240, true}});
    EXPECT_EQ(cache->room().primaryOrigin, (Point{160, 0}));
    desktop->setMonitors({{0, 0, 160, 240, true}, {160, 0, 160, 240, false}});
    EXPECT_EQ(cache->room().primaryOrigin, Point());
}

TEST_F(X11RoomCacheTest, ReckonsFromTheSizeOfTheDesktopNow) {
    const xcb_window_t bar = openWindow();
    desktop->setNumbers(bar, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, {0, 0, 0, 30, 0, 0, 0, 0, 0, 0, 0, 319});
    EXPECT_EQ(cache->room().struts.at(0).area.origin.y, 210);
    ASSERT_TRUE(desktop->setMode(320, 200));
    xcb_randr_set_screen_size(desktop->connection(), desktop->root(), 320, 200, 100, 60);
    desktop->synchronize();
    EXPECT_EQ(cache->room().struts.at(0).area.origin.y, 170);
}

TEST_F(X11RoomCacheTest, AsksNothingForTitlesThatChangeAndWindowsThatMove) {
    const xcb_window_t window = openWindow();
    openBar(30);
    (void)cache->room();
    desktop->setText(window, "_NET_WM_NAME", "Letter");
    desktop->move(window, 10, 10);
    desktop->setNumbers(desktop->root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
    EXPECT_EQ(requests(), 1U);
}

TEST_F(X11RoomCacheTest, HearsNothingMoreOfAWindowThatIsNoLongerManaged) {
    const xcb_window_t window = openBar(30);
    (void)cache->room();
    managed.clear();
    tellManaged();
    EXPECT_THAT(tops(), IsEmpty());
    // The server has heard of it when it answers once more.
    EXPECT_EQ(requests(), 1U);
    keepTop(window, 20);
    EXPECT_EQ(requests(), 1U);
    EXPECT_THAT(tops(), IsEmpty());
}

TEST_F(X11RoomCacheTest, LetsNothingPileUpWhileNobodyAsks) {
    PollingRunLoop runLoop;
    cache->takeEventsIn(runLoop);
    const xcb_window_t bar = openBar(30);
    EXPECT_THAT(tops(), ElementsAre(30));
    keepTop(bar, 20);
    runLoop.runReadable();
    EXPECT_FALSE(hasQueuedEvents());
    EXPECT_THAT(tops(), ElementsAre(20));
}

TEST_F(X11RoomCacheTest, HasNoRoomTakenWithoutAServer) {
    X11RoomCache without(nullptr);
    EXPECT_THAT(without.room().struts, IsEmpty());
    EXPECT_EQ(without.room().primaryOrigin, Point());
}

} // namespace
} // namespace tarragon
