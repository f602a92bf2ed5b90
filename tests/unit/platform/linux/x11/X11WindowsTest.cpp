// What is told of the active window, on a real X server with a window manager played by the test.
#include "platform/linux/x11/X11Windows.h"

#include "FakeWindowManager.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tarragon {
namespace {

class X11WindowsTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        manager = std::make_unique<FakeWindowManager>(server.displayName());
        connection = X11Connection::connect(server.displayName());
        ASSERT_TRUE(connection);
        windows = std::make_unique<X11Windows>(*connection);
    }
    std::uint32_t openActive(const FakeWindow& window = {.process = 1001}) {
        const std::uint32_t opened = manager->open(window);
        manager->activate(opened);
        manager->synchronize();
        return opened;
    }
    // After the server has done whatever the window manager has asked of it.
    WindowDescription active() {
        manager->synchronize();
        return windows->describeActiveWindow().value_or(WindowDescription{});
    }
    // How many requests the server gets for something.
    template <typename Function>
    unsigned requestsOf(Function function) {
        const unsigned before = xcb_no_operation(connection->get()).sequence;
        function();
        return xcb_no_operation(connection->get()).sequence - before - 1;
    }

    XkbServer server;
    std::unique_ptr<FakeWindowManager> manager;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11Windows> windows;
};

TEST_F(X11WindowsTest, AsksTheServerForNothingThatItWouldHaveTold) {
    const std::uint32_t window = openActive();
    const unsigned first = requestsOf([&] { EXPECT_EQ(active().identifier, window); });
    EXPECT_GT(first, 10U);
    // But for the question that has it tell all of it.
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(active().identifier, window); }), 1U);
    EXPECT_EQ(requestsOf([&] { EXPECT_EQ(windows->activeWindow(), window); }), 1U);
    EXPECT_EQ(requestsOf([&] { EXPECT_TRUE(windows->describe(window)); }), 1U);
}

TEST_F(X11WindowsTest, AsksTheServerForNothingInALook) {
    const std::uint32_t window = openActive();
    EXPECT_EQ(active().identifier, window);
    const auto askEverything = [&] {
        for (int times = 0; times < 3; ++times) {
            EXPECT_EQ(windows->activeWindow(), window);
            EXPECT_TRUE(windows->describe(window));
            EXPECT_TRUE(windows->describeActiveWindow());
        }
    };
    EXPECT_EQ(requestsOf(askEverything), 9U);
    windows->beginLook();
    windows->beginLook();
    EXPECT_EQ(requestsOf(askEverything), 0U);
    windows->endLook();
    EXPECT_EQ(requestsOf(askEverything), 0U);
    // Another thread has no part in it.
    std::thread([&] { EXPECT_EQ(requestsOf(askEverything), 9U); }).join();
    windows->endLook();
    EXPECT_EQ(requestsOf(askEverything), 9U);
}

TEST_F(X11WindowsTest, TellsInALookWhatHasArrivedWhenItIsFirstUsed) {
    const std::uint32_t first = openActive();
    EXPECT_EQ(active().identifier, first);
    const std::uint32_t second = openActive({.process = 1002});
    // What the server tells takes a moment to arrive.
    std::uint32_t found = first;
    for (int looks = 0; looks < 1000 && found != second; ++looks) {
        windows->beginLook();
        found = active().identifier;
        EXPECT_EQ(active().identifier, found);
        windows->endLook();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(found, second);
    manager->activate(first);
    manager->synchronize();
    EXPECT_EQ(active().identifier, first);
}

TEST_F(X11WindowsTest, FollowsTheActiveWindow) {
    const std::uint32_t first = openActive();
    EXPECT_EQ(active().identifier, first);
    const std::uint32_t second = openActive({.process = 1002});
    EXPECT_EQ(windows->activeWindow(), second);
    EXPECT_EQ(active().processIdentifier, 1002);
    manager->activate(XCB_NONE);
    manager->synchronize();
    EXPECT_FALSE(windows->activeWindow());
    EXPECT_FALSE(windows->describeActiveWindow());
    manager->activate(manager->rootWindow());
    manager->synchronize();
    EXPECT_FALSE(windows->activeWindow());
}

TEST_F(X11WindowsTest, FollowsEveryChangeOfTheActiveWindow) {
    const std::uint32_t window = openActive();
    EXPECT_EQ(active().title, "");
    manager->setTitle(window, "herbs");
    EXPECT_EQ(active().title, "herbs");
    manager->setState(window, "_NET_WM_STATE_FULLSCREEN");
    EXPECT_TRUE(active().fullScreen);
    manager->move(window, 30, 40);
    EXPECT_EQ(active().frame.origin, (Point{30, 40}));
    EXPECT_EQ(windows->describe(window)->frame.origin, (Point{30, 40}));
}

TEST_F(X11WindowsTest, FollowsAWindowThatMovesWithItsFrame) {
    const std::uint32_t window = openActive();
    EXPECT_EQ(active().frame.origin, (Point{0, 0}));
    const std::uint32_t inner = manager->frame(window);
    const std::uint32_t outer = manager->frame(inner);
    manager->move(inner, 5, 5);
    EXPECT_EQ(active().frame.origin, (Point{5, 5}));
    manager->move(outer, 30, 40);
    EXPECT_EQ(active().frame.origin, (Point{35, 45}));
    manager->move(inner, 7, 7);
    EXPECT_EQ(active().frame.origin, (Point{37, 47}));
}

TEST_F(X11WindowsTest, FollowsTheMonitors) {
    const std::uint32_t window = openActive();
    manager->move(window, 300, 200);
    EXPECT_EQ(active().frameCG.origin, (Point{300, 200}));
    manager->addPrimaryMonitor(100, 50, 200, 200);
    EXPECT_EQ(active().frameCG.origin, (Point{200, 150}));
}

TEST_F(X11WindowsTest, TellsWhichWorkspaceIsShownAndWhichOneAWindowIsOn) {
    const std::uint32_t window = openActive();
    EXPECT_FALSE(windows->shownWorkspace());
    EXPECT_FALSE(active().workspace);
    manager->showWorkspace(0);
    manager->putOnWorkspace(window, 0);
    EXPECT_EQ(active().workspace, 0U);
    EXPECT_EQ(windows->shownWorkspace(), 0U);
    EXPECT_EQ(windows->describe(std::vector{window}).at(0).workspace, 0U);
    manager->showWorkspace(2);
    manager->putOnWorkspace(window, 3);
    EXPECT_EQ(active().workspace, 3U);
    EXPECT_EQ(windows->describe(window)->workspace, 3U);
    EXPECT_EQ(windows->shownWorkspace(), 2U);
    manager->putOnWorkspace(window, FakeWindowManager::EveryWorkspace);
    EXPECT_FALSE(active().workspace);
}

TEST_F(X11WindowsTest, FindsNoWindowOfAnotherWorkspaceAtAPoint) {
    const std::uint32_t lower = manager->open({.process = 1001});
    const std::uint32_t upper = manager->open({.process = 1001});
    const auto found = [&] {
        manager->synchronize();
        return windows->windowAtPosition({5, 5});
    };
    EXPECT_EQ(found(), upper);
    manager->putOnWorkspace(upper, 1);
    EXPECT_EQ(found(), upper); // there is no other one to be shown
    manager->showWorkspace(0);
    EXPECT_EQ(found(), lower);
    manager->putOnWorkspace(lower, 1);
    EXPECT_EQ(found(), std::nullopt);
    manager->putOnWorkspace(upper, FakeWindowManager::EveryWorkspace);
    EXPECT_EQ(found(), upper);
    manager->showWorkspace(1);
    manager->setState(upper, "_NET_WM_STATE_HIDDEN");
    EXPECT_EQ(found(), lower);
}

TEST_F(X11WindowsTest, KnowsNothingOfAWindowThatIsGone) {
    const std::uint32_t window = openActive();
    manager->setTitle(window, "former");
    EXPECT_EQ(active().title, "former");
    manager->close(window);
    manager->synchronize();
    EXPECT_FALSE(windows->describe(window));
    EXPECT_FALSE(windows->describeActiveWindow());
    // Not even when another one has its identifier.
    manager->openAs(window, {.process = 1002});
    EXPECT_EQ(active().title, "");
    EXPECT_EQ(active().processIdentifier, 1002);
    manager->setTitle(window, "next");
    EXPECT_EQ(active().title, "next");
}

TEST_F(X11WindowsTest, FollowsAWindowThatWasLeftForOneThatIsGone) {
    const std::uint32_t window = openActive();
    manager->setTitle(window, "before");
    EXPECT_EQ(active().title, "before");
    const std::uint32_t gone = manager->open({.process = 1002});
    manager->close(gone);
    manager->activate(gone);
    EXPECT_EQ(active().identifier, 0U);
    manager->setTitle(window, "after");
    manager->activate(window);
    EXPECT_EQ(active().title, "after");
}

TEST_F(X11WindowsTest, FollowsChangesThatItsOwnConnectionHasAskedFor) {
    const std::uint32_t window = openActive();
    EXPECT_EQ(active().title, "");
    const std::string title = "own";
    xcb_change_property(connection->get(), XCB_PROP_MODE_REPLACE, window, connection->atom("_NET_WM_NAME"),
        connection->atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(title.size()), title.data());
    EXPECT_EQ(windows->describeActiveWindow()->title, "own");
}

TEST_F(X11WindowsTest, IsNeverBehindOnAnyThread) {
    const std::uint32_t window = openActive();
    std::atomic<int> latest = 0;
    std::atomic<bool> isOver = false;
    std::atomic<int> answersBehind = 0;
    constexpr int Readers = 3;
    std::vector<std::thread> readers;
    readers.reserve(Readers);
    for (int reader = 0; reader < Readers; ++reader) {
        readers.emplace_back([&] {
            while (!isOver) {
                const int known = latest;
                const auto description = windows->describeActiveWindow();
                if (!description || (known > 0 && std::stoi(description->title) < known))
                    ++answersBehind;
            }
        });
    }
    for (int change = 1; change <= 300; ++change) {
        manager->setTitle(window, std::to_string(change));
        manager->synchronize();
        latest = change;
    }
    isOver = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(answersBehind, 0);
}

TEST_F(X11WindowsTest, LetsNothingPileUpThatTheServerTells) {
    const std::uint32_t window = openActive();
    EXPECT_EQ(active().identifier, window);
    manager->setTitle(window, "herbs");
    manager->synchronize();
    EXPECT_EQ(requestsOf([&] { windows->takeEvents(); }), 0U);
    const X11Reply<xcb_generic_event_t> left(xcb_poll_for_event(connection->get()));
    EXPECT_FALSE(left);
    EXPECT_EQ(active().title, "herbs");
}

} // namespace
} // namespace tarragon
