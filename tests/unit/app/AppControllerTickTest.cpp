#include "AppFixture.h"

#include "panels/TarragonPanel.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class TickTest : public AppTest {
protected:
    FakePanelToolkit::Window& window() { return panelToolkit.latest(); }
    TarragonPanel& panel() { return *controller().tarragonPanel(); }
    void settle() { fake.runLoop.advance(0.3); }
    // Within one firing of the tick, whatever the time was before.
    void tick() { controller().performTimerBasedUpdateOnce(); }
    void launchAndSettle() {
        launch();
        settle();
    }
    void moveWindow(const Element& of, const Rect& frameCG) {
        fake.accessibility.setAttribute(of, "AXPosition", frameCG.origin);
        fake.accessibility.setAttribute(of, "AXSize", frameCG.size);
    }
    Point panelTopLeftCG() {
        const Rect frame = window().frameNS;
        return {frame.origin.x, 900 - frame.origin.y - frame.size.height};
    }
    // How often the mirror was read while this ran.
    template <class Function>
    std::ptrdiff_t reads(Function function) {
        fake.accessibility.clearCalls();
        function();
        const auto calls = fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue);
        return std::ranges::count(calls, std::string("AXFocusedApplication"), &FakeCall::name);
    }
};

// Timers.

TEST_F(TickTest, ComesTwiceASecondAndIsWatchedOver) {
    launchAndSettle();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.45, 8.0));
}

TEST_F(TickTest, NeverComesWithoutAReader) {
    fake.deactivate();
    launch();
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(TickTest, IsStartedAgainByTheWatchdogWithinEightSeconds) {
    launchAndSettle();
    controller().stopTimer();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(8.0));
    fake.runLoop.advance(8.1);
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(8.0, 0.45));
}

TEST_F(TickTest, IsNotStartedTwice) {
    launchAndSettle();
    fake.runLoop.advance(20);
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.45, 8.0));
}

// The memory ceiling.

TEST_F(TickTest, StartsTheProgramAnewAtTheMemoryCeilingAndNotAByteBefore) {
    launchAndSettle();
    fake.process.setResidentSize(180'000'000);
    tick();
    EXPECT_THAT(fake.process.relaunches(), IsEmpty());
    fake.process.setResidentSize(180'000'001);
    tick();
    EXPECT_THAT(fake.process.relaunches(), SizeIs(1));
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
    // The tick ends there: what it would go on with is gone.
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
}

TEST_F(TickTest, DoesNotEndTheProgramUnderAnOpenMenu) {
    launchAndSettle();
    fake.process.setResidentSize(180'000'001);
    window().press("Edit");
    tick();
    EXPECT_THAT(fake.process.relaunches(), IsEmpty());
}

// Applications that publish their menus anew when a window moves.

class BrowserTest : public TickTest {
protected:
    FakeApplication bringUp(const std::string& name) {
        launchAndSettle();
        const FakeApplication browser = fake.addApplication(name);
        browser.menu("File").item("New");
        page = browser.window({.title = "Page", .positionCG = Point{300, 300}, .size = Size{800, 400}});
        fake.switchTo(browser);
        settle();
        tick();
        return browser;
    }
    Element page;
};

TEST_F(BrowserTest, IsReadAgainWithTheFirstTickAndWheneverItHasMoved) {
    for (const char* name : {"Firefox", "Camino"}) {
        launchAndSettle();
        const FakeApplication browser = fake.addApplication(name);
        browser.menu("File").item("New");
        page = browser.window({.title = "Page", .positionCG = Point{300, 300}, .size = Size{800, 400}});
        fake.switchTo(browser);
        EXPECT_EQ(reads([&] { tick(); }), 1) << name;
        EXPECT_EQ(reads([&] { tick(); }), 0) << name;
        moveWindow(page, {{300, 300.5}, {800, 400}});
        EXPECT_EQ(reads([&] { tick(); }), 1) << name;
    }
}

TEST_F(BrowserTest, IsReadWithTheFirstTickWhereverItsWindowIs) {
    launchAndSettle();
    const FakeApplication browser = fake.addApplication("Firefox");
    browser.menu("File").item("New");
    browser.window({.title = "Page", .positionCG = Point{0, 500}, .size = Size{800, 400}});
    fake.switchTo(browser);
    ASSERT_EQ(reader().focusedWindowPosition(), Point());
    EXPECT_EQ(reads([&] { tick(); }), 1);
}

TEST_F(BrowserTest, GetsANewPanelWithItsMenusAndTheOwnOne) {
    const FakeApplication browser = bringUp("Firefox");
    const std::size_t windows = panelToolkit.windows().size();
    const std::size_t pauses = fake.runLoop.pauses().size();
    browser.menu("Late").item("Item");
    moveWindow(page, {{310, 320}, {800, 400}});
    tick();
    settle();
    EXPECT_EQ(panelToolkit.windows().size(), windows + 1);
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
    EXPECT_THAT(window().titles(), ElementsAre("File", "Late", "Tarragon"));
    EXPECT_EQ(panelTopLeftCG(), (Point{310, 296}));
    EXPECT_TRUE(panel().shouldRedoInitials());
    EXPECT_EQ(reader().menu()->font(), (MenuFont{12, false}));
    EXPECT_EQ(std::vector<double>(
                  fake.runLoop.pauses().begin() + static_cast<std::ptrdiff_t>(pauses), fake.runLoop.pauses().end()),
        std::vector<double>{0.5});
}

TEST_F(BrowserTest, ShowsItsOwnMenuInBoldAlsoAfterItHasMoved) {
    const FakeApplication browser = bringUp("Firefox");
    browser.menu("Firefox").item("About");
    moveWindow(page, {{310, 320}, {800, 400}});
    tick();
    ASSERT_NE(reader().menu()->itemWithTitle("Firefox"), nullptr);
    EXPECT_TRUE(reader().menu()->itemWithTitle("Firefox")->attributedTitle());
}

TEST_F(BrowserTest, IsNotWaitedForWhereThePanelIsVertical) {
    set(preference::Horizontal, false);
    bringUp("Firefox");
    const std::size_t pauses = fake.runLoop.pauses().size();
    moveWindow(page, {{310, 320}, {800, 400}});
    tick();
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses);
    EXPECT_THAT(window().titles(), ElementsAre("Menu"));
    EXPECT_EQ(panelTopLeftCG(), (Point{310, 293}));
    EXPECT_TRUE(panel().shouldRedoInitials());
}

TEST_F(BrowserTest, WaitsLongerForMenusThatAreNotThereAndReadsSomeApplicationsTwiceMore) {
    launchAndSettle();
    for (const auto& [name, count] :
        {std::pair("Firefox", 4), std::pair("Thunderbird", 4), std::pair("Camino", 2), std::pair("Other", 2)}) {
        const FakeApplication slow = fake.addApplication(name);
        fake.activate(slow);
        EXPECT_EQ(reads([&] { controller().fireFoxSpecial(); }), count) << name;
        EXPECT_EQ(fake.runLoop.pauses().back(), 1.8) << name;
    }
}

TEST_F(BrowserTest, IsNoneOfTheOthers) {
    bringUp("Thunderbird");
    moveWindow(page, {{310, 320}, {800, 400}});
    EXPECT_EQ(reads([&] { tick(); }), 0);
}

// After the drag of a window some more are.
TEST_F(BrowserTest, IsOneMoreAfterADrag) {
    double left = 300;
    for (const auto& [name, count] : {std::pair("Firefox", 1), std::pair("Camino", 1), std::pair("Thunderbird", 1),
             std::pair("firefox", 0), std::pair("Chrome", 0)}) {
        bringUp(name);
        left += 10;
        moveWindow(page, {{left, 320}, {800, 400}});
        EXPECT_EQ(reads([&] { controller().performUpdate(); }), count) << name;
        EXPECT_EQ(reads([&] { controller().performUpdate(); }), 0) << name;
        EXPECT_EQ(panelTopLeftCG(), (Point{left, 296})) << name;
    }
}

// A panel that comes and goes.

class FadingPanelTest : public TickTest {
protected:
    FadingPanelTest() {
        set(preference::TarragonAlwaysVisible, false);
        launchAndSettle();
        tick();
    }
    void enter(const Point& location) {
        const Rect frame = window().frameNS;
        fake.displays.setMouseLocationNS({frame.origin.x + location.x, frame.origin.y + location.y});
        window().movePointer(location);
        settle();
    }
};

TEST_F(FadingPanelTest, StaysUnderThePointer) {
    enter({200, 10});
    tick();
    settle();
    EXPECT_EQ(window().alpha, 1);
}

TEST_F(FadingPanelTest, GoesWithEveryTickWhileThePointerIsElsewhere) {
    for (int time = 0; time < 2; ++time) {
        panel().setAlphaValue(1);
        tick();
        settle();
        EXPECT_EQ(window().alpha, 0) << time;
    }
}

TEST_F(FadingPanelTest, FollowsItsWindowUnseen) {
    moveWindow(inbox, {{400, 300}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 276}));
    EXPECT_EQ(window().alpha, 0);
    EXPECT_TRUE(window().visible);
}

TEST_F(FadingPanelTest, StaysWhileItsMenuIsOpen) {
    enter({20, 10});
    window().press("File");
    window().movePointer(std::nullopt);
    settle();
    tick();
    settle();
    EXPECT_EQ(window().alpha, 1);
    fake.menuPresenter.closeMenus();
    fake.displays.setMouseLocationNS({5, 5});
    tick();
    settle();
    EXPECT_EQ(window().alpha, 0);
}

TEST_F(FadingPanelTest, IsLaidOutUnseenForAnotherWidth) {
    moveWindow(inbox, {{100, 200}, {150, 500}});
    tick();
    settle();
    EXPECT_THAT(window().titles(), ElementsAre("File", "Edit", "\u25BF"));
    EXPECT_EQ(window().alpha, 0);
}

// What a tick leaves alone.

TEST_F(TickTest, MovesNothingWhileThePanelIsDragged) {
    launchAndSettle();
    panel().setBeingDragged(true);
    moveWindow(inbox, {{400, 300}, {700, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    controller().performUpdate();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    panel().setBeingDragged(false);
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 276}));
}

TEST_F(TickTest, DoesWithoutMonitorsOfTheMouse) {
    fake.inputEvents.setRefuses(true);
    launchAndSettle();
    moveWindow(inbox, {{400, 300}, {900, 500}});
    tick();
    EXPECT_EQ(panelTopLeftCG(), (Point{400, 276}));
}

TEST_F(TickTest, ReadsNothingOfMenusWhileNothingChanges) {
    launchAndSettle();
    fake.accessibility.clearCalls();
    const int drawn = window().timesDisplayed;
    fake.runLoop.advance(5);
    const auto calls = fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue);
    EXPECT_EQ(std::ranges::count(calls, std::string("AXMenuBar"), &FakeCall::name), 0);
    EXPECT_EQ(window().timesDisplayed, drawn);
}

// The update after a drag.

TEST_F(TickTest, AsksAllThatItAsksInOneLook) {
    launchAndSettle();
    tick();
    const std::size_t outside = fake.accessibility.callsOutsideBatches();
    const std::size_t batches = fake.accessibility.batchCount();
    tick();
    EXPECT_EQ(fake.accessibility.callsOutsideBatches(), outside);
    EXPECT_EQ(fake.accessibility.batchCount(), batches + 1);
}

TEST_F(TickTest, UpdatesNothingAfterADragOverAnIgnoredWindow) {
    launchAndSettle();
    controller().ignoreApp();
    moveWindow(inbox, {{400, 300}, {700, 500}});
    controller().performUpdate();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
    EXPECT_EQ(window().frameNS.size.width, 900);
    EXPECT_FALSE(window().visible);
}

TEST_F(TickTest, UpdatesNothingAfterADragWhileAMenuIsOpen) {
    launchAndSettle();
    window().press("Edit");
    moveWindow(inbox, {{400, 300}, {900, 500}});
    controller().performUpdate();
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

TEST_F(TickTest, UpdatesNothingAfterADragOnThePrimaryScreenWhereThePanelStaysOffIt) {
    launchAndSettle();
    fake.displays.setScreens(
        {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}}, {{{1440, 0}, {1000, 900}}, {{1440, 0}, {1000, 900}}}});
    set(preference::ShowOnPrimaryScreen, false);
    const int frames = static_cast<int>(window().frames.size());
    moveWindow(inbox, {{400, 300}, {700, 500}});
    controller().performUpdate();
    EXPECT_EQ(static_cast<int>(window().frames.size()), frames);
}

TEST_F(TickTest, LeavesAHorizontalPanelAloneAfterADragWhileADialogIsInFront) {
    launchAndSettle();
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    controller().performUpdate();
    settle();
    EXPECT_TRUE(window().isSeen());
    EXPECT_EQ(panelTopLeftCG(), (Point{100, 176}));
}

// A vertical one is placed, and hidden there.
TEST_F(TickTest, HidesAVerticalPanelAfterADragWhileADialogIsInFront) {
    set(preference::Horizontal, false);
    launchAndSettle();
    mail.window({.title = "Save", .roleDescription = "dialog", .positionCG = Point{200, 300}, .size = Size{400, 200}});
    controller().performUpdate();
    EXPECT_FALSE(window().visible);
}

TEST_F(TickTest, DoesNothingAfterADragOnceTheReaderIsGone) {
    launchAndSettle();
    controller().clearAll();
    controller().performUpdate();
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
}

// The workaround that nothing sets up.

class EmptiedMenusTest : public TickTest {
protected:
    EmptiedMenusTest()
        : editor(fake.addApplication("Photoshop"))
        , file(editor.menu("File").item("New")) {
        // The menu says of itself that it is enabled, as none that is emptied does.
        fake.accessibility.setAttribute(file.element(), "AXEnabled", true);
        launchAndSettle();
    }
    FakeApplication editor;
    FakeMenu file;
};

TEST_F(EmptiedMenusTest, AreLookedForOnceASecondForThatApplicationAlone) {
    controller().setupPhotoshopTimer();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.45, 8.0));
    fake.switchTo(editor);
    settle();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.45, 8.0));
    controller().setupPhotoshopTimer();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.45, 8.0, 1.0));
    fake.switchTo(mail);
    settle();
    controller().setupPhotoshopTimer();
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.45, 8.0));
}

TEST_F(EmptiedMenusTest, AreReadAgainAfterAWait) {
    fake.switchTo(editor);
    EXPECT_EQ(reads([&] { controller().photoshopcs5special(); }), 0);

    fake.accessibility.removeAttribute(file.item(), "AXChildren");
    const std::size_t pauses = fake.runLoop.pauses().size();
    EXPECT_EQ(reads([&] { controller().photoshopcs5special(); }), 1);
    // The second is that of a switch of applications, which this is taken for.
    ASSERT_EQ(fake.runLoop.pauses().size(), pauses + 2);
    EXPECT_EQ(fake.runLoop.pauses()[pauses], 0.5);
}

TEST_F(EmptiedMenusTest, AreReadAgainWhenNothingInThemSaysThatItIsEnabled) {
    fake.switchTo(editor);
    fake.accessibility.removeAttribute(file.element(), "AXEnabled");
    EXPECT_EQ(reads([&] { controller().photoshopcs5special(); }), 1);
}

TEST_F(EmptiedMenusTest, OfOtherApplicationsAreLeftAlone) {
    fake.accessibility.removeAttribute(file.item(), "AXChildren");
    EXPECT_EQ(reads([&] { controller().photoshopcs5special(); }), 0);
}

} // namespace
} // namespace tarragon
