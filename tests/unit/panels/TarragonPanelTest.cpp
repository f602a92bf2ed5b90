#include "PanelFixture.h"

#include "panels/rules/PanelFade.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// How the panel is on the screen.

TEST_F(PanelTest, HasTheBackgroundOfPanelsFromTheStart) {
    const ZDGradientView& background = window().content.background;
    EXPECT_EQ(background.startingColor, (Grey{0.45, 1}));
    EXPECT_EQ(background.endingColor, (Grey{0.95, 1}));
    EXPECT_EQ(background.angle, 90);
    EXPECT_TRUE(background.showGradient);
    EXPECT_TRUE(background.roundedCorners);
}

TEST_F(PanelTest, IsHiddenUntilItIsOrderedFront) {
    EXPECT_FALSE(window().visible);
    panel->orderFrontRegardless();
    EXPECT_TRUE(window().visible);
    panel->orderOut();
    EXPECT_FALSE(window().visible);
}

TEST_F(PanelTest, IsNotOnTheScreenWithoutAWidth) {
    panel->orderFrontRegardless();
    panel->setFrame({{10, 20}, {0, 24}});
    EXPECT_FALSE(window().visible);
    panel->setFrame({{10, 20}, {1, 24}});
    EXPECT_TRUE(window().visible);
}

TEST_F(PanelTest, MovesByItsTopLeftCorner) {
    panel->setFrameTopLeftPoint({-50.5, 300});
    EXPECT_EQ(panel->frame(), (Rect{{-50.5, 276}, {600, 24}}));
    EXPECT_EQ(window().frameNS, panel->frame());
}

TEST_F(PanelTest, DrawsOnlyWhatHasChanged) {
    addTitles({"File"});
    const int before = window().timesDisplayed;
    panel->display();
    panel->setShowGradient(true);
    EXPECT_EQ(window().timesDisplayed, before);
    panel->setShowGradient(false);
    EXPECT_EQ(window().timesDisplayed, before + 1);
}

// Changes of the frame.

TEST_F(PanelTest, ChangesItsSizeBitByBitFromTheTopLeftCorner) {
    panel->orderFrontRegardless();
    panel->setFrameAnimated({{100, 690}, {300, 34}});
    EXPECT_EQ(panel->frame(), (Rect{{100, 690}, {300, 34}}));
    EXPECT_EQ(window().frameNS, (Rect{{100, 700}, {600, 24}}));
    fake.runLoop.advance(ResizeDuration / 2);
    EXPECT_GT(window().frameNS.size.width, 300);
    EXPECT_LT(window().frameNS.size.width, 600);
    EXPECT_EQ(window().frameNS.origin.y + window().frameNS.size.height, 724);
    fake.runLoop.advance(ResizeDuration / 2);
    EXPECT_EQ(window().frameNS, panel->frame());
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(PanelTest, ChangesItsSizeAtOnceWhereNobodySeesIt) {
    panel->setFrameAnimated({{100, 700}, {300, 24}});
    EXPECT_EQ(window().frameNS.size.width, 300);
    panel->orderFrontRegardless();
    panel->setAlphaValue(0);
    panel->setFrameAnimated({{100, 700}, {200, 24}});
    EXPECT_EQ(window().frameNS.size.width, 200);
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(PanelTest, MovesWhileItsSizeChanges) {
    panel->orderFrontRegardless();
    panel->setFrameAnimated({{100, 700}, {300, 24}});
    fake.runLoop.advance(ResizeDuration / 2);
    panel->setFrameTopLeftPoint({400, 524});
    EXPECT_EQ(window().frameNS.origin, (Point{400, 500}));
    fake.runLoop.advance(ResizeDuration);
    EXPECT_EQ(window().frameNS, (Rect{{400, 500}, {300, 24}}));
}

// Fading.

TEST_F(PanelTest, FadesInFromNothingAndComesToTheFront) {
    panel->setAlphaValue(0);
    panel->fadeIntoView();
    EXPECT_TRUE(window().visible);
    fake.runLoop.advance(FadeDuration / 2);
    EXPECT_GT(window().alpha, 0);
    EXPECT_LT(window().alpha, 1);
    fake.runLoop.advance(FadeDuration / 2);
    EXPECT_EQ(window().alpha, 1);
    EXPECT_EQ(panel->alphaValue(), 1);
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(PanelTest, FadesOutAndStaysOnTheScreenToNoticeThePointer) {
    panel->orderFrontRegardless();
    panel->fadeOutOfView();
    fake.runLoop.advance(FadeDuration);
    EXPECT_EQ(panel->alphaValue(), 0);
    EXPECT_TRUE(window().visible);
}

TEST_F(PanelTest, IgnoresBothFadesInTheMiddleOfOne) {
    panel->orderFrontRegardless();
    panel->setAlphaValue(0.5);
    panel->fadeIntoView();
    panel->fadeOutOfView();
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 0.5);

    panel->setAlphaValue(1);
    panel->fadeOutOfView();
    fake.runLoop.advance(FadeDuration / 2);
    panel->fadeIntoView();
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 0);
}

TEST_F(PanelTest, IgnoresAFadeThatHasJustBegun) {
    panel->setAlphaValue(0);
    panel->fadeIntoView();
    panel->fadeIntoView();
    EXPECT_EQ(fake.runLoop.validTimers().size(), 1U);
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 1);
}

TEST_F(PanelTest, EndsItsFadeWithItself) {
    panel->setAlphaValue(0);
    panel->fadeIntoView();
    controller = nullptr;
    panel = nullptr;
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
    fake.runLoop.advance(1);
    EXPECT_EQ(toolkit.livingWindows(), 0U);
}

TEST_F(PanelTest, TakesAnAlphaInTheMiddleOfAFade) {
    panel->setAlphaValue(0);
    panel->fadeIntoView();
    fake.runLoop.advance(0.1);
    panel->setAlphaValue(1);
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 1);
    panel->fadeOutOfView();
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 0);
}

// The pointer over the panel.

class PanelHoverTest : public PanelTest {
protected:
    PanelHoverTest() {
        panel->setFadeEffect(true);
        panel->setTempFadeEffect(true);
        panel->orderFrontRegardless();
        panel->setAlphaValue(0);
    }
    double alphaAfterEntering() {
        window().movePointer(Point{300, 10});
        fake.runLoop.advance(1);
        return panel->alphaValue();
    }
};

TEST_F(PanelHoverTest, FadesInWhenThePointerEntersAndOutWhenItLeaves) {
    EXPECT_EQ(alphaAfterEntering(), 1);
    EXPECT_TRUE(panel->mouseIsOnWindow());
    window().movePointer(std::nullopt);
    EXPECT_FALSE(panel->mouseIsOnWindow());
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 0);
}

TEST_F(PanelHoverTest, StaysWithoutTheEffectsForIt) {
    panel->setFadeEffect(false);
    EXPECT_EQ(alphaAfterEntering(), 0);
    EXPECT_TRUE(panel->mouseIsOnWindow());
    panel->setAlphaValue(1);
    window().movePointer(std::nullopt);
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 1);

    panel->setFadeEffect(true);
    panel->setTempFadeEffect(false);
    window().movePointer(Point{300, 10});
    window().movePointer(std::nullopt);
    fake.runLoop.advance(1);
    EXPECT_EQ(panel->alphaValue(), 1);
}

TEST_F(PanelHoverTest, StaysAwayFromAMinimisedWindow) {
    mail.removeFocusedWindow();
    EXPECT_EQ(alphaAfterEntering(), 0);
    EXPECT_TRUE(panel->mouseIsOnWindow());
}

TEST_F(PanelHoverTest, StaysAwayFromAHiddenApplication) {
    fake.accessibility.setAttribute(mail.element(), "AXHidden", true);
    EXPECT_EQ(alphaAfterEntering(), 0);
}

TEST_F(PanelHoverTest, StaysAwayFromTheDesktop) {
    fake.accessibility.setAttribute(mail.element(), "AXTitle", std::string("Finder"));
    fake.accessibility.setAttribute(inbox, "AXRoleDescription", std::string("scroll area"));
    EXPECT_EQ(alphaAfterEntering(), reader->isFinderDesktopWindowActive() ? 0 : 1);
    EXPECT_TRUE(reader->isFinderDesktopWindowActive());
}

TEST_F(PanelHoverTest, AsksNothingOfTheWindowWhileItIsVisible) {
    panel->setAlphaValue(1);
    fake.accessibility.clearCalls();
    window().movePointer(Point{300, 10});
    EXPECT_THAT(fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue), IsEmpty());
}

// Drags.

class PanelDragTest : public PanelTest {
protected:
    PanelDragTest() { panel->orderFrontRegardless(); }
    Rect windowFrame() { return reader->focusedWindowFrameCG(); }
    // Presses on the background and drags to a place relative to that.
    void dragBy(double x, double y) {
        window().press(Point{500, 10});
        window().drag({500, 10}, {600, 710});
        window().drag({500, 10}, {600 + x, 710 + y});
    }
};

TEST_F(PanelDragTest, MovesThePanelAndTheWindowBelowIt) {
    dragBy(30, -50);
    EXPECT_EQ(panel->frame(), (Rect{{130, 650}, {600, 24}}));
    EXPECT_TRUE(panel->beingDragged());
    // The window's top follows the panel's bottom edge.
    EXPECT_EQ(windowFrame().origin, (Point{130, 250}));
}

TEST_F(PanelDragTest, StopsWhereThePanelMeetsTheTopOfTheVisibleFrame) {
    dragBy(0, 500);
    EXPECT_EQ(panel->frame().origin.y + panel->frame().size.height, 878);
    EXPECT_EQ(windowFrame().origin, (Point{100, 46}));
}

TEST_F(PanelDragTest, BeginsEachDragWithFreshValues) {
    dragBy(30, 0);
    window().release();
    EXPECT_FALSE(panel->beingDragged());
    EXPECT_TRUE(panel->shouldRedoInitials());
    window().press(Point{500, 10});
    window().drag({500, 10}, {1000, 500});
    EXPECT_EQ(panel->frame().origin, (Point{130, 700}));
    EXPECT_FALSE(panel->shouldRedoInitials());
    window().drag({500, 10}, {1001, 500});
    EXPECT_EQ(panel->frame().origin, (Point{131, 700}));
}

TEST_F(PanelDragTest, IsIgnoredWhileATitleShowsItsMenu) {
    controller->setBShowing(true);
    dragBy(30, 0);
    EXPECT_EQ(panel->frame().origin, (Point{100, 700}));
    EXPECT_FALSE(panel->beingDragged());
}

TEST_F(PanelDragTest, IsIgnoredWhenItBeganOnATitle) {
    addTitles({"File"});
    titles[0]->setMenu(nullptr);
    window().press("File");
    window().drag({20, 10}, {900, 300});
    EXPECT_EQ(panel->frame().origin, (Point{100, 700}));
}

TEST_F(PanelDragTest, KeepsTheMouseOnThePanel) {
    dragBy(1, 1);
    EXPECT_TRUE(panel->mouseIsOnWindow());
}

TEST_F(PanelDragTest, GoesOnWithoutAReader) {
    panel->setAppAccess({});
    dragBy(30, -50);
    // No screen of a window: the primary screen's frame counts.
    EXPECT_EQ(panel->frame().origin, (Point{130, 650}));
    EXPECT_EQ(windowFrame().origin, (Point{100, 200}));
}

TEST_F(PanelDragTest, KeepsTheLastGoodScreenFrame) {
    dragBy(0, 0);
    window().release();
    fake.displays.setScreens({});
    window().press(Point{500, 10});
    window().drag({500, 10}, {600, 710});
    window().drag({500, 10}, {600, 5000});
    EXPECT_EQ(panel->frame().origin.y + panel->frame().size.height, 900);
}

TEST_F(PanelDragTest, PressingBesideTheTitlesDoesNothingByItself) {
    addTitles({"File"});
    window().press(Point{500, 10});
    window().rightPress(Point{500, 10});
    EXPECT_THAT(owner.asked, IsEmpty());
    EXPECT_EQ(openMenu(), "");
}

} // namespace
} // namespace tarragon
