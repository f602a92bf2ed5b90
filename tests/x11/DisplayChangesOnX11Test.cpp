#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Displays.h"
#include "platform/qt/QtDisplays.h"
#include "platform/qt/QtRunLoop.h"
#include "support/X11Client.h"

#include <cstdlib>
#include <memory>
#include <vector>

#include <QGuiApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr X11ClientMonitor Whole{0, 0, 1000, 800, true};
constexpr X11ClientMonitor Left{0, 0, 500, 800, true};
constexpr X11ClientMonitor Right{500, 0, 500, 800, false};

class DisplayChangesOnX11 : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(connection);
        displays.installReconfigurationHandler([this](std::uint32_t flags) {
            calls.push_back(flags);
            screenCounts.push_back(displays.screens().size());
        });
    }
    // The tests after these have the server's own monitor again.
    ~DisplayChangesOnX11() override {
        user.setMonitors({});
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                return displays.screens().size() == 1 && displays.mainDisplayBoundsCG().size == Size{1000, 800};
            },
            20000));
        settle();
    }

    bool waitForCall() {
        return QTest::qWaitFor([&] { return !calls.empty(); }, 20000);
    }
    // Nothing that has come waits to be told.
    void settle() {
        user.synchronize();
        bool isSettled = false;
        runLoop.post([&] { runLoop.post([&] { isSettled = true; }); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return isSettled; }, 20000));
    }
    // Changes the monitors and answers what was told of it.
    std::vector<std::uint32_t> change(const std::vector<X11ClientMonitor>& monitors) {
        calls.clear();
        user.setMonitors(monitors);
        EXPECT_TRUE(waitForCall());
        settle();
        return calls;
    }

    X11Client user{std::getenv("DISPLAY")};
    QtRunLoop runLoop;
    std::unique_ptr<X11Connection> connection = X11Connection::connect();
    QtDisplays qtDisplays{runLoop};
    X11Displays displays{qtDisplays, *connection};
    std::vector<std::uint32_t> calls;
    std::vector<std::size_t> screenCounts; // at each call
};

TEST_F(DisplayChangesOnX11, TellsOfAMonitorThatComesAndGoesOnce) {
    change({Whole});
    const std::vector<X11ClientMonitor> both = {Left, Right};
    // New monitors take the place of the old one, as the server gives none another size.
    EXPECT_THAT(change(both), ElementsAre(48U | 4U));
    EXPECT_EQ(screenCounts.back(), 2U);
    EXPECT_THAT(change({Whole}), ElementsAre(48U | 4U));
    EXPECT_EQ(screenCounts.back(), 1U);
}

TEST_F(DisplayChangesOnX11, TellsOfAMonitorThatIsAddedAsAddedAndOfOneThatIsTakenAwayAsRemoved) {
    change({Left, Right});
    calls.clear();
    const xcb_atom_t third = user.addMonitor({250, 0, 100, 100, false});
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(16U));
    EXPECT_EQ(screenCounts.back(), 3U);

    calls.clear();
    user.removeMonitor(third);
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(32U));
    EXPECT_EQ(screenCounts.back(), 2U);
}

TEST_F(DisplayChangesOnX11, TellsOfAnotherModeAsNeitherAddedNorRemoved) {
    ASSERT_TRUE(user.setMode(800, 600));
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(8U));
    EXPECT_EQ(displays.mainDisplayBoundsCG(), (Rect{{0, 0}, {800, 600}}));
    ASSERT_TRUE(user.setMode(1000, 800));
}

TEST_F(DisplayChangesOnX11, TellsOfAMonitorThatMoves) {
    ASSERT_TRUE(user.setMode(800, 600));
    ASSERT_TRUE(waitForCall());
    settle();
    calls.clear();
    ASSERT_TRUE(user.setMode(800, 600, 100, 50));
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(2U));
    // The coordinates begin at the primary monitor's corner, wherever that is.
    EXPECT_EQ(displays.screens().at(0).frameNS, (Rect{{0, 0}, {800, 600}}));
    calls.clear();
    ASSERT_TRUE(user.setMode(1000, 800));
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(2U | 8U));
}

TEST_F(DisplayChangesOnX11, TellsOfAnotherPrimaryMonitorWhichIsTheFirst) {
    change({Left, Right});
    EXPECT_EQ(displays.screens().at(0).frameNS, (Rect{{0, 0}, {500, 800}}));
    calls.clear();
    user.changeMonitor(1, {500, 0, 500, 800, true});
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(4U));
    ASSERT_EQ(displays.screens().size(), 2U);
    EXPECT_EQ(displays.screens().at(0).frameNS, (Rect{{0, 0}, {500, 800}}));
    EXPECT_EQ(displays.screens().at(1).frameNS, (Rect{{-500, 0}, {500, 800}}));
}

TEST_F(DisplayChangesOnX11, TakesAMirroringMonitorForNoScreenOfItsOwn) {
    change({Left, Right});
    calls.clear();
    const xcb_atom_t mirror = user.addMonitor(Right);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::screens().size() == 3; }, 20000));
    settle();
    EXPECT_EQ(displays.screens().size(), 2U);
    user.removeMonitor(mirror);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QGuiApplication::screens().size() == 2; }, 20000));
    settle();
    // Nothing has come or gone that a bar would be on.
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_EQ(displays.screens().size(), 2U);

    change({Left, {0, 0, 500, 800, false}});
    EXPECT_EQ(screenCounts.back(), 1U);
}

// Changes that come faster than they are looked at are told together, and the last one is what remains.
TEST_F(DisplayChangesOnX11, TellsOfEachOfManyQuickChangesAtMostOnce) {
    change({Whole});
    calls.clear();
    screenCounts.clear();
    constexpr std::size_t Changes = 20;
    for (std::size_t index = 0; index < Changes; ++index) {
        if (index % 2 == 0)
            user.setMonitors({Left, Right});
        else
            user.setMonitors({Whole});
    }
    user.setMonitors({Left, Right});
    ASSERT_TRUE(QTest::qWaitFor([&] { return displays.screens().size() == 2; }, 20000));
    settle();
    EXPECT_FALSE(calls.empty());
    EXPECT_LE(calls.size(), Changes + 1);
    EXPECT_EQ(screenCounts.back(), 2U);
    for (const std::uint32_t flags : calls)
        EXPECT_NE(flags, 0U);
}

TEST_F(DisplayChangesOnX11, TellsOfEachOfManySlowChangesOnce) {
    change({Whole});
    constexpr int Changes = 20;
    for (int index = 0; index < Changes; ++index) {
        EXPECT_EQ(change(index % 2 == 0 ? std::vector{Left, Right} : std::vector{Whole}).size(), 1U) << index;
        EXPECT_EQ(screenCounts.back(), index % 2 == 0 ? 2U : 1U);
    }
}

// Whoever asks for the screens during a pause sees it.
TEST_F(DisplayChangesOnX11, TellsOfMonitorsThatWereThereForAMomentOnly) {
    const auto pauseUntilScreens = [this](qsizetype count) {
        for (int pauses = 0; pauses < 400 && QGuiApplication::screens().size() != count; ++pauses)
            runLoop.pause(0.05);
        return QGuiApplication::screens().size() == count;
    };
    user.setMonitors({Left, Right});
    ASSERT_TRUE(pauseUntilScreens(2));
    user.setMonitors({});
    ASSERT_TRUE(pauseUntilScreens(1));
    EXPECT_THAT(calls, IsEmpty());
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_THAT(calls, ElementsAre(48U));
    EXPECT_EQ(screenCounts.back(), 1U);
}

TEST_F(DisplayChangesOnX11, TellsAllHandlersAndNoneDuringAPause) {
    int others = 0;
    displays.installReconfigurationHandler([&](std::uint32_t) { ++others; });
    user.setMonitors({Left, Right});
    runLoop.pause(0.05);
    EXPECT_THAT(calls, IsEmpty());
    ASSERT_TRUE(waitForCall());
    settle();
    EXPECT_EQ(others, 1);
    EXPECT_EQ(calls.size(), 1U);
}

} // namespace
} // namespace tarragon
