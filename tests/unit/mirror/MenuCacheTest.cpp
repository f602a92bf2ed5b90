#include "mirror/MenuCache.h"

#include "LogLines.h"
#include "MenuTitles.h"
#include "fake/FakeFillingThreads.h"
#include "mirror/SystemFillingThreads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace tarragon {
namespace {

using testing::ElementsAre;

std::shared_ptr<MenuItem> item(const std::string& title) {
    return std::make_shared<MenuItem>(title, "", "");
}

Menu::SharedTitle name(const std::string& text) {
    return std::make_shared<const std::string>(text);
}

bool existsIn(MenuCache& cache, const std::string& appName, const std::string& title) {
    return cache.cacheExistsForMenu([&] { return std::optional(appName); }, Menu(title));
}

class MenuCacheTest : public testing::Test {
protected:
    void fill(const Menu::SharedTitle& appName, const std::string& title, const std::string& content) {
        cache.cacheMenuForMenuItem(appName, item(title), [this, content](Menu& menu, const MenuCache::ShouldStop&) {
            ++fillings;
            if (isTold)
                menu.addItem(item(content));
        });
    }
    bool exists(const std::string& appName, const std::string& title) { return existsIn(cache, appName, title); }

    std::shared_ptr<FakeFillingThreads::Work> work = std::make_shared<FakeFillingThreads::Work>();
    MenuCache cache{std::make_unique<FakeFillingThreads>(work)};
    int fillings = 0;
    bool isTold = true;
};

TEST_F(MenuCacheTest, HoldsNothingBeforeTheFirstFilling) {
    EXPECT_FALSE(exists("Editor", "File"));
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
    cache.clearCacheForAppKey("Editor");
}

TEST_F(MenuCacheTest, AsksForNoNameWhileNothingWasEverCached) {
    int asked = 0;
    const auto focusedAppName = [&] {
        ++asked;
        return std::optional<std::string>("Editor");
    };
    EXPECT_FALSE(cache.cacheExistsForMenu(focusedAppName, Menu("File")));
    EXPECT_EQ(asked, 0);
    fill(name("Editor"), "File", "New");
    work->runAll();
    EXPECT_TRUE(cache.cacheExistsForMenu(focusedAppName, Menu("File")));
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(cache.cacheExistsForMenu([] { return std::nullopt; }, Menu("File")));
}

TEST_F(MenuCacheTest, FillsOnAnotherThread) {
    fill(name("Editor"), "File", "New");
    EXPECT_EQ(fillings, 0);
    EXPECT_EQ(work->waiting(), 1U);
    EXPECT_FALSE(exists("Editor", "File"));
    work->runAll();
    EXPECT_EQ(fillings, 1);
    EXPECT_TRUE(exists("Editor", "File"));
}

TEST_F(MenuCacheTest, KeepsAMenuThatItsApplicationDidNotTellAsAnEmptyOneUntilItStartsAfresh) {
    const auto editor = name("Editor");
    isTold = false;
    fill(editor, "File", "New");
    work->runAll();
    EXPECT_TRUE(exists("Editor", "File"));
    isTold = true;
    fill(editor, "File", "New");
    work->runAll();
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "File")), ElementsAre());
    fill(name("Editor"), "File", "New");
    work->runAll();
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "File")), ElementsAre("New"));
}

TEST_F(MenuCacheTest, KeepsTheFilledMenuUnderTheItemsTitle) {
    fill(name("Editor"), "File", "New");
    work->runAll();
    const auto filled = cache.filledMenu("Editor", "File");
    ASSERT_NE(filled, nullptr);
    EXPECT_EQ(filled->title(), "File");
    EXPECT_THAT(titlesOf(*filled), ElementsAre("New"));
    EXPECT_EQ(cache.filledMenu("Editor", "Edit"), nullptr);
    EXPECT_EQ(cache.filledMenu("Other", "File"), nullptr);
    EXPECT_FALSE(exists("Editor", "Edit"));
    EXPECT_FALSE(exists("Other", "File"));
}

TEST_F(MenuCacheTest, KeepsTheMenusOfAnApplicationWhoseNameIsTheVerySameObject) {
    const auto editor = name("Editor");
    fill(editor, "File", "New");
    fill(editor, "Edit", "Copy");
    work->runAll();
    EXPECT_TRUE(exists("Editor", "File"));
    EXPECT_TRUE(exists("Editor", "Edit"));
}

TEST_F(MenuCacheTest, StartsAnApplicationAfreshWhenItsNameIsOnlyEqual) {
    fill(name("Editor"), "File", "New");
    fill(name("Editor"), "Edit", "Copy");
    work->runAll();
    EXPECT_FALSE(exists("Editor", "File"));
    EXPECT_TRUE(exists("Editor", "Edit"));
}

TEST_F(MenuCacheTest, FillsATitleOnceForTheVerySameName) {
    const auto editor = name("Editor");
    fill(editor, "File", "first");
    fill(editor, "File", "second");
    work->runAll();
    EXPECT_EQ(fillings, 1);
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "File")), ElementsAre("first"));
}

TEST_F(MenuCacheTest, KeepsApplicationsApart) {
    fill(name("Editor"), "File", "of the editor");
    fill(name("Viewer"), "File", "of the viewer");
    work->runAll();
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "File")), ElementsAre("of the editor"));
    EXPECT_THAT(titlesOf(*cache.filledMenu("Viewer", "File")), ElementsAre("of the viewer"));
}

TEST_F(MenuCacheTest, ForgetsOneApplication) {
    fill(name("Editor"), "File", "New");
    fill(name("Viewer"), "File", "New");
    work->runAll();
    cache.clearCacheForAppKey("Editor");
    EXPECT_FALSE(exists("Editor", "File"));
    EXPECT_TRUE(exists("Viewer", "File"));
}

TEST_F(MenuCacheTest, LooksForTheMenuTitledAppleUnderItsMark) {
    fill(name("Editor"), "Apple", "About");
    work->runAll();
    EXPECT_FALSE(exists("Editor", "Apple"));
    fill(name("Editor"), "\uF8FF", "About");
    work->runAll();
    EXPECT_TRUE(exists("Editor", "Apple"));
}

TEST_F(MenuCacheTest, LetsALookUpGoOnWithAMenuThatIsReplacedMeanwhile) {
    fill(name("Editor"), "File", "New");
    work->runAll();
    const auto filled = cache.filledMenu("Editor", "File");
    fill(name("Editor"), "Edit", "Copy");
    work->runAll();
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
    EXPECT_THAT(titlesOf(*filled), ElementsAre("New"));
}

// A filling of the menu "File" of "Editor" that goes on when it is told to.
struct HeldFilling {
    // Returns when it has begun.
    void begin(MenuCache& cache) {
        cache.cacheMenuForMenuItem(name("Editor"), item("File"), [this](Menu& menu, const MenuCache::ShouldStop&) {
            begun.set_value();
            goOn.get_future().wait();
            menu.addItem(item("New"));
        });
        begun.get_future().wait();
    }

    std::promise<void> begun;
    std::promise<void> goOn;
};

TEST(MenuCacheThreads, MakeAProbeWaitForTheFillingButNotALookUp) {
    HeldFilling held;
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    held.begin(cache);
    // A half-filled menu is not to be found.
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
    cache.clearCacheForAppKey("Viewer");
    auto probe = std::async(std::launch::async, [&] { return existsIn(cache, "Editor", "File"); });
    EXPECT_EQ(probe.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    held.goOn.set_value();
    EXPECT_TRUE(probe.get());
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "File")), ElementsAre("New"));
}

TEST(MenuCacheThreads, AskForTheNameInFrontWhenTheFillingHasEnded) {
    HeldFilling held;
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    held.begin(cache);
    std::atomic<bool> wasAsked = false;
    auto probe = std::async(std::launch::async, [&] {
        return cache.cacheExistsForMenu(
            [&] {
                wasAsked = true;
                return std::optional<std::string>("Editor");
            },
            Menu("File"));
    });
    EXPECT_EQ(probe.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    EXPECT_FALSE(wasAsked);
    held.goOn.set_value();
    EXPECT_TRUE(probe.get());
}

TEST(MenuCacheThreads, DropTheOlderMenusOfAnApplicationBeforeTheNewOneIsComplete) {
    HeldFilling held;
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    std::promise<void> filled;
    cache.cacheMenuForMenuItem(
        name("Editor"), item("Edit"), [&](Menu&, const MenuCache::ShouldStop&) { filled.set_value(); });
    filled.get_future().wait();
    EXPECT_TRUE(existsIn(cache, "Editor", "Edit"));
    held.begin(cache);
    EXPECT_EQ(cache.filledMenu("Editor", "Edit"), nullptr);
    held.goOn.set_value();
}

TEST(MenuCacheThreads, HaveNothingAfterwardsOfAnApplicationThatWasForgottenMeanwhile) {
    HeldFilling held;
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    held.begin(cache);
    // Does not wait for the filling.
    cache.clearCacheForAppKey("Editor");
    held.goOn.set_value();
    EXPECT_FALSE(existsIn(cache, "Editor", "File"));
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
}

TEST(MenuCacheThreads, FillOneAfterTheOther) {
    constexpr int count = 8;
    std::atomic<int> atOnce = 0;
    std::atomic<int> done = 0;
    std::promise<void> last;
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    for (int index = 0; index < count; ++index) {
        cache.cacheMenuForMenuItem(
            name("Editor"), item("Menu " + std::to_string(index)), [&](Menu&, const MenuCache::ShouldStop&) {
                EXPECT_EQ(++atOnce, 1);
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
                --atOnce;
                if (++done == count)
                    last.set_value();
            });
    }
    last.get_future().wait();
}

// Only a test that fails waits so long.
constexpr auto LongEnough = std::chrono::seconds(10);

// Asks until the answer is true.
bool isToldToStop(const MenuCache::ShouldStop& shouldStop) {
    const auto tooLate = std::chrono::steady_clock::now() + LongEnough;
    while (!shouldStop()) {
        if (std::chrono::steady_clock::now() > tooLate)
            return false;
        std::this_thread::yield();
    }
    return true;
}

// A clock that stands still unless a test moves it.
struct StandingClock {
    MenuCache::Now now() {
        return [this] {
            ++asked;
            return MenuCache::Clock::time_point(time.load());
        };
    }
    std::atomic<MenuCache::Clock::duration> time = MenuCache::Clock::duration(0);
    std::atomic<int> asked = 0;
};

// A filling of a menu titled "File" that takes too long the first time, and fills it the second time it runs.
class SlowFilling {
public:
    // Returns when the filling has begun and has taken too long.
    void begin(MenuCache& cache, const Menu::SharedTitle& appName, StandingClock& clock) {
        cache.cacheMenuForMenuItem(appName, item("File"),
            [this](Menu& menu, const MenuCache::ShouldStop& shouldStop) { run(menu, shouldStop); });
        _begun.get_future().wait();
        clock.time = MenuCache::LongestDelay + std::chrono::milliseconds(1);
    }
    // Returns when the filling was abandoned and has begun again.
    void waitUntilItRunsAgain() { ASSERT_EQ(_again.get_future().wait_for(LongEnough), std::future_status::ready); }
    void goOn() { _goOn.set_value(); }

private:
    void run(Menu& menu, const MenuCache::ShouldStop& shouldStop) {
        if (++_runs == 1) {
            menu.addItem(item("Half"));
            _begun.set_value();
            EXPECT_TRUE(isToldToStop(shouldStop));
            EXPECT_TRUE(shouldStop());
            return;
        }
        _again.set_value();
        _goOn.get_future().wait();
        menu.addItem(item("New"));
    }

    int _runs = 0;
    std::promise<void> _begun;
    std::promise<void> _again;
    std::promise<void> _goOn;
};

TEST(MenuCacheThreads, GiveWayToAMenuThatOpensWhenTheyTakeLongAndBeginAnewAfterwards) {
    StandingClock clock;
    SlowFilling slow;
    MenuCache cache(std::make_unique<SystemFillingThreads>(), clock.now());
    slow.begin(cache, name("Editor"), clock);
    // Ends though the filling never would.
    EXPECT_FALSE(existsIn(cache, "Editor", "File"));
    slow.waitUntilItRunsAgain();
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
    slow.goOn();
    EXPECT_TRUE(existsIn(cache, "Editor", "File"));
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "File")), ElementsAre("New"));
}

TEST(MenuCacheThreads, GiveWayWithoutTouchingTheOtherMenusOfTheVerySameName) {
    StandingClock clock;
    SlowFilling slow;
    const auto editor = name("Editor");
    MenuCache cache(std::make_unique<SystemFillingThreads>(), clock.now());
    std::promise<void> filled;
    cache.cacheMenuForMenuItem(editor, item("Edit"), [&](Menu& menu, const MenuCache::ShouldStop&) {
        menu.addItem(item("Copy"));
        filled.set_value();
    });
    filled.get_future().wait();
    EXPECT_TRUE(existsIn(cache, "Editor", "Edit"));
    slow.begin(cache, editor, clock);
    EXPECT_TRUE(existsIn(cache, "Editor", "Edit"));
    slow.waitUntilItRunsAgain();
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "Edit")), ElementsAre("Copy"));
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
    slow.goOn();
    EXPECT_TRUE(existsIn(cache, "Editor", "File"));
    EXPECT_THAT(titlesOf(*cache.filledMenu("Editor", "Edit")), ElementsAre("Copy"));
}

TEST(MenuCacheThreads, GiveWayToAMenuOfAnotherApplicationAlike) {
    StandingClock clock;
    SlowFilling slow;
    MenuCache cache(std::make_unique<SystemFillingThreads>(), clock.now());
    std::promise<void> filled;
    cache.cacheMenuForMenuItem(
        name("Viewer"), item("File"), [&](Menu&, const MenuCache::ShouldStop&) { filled.set_value(); });
    filled.get_future().wait();
    EXPECT_TRUE(existsIn(cache, "Viewer", "File"));
    slow.begin(cache, name("Editor"), clock);
    EXPECT_TRUE(existsIn(cache, "Viewer", "File"));
    slow.waitUntilItRunsAgain();
    slow.goOn();
    EXPECT_TRUE(existsIn(cache, "Editor", "File"));
    EXPECT_TRUE(existsIn(cache, "Viewer", "File"));
}

TEST(MenuCacheThreads, TellTheLogWhenTheyGiveWay) {
    LogLines log{LogCategory::Menus};
    StandingClock clock;
    SlowFilling slow;
    MenuCache cache(std::make_unique<SystemFillingThreads>(), clock.now());
    slow.begin(cache, name("Editor"), clock);
    EXPECT_FALSE(existsIn(cache, "Editor", "File"));
    slow.waitUntilItRunsAgain();
    EXPECT_THAT(log.take(),
        ElementsAre("filling of File of Editor started", "filling of File of Editor abandoned",
            "filling of File of Editor started"));
    slow.goOn();
    EXPECT_TRUE(existsIn(cache, "Editor", "File"));
    EXPECT_THAT(log.take(), ElementsAre("filling of File of Editor kept"));
}

TEST(MenuCacheThreads, GoOnInFrontOfAMenuThatOpensUnlessTheyTakeLong) {
    StandingClock clock;
    std::promise<void> begun;
    std::atomic<int> runs = 0;
    MenuCache cache(std::make_unique<SystemFillingThreads>(), clock.now());
    cache.cacheMenuForMenuItem(name("Editor"), item("File"), [&](Menu& menu, const MenuCache::ShouldStop& shouldStop) {
        ++runs;
        clock.time = MenuCache::LongestDelay;
        begun.set_value();
        // The time is looked at only while a probe waits.
        while (clock.asked < 10)
            EXPECT_FALSE(shouldStop());
        menu.addItem(item("New"));
    });
    begun.get_future().wait();
    EXPECT_TRUE(existsIn(cache, "Editor", "File"));
    EXPECT_EQ(runs, 1);
}

TEST(MenuCacheThreads, TakeTheirTimeWhileNoMenuOpens) {
    StandingClock clock;
    const auto work = std::make_shared<FakeFillingThreads::Work>();
    MenuCache cache(std::make_unique<FakeFillingThreads>(work), clock.now());
    cache.cacheMenuForMenuItem(name("Editor"), item("File"), [&](Menu&, const MenuCache::ShouldStop& shouldStop) {
        clock.time = std::chrono::hours(1);
        EXPECT_FALSE(shouldStop());
    });
    work->runAll();
    EXPECT_TRUE(existsIn(cache, "Editor", "File"));
}

TEST(MenuCacheThreads, StopAtTheirNextQuestionWhenTheCacheGoes) {
    std::atomic<int> begun = 0;
    std::promise<void> first;
    {
        MenuCache cache(std::make_unique<SystemFillingThreads>());
        for (int index = 0; index < 5; ++index) {
            cache.cacheMenuForMenuItem(name("Editor"), item("File " + std::to_string(index)),
                [&](Menu&, const MenuCache::ShouldStop& shouldStop) {
                    if (begun++ == 0)
                        first.set_value();
                    EXPECT_TRUE(isToldToStop(shouldStop));
                });
        }
        first.get_future().wait();
    }
    EXPECT_EQ(begun, 1);
}

TEST(MenuCacheThreads, StartWithoutWaitingForThoseUnderWay) {
    HeldFilling held;
    std::promise<void> filled;
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    held.begin(cache);
    cache.cacheMenuForMenuItem(
        name("Editor"), item("Edit"), [&](Menu&, const MenuCache::ShouldStop&) { filled.set_value(); });
    // We are here before the one under way has ended, for only now it can.
    EXPECT_EQ(cache.filledMenu("Editor", "File"), nullptr);
    held.goOn.set_value();
    filled.get_future().wait();
    EXPECT_TRUE(existsIn(cache, "Editor", "Edit"));
}

TEST(MenuCacheThreads, EndBeforeTheCacheDoes) {
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;
    std::promise<void> first;
    {
        MenuCache cache(std::make_unique<SystemFillingThreads>());
        const auto slow = [&](Menu&, const MenuCache::ShouldStop&) {
            if (begun++ == 0)
                first.set_value();
            std::this_thread::yield();
            ++ended;
        };
        for (int index = 0; index < 20; ++index)
            cache.cacheMenuForMenuItem(name("Editor"), item("File " + std::to_string(index)), slow);
        first.get_future().wait();
    }
    EXPECT_EQ(begun, ended);
}

TEST(MenuCacheThreads, LeaveFillingsUndoneThatHaveNotBegunWhenTheCacheGoes) {
    const auto work = std::make_shared<FakeFillingThreads::Work>();
    bool filled = false;
    {
        MenuCache cache(std::make_unique<FakeFillingThreads>(work));
        cache.cacheMenuForMenuItem(
            name("Editor"), item("File"), [&](Menu&, const MenuCache::ShouldStop&) { filled = true; });
    }
    EXPECT_EQ(work->waiting(), 0U);
    EXPECT_FALSE(filled);
}

TEST(MenuCacheThreads, MayFillProbeLookUpAndForgetAllAtOnce) {
    MenuCache cache(std::make_unique<SystemFillingThreads>());
    const auto shared = name("Shared");
    for (int round = 0; round < 300; ++round) {
        const std::string title = "Menu " + std::to_string(round % 7);
        const auto fillMenu = [](Menu& menu, const MenuCache::ShouldStop&) {
            for (int index = 0; index < 10; ++index)
                menu.addItem(item(std::to_string(index)));
        };
        cache.cacheMenuForMenuItem(round % 2 ? shared : name("Shared"), item(title), fillMenu);
        existsIn(cache, "Shared", title);
        if (const auto filled = cache.filledMenu("Shared", title)) {
            Menu copies("Copies");
            for (const auto& each : filled->items())
                copies.addItem(each->copy());
            ASSERT_EQ(copies.numberOfItems(), 10U);
        }
        if (round % 50 == 49)
            cache.clearCacheForAppKey("Shared");
    }
}

} // namespace
} // namespace tarragon
