// Several applications, one after the other and side by side.
#include "EndToEndTest.h"

namespace tarragon::e2e {

class SwitchingTest : public WindowManagerTest { };

TEST_P(SwitchingTest, FollowsTheApplicationInFront) {
    std::vector<TestApplication*> applications;
    for (ApplicationKind kind : {ApplicationKind::Mousepad, ApplicationKind::Geany, ApplicationKind::FeatherPad})
        applications.push_back(&launch(kind));
    for (int round = 0; round < 2; ++round) {
        for (TestApplication* application : applications) {
            ASSERT_TRUE(application->bringToFront());
            std::vector<std::string> titles = application->expectedTitles();
            EXPECT_TRUE(popUp().openWith(titles)) << nameOf(application->kind());
            titles.insert(titles.end(), {"-", "Tarragon"});
            EXPECT_EQ(titlesOf(popUp().items()), titles) << nameOf(application->kind());
            EXPECT_EQ(display().activeWindow(), application->window());
            EXPECT_TRUE(popUp().close());
        }
    }
}

TEST_P(SwitchingTest, ComesBackWhenAnApplicationEnds) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    TestApplication& geany = launch(ApplicationKind::Geany);
    ASSERT_TRUE(popUp().openWith(geany.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    quit(geany);
    ASSERT_TRUE(mousepad.bringToFront());
    EXPECT_TRUE(popUp().openWith(mousepad.expectedTitles()));
}

TEST_P(SwitchingTest, NoticesThatAnApplicationWasStartedAnew) {
    // With nothing in between the new window gets the identifier of the old one.
    for (int round = 0; round < 3; ++round) {
        TestApplication& application = launch(ApplicationKind::Geany);
        ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
        ASSERT_TRUE(popUp().close());
        bool before = application.switchState();
        // A menu of one that is gone has no items.
        bool chosen = waitUntil([&] {
            if (popUp().open(Duration(3000)) && popUp().chooseByKeyboard(application.switchPath()))
                return true;
            popUp().close();
            return false;
        });
        EXPECT_TRUE(chosen);
        EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
        quit(application);
        ASSERT_TRUE(waitUntil([&] { return display().managedWindows().empty(); }));
    }
}

TEST_P(SwitchingTest, GivesEachWindowOfOneApplicationItsOwnMenus) {
    TestApplication& application = launch(ApplicationKind::TwoWindows);
    ASSERT_TRUE(waitUntil([&] { return display().managedWindowsOf(application.identifier()).size() == 2; }));
    std::vector<xcb_window_t> windows = display().managedWindowsOf(application.identifier());
    for (int round = 0; round < 2; ++round) {
        for (xcb_window_t window : windows) {
            ASSERT_TRUE(application.bringToFront(window));
            bool isKitchen = display().titleOf(window) == "Kitchen" || display().titleOf(window) == "Boil";
            std::vector<std::string> titles =
                isKitchen ? std::vector<std::string>{"Cook", "Serve"} : std::vector<std::string>{"Plant", "Harvest"};
            ASSERT_TRUE(popUp().openWith(titles)) << display().titleOf(window);
            ASSERT_TRUE(popUp().chooseByKeyboard({titles[0], isKitchen ? "Boil" : "Sow"}));
            EXPECT_TRUE(waitUntil([&] { return display().titleOf(window) == (isKitchen ? "Boil" : "Sow"); }))
                << display().titleOf(window);
        }
    }
}

TEST_P(SwitchingTest, ShowsTheOwnMenuAloneForAnApplicationWithoutMenus) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    std::vector<std::string> titles = mousepad.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    ASSERT_TRUE(popUp().close());
    launch(ApplicationKind::Terminal);
    // Until the program has seen the switch it may still show what was in front before.
    // A separator stands before it, which the toolkit does not draw at the top of a menu.
    const std::vector<std::string> ownMenuAlone{"-", "Tarragon"};
    ASSERT_TRUE(popUp().openWith(ownMenuAlone)) << testing::PrintToString(titlesOf(popUp().items()));
    EXPECT_EQ(titlesOf(popUp().items()), ownMenuAlone);
    ASSERT_TRUE(popUp().close());
    ASSERT_TRUE(mousepad.bringToFront());
    EXPECT_TRUE(popUp().openWith(titles));
}

TEST_P(SwitchingTest, ShowsTheOwnMenuAloneWhenTheLastWindowHasGone) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(mousepad.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    quit(mousepad);
    ASSERT_TRUE(waitUntil([&] { return display().managedWindows().empty(); }));
    // A separator stands before it, which the toolkit does not draw at the top of a menu.
    const std::vector<std::string> ownMenuAlone{"-", "Tarragon"};
    ASSERT_TRUE(popUp().openWith(ownMenuAlone)) << testing::PrintToString(titlesOf(popUp().items()));
    EXPECT_EQ(titlesOf(popUp().items()), ownMenuAlone);
    EXPECT_TRUE(popUp().close());
}

INSTANTIATE_TEST_SUITE_P(Under, SwitchingTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
