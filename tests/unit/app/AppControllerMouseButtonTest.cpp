#include "AppFixture.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

#include <limits>
#include <optional>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t MiddleButton = 2;
constexpr std::uint32_t FourthButton = 3;

class MouseButtonTest : public AppTest {
protected:
    // As the program does it.
    void launchWhole() {
        ASSERT_TRUE(delegate.loadMainInterface());
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
    }
    // True when the press goes on to the application.
    bool press(std::uint32_t button) { return fake.inputEvents.send({InputEventType::OtherMouseDown, button}); }
    std::size_t popUps() const { return fake.menuPresenter.openMenus().size(); }
};

TEST_F(MouseButtonTest, IsNotHeardOfBeforeTheFirstLaunchHasShownTheHelp) {
    set(preference::EnableMouseButton, true);
    bool isShown = false;
    fake.defaults.addObserver(keyPathOfPreference(preference::FirstRun),
        [&](const std::string&) { isShown = press(MiddleButton) && popUps() > 0; });
    launchWhole();
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    EXPECT_FALSE(isShown);
    press(MiddleButton);
    EXPECT_EQ(popUps(), 1U);
}

TEST_F(MouseButtonTest, OpensTheMenuAtThePointerOnThePressWhichGoesOnToTheApplication) {
    set(preference::EnableMouseButton, true);
    launchWhole();
    fake.displays.setMouseLocationNS({300, 400});
    EXPECT_TRUE(press(MiddleButton));
    ASSERT_EQ(popUps(), 1U);
    EXPECT_EQ(fake.menuPresenter.popUps().front().menu, reader().menu());
    EXPECT_EQ(fake.menuPresenter.popUps().front().locationNS, (Point{300, 400}));
}

TEST_F(MouseButtonTest, LetsAPressPassAndDoesNothingElseWhileItIsSwitchedOff) {
    launchWhole();
    const std::size_t reads = fake.defaults.readKeys().size();
    EXPECT_TRUE(press(MiddleButton));
    EXPECT_EQ(popUps(), 0U);
    EXPECT_EQ(fake.defaults.readKeys().size(), reads);
}

TEST_F(MouseButtonTest, OpensForTheChosenButtonAlone) {
    set(preference::EnableMouseButton, true);
    set(preference::MouseButton, std::int64_t{FourthButton});
    launchWhole();
    EXPECT_TRUE(press(MiddleButton));
    EXPECT_TRUE(press(4));
    EXPECT_EQ(popUps(), 0U);
    EXPECT_TRUE(press(FourthButton));
    EXPECT_EQ(popUps(), 1U);
}

TEST_F(MouseButtonTest, NeverOpensForTheLeftOrTheRightButton) {
    set(preference::EnableMouseButton, true);
    launchWhole();
    for (const std::uint32_t button : {0U, 1U}) {
        set(preference::MouseButton, std::int64_t{button});
        EXPECT_TRUE(press(button));
        EXPECT_TRUE(press(MiddleButton));
    }
    EXPECT_EQ(popUps(), 0U);
}

TEST_F(MouseButtonTest, FollowsTheSettingsWhileItRuns) {
    launchWhole();
    set(preference::EnableMouseButton, true);
    press(MiddleButton);
    EXPECT_EQ(popUps(), 1U);
    fake.menuPresenter.closeMenus();
    set(preference::MouseButton, std::int64_t{FourthButton});
    press(MiddleButton);
    EXPECT_EQ(popUps(), 0U);
    press(FourthButton);
    EXPECT_EQ(popUps(), 1U);
    fake.menuPresenter.closeMenus();
    set(preference::EnableMouseButton, false);
    press(FourthButton);
    EXPECT_EQ(popUps(), 0U);
}

TEST_F(MouseButtonTest, ReadsTheButtonAsAnUnsignedNumberAtEachPress) {
    struct Row {
        DefaultsValue stored;
        std::uint32_t button;
        bool opens;
    };
    const Row rows[] = {
        {std::int64_t{2}, 2, true},
        {2.9, 2, true},
        {std::string("3"), 3, true},
        // These differ from every button by more than a button's number can hold.
        {std::int64_t{2} + (std::int64_t{1} << 32), 2, false},
        {std::int64_t{-2}, std::numeric_limits<std::uint32_t>::max() - 1, false},
    };
    set(preference::EnableMouseButton, true);
    launchWhole();
    for (const Row& row : rows) {
        fake.menuPresenter.closeMenus();
        set(preference::MouseButton, row.stored);
        press(row.button);
        EXPECT_EQ(popUps(), row.opens ? 1U : 0U) << "button " << row.button;
    }
}

TEST_F(MouseButtonTest, ListensBeforeAnySettingIsRead) {
    ASSERT_TRUE(delegate.loadMainInterface());
    EXPECT_THAT(fake.inputEvents.enabledTapMasks(), ElementsAre(InputEventMask{0x2000000}));
    EXPECT_THAT(fake.defaults.readKeys(), IsEmpty());
    EXPECT_EQ(delegate.appController(), nullptr);
}

TEST_F(MouseButtonTest, BeginsToActWhenTheLaunchIsOver) {
    set(preference::EnableMouseButton, true);
    set(preference::FirstRun, true);
    ASSERT_TRUE(delegate.loadMainInterface());
    EXPECT_TRUE(press(MiddleButton));
    delegate.applicationWillFinishLaunching();
    EXPECT_TRUE(press(MiddleButton));
    EXPECT_EQ(popUps(), 0U);
    delegate.applicationDidFinishLaunching();
    press(MiddleButton);
    EXPECT_EQ(popUps(), 1U);
}

TEST_F(MouseButtonTest, StopsListeningWhenTheProgramEnds) {
    set(preference::EnableMouseButton, true);
    launchWhole();
    const std::size_t before = fake.inputEvents.tapCount();
    EXPECT_TRUE(delegate.applicationShouldTerminate());
    EXPECT_EQ(fake.inputEvents.tapCount(), before - 1);
    EXPECT_TRUE(press(MiddleButton));
    EXPECT_EQ(popUps(), 0U);
}

TEST_F(MouseButtonTest, GoesOnAfterTheDesktopHasDisabledItsTap) {
    set(preference::EnableMouseButton, true);
    launchWhole();
    EXPECT_FALSE(fake.inputEvents.disableTaps(InputEventType::TapDisabledByTimeout));
    press(MiddleButton);
    EXPECT_EQ(popUps(), 1U);
}

TEST_F(MouseButtonTest, EndsTheProgramBeforeAnythingElseWherePressesCannotBeHad) {
    fake.inputEvents.setRefuses(true);
    EXPECT_FALSE(delegate.loadMainInterface());
    EXPECT_EQ(standardError.str(), "failed to create event tap\n");
    EXPECT_EQ(fake.runLoop.exitStatus(), 1);
    EXPECT_THAT(panels.shown, IsEmpty());
    EXPECT_THAT(fake.runLoop.pauses(), IsEmpty());
}

TEST_F(MouseButtonTest, SaysInTheLogWhichButtonOpensTheMenu) {
    set(preference::EnableMouseButton, true);
    launchWhole();
    const RecordingLog log;
    press(MiddleButton);
    EXPECT_THAT(log.lines(), testing::Contains("triggers: mouse button: 2 is pressed"));
}

} // namespace
} // namespace tarragon
