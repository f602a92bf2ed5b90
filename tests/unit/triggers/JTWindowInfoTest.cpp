#include "triggers/JTWindowInfo.h"

#include "fake/FakePlatform.h"
#include "fake/RecordingLog.h"
#include "platform/AccessibilityNames.h"
#include "triggers/JTWindowInfoDelegate.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Operation = FakeCall::Operation;

constexpr InputEvent Drag{InputEventType::LeftMouseDragged, 0};
constexpr InputEvent Release{InputEventType::LeftMouseUp, 0};

struct Report {
    std::string what;
    std::int64_t edge = 0;
    bool dragHasStarted = false;
    bool operator==(const Report&) const = default;
};

const Report Start{"start", 0, true};
const Report End{"end", 0, false};

void PrintTo(const Report& report, std::ostream* stream) {
    *stream << report.what << " at edge " << report.edge << (report.dragHasStarted ? ", dragging" : "");
}

class RecordingDelegate : public JTWindowInfoDelegate {
public:
    void windowInfoWindowDraggedToScreenEdgeDidStart(JTWindowInfo& windowInfo, std::int64_t screenEdge) override {
        senders.push_back(&windowInfo);
        reports.push_back({"start", screenEdge, windowInfo.dragHasStarted()});
    }
    void windowInfoWindowDraggedToScreenEdgeDidEnd(JTWindowInfo& windowInfo, std::int64_t screenEdge) override {
        senders.push_back(&windowInfo);
        reports.push_back({"end", screenEdge, windowInfo.dragHasStarted()});
        if (onEnd)
            onEnd();
    }

    std::vector<JTWindowInfo*> senders;
    std::vector<Report> reports;
    std::function<void()> onEnd;
};

class JTWindowInfoTest : public testing::Test {
protected:
    // The walks of all trackers share one count.
    JTWindowInfoTest() {
        const Element child = element("AXButton");
        fake.accessibility.addChild(mail.element(), child);
        tracker.findPIDForAppForElement(child);
    }

    Element element(std::string_view role) { return fake.accessibility.addElement(mail.processIdentifier(), role); }
    // At a place of screen space that is this element's alone.
    void point(const Element& under) {
        _left += 100;
        fake.accessibility.addHitArea({{_left, 100}, {50, 50}}, under);
        fake.displays.setMouseLocationNS({_left + 10, 900 - 110});
    }
    std::vector<Value> hitTests() {
        std::vector<Value> points;
        for (const FakeCall& call : fake.accessibility.callsOf(Operation::ElementAtPosition))
            points.push_back(call.value);
        return points;
    }
    // An element with this many others between itself and the application.
    Element elementBelowApplication(int between) {
        Element parent = mail.element();
        for (int depth = 0; depth <= between; ++depth) {
            const Element child = element("AXGroup");
            fake.accessibility.addChild(parent, child);
            parent = child;
        }
        return parent;
    }

    FakePlatform fake;
    FakeApplication mail = fake.addApplication("Mail");
    JTWindowInfo tracker{fake.platform()};
    RecordingDelegate delegate;

private:
    double _left = 0;
};

TEST_F(JTWindowInfoTest, AsksForTheSystemWideElementOnceWhenItIsMade) {
    fake.accessibility.clearCalls();
    const JTWindowInfo another(fake.platform());
    EXPECT_EQ(fake.accessibility.callsOf(Operation::SystemWideElement).size(), 1U);
}

TEST_F(JTWindowInfoTest, StartsWithoutElementDelegateMonitorsAndDrag) {
    EXPECT_FALSE(tracker.currentUIElement());
    EXPECT_EQ(tracker.delegate(), nullptr);
    EXPECT_FALSE(tracker.screenEdgeDragMonitorActive());
    EXPECT_FALSE(tracker.dragHasStarted());
    EXPECT_EQ(tracker.edgeDragged(), 0);
    EXPECT_THAT(fake.inputEvents.monitorMasks(), IsEmpty());
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(JTWindowInfoTest, RaisesTheGivenWindowAlone) {
    const Element window = mail.window();
    fake.accessibility.addAction(window, "AXRaise");
    tracker.raiseWindow(window);
    EXPECT_THAT(fake.accessibility.performedActions(), ElementsAre(std::pair(window, std::string("AXRaise"))));
}

TEST_F(JTWindowInfoTest, PollsTenTimesASecondOnceThatHasBegun) {
    point(element("AXWindow"));
    tracker.performTimerBasedUpdate();
    EXPECT_EQ(hitTests().size(), 1U);
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.1));
    for (int second = 0; second < 3; ++second) {
        point(element("AXButton"));
        fake.runLoop.advance(0.101);
    }
    EXPECT_EQ(hitTests().size(), 4U);
    EXPECT_EQ(tracker.roleOfCurrentUIElement(), "AXButton");
    EXPECT_THAT(fake.runLoop.validTimers(), ElementsAre(0.1));
}

TEST_F(JTWindowInfoTest, EndsItsPollingWithItself) {
    {
        JTWindowInfo another(fake.platform());
        another.performTimerBasedUpdate();
    }
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(JTWindowInfoTest, KeepsTheElementThatItIsGiven) {
    const Element button = element("AXButton");
    tracker.setCurrentUIElement(button);
    EXPECT_EQ(tracker.currentUIElement(), button);
    tracker.setCurrentUIElement({});
    EXPECT_FALSE(tracker.currentUIElement());
}

TEST_F(JTWindowInfoTest, TestsThePointerInScreenSpace) {
    fake.displays.setMouseLocationNS({120, 700});
    tracker.updateCurrentUIElement();
    EXPECT_THAT(hitTests(), ElementsAre(Value(Point{120, 200})));
}

TEST_F(JTWindowInfoTest, FlipsAtTheBottomOfTheMainDisplay) {
    fake.displays.setMainDisplayBoundsCG({{-300, 40}, {1000, 768}});
    fake.displays.setMouseLocationNS({-25.5, 700});
    tracker.updateCurrentUIElement();
    EXPECT_THAT(hitTests(), ElementsAre(Value(Point{-25.5, 108})));
}

TEST_F(JTWindowInfoTest, RoundsTheBottomOfTheDisplayToSinglePrecision) {
    // In single precision 900.1 is 900.0999755859375. The difference to 900 is exact in it, that to 900.1 is not.
    fake.displays.setMainDisplayBoundsCG({{0, 0.1}, {1440, 900}});
    fake.displays.setMouseLocationNS({1, 900});
    tracker.updateCurrentUIElement();
    EXPECT_THAT(hitTests(), ElementsAre(Value(Point{1, 0.0999755859375})));
}

TEST_F(JTWindowInfoTest, TestsInSinglePrecision) {
    fake.displays.setMouseLocationNS({0.1, 900 - 0.1});
    tracker.updateCurrentUIElement();
    EXPECT_THAT(hitTests(), ElementsAre(Value(Point{0.1F, static_cast<float>(900 - (900 - 0.1))})));
}

TEST_F(JTWindowInfoTest, TestsAPlaceOnceWhileThePointerRests) {
    point(element("AXWindow"));
    tracker.updateCurrentUIElement();
    tracker.updateCurrentUIElement();
    EXPECT_EQ(hitTests().size(), 1U);
}

TEST_F(JTWindowInfoTest, NoticesTheSmallestMovement) {
    fake.displays.setMouseLocationNS({100, 100});
    tracker.updateCurrentUIElement();
    // Far below what single precision can tell apart.
    fake.displays.setMouseLocationNS({100 + 1e-12, 100});
    tracker.updateCurrentUIElement();
    EXPECT_EQ(hitTests().size(), 2U);
    fake.displays.setMouseLocationNS({100 + 1e-12, 100 + 1e-12});
    tracker.updateCurrentUIElement();
    EXPECT_EQ(hitTests().size(), 3U);
}

TEST_F(JTWindowInfoTest, TakesTheCornerOfTheScreenForThePlaceOfAnEarlierTest) {
    fake.displays.setMouseLocationNS({0, 900});
    tracker.updateCurrentUIElement();
    EXPECT_THAT(hitTests(), IsEmpty());
}

TEST_F(JTWindowInfoTest, DoesNotTestAPlaceAgainWhereNothingWasFound) {
    fake.displays.setMouseLocationNS({700, 100});
    tracker.updateCurrentUIElement();
    fake.accessibility.addHitArea({{0, 0}, {1440, 900}}, element("AXWindow"));
    tracker.updateCurrentUIElement();
    EXPECT_EQ(hitTests().size(), 1U);
    EXPECT_FALSE(tracker.currentUIElement());
    fake.displays.setMouseLocationNS({701, 100});
    tracker.updateCurrentUIElement();
    EXPECT_TRUE(tracker.currentUIElement());
}

TEST_F(JTWindowInfoTest, KeepsTheElementWhereNothingIsFound) {
    const Element window = element("AXWindow");
    point(window);
    tracker.updateCurrentUIElement();
    fake.displays.setMouseLocationNS({1400, 10});
    tracker.updateCurrentUIElement();
    EXPECT_EQ(tracker.currentUIElement(), window);
}

TEST_F(JTWindowInfoTest, RecordsThePlaceAlsoOverTheSameElement) {
    fake.accessibility.addHitArea({{0, 0}, {1440, 900}}, element("AXWindow"));
    for (const double x : {10.0, 20.0, 20.0, 10.0}) {
        fake.displays.setMouseLocationNS({x, 100});
        tracker.updateCurrentUIElement();
    }
    EXPECT_THAT(hitTests(), ElementsAre(Value(Point{10, 800}), Value(Point{20, 800}), Value(Point{10, 800})));
}

TEST_F(JTWindowInfoTest, TakesAnotherElementUnderThePointer) {
    const Element window = element("AXWindow");
    const Element button = element("AXButton");
    point(window);
    tracker.updateCurrentUIElement();
    EXPECT_EQ(tracker.currentUIElement(), window);
    point(button);
    tracker.updateCurrentUIElement();
    EXPECT_EQ(tracker.currentUIElement(), button);
}

TEST_F(JTWindowInfoTest, FindsNothingWithoutAccess) {
    fake.accessibility.setTrusted(false);
    JTWindowInfo another(fake.platform());
    point(element("AXWindow"));
    another.updateCurrentUIElement();
    EXPECT_FALSE(another.currentUIElement());
    EXPECT_FALSE(another.mouseOnDragArea());
}

TEST_F(JTWindowInfoTest, AnswersForTheWindowOfTheCurrentElement) {
    const Element window = mail.window({.title = "Inbox"});
    fake.accessibility.addAction(window, "AXRaise");
    const Element button = element("AXButton");
    fake.accessibility.setAttribute(button, "AXTitle", std::string("Send"));
    fake.accessibility.setAttribute(button, "AXWindow", window);
    tracker.setCurrentUIElement(button);

    EXPECT_EQ(tracker.focusedWindowForCurrentElement(), window);
    EXPECT_EQ(tracker.windowTitleForCurrentElement(), "Inbox");
    tracker.focusWindowForCurrentElement();
    EXPECT_THAT(fake.accessibility.performedActions(), ElementsAre(std::pair(window, std::string("AXRaise"))));
}

TEST_F(JTWindowInfoTest, AnswersNothingForAnElementWithoutAWindow) {
    const Element menuBar = element("AXMenuBar");
    for (const Element& each : {Element(), menuBar}) {
        tracker.setCurrentUIElement(each);
        EXPECT_FALSE(tracker.focusedWindowForCurrentElement());
        EXPECT_EQ(tracker.windowTitleForCurrentElement(), std::nullopt);
        tracker.focusWindowForCurrentElement();
    }
    fake.accessibility.setAttribute(menuBar, "AXWindow", std::string("no element"));
    EXPECT_FALSE(tracker.focusedWindowForCurrentElement());
    EXPECT_THAT(fake.accessibility.callsOf(Operation::PerformAction), IsEmpty());
}

TEST_F(JTWindowInfoTest, AsksForNoAttributeThatTheElementDoesNotList) {
    const Element button = element("AXButton");
    fake.accessibility.setAttribute(button, "AXWindow", mail.window());
    fake.accessibility.unlistAttribute(button, "AXWindow");
    tracker.setCurrentUIElement(button);
    EXPECT_FALSE(tracker.focusedWindowForCurrentElement());
}

TEST_F(JTWindowInfoTest, BringsEveryWindowOfATitleToTheFront) {
    fake.windowList.setWindows({{7, "Notes", "Editor", 100}, {8, "Letter", "Editor", 100}, {9, "Notes", "Mail", 101}});
    EXPECT_TRUE(tracker.bringWindowWithNameToFront("Notes"));
    EXPECT_THAT(fake.windowList.raised(), ElementsAre(7, 9));
}

TEST_F(JTWindowInfoTest, BringsNoWindowOfASimilarTitleToTheFront) {
    fake.windowList.setWindows({{7, "Notes ", "Editor", 100}, {8, "notes", "Editor", 100}, {9, "", "Editor", 100}});
    EXPECT_FALSE(tracker.bringWindowWithNameToFront("Notes"));
    EXPECT_THAT(fake.windowList.raised(), IsEmpty());
}

TEST_F(JTWindowInfoTest, FindsNoWindowWithoutAListOfWindows) {
    Platform platform = fake.platform();
    platform.windowList = nullptr;
    JTWindowInfo another(platform);
    EXPECT_FALSE(another.bringWindowWithNameToFront("Notes"));
    EXPECT_EQ(another.findPIDForAppForElement(elementBelowApplication(0)), mail.processIdentifier());
}

TEST_F(JTWindowInfoTest, FindsTheApplicationOfAnElementAndBringsItsFrontWindowToTheFront) {
    fake.windowList.setWindows({{7, "Letter", "Editor", 4711}, {8, "Inbox", "Mail", mail.processIdentifier()},
        {9, "Draft", "Mail", mail.processIdentifier()}});
    EXPECT_EQ(tracker.findPIDForAppForElement(elementBelowApplication(3)), mail.processIdentifier());
    EXPECT_THAT(fake.windowList.raised(), ElementsAre(8));
}

TEST_F(JTWindowInfoTest, PassesThirtyElementsOnTheWayToTheApplication) {
    EXPECT_EQ(tracker.findPIDForAppForElement(elementBelowApplication(30)), mail.processIdentifier());
    // The walk has set the count back.
    EXPECT_EQ(tracker.findPIDForAppForElement(elementBelowApplication(30)), mail.processIdentifier());
    EXPECT_EQ(tracker.findPIDForAppForElement(elementBelowApplication(31)), 0);
}

TEST_F(JTWindowInfoTest, CountsThePassedElementsOfAllTrackersUntilAWalkSucceeds) {
    EXPECT_EQ(tracker.findPIDForAppForElement({}), 0);
    JTWindowInfo another(fake.platform());
    EXPECT_EQ(another.findPIDForAppForElement(elementBelowApplication(1)), 0);
    // No step is left, and this one needs none.
    EXPECT_EQ(another.findPIDForAppForElement(elementBelowApplication(0)), mail.processIdentifier());
    EXPECT_EQ(tracker.findPIDForAppForElement(elementBelowApplication(30)), mail.processIdentifier());
}

TEST_F(JTWindowInfoTest, KeepsTheCountWhenTheProcessOfTheApplicationIsNotToldOrNotKnown) {
    const Element child = elementBelowApplication(20);
    fake.workspace.removeRunningApplication(mail.processIdentifier());
    EXPECT_EQ(tracker.findPIDForAppForElement(child), mail.processIdentifier());
    EXPECT_THAT(fake.windowList.raised(), IsEmpty());
    fake.workspace.addRunningApplication(mail.description());
    EXPECT_EQ(tracker.findPIDForAppForElement(child), 0);
}

TEST_F(JTWindowInfoTest, AnswersNoProcessForAnApplicationThatDoesNotTellIt) {
    const Element child = elementBelowApplication(20);
    fake.accessibility.clearCalls();
    tracker.findPIDForAppForElement(child);
    const std::vector<FakeCall> calls = fake.accessibility.calls();
    const auto question = std::ranges::find(calls, Operation::ProcessIdentifier, &FakeCall::operation);
    ASSERT_NE(question, calls.end());
    fake.accessibility.failCall(static_cast<std::size_t>(question - calls.begin()), FakeFault::Dead);
    EXPECT_EQ(tracker.findPIDForAppForElement(child), 0);
    // The twenty elements that were passed still count.
    EXPECT_EQ(tracker.findPIDForAppForElement(child), 0);
}

TEST_F(JTWindowInfoTest, AnswersTheSubroleForTheTitle) {
    const Element window = mail.window({.title = "Inbox"});
    fake.accessibility.setAttribute(window, "AXSubrole", std::string("AXStandardWindow"));
    tracker.setCurrentUIElement(window);
    EXPECT_EQ(tracker.titleOfCurrentUIElement(), "AXStandardWindow");
    EXPECT_EQ(tracker.roleOfCurrentUIElement(), "AXWindow");
}

TEST_F(JTWindowInfoTest, AnswersNoTextForWhatIsNone) {
    EXPECT_EQ(tracker.titleOfCurrentUIElement(), std::nullopt);
    EXPECT_EQ(tracker.roleOfCurrentUIElement(), std::nullopt);
    const Element button = element("AXButton");
    fake.accessibility.setAttribute(button, "AXRole", std::int64_t{3});
    tracker.setCurrentUIElement(button);
    EXPECT_EQ(tracker.roleOfCurrentUIElement(), std::nullopt);
}

TEST_F(JTWindowInfoTest, AnswersTheCentreOfTheElementInCocoaSpace) {
    tracker.setCurrentUIElement(mail.window({.positionCG = Point{10, 100}, .size = Size{201, 50}}));
    EXPECT_EQ(tracker.midPointOfCurrentElement(), (Point{110.5, 775}));
    tracker.setCurrentUIElement(mail.window({.positionCG = Point{10, 100}}));
    EXPECT_EQ(tracker.midPointOfCurrentElement(), (Point{0, 0}));
}

TEST_F(JTWindowInfoTest, InstallsOneMonitorForDragsAndOneForReleases) {
    tracker.setScreenEdgeDragMonitorActive(true);
    EXPECT_THAT(fake.inputEvents.monitorMasks(), ElementsAre(64, 4));
    EXPECT_TRUE(tracker.screenEdgeDragMonitorActive());
    EXPECT_EQ(fake.inputEvents.tapCount(), 0U);
}

TEST_F(JTWindowInfoTest, InstallsTwoMoreMonitorsWhenItIsSwitchedOnAgain) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    tracker.setScreenEdgeDragMonitorActive(true);
    EXPECT_THAT(fake.inputEvents.monitorMasks(), ElementsAre(64, 4, 64, 4));
    fake.inputEvents.send(Release);
    EXPECT_THAT(delegate.reports, ElementsAre(End, End));

    tracker.setScreenEdgeDragMonitorActive(false);
    EXPECT_THAT(fake.inputEvents.removedMonitors(), ElementsAre(3, 4));
    EXPECT_THAT(fake.inputEvents.monitorMasks(), ElementsAre(64, 4));
}

TEST_F(JTWindowInfoTest, RemovesTheLastTwoMonitorsEachTimeItIsSwitchedOff) {
    tracker.setScreenEdgeDragMonitorActive(true);
    tracker.setScreenEdgeDragMonitorActive(false);
    EXPECT_FALSE(tracker.screenEdgeDragMonitorActive());
    EXPECT_THAT(fake.inputEvents.removedMonitors(), ElementsAre(1, 2));
    EXPECT_THAT(fake.inputEvents.monitorMasks(), IsEmpty());
    tracker.setScreenEdgeDragMonitorActive(false);
    EXPECT_THAT(fake.inputEvents.removedMonitors(), ElementsAre(1, 2, 1, 2));
}

TEST_F(JTWindowInfoTest, RemovesNothingThatWasNotInstalled) {
    tracker.setScreenEdgeDragMonitorActive(false);
    EXPECT_THAT(fake.inputEvents.removedMonitors(), IsEmpty());
    tracker.mouseUpMonitor();
    tracker.setScreenEdgeDragMonitorActive(false);
    EXPECT_THAT(fake.inputEvents.removedMonitors(), ElementsAre(1));
}

TEST_F(JTWindowInfoTest, RemovesAllItsMonitorsAtItsEnd) {
    {
        JTWindowInfo another(fake.platform());
        another.setScreenEdgeDragMonitorActive(true);
        another.setScreenEdgeDragMonitorActive(true);
    }
    EXPECT_THAT(fake.inputEvents.monitorMasks(), IsEmpty());
}

TEST_F(JTWindowInfoTest, SaysSoWhenDragsCannotBeSeen) {
    const RecordingLog log(LogCategory::Triggers);
    fake.inputEvents.setRefuses(true);
    tracker.setScreenEdgeDragMonitorActive(true);
    EXPECT_TRUE(tracker.screenEdgeDragMonitorActive());
    tracker.setScreenEdgeDragMonitorActive(false);
    EXPECT_THAT(fake.inputEvents.removedMonitors(), IsEmpty());

    Platform platform = fake.platform();
    platform.inputEvents = nullptr;
    JTWindowInfo another(platform);
    another.setScreenEdgeDragMonitorActive(true);
    another.setScreenEdgeDragMonitorActive(false);
    EXPECT_EQ(log.lines().size(), 4U);
}

TEST_F(JTWindowInfoTest, EndsADragInSilenceWhenTheMonitorsChange) {
    tracker.setDelegate(&delegate);
    for (const bool active : {true, false}) {
        tracker.checkMouseLocation();
        EXPECT_TRUE(tracker.dragHasStarted());
        tracker.setScreenEdgeDragMonitorActive(active);
        EXPECT_FALSE(tracker.dragHasStarted());
    }
    EXPECT_THAT(delegate.reports, ElementsAre(Start, Start));
}

TEST_F(JTWindowInfoTest, ReportsEveryDragEventOverADragArea) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    point(element("AXWindow"));
    fake.inputEvents.send(Drag);
    EXPECT_TRUE(tracker.dragHasStarted());
    fake.inputEvents.send(Drag);
    point(element("AXStaticText"));
    fake.inputEvents.send(Drag);
    EXPECT_THAT(delegate.reports, ElementsAre(Start, Start, Start));
    EXPECT_THAT(delegate.senders, testing::Each(&tracker));
}

TEST_F(JTWindowInfoTest, ReportsNoDragOverAButton) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    point(element("AXButton"));
    fake.inputEvents.send(Drag);
    EXPECT_FALSE(tracker.dragHasStarted());
    EXPECT_THAT(delegate.reports, IsEmpty());
}

TEST_F(JTWindowInfoTest, StaysInADragThatComesOverAButton) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    point(element("AXWindow"));
    fake.inputEvents.send(Drag);
    point(element("AXButton"));
    fake.inputEvents.send(Drag);
    EXPECT_TRUE(tracker.dragHasStarted());
    EXPECT_THAT(delegate.reports, ElementsAre(Start));
}

TEST_F(JTWindowInfoTest, ReportsEveryReleaseAlsoWithoutADrag) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    fake.inputEvents.send(Release);
    point(element("AXWindow"));
    fake.inputEvents.send(Drag);
    fake.inputEvents.send(Release);
    fake.inputEvents.send(Release);
    EXPECT_THAT(delegate.reports, ElementsAre(End, Start, End, End));
    EXPECT_FALSE(tracker.dragHasStarted());
    EXPECT_THAT(delegate.senders, testing::Each(&tracker));
}

TEST_F(JTWindowInfoTest, IsNotDraggingAfterAReleaseWhateverTheDelegateDoes) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    delegate.onEnd = [this] { tracker.checkMouseLocation(); };
    fake.inputEvents.send(Release);
    EXPECT_THAT(delegate.reports, ElementsAre(End, Start));
    EXPECT_FALSE(tracker.dragHasStarted());
}

TEST_F(JTWindowInfoTest, HearsNothingOfDragsInOurOwnWindows) {
    tracker.setDelegate(&delegate);
    tracker.setScreenEdgeDragMonitorActive(true);
    point(element("AXWindow"));
    fake.inputEvents.sendToUs(Drag);
    fake.inputEvents.sendToUs(Release);
    EXPECT_THAT(delegate.reports, IsEmpty());
}

TEST_F(JTWindowInfoTest, TellsTheDelegateTheEdgeThatItIsTold) {
    tracker.setDelegate(&delegate);
    tracker._windowDraggedToScreenEdgeDidStart(-3);
    EXPECT_TRUE(tracker.dragHasStarted());
    tracker._windowDraggedToScreenEdgeDidEnd(5);
    EXPECT_FALSE(tracker.dragHasStarted());
    EXPECT_THAT(delegate.reports, ElementsAre(Report{"start", -3, true}, Report{"end", 5, false}));
    EXPECT_EQ(tracker.edgeDragged(), 0);
}

TEST_F(JTWindowInfoTest, KeepsTheStateOfTheDragAlsoWithoutADelegate) {
    tracker.setScreenEdgeDragMonitorActive(true);
    point(element("AXWindow"));
    fake.inputEvents.send(Drag);
    EXPECT_TRUE(tracker.dragHasStarted());
    fake.inputEvents.send(Release);
    EXPECT_FALSE(tracker.dragHasStarted());
}

TEST_F(JTWindowInfoTest, AsksNothingOfADelegateThatOverridesNothing) {
    JTWindowInfoDelegate deaf;
    tracker.setDelegate(&deaf);
    tracker.checkMouseLocation();
    EXPECT_TRUE(tracker.dragHasStarted());
    tracker._windowDraggedToScreenEdgeDidEnd(0);
    EXPECT_FALSE(tracker.dragHasStarted());
}

TEST_F(JTWindowInfoTest, KnowsWhatWindowsAreDraggedBy) {
    for (const char* role :
        {"AXStandardWindow", "AXGroup", "AXToolbar", "AXWindow", "AXStaticText", "AXMenuBarItem", "AXGrowArea"}) {
        point(element(role));
        EXPECT_TRUE(tracker.mouseOnDragArea()) << role;
    }
    for (const char* role : {"AXButton", "AXMenuItem", "AXMenuBar", "AXTextField", "AXScrollArea", "axwindow",
             "AXWindow ", "AXToolbarButton", ""}) {
        point(element(role));
        EXPECT_FALSE(tracker.mouseOnDragArea()) << role;
    }
}

TEST_F(JTWindowInfoTest, LooksAtTheRoleAndNotAtTheSubrole) {
    const Element button = element("AXButton");
    fake.accessibility.setAttribute(button, "AXSubrole", std::string("AXStandardWindow"));
    point(button);
    EXPECT_FALSE(tracker.mouseOnDragArea());
}

TEST_F(JTWindowInfoTest, IsOverNoDragAreaWhereNothingWasEverFound) {
    EXPECT_FALSE(tracker.mouseOnDragArea());
}

TEST_F(JTWindowInfoTest, StaysOverTheDragAreaWhereNothingIsFound) {
    point(element("AXWindow"));
    EXPECT_TRUE(tracker.mouseOnDragArea());
    fake.displays.setMouseLocationNS({1400, 10});
    EXPECT_TRUE(tracker.mouseOnDragArea());
}

} // namespace
} // namespace tarragon
