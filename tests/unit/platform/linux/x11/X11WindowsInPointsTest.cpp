// Windows on a screen whose pixels are smaller than points, and on one beside it whose pixels are points.
#include "platform/linux/x11/X11Windows.h"

#include "FakeWindowManager.h"
#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <utility>

namespace tarragon {
namespace {

using testing::ElementsAre;

class X11WindowsInPointsTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        manager = std::make_unique<FakeWindowManager>(server.displayName());
        connection = X11Connection::connect(server.displayName());
        ASSERT_TRUE(connection);
        requests = X11Connection::connect(server.displayName());
        ASSERT_TRUE(requests);
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(requests->get(), requests->rootWindow(), XCB_CW_EVENT_MASK, &mask);
        requests->atom("TARRAGON_TEST_BARRIER");
        windows = std::make_unique<X11Windows>(*connection, &scale);
        setScale(2);
    }
    void setScale(double left) { scale.set(PixelScale({{{{0, 0}, {600, 600}}, left}, {{{600, 0}, {600, 600}}, 1}})); }
    // All of it in pixels.
    std::uint32_t open(int x, int y, std::uint32_t width = 200) {
        const std::uint32_t window = manager->open({.process = 1001});
        const std::array<std::uint32_t, 2> size = {width, 100};
        xcb_configure_window(
            connection->get(), window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
        manager->move(window, x, y);
        manager->activate(window);
        manager->synchronize();
        return window;
    }
    // What the window manager was last asked for: x, y, width and height.
    std::vector<int> asked() {
        requests->atom("TARRAGON_TEST_ANOTHER_BARRIER");
        std::vector<int> numbers;
        askedToUnmaximize = false;
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(requests->get())}) {
            if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
                continue;
            const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
            numbers.assign(&message.data.data32[1], &message.data.data32[5]);
            askedToUnmaximize |= message.type == requests->atom("_NET_WM_STATE") && message.data.data32[0] == 0;
        }
        return numbers;
    }

    XkbServer server;
    std::unique_ptr<FakeWindowManager> manager;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Connection> requests;
    CurrentPixelScale scale;
    std::unique_ptr<X11Windows> windows;
    bool askedToUnmaximize = false; // by what the last look has found
};

TEST_F(X11WindowsInPointsTest, HaveTheirFramesInPointsOfTheirScreen) {
    const std::uint32_t window = open(100, 40);
    EXPECT_EQ(windows->describeActiveWindow()->frame, (Rect{{100, 40}, {200, 100}}));
    EXPECT_EQ(windows->describeActiveWindow()->frameCG, (Rect{{50, 20}, {100, 50}}));
    EXPECT_EQ(windows->describe(window)->frameCG, (Rect{{50, 20}, {100, 50}}));
    EXPECT_EQ(windows->describe(std::vector{window}).front().frameCG, (Rect{{50, 20}, {100, 50}}));
    manager->move(window, 700, 40);
    manager->synchronize();
    EXPECT_EQ(windows->describe(window)->frameCG, (Rect{{700, 40}, {200, 100}}));
}

TEST_F(X11WindowsInPointsTest, FollowTheScaleOfTheirScreen) {
    const std::uint32_t window = open(120, 60);
    EXPECT_EQ(windows->describe(window)->frameCG.origin, (Point{60, 30}));
    setScale(1.5);
    EXPECT_EQ(windows->describe(window)->frameCG.origin, (Point{80, 40}));
    EXPECT_EQ(windows->describeActiveWindow()->frameCG.origin, (Point{80, 40}));
    setScale(1);
    EXPECT_EQ(windows->describe(window)->frameCG, windows->describe(window)->frame);
}

TEST_F(X11WindowsInPointsTest, CountFromThePrimaryScreen) {
    const std::uint32_t window = open(100, 40);
    manager->addPrimaryMonitor(600, 0, 600, 600);
    manager->synchronize();
    EXPECT_EQ(windows->describe(window)->frameCG, (Rect{{-550, 20}, {100, 50}}));
    ASSERT_TRUE(windows->setPosition(window, {-500, 30}));
    EXPECT_THAT(asked(), ElementsAre(200, 60, 0, 0));
}

TEST_F(X11WindowsInPointsTest, AreFoundUnderPoints) {
    const std::uint32_t left = open(100, 40);
    const std::uint32_t right = open(700, 40);
    EXPECT_EQ(windows->windowAtPosition({50, 20}), left);
    EXPECT_EQ(windows->windowAtPosition({149.5, 69.5}), left);
    EXPECT_EQ(windows->windowAtPosition({150, 60}), std::nullopt);
    EXPECT_EQ(windows->windowAtPosition({750, 60}), right);
}

TEST_F(X11WindowsInPointsTest, AreMovedAndSizedInPoints) {
    const std::uint32_t window = open(100, 40);
    ASSERT_TRUE(windows->setPosition(window, {60, 30}));
    EXPECT_THAT(asked(), ElementsAre(120, 60, 0, 0));
    ASSERT_TRUE(windows->setSize(window, {75, 40}));
    EXPECT_THAT(asked(), ElementsAre(0, 0, 150, 80));
    manager->move(window, 700, 40);
    manager->synchronize();
    ASSERT_TRUE(windows->setSize(window, {75, 40}));
    EXPECT_THAT(asked(), ElementsAre(0, 0, 75, 40));
}

TEST_F(X11WindowsInPointsTest, AreNoLongerMaximisedOnceTheyAreSized) {
    const std::uint32_t window = open(100, 40);
    manager->setState(window, "_NET_WM_STATE_MAXIMIZED_VERT");
    manager->synchronize();
    ASSERT_TRUE(windows->setPosition(window, {60, 30}));
    EXPECT_THAT(asked(), ElementsAre(120, 60, 0, 0));
    EXPECT_FALSE(askedToUnmaximize);
    // Also when the window manager does not answer.
    ASSERT_TRUE(windows->setSize(window, {75, 40}));
    EXPECT_THAT(asked(), ElementsAre(0, 0, 150, 80));
    EXPECT_TRUE(askedToUnmaximize);
    manager->setState(window, "_NET_WM_STATE_ABOVE");
    manager->synchronize();
    ASSERT_TRUE(windows->setSize(window, {75, 40}));
    EXPECT_THAT(asked(), ElementsAre(0, 0, 150, 80));
    EXPECT_FALSE(askedToUnmaximize);
}

TEST_F(X11WindowsInPointsTest, StayWhereTheyAreWhenTheyAreMovedToWhereTheyAre) {
    // Most of it is on the left screen, and then on the right one.
    for (const auto& [x, width] : {std::pair(450, 200U), std::pair(400, 500U)}) {
        const std::uint32_t window = open(x, 40, width);
        ASSERT_TRUE(windows->setPosition(window, windows->describe(window)->frameCG.origin));
        EXPECT_THAT(asked(), ElementsAre(x, 40, 0, 0));
    }
}

} // namespace
} // namespace tarragon
