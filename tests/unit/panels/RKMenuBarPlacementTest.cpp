#include "RKMenuBarFixture.h"

#include "fake/RecordingLog.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BarPlacementTest : public RKMenuBarTest {
protected:
    // The second screen is below the first.
    void stackScreens() {
        fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen({{0, -1024}, {1280, 1024}})});
    }
    bool isShown() { return window().visible; }
};

// The window.

TEST_F(BarPlacementTest, IsMadeOutOfSightAboveItsScreen) {
    makeBar();
    EXPECT_EQ(window().name, "TarragonSTPanel128");
    EXPECT_EQ(window().frames.front(), (Rect{{1440, 1124}, {1280, 1024}}));
    EXPECT_EQ(bar->rectOfMenuBar(), (Rect{{1440, 1124}, {1280, 1024}}));
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1124}, {1280, 22}}));
}

// A dock that is moved while the window manager takes it over may stay behind.
TEST_F(BarPlacementTest, IsShownAsADockInItsPlaceAlone) {
    makeBar();
    EXPECT_FALSE(window().visible);
    bar->updateTarragonSTWindowPosition();
    EXPECT_TRUE(window().visible);
    EXPECT_EQ(window().frameNS, Flush);
    set("ScreenTopAutoHide", true);
    bar->updateTarragonSTWindowPosition();
    EXPECT_TRUE(window().visible);
    EXPECT_EQ(window().frameNS, Hidden);
}

TEST_F(BarPlacementTest, HasNoWindowWithoutASecondScreen) {
    detachSecondScreen();
    makeBar();
    bar->addGradientScreenTop();
    EXPECT_THAT(toolkit.windows(), IsEmpty());
}

TEST_F(BarPlacementTest, HasNoWindowWhileItIsSwitchedOff) {
    set("EnableScreenTop", false);
    makeBar();
    bar->setupScreentopTarragonPanel();
    bar->updateTarragonSTWindowPosition();
    EXPECT_THAT(toolkit.windows(), IsEmpty());
}

TEST_F(BarPlacementTest, KeepsItsWindow) {
    makePlacedBar();
    bar->refreshPanel();
    bar->handleAppChange();
    EXPECT_EQ(toolkit.windows().size(), 1u);
}

TEST_F(BarPlacementTest, LiesAboveEverythingUnlessItHidesItself) {
    makeBar();
    EXPECT_EQ(window().level, PanelLevel::Dock);
    set("ScreenTopAutoHide", true);
    bar->setupScreentopTarragonPanel();
    EXPECT_EQ(window().level, PanelLevel::OrdinaryWindows);
}

TEST_F(BarPlacementTest, GivesItsRoomBackWithThePlacementAfterItWasToldToHide) {
    makePlacedBar();
    set("ScreenTopAutoHide", true);
    EXPECT_EQ(window().level, PanelLevel::Dock);
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(window().level, PanelLevel::OrdinaryWindows);
    EXPECT_TRUE(isShown());
    set("ScreenTopAutoHide", false);
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(window().level, PanelLevel::Dock);
    EXPECT_TRUE(isShown());
}

TEST_F(BarPlacementTest, IsADockInItsPlaceAlone) {
    makePlacedBar();
    set("ScreenTopAutoHide", true);
    window().told.clear();
    bar->updateTarragonSTWindowPosition();
    EXPECT_THAT(window().told, ElementsAre("out", "level", "front", "front", "frame", "front", "level"));
    set("ScreenTopAutoHide", false);
    window().told.clear();
    bar->updateTarragonSTWindowPosition();
    EXPECT_THAT(window().told, ElementsAre("front", "frame", "front", "out", "level", "front"));
}

TEST_F(BarPlacementTest, GetsALevelOfItsOwnOnRequest) {
    bar = newBar();
    bar->resetLevels();
    makePlacedBar();
    bar->resetLevels();
    EXPECT_EQ(window().level, PanelLevel::OrdinaryWindows);
}

TEST_F(BarPlacementTest, IsTranslucentToOneDegreeWhenItIsMadeAndToAnotherOncePlaced) {
    makeBar();
    EXPECT_EQ(window().alpha, 1.0);
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(window().alpha, 1.0);
    set("ScreenTopTransparency", true);
    EXPECT_EQ(window().alpha, 0.75);
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(window().alpha, 0.9);
    bar->handleAppChange();
    EXPECT_EQ(window().alpha, 0.9);
    set("ScreenTopTransparency", false);
    EXPECT_EQ(window().alpha, 1.0);
}

TEST_F(BarPlacementTest, HasItsBackgroundFromItsFirstPlacementOn) {
    makeBar();
    EXPECT_FALSE(window().content.background.showGradient);
    bar->updateTarragonSTWindowPosition();
    const ZDGradientView& background = window().content.background;
    EXPECT_EQ(background.startingColor, (Grey{0.807, 1}));
    EXPECT_EQ(background.endingColor, (Grey{0.98, 1}));
    EXPECT_EQ(background.angle, 90);
    EXPECT_TRUE(background.showGradient);
    EXPECT_FALSE(background.roundedCorners);
    EXPECT_THAT(window().titles(), ElementsAre("Mail  ", "File", "Edit"));
}

TEST_F(BarPlacementTest, IsMadeWithItsTitlesWhereItsBackgroundIsMissing) {
    bar = newBar();
    bar->setMenu(mail);
    bar->addGradientScreenTop();
    EXPECT_THAT(window().titles(), ElementsAre("Mail  ", "File", "Edit"));
    EXPECT_TRUE(window().content.background.showGradient);
}

TEST_F(BarPlacementTest, IsMadeAndPlacedWhereItsWindowIsMissing) {
    makePlacedBar();
    bar->clearAll();
    EXPECT_EQ(bar->frameOfST(), Rect());
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(toolkit.livingWindows(), 1u);
    EXPECT_EQ(bar->frameOfST(), Flush);
    EXPECT_TRUE(window().isSeen());
}

TEST_F(BarPlacementTest, IsHiddenShownAndDroppedOnRequest) {
    bar = newBar();
    bar->hideTarragonSTPanel();
    bar->unhideTarragonSTPanel();
    bar->clearAll();
    makePlacedBar();
    bar->hideTarragonSTPanel();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(bar->frameOfST(), Flush);
    bar->unhideTarragonSTPanel();
    EXPECT_TRUE(isShown());
    bar->clearAll();
    EXPECT_EQ(toolkit.livingWindows(), 0u);
}

// Its place.

TEST_F(BarPlacementTest, LiesAlongTheTopEdgeOfItsScreen) {
    makePlacedBar();
    EXPECT_EQ(window().frameNS, Flush);
    EXPECT_EQ(bar->frameOfST(), Flush);
}

TEST_F(BarPlacementTest, FollowsItsScreen) {
    makePlacedBar();
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), screen({{-1024, 132}, {1024, 768}})});
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(bar->frameOfST(), (Rect{{-1024, 878}, {1024, 22}}));
}

TEST_F(BarPlacementTest, LiesBelowTheDesktopsOwnBarAtTheTop) {
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), {SecondScreen, {{1440, 150}, {1280, 944}}}});
    makePlacedBar();
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1072}, {1280, 22}}));
}

TEST_F(BarPlacementTest, IsHiddenFiftyPointsAboveItsScreen) {
    set("ScreenTopAutoHide", true);
    makePlacedBar();
    EXPECT_EQ(window().frameNS, Hidden);
    EXPECT_TRUE(isShown());
}

TEST_F(BarPlacementTest, IsPlacedInViewAgainWhileItIsSlidIn) {
    set("ScreenTopAutoHide", true);
    makePlacedBar();
    movePointerTo(AtTopOfSecondScreen);
    bar->handleAppChange();
    EXPECT_EQ(window().frameNS, Flush);
}

TEST_F(BarPlacementTest, SlidesInAtOnceWhereItIsPlacedUnderThePointer) {
    set("ScreenTopAutoHide", true);
    fake.displays.setMouseLocationNS(AtTopOfSecondScreen);
    makePlacedBar();
    finishSlide();
    EXPECT_EQ(window().frameNS, Flush);
}

TEST_F(BarPlacementTest, IsWrittenToTheLogWhenItsScreenHasChanged) {
    RecordingLog log(LogCategory::Panel);
    makePlacedBar();
    bar->handleAppChange();
    EXPECT_THAT(log.lines(),
        ElementsAre("panel: bar of screen 1: titles: \"Mail  \" 5 to 79, \"File\" 79 to 137, \"Edit\" 137 to 195",
            "panel: bar of screen 1: titles: \"Mail  \" 5 to 79, \"File\" 79 to 137, \"Edit\" 137 to 195",
            "panel: bar of screen 1: 1280 wide, its top at 1440, 1124",
            "panel: bar of screen 1: titles: \"Mail  \" 5 to 79, \"File\" 79 to 137, \"Edit\" 137 to 195"));
}

// Screens come and go.

TEST_F(BarPlacementTest, ClosesWhenItsScreenIsGoneAndComesBackWithTheNextApplication) {
    makePlacedBar();
    detachSecondScreen();
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(toolkit.livingWindows(), 0u);
    bar->updateTarragonSTWindowPosition();
    attachSecondScreen();
    bar->setMenu(mirroredMenu("Notes", {"Notes", "View"}));
    bar->handleAppChange();
    EXPECT_EQ(toolkit.livingWindows(), 1u);
    EXPECT_THAT(window().titles(), ElementsAre("Notes  ", "View"));
    // It is placed with the one after.
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1124}, {1280, 22}}));
    bar->handleAppChange();
    EXPECT_EQ(bar->frameOfST(), Flush);
}

TEST_F(BarPlacementTest, ClosesItsOpenMenuWhenItsScreenIsGone) {
    makePlacedBar();
    window().press("File");
    detachSecondScreen();
    bar->updateTarragonSTWindowPosition();
    EXPECT_EQ(openMenu(), "");
}

TEST_F(BarPlacementTest, LeavesItsTitlesWithoutASecondScreen) {
    makePlacedBar();
    detachSecondScreen();
    bar->setMenu(mirroredMenu("Notes", {"Notes", "View"}));
    bar->handleAppChange();
    EXPECT_THAT(window().titles(), ElementsAre("Mail  ", "File", "Edit"));
}

// Hiding by itself.

class HidingBarTest : public BarPlacementTest {
protected:
    HidingBarTest() { set("ScreenTopAutoHide", true); }
};

TEST_F(HidingBarTest, SlidesInWhenThePointerTouchesTheTopAndOutWhenItLeaves) {
    makePlacedBar();
    movePointerTo({2000, 1123.5});
    EXPECT_EQ(bar->frameOfST(), Hidden);
    movePointerTo(AtTopOfSecondScreen);
    EXPECT_EQ(bar->frameOfST(), Flush);
    finishSlide();
    movePointerTo({2000, 1102});
    EXPECT_EQ(bar->frameOfST(), Flush);
    movePointerTo({2000, 1101});
    EXPECT_EQ(bar->frameOfST(), Hidden);
    finishSlide();
    EXPECT_EQ(window().frameNS, Hidden);
}

TEST_F(HidingBarTest, SlidesForAsLongAsPanelsChangeTheirSize) {
    makePlacedBar();
    window().frames.clear();
    movePointerTo(AtTopOfSecondScreen);
    fake.runLoop.advance(0.07);
    EXPECT_GT(window().frameNS.origin.y, Flush.origin.y);
    EXPECT_LT(window().frameNS.origin.y, Hidden.origin.y);
    fake.runLoop.advance(0.1);
    EXPECT_EQ(window().frameNS, Flush);
    EXPECT_GT(window().frames.size(), 4u);
    for (std::size_t i = 1; i < window().frames.size(); ++i)
        EXPECT_LE(window().frames[i].origin.y, window().frames[i - 1].origin.y);
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(HidingBarTest, TurnsRoundInTheMiddleOfASlideFromWhereItIs) {
    makePlacedBar();
    movePointerTo(AtTopOfSecondScreen);
    fake.runLoop.advance(0.07);
    const double middle = window().frameNS.origin.y;
    movePointerTo({2000, 500});
    EXPECT_EQ(window().frameNS.origin.y, middle);
    EXPECT_EQ(bar->frameOfST(), Hidden);
    finishSlide();
    EXPECT_EQ(window().frameNS, Hidden);
}

TEST_F(HidingBarTest, WaitsInTheLeftHalfAloneIfSoSet) {
    makePlacedBar();
    set("ScreenTopHalfHotZone", true);
    movePointerTo({1440 + 640, 1124});
    EXPECT_EQ(bar->frameOfST(), Hidden);
    movePointerTo({1440 + 639, 1124});
    EXPECT_EQ(bar->frameOfST(), Flush);
    set("ScreenTopHalfHotZone", false);
    movePointerTo({1440 + 1000, 1124});
    EXPECT_EQ(bar->frameOfST(), Flush);
}

TEST_F(HidingBarTest, StaysWhileAMenuOfItIsOpenWhereverThePointerIs) {
    makePlacedBar();
    movePointerTo(AtTopOfSecondScreen);
    window().press("File");
    EXPECT_TRUE(bar->checkIfMenuIsShowing());
    movePointerTo({2000, 300});
    EXPECT_EQ(bar->frameOfST(), Flush);
    fake.menuPresenter.closeMenus();
    EXPECT_FALSE(bar->checkIfMenuIsShowing());
    bar->slideOutCheck();
    EXPECT_EQ(bar->frameOfST(), Hidden);
}

TEST_F(HidingBarTest, TakesNoNoticeOfMenusThatAreNotItsOwn) {
    makePlacedBar();
    fake.menuPresenter.open(*mail);
    EXPECT_FALSE(bar->checkIfMenuIsShowing());
    bar->slideOutCheck();
    EXPECT_EQ(bar->frameOfST(), Hidden);
}

TEST_F(HidingBarTest, StaysWhereItIsOnceItNoLongerHides) {
    makePlacedBar();
    movePointerTo(AtTopOfSecondScreen);
    set("ScreenTopAutoHide", false);
    movePointerTo({2000, 300});
    EXPECT_EQ(bar->frameOfST(), Flush);
}

TEST_F(HidingBarTest, SlidesBelowTheDesktopsOwnBar) {
    fake.displays.setScreens({screen({{0, 0}, {1440, 900}}), {SecondScreen, {{1440, 100}, {1280, 994}}}});
    makePlacedBar();
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1122}, {1280, 22}}));
    // On the desktop's bar.
    movePointerTo({2000, 1100});
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1072}, {1280, 22}}));
    movePointerTo({2000, 1080});
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1072}, {1280, 22}}));
    movePointerTo({2000, 1071});
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1122}, {1280, 22}}));
}

TEST_F(HidingBarTest, SlidesByFiftyPointsFromWhereverItIs) {
    makePlacedBar();
    bar->slideInScreenTopMenubar();
    bar->slideInScreenTopMenubar();
    EXPECT_EQ(bar->frameOfST(), (Rect{{1440, 1052}, {1280, 22}}));
    bar->slideOutScreenTopMenubar();
    EXPECT_EQ(bar->frameOfST(), Flush);
}

TEST_F(HidingBarTest, DoesNothingWithoutAWindow) {
    bar = newBar();
    bar->slideInScreenTopMenubar();
    bar->slideOutScreenTopMenubar();
    movePointerTo(AtTopOfSecondScreen);
    EXPECT_THAT(toolkit.windows(), IsEmpty());
}

// A screen that lies above.

TEST_F(HidingBarTest, IsOffTheScreenWhereAnotherOneLiesAboveItsOwn) {
    stackScreens();
    makePlacedBar();
    EXPECT_EQ(bar->frameOfST(), (Rect{{0, 28}, {1280, 22}}));
    EXPECT_FALSE(isShown());
    bar->handleAppChange();
    bar->refreshPanel();
    bar->unhideTarragonSTPanel();
    EXPECT_FALSE(isShown());
}

TEST_F(HidingBarTest, IsSeenOnItsWayFromBehindTheScreenAbove) {
    stackScreens();
    makePlacedBar();
    movePointerTo({600, 3});
    EXPECT_TRUE(isShown());
    EXPECT_EQ(window().frameNS, (Rect{{0, 28}, {1280, 22}}));
    finishSlide();
    EXPECT_EQ(window().frameNS, (Rect{{0, -22}, {1280, 22}}));
    EXPECT_TRUE(isShown());
    movePointerTo({600, -500});
    EXPECT_TRUE(isShown());
    finishSlide();
    EXPECT_FALSE(isShown());
}

TEST_F(HidingBarTest, StaysHiddenOnRequestWhenItSlides) {
    makePlacedBar();
    bar->hideTarragonSTPanel();
    movePointerTo(AtTopOfSecondScreen);
    finishSlide();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(window().frameNS, Flush);
}

TEST_F(BarPlacementTest, IsNeverSeenOnTheScreenAboveBeforeItIsPlaced) {
    stackScreens();
    makeBar();
    EXPECT_FALSE(isShown());
    bar->handleAppChange();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(bar->frameOfST(), (Rect{{0, -22}, {1280, 22}}));
}

} // namespace
} // namespace tarragon
