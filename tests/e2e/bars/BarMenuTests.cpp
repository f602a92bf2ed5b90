// The titles of a bar as a menu bar of the application in front.
#include "FocusWatch.h"
#include "bars/BarEndToEndTest.h"

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

const std::vector<std::string> HerbTitles{"Basil", "Chervil", "Dill"};

} // namespace

class BarMenuOnApplicationTest : public BarEndToEndTest,
                                 public testing::WithParamInterface<std::tuple<WindowManager, ApplicationKind>> {
protected:
    BarMenuOnApplicationTest()
        : BarEndToEndTest(std::get<0>(GetParam())) { }
};

// The window in front is on the primary monitor, the bar on the other one.
TEST_P(BarMenuOnApplicationTest, AnItemChosenOnAnotherScreenHasItsEffectInTheApplication) {
    const Arrangement arrangement = besideEachOther();
    arrange(arrangement);
    const PixelRect monitor = arrangement.others().front();
    TestApplication& application = launch(std::get<1>(GetParam()));
    ASSERT_TRUE(hasBarsOn({monitor}));
    ASSERT_TRUE(moveTo(application.window(), 20, 100));
    ASSERT_TRUE(showsTitlesOnBar(1, application.expectedTitles()));
    FocusWatch focus(display());
    const std::vector<std::string> path = application.switchPath();
    const bool before = application.switchState();
    ASSERT_TRUE(openTitleOnBar(1, monitor, path.front()));
    ASSERT_TRUE(popUp().chooseByMouse({path.begin() + 1, path.end()}));
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));

    ASSERT_EQ(application.text(), TestApplication::Text);
    const std::vector<std::string> edit = application.editPath();
    ASSERT_TRUE(openTitleOnBar(1, monitor, edit.front()));
    ASSERT_TRUE(popUp().chooseByKeyboard({edit.begin() + 1, edit.end()}));
    EXPECT_TRUE(waitUntil([&] { return application.text() != TestApplication::Text; }));
    EXPECT_EQ(focus.moves(), 0);
    EXPECT_EQ(display().activeWindow(), application.window());
}

INSTANTIATE_TEST_SUITE_P(Under, BarMenuOnApplicationTest,
    testing::Combine(EveryWindowManager, testing::Values(ApplicationKind::Mousepad, ApplicationKind::FeatherPad)),
    nameOfApplication);

class BarMenuTest : public WindowManagerBarTest { };

TEST_P(BarMenuTest, AllBarsShowTheTitlesOfTheApplicationInFront) {
    const Arrangement arrangement{{{0, 0, 600, 1200}, {600, 0, 500, 1200}, {1100, 0, 500, 1200}}, 1};
    arrange(arrangement);
    TestApplication& first = launch(ApplicationKind::Titled, {"400", "300", "Basil", "Chervil", "Dill"});
    ASSERT_TRUE(hasBarsOn(arrangement.others()));
    const auto showTitles = [this](const std::vector<std::string>& titles) {
        return showsTitlesOnBar(1, titles) && showsTitlesOnBar(2, titles);
    };
    EXPECT_TRUE(showTitles(HerbTitles));
    TestApplication& second = launch(ApplicationKind::Titled, {"400", "300", "Fennel", "Garlic"});
    EXPECT_TRUE(showTitles({"Fennel", "Garlic"}));
    ASSERT_TRUE(first.bringToFront());
    EXPECT_TRUE(showTitles(HerbTitles));
    quit(first);
    ASSERT_TRUE(second.bringToFront());
    EXPECT_TRUE(showTitles({"Fennel", "Garlic"}));
}

TEST_P(BarMenuTest, TitlesBehaveAsThoseOfAMenuBar) {
    const Arrangement arrangement = besideEachOther();
    const PixelRect monitor = arrangement.others().front();
    arrange(arrangement);
    ASSERT_TRUE(hasBarsOn({monitor}));
    TestApplication& application = launchOnBar(HerbTitles, {50, 200, 500, 300});
    ASSERT_TRUE(openTitleOnBar(1, monitor, "Basil"));
    // Along the titles by pointer and by keyboard.
    const auto chervil = bars().frameOfTitle(1, monitor, "Chervil");
    ASSERT_TRUE(chervil);
    input().moveTo(chervil->x + chervil->width / 2, chervil->y + 8);
    EXPECT_TRUE(waitForMenuBelowBar(1, monitor, "Chervil"));
    input().tap(XK_Right);
    EXPECT_TRUE(waitForMenuBelowBar(1, monitor, "Dill"));
    input().tap(XK_Down);
    ASSERT_TRUE(waitForHighlight("Apricot of Dill"));
    input().tap(XK_Return);
    EXPECT_TRUE(waitForWindowTitle(application, "Apricot of Dill"));
    ASSERT_TRUE(waitForNoMenu());
    // Press, drag and release.
    input().moveTo(chervil->x + chervil->width / 2, chervil->y + 8);
    popUp().startAnew();
    input().press();
    ASSERT_TRUE(waitForMenuBelowBar(1, monitor, "Chervil"));
    ASSERT_TRUE(popUp().pointInto("Cherry of Chervil"));
    input().release();
    EXPECT_TRUE(waitForWindowTitle(application, "Cherry of Chervil"));
    EXPECT_TRUE(waitForNoMenu());
}

INSTANTIATE_TEST_SUITE_P(Under, BarMenuTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
