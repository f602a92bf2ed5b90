// Titles of the floating panel as a menu bar: every way to open, leave and choose in their menus.
#include "FocusWatch.h"
#include "PanelUseEndToEndTest.h"

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

const std::vector<std::string> HerbTitles{"Basil", "Chervil", "Dill"};

} // namespace

// Real applications, whose own menus are known from themselves.
class PanelMenuOnApplicationTest : public ApplicationPanelUseTest {
protected:
    // In front with its whole panel, wide enough for all titles.
    TestApplication& launchWide() {
        TestApplication& application = launch();
        EXPECT_TRUE(place(application, {150, 200, 1000, 500}));
        EXPECT_TRUE(showsTitlesOf(application));
        return application;
    }
};

TEST_P(PanelMenuOnApplicationTest, OpensTheMenuOfEveryTitleBelowIt) {
    TestApplication& application = launchWide();
    FocusWatch focus(display());
    for (const std::string& title : application.expectedTitles()) {
        ASSERT_TRUE(openTitle(title)) << title;
        const Menu expected = application.expectedMenu(title);
        ASSERT_FALSE(expected.empty()) << title;
        // Of several items with one title, that of the highlighted one tells which menu it is.
        const std::size_t seen = session().observer().count();
        input().tap(XK_Down);
        ASSERT_TRUE(waitUntil([&] { return session().observer().count() > seen; })) << title;
        EXPECT_EQ(titlesOf(session().observer().last().menu), titlesOf(expected)) << title;
        input().tap(XK_Escape);
        ASSERT_TRUE(waitForNoMenu()) << title;
    }
    EXPECT_EQ(focus.moves(), 0);
    EXPECT_EQ(display().activeWindow(), application.window());
}

TEST_P(PanelMenuOnApplicationTest, AChosenItemSwitchesSomethingInTheApplication) {
    TestApplication& application = launchWide();
    const std::vector<std::string> path = application.switchPath();
    for (int round = 0; round < 2; ++round) {
        const bool before = application.switchState();
        FocusWatch focus(display());
        ASSERT_TRUE(openTitle(path.front()));
        ASSERT_TRUE(popUp().chooseByMouse({path.begin() + 1, path.end()}));
        EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; })) << "round " << round;
        EXPECT_EQ(focus.moves(), 0);
    }
    EXPECT_EQ(display().activeWindow(), application.window());
}

TEST_P(PanelMenuOnApplicationTest, AChosenItemChangesTheText) {
    TestApplication& application = launchWide();
    ASSERT_EQ(application.text(), TestApplication::Text);
    const std::vector<std::string> path = application.editPath();
    ASSERT_TRUE(openTitle(path.front()));
    ASSERT_TRUE(popUp().chooseByMouse({path.begin() + 1, path.end()}));
    EXPECT_TRUE(waitUntil([&] { return application.text() != TestApplication::Text; }));
    EXPECT_NE(application.text().find("rosemary"), std::string::npos) << application.text();
}

TEST_P(PanelMenuOnApplicationTest, APressThatIsHeldDraggedAndReleasedChooses) {
    TestApplication& application = launchWide();
    const std::vector<std::string> path = application.switchPath();
    ASSERT_EQ(path.size(), 2U);
    const bool before = application.switchState();
    FocusWatch focus(display());
    ASSERT_TRUE(pointAtTitle(path[0]));
    popUp().startAnew();
    input().press();
    ASSERT_TRUE(waitForMenuBelow(path[0]));
    ASSERT_TRUE(popUp().pointInto(path[1]));
    input().release();
    EXPECT_TRUE(waitForNoMenu());
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_EQ(focus.moves(), 0);
}

TEST_P(PanelMenuOnApplicationTest, TheOverflowOpensWhatFoundNoRoom) {
    TestApplication& application = launch();
    const std::vector<std::string> titles = application.expectedTitles();
    ASSERT_TRUE(moveTo(application.window(), 150, 200));
    display().resizeWindow(application.window(), 200, 400);
    ASSERT_TRUE(waitUntil([&] { return panel().frameOfTitle(Panel::OverflowTitle).has_value(); }));
    ASSERT_TRUE(showsTitles(titles));
    ASSERT_TRUE(standsAbove(application.window()));
    FocusWatch focus(display());
    ASSERT_TRUE(openTitle(Panel::OverflowTitle));
    input().tap(XK_Down);
    std::vector<std::string> rest(titles.begin() + static_cast<long>(panel().titles().size()) - 1, titles.end());
    rest.insert(rest.end(), {"Tarragon"});
    EXPECT_TRUE(waitUntil([&] {
        std::vector<std::string> shown =
            session().observer().count() > 0 ? titlesOf(session().observer().last().menu) : std::vector<std::string>();
        std::erase(shown, "-");
        return shown == rest;
    }));
    EXPECT_EQ(focus.moves(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Under, PanelMenuOnApplicationTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

// What does not depend on the application, on one whose titles are known.
class PanelMenuTest : public WindowManagerPanelUseTest {
protected:
    TestApplication& launchHerbs() {
        TestApplication& application = launchTitled(HerbTitles);
        EXPECT_TRUE(place(application, {150, 200, 900, 300}));
        EXPECT_TRUE(showsTitles(HerbTitles));
        return application;
    }
};

TEST_P(PanelMenuTest, APressAndReleaseLeavesTheMenuOpen) {
    TestApplication& application = launchHerbs();
    ASSERT_TRUE(openTitle("Basil"));
    EXPECT_TRUE(holdsFor(Duration(500), [&] { return menuIsBelow("Basil"); }));
    ASSERT_TRUE(popUp().chooseByMouse({"Cherry of Basil"}));
    EXPECT_TRUE(waitForWindowTitle(application, "Cherry of Basil"));
}

TEST_P(PanelMenuTest, ASecondPressOnTheOpenTitleClosesItsMenu) {
    launchHerbs();
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(openTitle("Chervil")) << "round " << round;
        input().click();
        ASSERT_TRUE(waitForNoMenu()) << "round " << round;
        EXPECT_TRUE(holdsFor(Duration(200), [&] { return agent().openMenus().empty(); })) << "round " << round;
    }
}

TEST_P(PanelMenuTest, APressBesideTheMenuClosesIt) {
    TestApplication& application = launchHerbs();
    const PixelRect window = display().outerFrameOf(application.window());
    const PixelRect frame = panel().frame();
    const std::vector<std::pair<int, int>> places{{window.x + window.width - 60, window.y + window.height - 60},
        {window.x + window.width + 80, window.y + 40}, {frame.x + frame.width - 10, frame.y + 12}};
    for (const auto& [x, y] : places) {
        ASSERT_TRUE(openTitle("Basil"));
        input().moveTo(x, y);
        input().click();
        EXPECT_TRUE(waitForNoMenu()) << x << ", " << y;
    }
    EXPECT_EQ(display().activeWindow(), application.window());
    // What closed the menu did nothing else.
    EXPECT_EQ(display().titleOf(application.window()), "Titled");
}

TEST_P(PanelMenuTest, EscapeClosesTheMenuAndTheTitleOpensAgain) {
    launchHerbs();
    FocusWatch focus(display());
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(openTitle("Dill")) << "round " << round;
        input().tap(XK_Escape);
        ASSERT_TRUE(waitForNoMenu()) << "round " << round;
    }
    EXPECT_EQ(focus.moves(), 0);
}

TEST_P(PanelMenuTest, TypedLettersFindAnItem) {
    TestApplication& application = launchHerbs();
    ASSERT_TRUE(openTitle("Chervil"));
    input().tap(XK_c);
    ASSERT_TRUE(waitForHighlight("Cherry of Chervil"));
    input().tap(XK_Return);
    EXPECT_TRUE(waitForWindowTitle(application, "Cherry of Chervil"));
}

TEST_P(PanelMenuTest, ArrowKeysGoFromTitleToTitleAndRoundTheEnds) {
    TestApplication& application = launchHerbs();
    ASSERT_TRUE(openTitle("Basil"));
    FocusWatch focus(display());
    for (const char* next : {"Chervil", "Dill", "Tarragon", "Basil"}) {
        input().tap(XK_Right);
        ASSERT_TRUE(waitForMenuBelow(next)) << next;
    }
    for (const char* next : {"Tarragon", "Dill", "Chervil"}) {
        input().tap(XK_Left);
        ASSERT_TRUE(waitForMenuBelow(next)) << next;
    }
    // The keyboard was the menus' own all the time, and still is.
    EXPECT_EQ(focus.changes(), 0);
    input().tap(XK_a);
    ASSERT_TRUE(waitForHighlight("Apricot of Chervil"));
    input().tap(XK_Return);
    EXPECT_TRUE(waitForWindowTitle(application, "Apricot of Chervil"));
    EXPECT_EQ(focus.moves(), 0);
}

TEST_P(PanelMenuTest, MovingOverAnotherTitleOpensItsMenuInstead) {
    TestApplication& application = launchHerbs();
    ASSERT_TRUE(openTitle("Basil"));
    FocusWatch focus(display());
    for (const char* next : {"Chervil", "Dill", "Chervil", "Basil", "Dill"}) {
        ASSERT_TRUE(pointAtTitle(next));
        ASSERT_TRUE(waitForMenuBelow(next)) << next;
    }
    EXPECT_EQ(focus.changes(), 0);
    ASSERT_TRUE(popUp().chooseByMouse({"Banana of Dill"}));
    EXPECT_TRUE(waitForWindowTitle(application, "Banana of Dill"));
    EXPECT_EQ(focus.moves(), 0);
    // With no menu open, moving opens none.
    ASSERT_TRUE(pointAtTitle("Basil"));
    EXPECT_TRUE(holdsFor(Duration(300), [&] { return agent().openMenus().empty(); }));
}

TEST_P(PanelMenuTest, ADragFromOneTitleToTheItemOfAnotherChoosesThere) {
    TestApplication& application = launchHerbs();
    ASSERT_TRUE(pointAtTitle("Basil"));
    input().press();
    ASSERT_TRUE(waitForMenuBelow("Basil"));
    ASSERT_TRUE(pointAtTitle("Dill"));
    ASSERT_TRUE(waitForMenuBelow("Dill"));
    ASSERT_TRUE(popUp().pointInto("Cherry of Dill"));
    input().release();
    EXPECT_TRUE(waitForWindowTitle(application, "Cherry of Dill"));
    EXPECT_TRUE(waitForNoMenu());
}

TEST_P(PanelMenuTest, AnItemOfTheOverflowWorks) {
    std::vector<std::string> titles;
    for (int index = 1; index <= 20; ++index)
        titles.push_back("Title " + std::to_string(index));
    TestApplication& application = launchTitled(titles, 500);
    ASSERT_TRUE(place(application, {150, 200, 500, 300}));
    ASSERT_TRUE(showsTitles(titles));
    ASSERT_FALSE(panel().frameOfTitle("Title 20"));
    for (const char* title : {"Title 20", "Title 15"}) {
        ASSERT_TRUE(openTitle(Panel::OverflowTitle));
        ASSERT_TRUE(popUp().chooseByMouse({title, std::string("Banana of ") + title}));
        EXPECT_TRUE(waitForWindowTitle(application, std::string("Banana of ") + title));
    }
}

// Each change of a setting makes or fills the panel anew.
TEST_P(PanelMenuTest, AnOpenMenuSurvivesThatThePanelIsBuiltAnew) {
    TestApplication& application = launchHerbs();
    ASSERT_TRUE(openTitle("Chervil"));
    const xcb_window_t menu = agent().openMenus().at(0).identifier;
    for (const auto& [key, value] : std::vector<std::pair<std::string, std::uint64_t>>{
             {"ButtonStyle", 3}, {"TitleFontSizeSmall", 18}, {"TarragonAlwaysRight", 0}}) {
        const std::size_t before = layouts();
        if (key == "TarragonAlwaysRight")
            change(key, true);
        else
            change(key, value);
        ASSERT_TRUE(waitUntil([&] { return layouts() > before; })) << key;
        EXPECT_TRUE(holdsFor(Duration(200), [&] {
            const std::vector<XWindow> menus = agent().openMenus();
            return menus.size() == 1 && menus[0].identifier == menu;
        })) << key;
    }
    // It goes on as before: other titles take over, at their new places, and items work.
    input().tap(XK_Right);
    ASSERT_TRUE(waitForMenuBelow("Dill"));
    ASSERT_TRUE(pointAtTitle("Basil"));
    ASSERT_TRUE(waitForMenuBelow("Basil"));
    ASSERT_TRUE(popUp().chooseByMouse({"Cherry of Basil"}));
    EXPECT_TRUE(waitForWindowTitle(application, "Cherry of Basil"));
}

INSTANTIATE_TEST_SUITE_P(Under, PanelMenuTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
