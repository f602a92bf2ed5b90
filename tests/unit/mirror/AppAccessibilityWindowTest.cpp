#include "ReaderTest.h"

#include <limits>

namespace tarragon {
namespace {

using Operation = FakeCall::Operation;

class FocusedWindow : public ReaderTest {
protected:
    FocusedWindow() { reader->update(); }
    void useApplication(const std::string& name, const FakeWindowOptions& options) {
        const FakeApplication application = fake.addApplication(name);
        application.window(options);
        fake.activate(application);
        reader->update();
    }
    // The values that the query asks for, each with the element that it is asked of.
    template <typename Query>
    std::vector<std::string> asked(Query query) {
        fake.accessibility.clearCalls();
        query();
        std::vector<std::string> values;
        for (const FakeCall& call : fake.accessibility.callsOf(Operation::CopyAttributeValue))
            values.push_back(fake.accessibility.label(call.element) + " " + call.name);
        return values;
    }
};

TEST_F(FocusedWindow, TellsTheNameOfTheApplicationInFront) {
    EXPECT_EQ(reader->focusedAppName(), "Mail");
    fake.deactivate();
    EXPECT_EQ(reader->focusedAppName(), std::nullopt);
}

TEST_F(FocusedWindow, TellsRoleTextAndTitle) {
    mail.window({.title = "Inbox", .roleDescription = "sheet"});
    EXPECT_EQ(reader->focusedWindowRole(), "sheet");
    EXPECT_EQ(reader->focusedWindowTitle(), "Inbox");
}

TEST_F(FocusedWindow, HasNeitherRoleTextNorTitleNorPlaceWhenThereIsNone) {
    EXPECT_EQ(reader->focusedWindowRole(), std::nullopt);
    EXPECT_EQ(reader->focusedWindowTitle(), std::nullopt);
    EXPECT_EQ(reader->focusedWindowFrameNS(), Rect());
    EXPECT_EQ(reader->focusedWindowPosition(), Point());
    EXPECT_EQ(reader->focusedWindowTitlePosition(), Point());
    EXPECT_EQ(reader->focusedWindowTitleFrame(), Rect());
    EXPECT_FALSE(reader->isFocusedWindowFullScreen());
    mail.window({.roleDescription = std::nullopt});
    EXPECT_EQ(reader->focusedWindowRole(), std::nullopt);
    EXPECT_EQ(reader->focusedWindowTitle(), std::nullopt);
}

TEST_F(FocusedWindow, IsAskedAfreshEveryTime) {
    mail.window({.title = "First"});
    EXPECT_EQ(reader->focusedWindowTitle(), "First");
    mail.window({.title = "Second"});
    EXPECT_EQ(reader->focusedWindowTitle(), "Second");
}

TEST_F(FocusedWindow, BelongsToTheApplicationOfTheLastRebuild) {
    mail.window({.title = "Inbox"});
    const FakeApplication editor = fake.addApplication("Editor");
    editor.window({.title = "Letter"});
    fake.activate(editor);
    EXPECT_EQ(reader->focusedWindowTitle(), "Inbox");
    reader->update();
    EXPECT_EQ(reader->focusedWindowTitle(), "Letter");
    fake.deactivate();
    reader->update();
    EXPECT_TRUE(reader->isFocusedWindowMinimized());
}

TEST_F(FocusedWindow, HasItsFrameInBothSpaces) {
    mail.window({.positionCG = Point{10, 100}, .size = Size{200, 50}});
    EXPECT_EQ(reader->focusedWindowFrameNS(), (Rect{{10, 750}, {200, 50}}));
    EXPECT_EQ(reader->focusedWindowFrameCG(), (Rect{{10, 100}, {200, 50}}));
    EXPECT_EQ(reader->focusedWindowPosition(), (Point{10, 750}));
    EXPECT_EQ(reader->focusedWindowPositionCG(), (Point{10, 100}));
}

TEST_F(FocusedWindow, ComesBackToScreenSpaceAtTheMainDisplayAndNotAtTheFirstScreen) {
    fake.displays.setMainDisplayBoundsCG({{0, 50}, {1440, 1000}});
    mail.window({.positionCG = Point{10, 100}, .size = Size{200, 50}});
    EXPECT_EQ(reader->focusedWindowFrameNS(), (Rect{{10, 750}, {200, 50}}));
    EXPECT_EQ(reader->focusedWindowFrameCG(), (Rect{{10, 250}, {200, 50}}));
    EXPECT_EQ(reader->focusedWindowPositionCG(), (Point{10, 250}));
    EXPECT_EQ(reader->focusedWindowScreenRectNS(), (Rect{{0, 0}, {1440, 878}}));
    EXPECT_EQ(reader->focusedWindowScreenRectCG(), (Rect{{0, 172}, {1440, 878}}));
}

TEST_F(FocusedWindow, FlipsAtTheMainDisplayInDoublePrecision) {
    fake.displays.setMainDisplayBoundsCG({{0, 50.1}, {1000, 600}});
    EXPECT_EQ(reader->convertNSToCGRectCoords({{1, 2}, {3, 4}}), (Rect{{1, 650.1 - 6}, {3, 4}}));
    fake.displays.setMainDisplayBoundsCG({{70, 50.1}, {1000, 600}});
    EXPECT_EQ(reader->convertNSToCGRectCoords({{1, 2}, {3, 4}}), (Rect{{1, 650.1 - 6}, {3, 4}}));
}

TEST_F(FocusedWindow, HasTheZeroFrameConvertedLikeAnyOther) {
    const double height = fake.displays.mainDisplayBoundsCG().size.height;
    EXPECT_EQ(reader->focusedWindowFrameCG(), (Rect{{0, height}, {0, 0}}));
    EXPECT_EQ(reader->focusedWindowPositionCG(), (Point{0, height}));
}

TEST_F(FocusedWindow, HasItsTitleNowhereWhenNobodyTellsWhere) {
    const Element window = mail.window();
    EXPECT_EQ(reader->focusedWindowTitlePosition(), Point());
    const Element title = fake.accessibility.addElement(mail.processIdentifier(), "AXStaticText");
    fake.accessibility.setAttribute(window, "AXTitleUIElement", title);
    EXPECT_EQ(reader->focusedWindowTitlePosition(), Point());
}

TEST_F(FocusedWindow, MayHaveAnEmptyTitle) {
    mail.window({.title = ""});
    EXPECT_EQ(reader->focusedWindowTitle(), "");
    EXPECT_FALSE(reader->isAuxiliaryWindowActive());
}

TEST_F(FocusedWindow, IsDesktopLikeByTheTitleThatItsApplicationTells) {
    struct Case {
        const char* title;
        const char* nameInFront;
        FakeWindowOptions window;
        bool isDesktopLike;
    };
    const std::vector<Case> cases{
        {"Finder", "Files", {.roleDescription = "scroll area"}, true},
        {"Files", "Finder", {.roleDescription = "scroll area"}, false},
        {"X", "Photoshop", {.children = 31}, true},
        {"Photoshop", "X", {.children = 31}, false},
        {"Tarragon", "Photoshop", {.children = 31}, false},
        {"Steam", "X", {}, true},
    };
    for (const Case& each : cases) {
        const FakeApplication application = fake.addApplication(each.nameInFront);
        fake.accessibility.setAttribute(application.element(), "AXTitle", std::string(each.title));
        application.window(each.window);
        fake.activate(application);
        reader->update();
        EXPECT_EQ(reader->isFinderDesktopWindowActive(), each.isDesktopLike) << each.title << " " << each.nameInFront;
    }
}

TEST_F(FocusedWindow, IsAskedForItsRoleTextAndThenItsTitleWhateverTheRoleDecides) {
    for (const char* role : {"window", "sheet", "dialog", "floating window"}) {
        mail.window({.title = "Inbox", .roleDescription = role});
        EXPECT_THAT(asked([&] { reader->isAuxiliaryWindowActive(); }),
            testing::ElementsAre(
                "Mail AXFocusedWindow", "Inbox AXRoleDescription", "Mail AXFocusedWindow", "Inbox AXTitle"))
            << role;
    }
}

TEST_F(FocusedWindow, IsAskedForItsRoleTextAfterTheTitleOfItsApplicationWhateverThatDecides) {
    for (const char* name : {"Finder", "Tarragon", "Steam", "Parallels"}) {
        useApplication(name, {.title = "Inbox"});
        std::vector<std::string> values = asked([&] { reader->isFinderDesktopWindowActive(); });
        values.resize(3); // what follows is read only where these decide nothing
        const std::string application = name;
        EXPECT_THAT(values,
            testing::ElementsAre(
                application + " AXTitle", application + " AXFocusedWindow", "Inbox AXRoleDescription"));
    }
}

TEST_F(FocusedWindow, IsAskedForItsPositionBeforeItsSize) {
    mail.window({.title = "Inbox", .positionCG = Point{10, 100}, .size = Size{200, 50}});
    EXPECT_THAT(asked([&] { reader->focusedWindowFrameNS(); }),
        testing::ElementsAre("Mail AXFocusedWindow", "Inbox AXPosition", "Inbox AXSize"));
}

TEST_F(FocusedWindow, IsAskedForNoTextThatItDoesNotList) {
    const Element window = mail.window({.title = "Inbox"});
    fake.accessibility.unlistAttribute(window, "AXRoleDescription");
    fake.accessibility.unlistAttribute(window, "AXTitle");
    fake.accessibility.unlistAttribute(mail.element(), "AXTitle");
    EXPECT_EQ(reader->focusedWindowRole(), std::nullopt);
    EXPECT_EQ(reader->focusedWindowTitle(), std::nullopt);
    const std::vector<std::string> values = asked([&] {
        reader->isAuxiliaryWindowActive();
        reader->isFinderDesktopWindowActive();
    });
    EXPECT_THAT(values, testing::Each(testing::AnyOf("Mail AXFocusedWindow", "Inbox AXChildren")));
}

TEST_F(FocusedWindow, HasTheFrameOfItsTitle) {
    const Element window = mail.window();
    const Element title = fake.accessibility.addElement(mail.processIdentifier(), "AXStaticText");
    fake.accessibility.setAttribute(title, "AXPosition", Point{10, 100});
    fake.accessibility.setAttribute(window, "AXTitleUIElement", title);
    EXPECT_EQ(reader->focusedWindowTitlePosition(), (Point{10, 100}));
    EXPECT_EQ(reader->focusedWindowTitleFrame(), Rect());
    fake.accessibility.setAttribute(title, "AXSize", Size{20, 30});
    EXPECT_EQ(reader->focusedWindowTitleFrame(), (Rect{{10, 770}, {20, 30}}));
}

TEST_F(FocusedWindow, IsDesktopLikeOnTheFindersDesktop) {
    useApplication("Finder", {.roleDescription = "scroll area"});
    EXPECT_TRUE(reader->isFinderDesktopWindowActive());
}

TEST_F(FocusedWindow, IsDesktopLikeInPhotoshopFrom31ChildrenOn) {
    useApplication("Photoshop", {.children = 30});
    EXPECT_FALSE(reader->isFinderDesktopWindowActive());
    useApplication("Photoshop", {.children = 31});
    EXPECT_TRUE(reader->isFinderDesktopWindowActive());
    useApplication("Editor", {.children = 31});
    EXPECT_FALSE(reader->isFinderDesktopWindowActive());
}

TEST_F(FocusedWindow, IsDesktopLikeByItsChildrenInNoApplicationOfASimilarName) {
    for (const char* name : {"Photoshop 2", "Adobe Photoshop", "photoshop"}) {
        useApplication(name, {.children = 31});
        EXPECT_FALSE(reader->isFinderDesktopWindowActive()) << name;
    }
}

TEST_F(FocusedWindow, IsNotDesktopLikeWhenItsChildrenCannotBeRead) {
    const FakeApplication application = fake.addApplication("Photoshop");
    const Element window = application.window({.children = 40});
    fake.accessibility.removeAttribute(window, "AXChildren");
    fake.activate(application);
    reader->update();
    EXPECT_FALSE(reader->isFinderDesktopWindowActive());
    application.removeFocusedWindow();
    EXPECT_FALSE(reader->isFinderDesktopWindowActive());
}

TEST_F(FocusedWindow, IsAskedForItsChildrenInNoApplicationButTheOneWhereTheyCount) {
    mail.window({.title = "Inbox", .children = 40});
    EXPECT_THAT(
        asked([&] { reader->isFinderDesktopWindowActive(); }), testing::Not(testing::Contains("Inbox AXChildren")));
    useApplication("Photoshop", {.title = "Picture", .children = 40});
    EXPECT_THAT(
        asked([&] { reader->isFinderDesktopWindowActive(); }), testing::Contains("Picture AXChildren").Times(1));
}

TEST_F(FocusedWindow, IsPassingByItsRoleTextAndTitle) {
    mail.window({.title = "Inbox"});
    EXPECT_FALSE(reader->isAuxiliaryWindowActive());
    mail.window({.title = "Copying 3 items"});
    EXPECT_TRUE(reader->isAuxiliaryWindowActive());
    mail.window({.title = "Inbox", .roleDescription = "dialog"});
    EXPECT_TRUE(reader->isAuxiliaryWindowActive());
    mail.window({});
    EXPECT_TRUE(reader->isAuxiliaryWindowActive());
}

TEST_F(FocusedWindow, IsFullScreenExactlyWhenItSaysTrue) {
    mail.window({.fullScreen = true});
    EXPECT_TRUE(reader->isFocusedWindowFullScreen());
    const Element window = mail.window({.fullScreen = false});
    EXPECT_FALSE(reader->isFocusedWindowFullScreen());
    fake.accessibility.setAttribute(window, "AXFullScreen", std::int64_t{1});
    EXPECT_FALSE(reader->isFocusedWindowFullScreen());
}

TEST_F(FocusedWindow, CountsAsMinimizedWhenThereIsNone) {
    EXPECT_TRUE(reader->isFocusedWindowMinimized());
    mail.window();
    EXPECT_FALSE(reader->isFocusedWindowMinimized());
    mail.removeFocusedWindow();
    EXPECT_TRUE(reader->isFocusedWindowMinimized());
}

TEST_F(FocusedWindow, IsHiddenWhenItsApplicationIs) {
    mail.window();
    EXPECT_FALSE(reader->isFocusedWindowHidden());
    fake.accessibility.setAttribute(mail.element(), "AXHidden", true);
    EXPECT_TRUE(reader->isFocusedWindowHidden());
}

TEST_F(FocusedWindow, IsHiddenByNothingButTheBooleanOfItsApplication) {
    const Element window = mail.window();
    fake.accessibility.setAttribute(window, "AXHidden", true);
    EXPECT_FALSE(reader->isFocusedWindowHidden());
    fake.accessibility.setAttribute(mail.element(), "AXHidden", std::int64_t{1});
    EXPECT_FALSE(reader->isFocusedWindowHidden());
}

TEST_F(FocusedWindow, IsKnownByItsElement) {
    EXPECT_FALSE(reader->focusedWindow());
    const Element window = mail.window();
    EXPECT_EQ(reader->focusedWindow(), window);
}

TEST_F(FocusedWindow, IsMovedAndResizedInSinglePrecision) {
    const Element window = mail.window({.positionCG = Point{1, 2}, .size = Size{3, 4}});
    reader->setPositionOfFocusedWindow(0.1F, 0.2F);
    reader->setSizeOfFocusedWindow(30.1F, 40.2F);
    EXPECT_EQ(fake.accessibility.attribute(window, "AXPosition"), Value(Point{double(0.1F), double(0.2F)}));
    EXPECT_EQ(fake.accessibility.attribute(window, "AXSize"), Value(Size{double(30.1F), double(40.2F)}));
}

TEST_F(FocusedWindow, IsMovedAndResizedInScreenSpace) {
    const Element window = mail.window({.positionCG = Point{1, 2}, .size = Size{3, 4}});
    reader->setPositionOfFocusedWindow(10.5F, 20);
    reader->setSizeOfFocusedWindow(300, 400);
    EXPECT_EQ(fake.accessibility.attribute(window, "AXPosition"), Value(Point{10.5, 20}));
    EXPECT_EQ(fake.accessibility.attribute(window, "AXSize"), Value(Size{300, 400}));
}

TEST_F(FocusedWindow, StaysWhenItCannotBeMoved) {
    const Element window = mail.window({.positionCG = Point{1, 2}});
    fake.accessibility.setFault(window, FakeFault::Refusing);
    reader->setPositionOfFocusedWindow(10, 20);
    EXPECT_EQ(fake.accessibility.attribute(window, "AXPosition"), Value(Point{1, 2}));
    mail.removeFocusedWindow();
    reader->setPositionOfFocusedWindow(10, 20);
    reader->setSizeOfFocusedWindow(10, 20);
}

class FocusedWindowScreen : public FocusedWindow {
protected:
    // The window's frame is given in Cocoa space, where the rules are told.
    void place(const Rect& frameNS) {
        const Rect frameCG = reader->convertNSToCGRectCoords(frameNS);
        mail.window({.positionCG = frameCG.origin, .size = frameCG.size});
        ASSERT_EQ(reader->focusedWindowFrameNS(), frameNS);
    }
    void setFrames(const std::vector<Rect>& frames) {
        std::vector<Screen> screens;
        for (const Rect& frame : frames)
            screens.push_back({frame, {frame.origin, {frame.size.width, frame.size.height - 5}}});
        fake.displays.setScreens(screens);
        const Rect primary = frames.front();
        fake.displays.setMainDisplayBoundsCG({{0, 0}, primary.size});
    }
    std::optional<Rect> screenFrame() {
        const auto screen = reader->focusedWindowScreen();
        return screen ? std::optional(screen->frameNS) : std::nullopt;
    }

    // A window of 100 by 100 at (0, 0), and a screen around each point of it that is tried.
    static Rect around(double x, double y) { return {{x - 5, y - 5}, {10, 10}}; }
    const Rect far{{5000, 0}, {1000, 1000}};
};

TEST_F(FocusedWindowScreen, IsTheOneOfTheFirstPointThatLiesOnAScreen) {
    // In the order in which the points are tried.
    const std::vector<Rect> screens{
        around(50, 50), around(0, 0), around(100, 100), around(100, 50), around(50, 100), around(0, 100)};
    for (std::size_t first = 0; first < screens.size(); ++first) {
        std::vector<Rect> frames{far};
        // The later ones stand first in the list, so that only the order of the points decides.
        for (std::size_t index = screens.size(); index-- > first;)
            frames.push_back(screens[index]);
        setFrames(frames);
        place({{0, 0}, {100, 100}});
        EXPECT_EQ(screenFrame(), screens[first]) << first;
    }
}

TEST_F(FocusedWindowScreen, IsNoneWhenOnlyTheBottomRightCornerLiesOnOne) {
    setFrames({far, around(100, 0)});
    place({{0, 0}, {100, 100}});
    EXPECT_EQ(screenFrame(), std::nullopt);
    EXPECT_EQ(reader->focusedWindowScreenRectNS(), Rect());
    EXPECT_EQ(reader->focusedWindowScreenRectCG(), (Rect{{0, far.size.height}, {0, 0}}));
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
}

TEST_F(FocusedWindowScreen, IsTheOneAtTheOriginWhenThereIsNoWindow) {
    setFrames({{{0, 0}, {1000, 1000}}, {{1000, 0}, {800, 700}}});
    EXPECT_EQ(screenFrame(), (Rect{{0, 0}, {1000, 1000}}));
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
    EXPECT_EQ(reader->focusedWindowScreenRectNS(), (Rect{{0, 0}, {1000, 995}}));
}

TEST_F(FocusedWindowScreen, HoldsTheCentreOfAWindowThatStraddlesTwo) {
    setFrames({{{0, 0}, {1000, 1000}}, {{1000, 0}, {1000, 1000}}});
    place({{800, 100}, {500, 100}});
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 1);
    EXPECT_EQ(screenFrame(), (Rect{{1000, 0}, {1000, 1000}}));
    place({{600, 100}, {500, 100}});
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
}

TEST_F(FocusedWindowScreen, IsNumberedByTheCentreAloneOfAWindowWithAnotherPointOnIt) {
    setFrames({far, around(0, 0)});
    place({{0, 0}, {100, 100}});
    EXPECT_EQ(screenFrame(), around(0, 0));
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
}

TEST_F(FocusedWindowScreen, IsNumberedByTheHeightOfTheCentre) {
    setFrames({{{0, 0}, {1000, 1000}}, {{0, 1000}, {1000, 1000}}});
    place({{100, 900}, {100, 300}});
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 1);
    place({{100, 800}, {100, 300}});
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
}

TEST_F(FocusedWindowScreen, IsNoneWithoutScreens) {
    fake.displays.setScreens({});
    fake.displays.setMainDisplayBoundsCG({});
    mail.window({.positionCG = Point{10, 20}, .size = Size{100, 100}});
    EXPECT_EQ(screenFrame(), std::nullopt);
    EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
    EXPECT_EQ(reader->focusedWindowScreenRectNS(), Rect());
    EXPECT_EQ(reader->focusedWindowScreenRectCG(), Rect());
}

TEST_F(FocusedWindowScreen, IsNoneOfAWindowThatIsNowhere) {
    setFrames({{{0, 0}, {1000, 1000}}, {{1000, 0}, {800, 700}}});
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double nowhere : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity}) {
        mail.window({.positionCG = Point{nowhere, nowhere}, .size = Size{100, 100}});
        EXPECT_EQ(screenFrame(), std::nullopt);
        EXPECT_EQ(reader->focusedWindowScreenArrayOrder(), 0);
        EXPECT_EQ(reader->focusedWindowScreenRectNS(), Rect());
    }
}

TEST_F(FocusedWindowScreen, HasItsVisibleFrameInBothSpaces) {
    setFrames({{{0, 0}, {1000, 1000}}, {{1000, 0}, {800, 700}}});
    place({{1100, 100}, {100, 100}});
    EXPECT_EQ(reader->focusedWindowScreenRectNS(), (Rect{{1000, 0}, {800, 695}}));
    EXPECT_EQ(reader->focusedWindowScreenRectCG(), (Rect{{1000, 305}, {800, 695}}));
}

} // namespace
} // namespace tarragon
