// Applications that hang, die or publish nonsense.
#include "EndToEndTest.h"

#include <csignal>

#include <X11/keysym.h>

#include <nlohmann/json.hpp>

namespace tarragon::e2e {

class FaultTest : public ApplicationTest { };

TEST_P(FaultTest, AStoppedApplicationDoesNotFreezeThePopUp) {
    TestApplication& application = launch();
    std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    ASSERT_TRUE(popUp().close());
    application.process().sendSignal(SIGSTOP);

    ASSERT_TRUE(popUp().open(Duration(3000)));
    EXPECT_LE(popUp().openingTime(), Duration(1200));
    // Its menus cannot be read now. Going there and leaving must not take much longer than one time-out.
    ASSERT_TRUE(popUp().highlight(titles[0]));
    auto start = Clock::now();
    for (xcb_keysym_t key : {XK_Right, XK_Escape, XK_Escape})
        input().tap(key);
    EXPECT_TRUE(waitUntil([&] { return !popUp().isOpen(); }));
    EXPECT_LE(Clock::now() - start, Duration(2000));

    application.process().sendSignal(SIGCONT);
    bool before = application.switchState();
    // The program may take a while to find out that it answers again.
    EXPECT_TRUE(waitUntil(
        [&] {
            if (!popUp().openWith(titles, Duration(5000)))
                return false;
            if (popUp().chooseByKeyboard(application.switchPath()))
                return true;
            popUp().close();
            return false;
        },
        Duration(20000)));
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
}

TEST_P(FaultTest, AnApplicationThatDiesUnderItsPopUpDoesNoHarm) {
    TestApplication& application = launch();
    std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(popUp().openWith(titles));
    ASSERT_FALSE(popUp().openByKeyboard({"File"}).empty());
    application.process().sendSignal(SIGKILL);
    application.process().waitForExit();
    input().tap(XK_Return);
    popUp().close();
    EXPECT_TRUE(waitUntil([&] { return !popUp().isOpen(); }));
    EXPECT_TRUE(agent().isRunning());

    // One with other titles, so that its own mirror is told from the dead one's.
    TestApplication& next = DesktopTest::launch(
        application.kind() == ApplicationKind::FeatherPad ? ApplicationKind::Mousepad : ApplicationKind::FeatherPad);
    EXPECT_TRUE(popUp().openWith(next.expectedTitles()));
    bool before = next.switchState();
    EXPECT_TRUE(popUp().chooseByKeyboard(next.switchPath()));
    EXPECT_TRUE(waitUntil([&] { return next.switchState() != before; }));
}

INSTANTIATE_TEST_SUITE_P(Under, FaultTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

class StoppedApplicationTest : public WindowManagerTest { };

TEST_P(StoppedApplicationTest, LeavesTheOthersUsable) {
    TestApplication& mousepad = launch(ApplicationKind::Mousepad);
    TestApplication& geany = launch(ApplicationKind::Geany);
    ASSERT_TRUE(popUp().openWith(geany.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    geany.process().sendSignal(SIGSTOP);
    ASSERT_TRUE(mousepad.bringToFront());
    EXPECT_TRUE(popUp().openWith(mousepad.expectedTitles()));
    bool before = mousepad.switchState();
    EXPECT_TRUE(popUp().chooseByKeyboard(mousepad.switchPath()));
    EXPECT_TRUE(waitUntil([&] { return mousepad.switchState() != before; }));
    geany.process().sendSignal(SIGCONT);
}

INSTANTIATE_TEST_SUITE_P(Under, StoppedApplicationTest, EveryWindowManager, nameOfWindowManager);

class HostileTest : public DesktopTest, public testing::WithParamInterface<std::tuple<WindowManager, ApplicationKind>> {
protected:
    HostileTest()
        : DesktopTest(std::get<0>(GetParam())) { }
    // While the program still reads the crowd in the background, other menus may come out empty.
    TestApplication& launch() {
        TestApplication& application = DesktopTest::launch(std::get<1>(GetParam()));
        EXPECT_TRUE(popUp().openWith({"Crowd", "Depth", "Strange"}, Duration(30000)));
        EXPECT_TRUE(popUp().close());
        EXPECT_TRUE(waitUntil([&] { return !agent().isReadingAhead(); }, Duration(30000)));
        return application;
    }
    bool titleBecomes(const TestApplication& application, const std::string& title) {
        return waitUntil([&] { return display().titleOf(application.window()) == title; });
    }
};

TEST_P(HostileTest, OpensAMenuOfThousandsAndPressesItsLastItem) {
    TestApplication& application = launch();
    int crowd = application.kind() == ApplicationKind::HostileGtk ? 5000 : 500;
    std::string last = "Person " + std::to_string(crowd);
    ASSERT_TRUE(popUp().openWith({"Crowd", "Depth", "Strange"}));
    ASSERT_TRUE(popUp().highlight("Crowd"));
    auto start = Clock::now();
    input().tap(XK_Right);
    EXPECT_TRUE(waitUntil([&] { return agent().openMenus().size() == 2; }));
    EXPECT_LE(Clock::now() - start, Duration(6000));
    // Up from the first item is the last one.
    input().tap(XK_Up);
    input().tap(XK_Return);
    EXPECT_TRUE(titleBecomes(application, last)) << display().titleOf(application.window());
}

TEST_P(HostileTest, OpensTwelveLevelsAndPressesAtTheBottom) {
    TestApplication& application = launch();
    ASSERT_TRUE(popUp().openWith({"Crowd", "Depth", "Strange"}, Duration(30000)));
    std::vector<std::string> path{"Depth"};
    for (int level = 1; level <= 12; ++level)
        path.push_back("Level " + std::to_string(level));
    path.emplace_back("Bottom");
    ASSERT_TRUE(popUp().chooseByKeyboard(path));
    EXPECT_TRUE(titleBecomes(application, "Bottom"));
}

TEST_P(HostileTest, ShowsStrangeTitlesAndPressesThem) {
    TestApplication& application = launch();
    for (const std::string& title : {std::string("שלום עולם"), std::string("Bar|in|title"), std::string("Plain")}) {
        ASSERT_TRUE(popUp().openWith({"Crowd", "Depth", "Strange"}));
        ASSERT_TRUE(popUp().chooseByKeyboard({"Strange", title})) << title;
        EXPECT_TRUE(titleBecomes(application, title)) << display().titleOf(application.window());
    }
    ASSERT_TRUE(popUp().openWith({"Crowd", "Depth", "Strange"}));
    Menu shown = popUp().openByKeyboard({"Strange"});
    EXPECT_EQ(shown.size(), application.expectedMenu("Strange").size());
    PixelRect frame = agent().openMenus().back().frame;
    EXPECT_TRUE(display().bounds().contains(frame)) << frame.x << "," << frame.y << " " << frame.width;
}

TEST_P(HostileTest, MirrorsEveryStrangeTitle) {
    TestApplication& application = launch();
    CommandResult result =
        tarragon({"menus", "--json", "--depth", "0", "--pid", std::to_string(application.identifier())});
    ASSERT_EQ(result.status, 0) << result.error;
    Menu actual = withNormalShortcuts(menuFromJson(nlohmann::json::parse(result.output)));
    Menu expected = application.expectedMirror();
    for (const char* title : {"Crowd", "Depth", "Strange"}) {
        const MenuRecord* wanted = itemAtPath(expected, {title});
        const MenuRecord* found = itemAtPath(actual, {title});
        ASSERT_TRUE(wanted && found) << title;
        std::vector<std::string> sentences = differences({*wanted}, {*found});
        EXPECT_TRUE(sentences.empty()) << sentences.front().substr(0, 2000);
    }
}

TEST_P(HostileTest, SurvivesMenusThatChangeWhileTheyAreOpen) {
    TestApplication& application = launch();
    for (int round = 0; round < 5; ++round) {
        ASSERT_TRUE(popUp().openWith({"Crowd", "Depth", "Strange"}, Duration(30000)));
        ASSERT_TRUE(popUp().highlight("Restless"));
        input().tap(XK_Right);
        EXPECT_TRUE(waitUntil([&] { return agent().openMenus().size() == 2; }));
        EXPECT_TRUE(waitUntil([&] { return session().observer().last().item.starts_with("Item "); }))
            << "round " << round;
        // Its items are gone by now, whatever is chosen.
        input().tap(XK_Return);
        EXPECT_TRUE(waitUntil([&] { return !popUp().isOpen(); }, Duration(1000)) || popUp().close());
    }
    EXPECT_TRUE(agent().isRunning());
    EXPECT_TRUE(application.process().isRunning());
}

INSTANTIATE_TEST_SUITE_P(Under, HostileTest,
    testing::Combine(EveryWindowManager, testing::Values(ApplicationKind::HostileGtk, ApplicationKind::HostileQt)),
    nameOfApplication);

} // namespace tarragon::e2e
