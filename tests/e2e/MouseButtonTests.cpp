// The mouse button that opens the pop-up: which one it is, that the application below gets it too, and that an item can
// be chosen by a click afterwards or in the same movement.
#include "DisplayWithoutInput.h"
#include "EndToEndTest.h"

#include <algorithm>
#include <sstream>

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

// Buttons as X numbers them, and as the setting does.
struct Button {
    std::uint8_t ofX = 0;
    std::uint64_t number = 0;
};

constexpr Button Left{1, 0};
constexpr Button Middle{2, 2};
constexpr Button Right{3, 1};
constexpr Button Back{8, 3};
constexpr Button Forward{9, 4};

} // namespace

class MouseButtonTest : public WindowManagerTest {
protected:
    void TearDown() override {
        if (agent().isRunning()) {
            agent().preferences().remove("EnableMouseButton");
            agent().preferences().remove("MouseButton");
            EXPECT_TRUE(agent().changeHotKey(usualHotKey()));
        }
        WindowManagerTest::TearDown();
    }

    // An application that tells of buttons and choices, in front and mirrored, with the pointer over it.
    TestApplication& launchBelowThePointer() {
        TestApplication& application = launch(ApplicationKind::Pressed);
        EXPECT_TRUE(popUp().openWith({"Fruit", "Nuts"}));
        EXPECT_TRUE(popUp().close());
        pointAt(application);
        return application;
    }
    void pointAt(const TestApplication& application) {
        const PixelRect frame = display().frameOf(application.window());
        input().moveTo(frame.x + frame.width / 2, frame.y + frame.height / 2);
    }

    // Returns when the program has taken the settings over: it has registered the hot key that was set after them.
    void set(Button button, bool enabled = true) {
        agent().preferences().set("MouseButton", button.number);
        agent().preferences().set("EnableMouseButton", enabled);
        EXPECT_TRUE(agent().changeHotKey(agent().hotKey().text == usualHotKey().text ? otherHotKey() : usualHotKey()));
    }

    static std::vector<std::string> told(const TestApplication& application) {
        std::istringstream lines(const_cast<TestApplication&>(application).process().standardOutput());
        std::vector<std::string> result;
        for (std::string line; std::getline(lines, line);)
            result.push_back(line);
        return result;
    }
    static std::string press(Button button) { return "press " + std::to_string(button.ofX); }
    static std::string release(Button button) { return "release " + std::to_string(button.ofX); }
    static bool isTold(const TestApplication& application, const std::vector<std::string>& lines) {
        return waitUntil([&] { return told(application) == lines; });
    }

    void click(Button button) {
        input().press(button.ofX);
        input().release(button.ofX);
    }
    bool nothingOpens() {
        return holdsFor(Duration(400), [this] { return !popUp().isOpen(); });
    }
    bool staysOpen() {
        return holdsFor(Duration(400), [this] { return popUp().isOpen(); });
    }
    // Until the menu has the pointer, clicks would go to the application behind it.
    bool hasPointer() {
        return waitUntil([this] { return display().pointerIsGrabbed(); });
    }
};

TEST_P(MouseButtonTest, OpensOnThePressWhichTheApplicationGetsToo) {
    for (const Button button : {Middle, Back, Forward}) {
        TestApplication& application = launchBelowThePointer();
        set(button);
        ASSERT_TRUE(popUp().openByButton(button.ofX)) << press(button);
        EXPECT_TRUE(isTold(application, {press(button)}));
        input().release(button.ofX);
        EXPECT_TRUE(isTold(application, {press(button), release(button)}));
        EXPECT_TRUE(staysOpen());
        EXPECT_TRUE(popUp().close());
        EXPECT_EQ(display().activeWindow(), application.window());
        quit(application);
    }
}

TEST_P(MouseButtonTest, NeverOpensForTheLeftAndTheRightButton) {
    TestApplication& application = launchBelowThePointer();
    std::vector<std::string> expected;
    for (const Button button : {Left, Right}) {
        set(button);
        click(button);
        click(Middle);
        EXPECT_TRUE(nothingOpens());
        expected.insert(expected.end(), {press(button), release(button), press(Middle), release(Middle)});
    }
    EXPECT_TRUE(isTold(application, expected));
}

TEST_P(MouseButtonTest, OpensForNoOtherButtonAndForNoWheel) {
    TestApplication& application = launchBelowThePointer();
    set(Back);
    for (const std::uint8_t button : {1, 2, 3, 4, 5, 6, 7, 9})
        input().click(button);
    EXPECT_TRUE(nothingOpens());
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    EXPECT_TRUE(waitUntil([&] { return told(application).back() == press(Back); }));
}

TEST_P(MouseButtonTest, ActsOnlyWhileItIsSwitchedOn) {
    TestApplication& application = launchBelowThePointer();
    set(Back, false);
    click(Back);
    EXPECT_TRUE(nothingOpens());
    EXPECT_TRUE(isTold(application, {press(Back), release(Back)}));
    set(Back, true);
    EXPECT_TRUE(popUp().openByButton(Back.ofX));
    input().release(Back.ofX);
    EXPECT_TRUE(popUp().close());
    set(Back, false);
    click(Back);
    EXPECT_TRUE(nothingOpens());
}

TEST_P(MouseButtonTest, FollowsAChangeOfTheButton) {
    launchBelowThePointer();
    set(Middle);
    EXPECT_TRUE(popUp().openByButton(Middle.ofX));
    input().release(Middle.ofX);
    EXPECT_TRUE(popUp().close());
    set(Forward);
    click(Middle);
    EXPECT_TRUE(nothingOpens());
    EXPECT_TRUE(popUp().openByButton(Forward.ofX));
}

TEST_P(MouseButtonTest, IsChosenFromByAClickAfterwards) {
    for (const Button button : {Middle, Back}) {
        TestApplication& application = launchBelowThePointer();
        set(button);
        ASSERT_TRUE(popUp().openByButton(button.ofX));
        input().release(button.ofX);
        ASSERT_TRUE(hasPointer());
        ASSERT_TRUE(popUp().chooseByMouse({"Fruit", "Banana"}));
        EXPECT_TRUE(isTold(application, {press(button), release(button), "chosen Banana"}));
        EXPECT_EQ(display().activeWindow(), application.window());
        quit(application);
    }
}

TEST_P(MouseButtonTest, IsChosenFromByKeyboardWhileTheButtonIsHeld) {
    TestApplication& application = launchBelowThePointer();
    set(Back);
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    ASSERT_TRUE(popUp().chooseByKeyboard({"Nuts", "Cherry"}));
    EXPECT_TRUE(isTold(application, {press(Back), "chosen Cherry"}));
    input().release(Back.ofX);
    EXPECT_TRUE(isTold(application, {press(Back), "chosen Cherry", release(Back)}));
}

TEST_P(MouseButtonTest, IsChosenFromInOneMovement) {
    for (const Button button : {Middle, Back, Forward}) {
        TestApplication& application = launchBelowThePointer();
        set(button);
        ASSERT_TRUE(popUp().openByButton(button.ofX));
        ASSERT_TRUE(popUp().pointInto("Nuts"));
        ASSERT_TRUE(waitUntil([this] { return agent().openMenus().size() == 2; }));
        ASSERT_TRUE(popUp().pointInto("Banana"));
        input().release(button.ofX);
        EXPECT_TRUE(waitUntil([this] { return !popUp().isOpen(); }));
        EXPECT_TRUE(waitUntil([&] { return told(application).size() == 3; }));
        std::vector<std::string> lines = told(application);
        EXPECT_EQ(lines.front(), press(button));
        std::ranges::sort(lines); // the application hears of the two in any order
        EXPECT_EQ(lines, (std::vector<std::string>{"chosen Banana", press(button), release(button)}));
        EXPECT_FALSE(display().keyboardIsGrabbed());
        quit(application);
    }
}

TEST_P(MouseButtonTest, IsLeftByLettingGoBesideTheMenuAfterALookIntoIt) {
    TestApplication& application = launchBelowThePointer();
    set(Back);
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    const PixelRect frame = agent().openMenus().at(0).frame;
    ASSERT_TRUE(popUp().pointInto("Fruit"));
    input().moveTo(frame.x - 60, frame.y);
    input().release(Back.ofX);
    EXPECT_TRUE(waitUntil([this] { return !popUp().isOpen(); }));
    EXPECT_TRUE(isTold(application, {press(Back), release(Back)}));
}

TEST_P(MouseButtonTest, IsLeftByAClickBesideTheMenuWhichTheApplicationDoesNotGet) {
    TestApplication& application = launchBelowThePointer();
    set(Back);
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    const PixelRect frame = agent().openMenus().at(0).frame;
    input().release(Back.ofX);
    ASSERT_TRUE(hasPointer());
    input().moveTo(frame.x - 60, frame.y);
    input().click();
    EXPECT_TRUE(waitUntil([this] { return !popUp().isOpen(); }));
    EXPECT_TRUE(isTold(application, {press(Back), release(Back)}));
}

TEST_P(MouseButtonTest, OpensElsewhereWhenItIsPressedElsewhere) {
    launchBelowThePointer();
    set(Back);
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    const PixelRect before = agent().openMenus().at(0).frame;
    input().release(Back.ofX);
    ASSERT_TRUE(hasPointer());
    input().moveTo(before.x - 80, before.y - 40);
    click(Back);
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<XWindow> menus = agent().openMenus();
        return menus.size() == 1 && menus[0].frame.x == before.x - 80 && menus[0].frame.y == before.y - 40;
    }));
    EXPECT_TRUE(staysOpen());
}

// Nobody takes the press there, so that the menu gets the pointer at once.
TEST_P(MouseButtonTest, WorksOverTheDesktopItself) {
    TestApplication& application = launchBelowThePointer();
    set(Back);
    const PixelRect frame = display().outerFrameOf(application.window());
    const int x = frame.x > 400 ? 100 : 1200;
    input().moveTo(x, 600);
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    input().moveTo(x + 2, 601);
    input().moveTo(x + 3, 602);
    input().release(Back.ofX);
    EXPECT_TRUE(staysOpen());
    ASSERT_TRUE(popUp().close());

    input().moveTo(x, 600);
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    ASSERT_TRUE(popUp().pointInto("Fruit"));
    ASSERT_TRUE(waitUntil([this] { return agent().openMenus().size() == 2; }));
    ASSERT_TRUE(popUp().pointInto("Cherry"));
    input().release(Back.ofX);
    EXPECT_TRUE(isTold(application, {"chosen Cherry"}));
}

// The window manager holds such a press up, makes the window active and lets the press go on.
TEST_P(MouseButtonTest, WorksOverAWindowThatIsNotActive) {
    TestApplication& application = launchBelowThePointer();
    set(Middle);
    TestApplication& other = launch(ApplicationKind::Titled, {"300", "200", "Other"});
    const PixelRect frame = display().frameOf(application.window());
    display().moveWindow(other.window(), frame.x > 400 ? 0 : 1200, 0);
    EXPECT_TRUE(popUp().openWith({"Other"}));
    EXPECT_TRUE(popUp().close());
    pointAt(application);
    ASSERT_TRUE(popUp().openByButton(Middle.ofX));
    EXPECT_TRUE(isTold(application, {press(Middle)}));
    input().release(Middle.ofX);
    EXPECT_TRUE(isTold(application, {press(Middle), release(Middle)}));
}

TEST_P(MouseButtonTest, WorksInARealApplicationWithAnotherToolkit) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(application.expectedTitles()));
    ASSERT_TRUE(popUp().close());
    set(Back);
    pointAt(application);
    const bool before = application.switchState();
    ASSERT_TRUE(popUp().openByButton(Back.ofX));
    const std::vector<std::string> path = application.switchPath();
    for (std::size_t level = 0; level < path.size(); ++level) {
        ASSERT_TRUE(waitUntil([&] { return agent().openMenus().size() == level + 1; }));
        ASSERT_TRUE(popUp().pointInto(path[level])) << path[level];
    }
    input().release(Back.ofX);
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_FALSE(popUp().isOpen());
    EXPECT_EQ(display().activeWindow(), application.window());
}

INSTANTIATE_TEST_SUITE_P(Under, MouseButtonTest, EveryWindowManager, nameOfWindowManager);

class NoInputExtensionTest : public DesktopTest {
protected:
    NoInputExtensionTest()
        : DesktopTest(WindowManager::Openbox) { }
};

TEST_F(NoInputExtensionTest, EndsTheProgramWithAMessageAndLeavesTheCommandsTheirWork) {
    launch(ApplicationKind::Mousepad);
    const CommandResult usual = tarragon({"menus", "--application", "Mousepad"});
    // A program that runs already would be asked to show itself instead.
    Desktop other(WindowManager::Openbox);
    TestApplication application(other, ApplicationKind::Mousepad);
    const DisplayWithoutInput without(other.environment().at("DISPLAY"));
    const Environment variables{{"DISPLAY", without.name()}};

    const CommandResult agent = Agent::run(other, {}, variables);
    EXPECT_EQ(agent.status, 1);
    EXPECT_EQ(agent.error, "failed to create event tap\n");
    EXPECT_EQ(agent.output, "");

    const CommandResult menus = Agent::run(other, {"menus"}, variables);
    EXPECT_EQ(menus.status, 0) << menus.error;
    EXPECT_EQ(menus.output, usual.output);
    const bool before = application.switchState();
    std::string key = "Mousepad";
    for (const std::string& title : application.switchPath())
        key += "|" + title;
    const CommandResult press = Agent::run(other, {"press", key}, variables);
    EXPECT_EQ(press.status, 0) << press.error;
    EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_EQ(Agent::run(other, {"inspect"}, variables).status, 0);
}

} // namespace tarragon::e2e
