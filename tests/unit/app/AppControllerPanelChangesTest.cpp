#include "FloatingPanelFixture.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A switch of applications.

TEST_F(FloatingPanelTest, IsMadeAnewForAnotherApplication) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(panelToolkit.windows().size(), 2U);
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
    settle();
    EXPECT_THAT(window().titles(), ElementsAre("Note", "Tarragon"));
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 476}));
    EXPECT_TRUE(panel().shouldRedoInitials());
}

TEST_F(FloatingPanelTest, TakesItsOpenMenuAlong) {
    launchAndSettle();
    window().press("Edit");
    fake.quit(mail);
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
    settle();
    EXPECT_TRUE(window().isSeen());
}

TEST_F(FloatingPanelTest, LeavesThePopUpOfTheHotKeyOpenWhenItEnds) {
    launchAndSettle();
    controller().popUpMenuAtMouseLocation();
    set(preference::EnableButton, false);
    EXPECT_THAT(fake.menuPresenter.openMenus(), SizeIs(1));
}

TEST_F(FloatingPanelTest, KeepsItsPlaceWhileAnOwnWindowIsInFront) {
    launchAndSettle();
    const FakeApplication ourselves = fake.addApplication("Tarragon");
    fake.switchTo(ourselves);
    EXPECT_EQ(panelToolkit.windows().size(), 1U);
}

TEST_F(VerticalPanelTest, IsMadeAnewForAnotherApplication) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(panelToolkit.windows().size(), 2U);
    EXPECT_TRUE(panel().shouldRedoInitials());
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 473}));
}

TEST_F(VerticalPanelTest, StandsWhereItStaysFromTheStart) {
    launch();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 173}));
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    notes.window({.title = "List", .positionCG = Point{400, 500}, .size = Size{800, 300}});
    fake.switchTo(notes);
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 473}));
    EXPECT_TRUE(window().isSeen());
}

TEST_F(VerticalPanelTest, IsNotShownForAMomentOverAFullScreenWindow) {
    launchAndSettle();
    const FakeApplication player = fake.addApplication("Player");
    player.menu("File").item("Open");
    player.window({.title = "Film", .positionCG = Point{0, 0}, .size = Size{1440, 900}, .fullScreen = true});
    fake.switchTo(player);
    EXPECT_FALSE(window().isSeen());
}

// Settings that change while the program runs.

TEST_F(FloatingPanelTest, BecomesVerticalAndHorizontalAgain) {
    launchAndSettle();
    set(preference::Horizontal, false);
    EXPECT_THAT(window().titles(), ElementsAre("Menu"));
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 173}));
    set(preference::Horizontal, true);
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "Tarragon"));
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, ComesAndGoesWithItsSetting) {
    launchAndSettle();
    set(preference::EnableButton, false);
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
    set(preference::EnableButton, true);
    settle();
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, GoesToTheRightOfTheButtonsAtOnce) {
    launchAndSettle();
    set(preference::TarragonAlwaysRight, true);
    EXPECT_EQ(panelTopLeftCG(), (Point{168, 200}));
    set(preference::TarragonAlwaysRight, false);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, LeavesTheButtonsForGoodAlsoOverAWindowThatIsTooNarrowForThem) {
    set(preference::TarragonAlwaysRight, true);
    moveWindow({{100, 200}, {565, 500}});
    launchAndSettle();
    set(preference::TarragonAlwaysRight, false);
    moveWindow({{100, 200}, {900, 500}});
    tick();
    EXPECT_FALSE(controller().preferences()._tarragonAlwaysRight);
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(FloatingPanelTest, HidesOnThePrimaryScreenAtOnce) {
    launchAndSettle();
    set(preference::ShowOnPrimaryScreen, false);
    EXPECT_FALSE(window().isSeen());
    set(preference::ShowOnPrimaryScreen, true);
    settle();
    EXPECT_TRUE(window().isSeen());
}

TEST_F(FloatingPanelTest, FadesFromNowOnWhenItIsNoLongerAlwaysVisible) {
    launchAndSettle();
    set(preference::TarragonAlwaysVisible, false);
    EXPECT_EQ(window().alpha, 0);
    EXPECT_TRUE(panel().fadeEffect());
    set(preference::TarragonAlwaysVisible, true);
    settle();
    EXPECT_EQ(window().alpha, 1);
    EXPECT_FALSE(panel().fadeEffect());
}

TEST_F(FloatingPanelTest, IsRebuiltForEverySettingThatItShows) {
    launchAndSettle();
    for (const std::string_view key : {preference::FoldAlternate, preference::ShowKeyEquivalents,
             preference::ShowAppleMenu, preference::ShowTarragonMenu, preference::TarragonAlwaysVisible,
             preference::TarragonAlwaysRight, preference::HideOnPrimaryTopEdge, preference::ShowOnPrimaryScreen,
             preference::EnableButton, preference::Horizontal, preference::FontSizeSmall,
             preference::TitleFontSizeSmall, preference::ButtonHasBorder, preference::ButtonHasShadow,
             preference::ButtonRound, preference::ButtonHasTexture, preference::ButtonLabel, preference::ButtonStyle,
             preference::ShowApplicationMenu, preference::EnableScreenTop}) {
        settle();
        ASSERT_EQ(window().alpha, 1) << key;
        // Titles are laid out unseen, and fade in then.
        controller().observeValueForKeyPath(keyPath(key));
        EXPECT_EQ(window().alpha, 0) << key;
    }
}

TEST_F(FloatingPanelTest, IsLeftAloneByTheOtherSettings) {
    launchAndSettle();
    for (const std::string_view key :
        {preference::EnableHotkey, preference::NewTrigger, preference::ShowStatusBarIcon, preference::ScreenTopAutoHide,
            preference::ScreenTopTransparency, preference::EnableMouseButton, preference::ScreenTopHalfHotZone}) {
        controller().observeValueForKeyPath(keyPath(key));
        EXPECT_EQ(window().alpha, 1) << key;
    }
}

TEST_F(FloatingPanelTest, ShowsTheChangedOptionsOfTheReader) {
    mail.menu("Apple").item("About");
    launchAndSettle();
    EXPECT_EQ(window().titles().front(), "File");
    set(preference::ShowAppleMenu, false);
    EXPECT_THAT(window().titles(), testing::Not(testing::Contains(LogoTitle)));
    // It comes with the next switch.
    EXPECT_THAT(window().titles(), testing::Not(testing::Contains("Tarragon")));
}

// Small questions.

TEST_F(FloatingPanelTest, ComparesTheOriginsOfScreenAndWindowInTheirOwnSpaces) {
    launchAndSettle();
    EXPECT_EQ(controller().originOfCurrentWindow(), (Point{100, 200}));
    fake.displays.setScreens(
        {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}, {{{0, 900}, {1440, 900}}, {{0, 900}, {1440, 900}}}});
    fake.displays.setMouseLocationNS({10, 10});
    EXPECT_EQ(controller().originOfScreenWithMousePointer(), (Point{0, 0}));
    EXPECT_FALSE(controller().isWindowFlushWithScreenEdge());
    fake.displays.setMouseLocationNS({10, 1000});
    EXPECT_EQ(controller().originOfScreenWithMousePointer(), (Point{0, 900}));
    EXPECT_TRUE(controller().isWindowFlushWithScreenEdge());
    fake.displays.setMouseLocationNS({-10, -10});
    EXPECT_EQ(controller().originOfScreenWithMousePointer(), Point());
}

TEST_F(FloatingPanelTest, ConvertsByTheScreenListOneWayAndByTheMainDisplayTheOther) {
    launchAndSettle();
    fake.displays.setScreens({{{{0, 0}, {1440, 1000}}, {{0, 0}, {1440, 978}}}});
    EXPECT_EQ(controller().convertCGtoNSRectCoords({{10, 20}, {30, 40}}), (Rect{{10, 940}, {30, 40}}));
    EXPECT_EQ(controller().convertNSToCGRectCoords({{10, 20}, {30, 40}}), (Rect{{10, 840}, {30, 40}}));
}

TEST_F(FloatingPanelTest, KnowsWhereTheProgramIs) {
    launch();
    EXPECT_EQ(controller().appURL(), "file:///opt/Tarragon");
}

TEST_F(FloatingPanelTest, ShowsItsGradientAgain) {
    moveWindow({{100, 22}, {900, 500}});
    launchAndSettle();
    controller().addGradient();
    EXPECT_TRUE(window().content.background.showGradient);
}

} // namespace
} // namespace tarragon
