#include "ScreenTopFixture.h"

namespace tarragon {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

// The bars at the top of the screens other than the first: which there are, and when they are made.
class ScreenTopBarsTest : public ScreenTopTest {
protected:
    // This happens once, in the middle of the pause that a bar makes.
    void duringNextPause(std::function<void()> function) {
        fake.runLoop.setPauseHook([this, function = std::move(function)](double) {
            const auto once = function;
            fake.runLoop.setPauseHook({});
            once();
        });
    }
};

TEST_F(ScreenTopBarsTest, AreOnTheSecondOfTwoScreens) {
    launchAndSettle();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen));
    EXPECT_THAT(bar(0).titles(), ElementsAre("File", "Edit", "Tarragon "));
    EXPECT_TRUE(isSeen(0));
}

TEST_F(ScreenTopBarsTest, AreOnTheSecondAndTheThirdOfThreeScreens) {
    setScreenCount(3);
    launchAndSettle();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, FrameOnThirdScreen));
    EXPECT_THAT(bar(1).titles(), ElementsAre("File", "Edit", "Tarragon "));
    EXPECT_TRUE(isSeen(0));
    EXPECT_TRUE(isSeen(1));
}

TEST_F(ScreenTopBarsTest, AreNotMadeForASingleScreen) {
    setScreenCount(1);
    launchAndSettle();
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
    controller().setupScreentopTarragonPanel();
    controller().recreateScreentop();
    EXPECT_THAT(bars(), IsEmpty());
}

TEST_F(ScreenTopBarsTest, AreNotMadeWithoutTheirSetting) {
    set(preference::EnableScreenTop, false);
    launchAndSettle();
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
}

TEST_F(ScreenTopBarsTest, AreMadeAfterThePanelAndBeforeTheTickASecondForEach) {
    setScreenCount(3);
    std::vector<std::size_t> windowsAtPause;
    std::vector<double> timersAtPauses;
    fake.runLoop.setPauseHook([&](double) {
        windowsAtPause.push_back(panelToolkit.livingWindows());
        for (const double interval : fake.runLoop.validTimers())
            timersAtPauses.push_back(interval);
    });
    launch();
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0, 1.0, 1.0));
    EXPECT_THAT(windowsAtPause, ElementsAre(0U, 1U, 2U));
    EXPECT_THAT(timersAtPauses, Not(Contains(0.45)));
    EXPECT_THAT(timersAtPauses, Not(Contains(8.0)));
    EXPECT_THAT(fake.runLoop.validTimers(), testing::IsSupersetOf({0.45, 8.0}));
}

TEST_F(ScreenTopBarsTest, ShowTheOwnMenuOnce) {
    launchAndSettle();
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    controller().recreateScreentop();
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
}

TEST_F(ScreenTopBarsTest, BringTheOwnMenuWhereThereIsNoPanelToBringIt) {
    set(preference::EnableButton, false);
    launchAndSettle();
    EXPECT_THAT(bar(0).titles(), ElementsAre("File", "Edit", "Tarragon "));
}

TEST_F(ScreenTopBarsTest, StayAndShowTheirTitlesAnewWhileTheNumberOfScreensIsTheSame) {
    launchAndSettle();
    const FakePanelToolkit::Window* former = bars().front();
    const std::size_t pauses = fake.runLoop.pauses().size();
    reader().menu()->addItem(std::make_shared<MenuItem>("Late", "", ""));
    controller().setupScreentopTarragonPanel();
    EXPECT_THAT(bars(), ElementsAre(former));
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses);
    EXPECT_THAT(bar(0).titles(), ElementsAre("File", "Edit", "Tarragon ", "Late"));
}

TEST_F(ScreenTopBarsTest, AreMadeAnewWhenTheNumberOfScreensIsAnother) {
    launchAndSettle();
    const std::size_t pauses = fake.runLoop.pauses().size();
    setScreenCount(3);
    controller().setupScreentopTarragonPanel();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, FrameOnThirdScreen));
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses + 2);
    setScreenCount(2);
    controller().setupScreentopTarragonPanel();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen));
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses + 3);
}

TEST_F(ScreenTopBarsTest, AreLeftAsTheyAreWhileOneScreenIsLeft) {
    launchAndSettle();
    const FakePanelToolkit::Window* former = bars().front();
    setScreenCount(1);
    controller().setupScreentopTarragonPanel();
    set(preference::EnableScreenTop, false);
    EXPECT_THAT(bars(), ElementsAre(former));
}

TEST_F(ScreenTopBarsTest, AreAllMadeAnewWhenAScreenIsConnectedOrRemoved) {
    launchAndSettle();
    for (const std::uint32_t flag : {displayReconfiguration::Added, displayReconfiguration::Removed}) {
        const FakePanelToolkit::Window* former = bars().front();
        fake.displays.reconfigure(flag | displayReconfiguration::Moved);
        EXPECT_EQ(former->handler, nullptr);
        EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen));
    }
}

TEST_F(ScreenTopBarsTest, StayWhenAScreenOnlyChanges) {
    launchAndSettle();
    const FakePanelToolkit::Window* former = bars().front();
    fake.displays.reconfigure(
        displayReconfiguration::Moved | displayReconfiguration::SetMain | displayReconfiguration::SetMode | 1 | 64);
    EXPECT_THAT(bars(), ElementsAre(former));
}

TEST_F(ScreenTopBarsTest, ComeAndGoWithTheScreens) {
    setScreenCount(1);
    launchAndSettle();
    for (int time = 0; time < 20; ++time) {
        plug(3);
        EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, FrameOnThirdScreen));
        plug(1);
        EXPECT_THAT(bars(), IsEmpty());
    }
    EXPECT_EQ(panelToolkit.livingWindows(), 1U);
    // Nothing of the former bars listens to settings.
    EXPECT_THAT(fake.defaults.observedKeyPaths(), SizeIs(27));
}

TEST_F(ScreenTopBarsTest, TakeTheirOpenMenuAlong) {
    launchAndSettle();
    bar(0).press("Edit");
    ASSERT_TRUE(controller().checkIfMenuIsShowing());
    plug(2);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
    EXPECT_FALSE(controller().checkIfMenuIsShowing());
    EXPECT_THAT(bars(), SizeIs(1));
}

TEST_F(ScreenTopBarsTest, ComeAndGoWithTheirSetting) {
    launchAndSettle();
    tick();
    const std::size_t pauses = fake.runLoop.pauses().size();
    set(preference::EnableScreenTop, false);
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_FALSE(controller().preferences()._screenTopEnabled);
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses);
    tick();
    EXPECT_THAT(bars(), IsEmpty());

    set(preference::EnableScreenTop, true);
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen));
    EXPECT_EQ(fake.runLoop.pauses().size(), pauses + 1);
}

// What they bring to the menu shows in the panel as well.
TEST_F(ScreenTopBarsTest, LetThePanelBeMadeAnewAfterTheirSettingHasChanged) {
    launchAndSettle();
    mail.menu("Late").item("Item");
    reader().update();
    set(preference::EnableScreenTop, false);
    settle();
    EXPECT_THAT(panelWindow().titles(), ElementsAre("File", "Edit", "Late"));
    set(preference::EnableScreenTop, true);
    settle();
    EXPECT_THAT(panelWindow().titles(), ElementsAre("File", "Edit", "Late", "Tarragon"));
}

// The other settings of the bars are theirs alone.
TEST_F(ScreenTopBarsTest, FollowTheirOtherSettingsByThemselves) {
    launchAndSettle();
    const std::size_t windows = panelToolkit.windows().size();
    set(preference::ScreenTopAutoHide, true);
    set(preference::ScreenTopTransparency, true);
    set(preference::ScreenTopHalfHotZone, true);
    EXPECT_EQ(panelToolkit.windows().size(), windows);
    EXPECT_FALSE(controller().preferences()._screenTopAutoHide);
    EXPECT_FALSE(controller().preferences()._screenTopTransparency);
    EXPECT_FALSE(controller().preferences()._screenTopHalfHotZone);
    EXPECT_TRUE(controller().screenTopEnabledWithAutohide());
}

TEST_F(ScreenTopBarsTest, HideThemselvesOnlyWhereThereAreAny) {
    set(preference::ScreenTopAutoHide, true);
    launchAndSettle();
    EXPECT_TRUE(controller().screenTopEnabledWithAutohide());
    set(preference::ScreenTopAutoHide, false);
    EXPECT_FALSE(controller().screenTopEnabledWithAutohide());
    set(preference::ScreenTopAutoHide, true);
    set(preference::EnableScreenTop, false);
    EXPECT_FALSE(controller().screenTopEnabledWithAutohide());
}

TEST_F(ScreenTopBarsTest, WaitForTheReader) {
    fake.deactivate();
    launch();
    plug(2);
    set(preference::EnableScreenTop, false);
    set(preference::EnableScreenTop, true);
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_THAT(fake.runLoop.pauses(), IsEmpty());
    fake.switchTo(mail);
    settle();
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen));
}

TEST_F(ScreenTopBarsTest, AreDroppedAtTheEnd) {
    launchAndSettle();
    controller().clearAll();
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
    plug(3);
    set(preference::EnableScreenTop, false);
    set(preference::EnableScreenTop, true);
    tick();
    EXPECT_THAT(bars(), IsEmpty());
    EXPECT_FALSE(controller().screenTopEnabledWithAutohide());
}

TEST_F(ScreenTopBarsTest, KeepTheListOfWhatIsStartedAtLoginAsTheSettingHasIt) {
    launchAndSettle();
    set(preference::LaunchOnLogin, true);
    EXPECT_THAT(loginItems.items(), IsEmpty());
    controller().recreateScreentop();
    EXPECT_THAT(loginItems.items(), SizeIs(1));
}

// What happens while a bar blocks.

TEST_F(ScreenTopBarsTest, AreThoseOfTheScreensThatCameWhileTheyWereMade) {
    launchAndSettle();
    duringNextPause([this] { plug(3); });
    plug(2);
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, FrameOnThirdScreen));
}

TEST_F(ScreenTopBarsTest, AreAllThereWhenAScreenCameAndWentWhileTheLastOneWasMade) {
    launchAndSettle();
    fake.runLoop.setPauseHook([this](double) { duringNextPause([this] { plug(3); }); });
    plug(3);
    EXPECT_THAT(barFrames(), ElementsAre(FrameOnSecondScreen, FrameOnThirdScreen));
}

TEST_F(ScreenTopBarsTest, AreGoneWhenTheirScreensWentWhileTheyWereMade) {
    launchAndSettle();
    duringNextPause([this] { plug(1); });
    plug(3);
    EXPECT_THAT(bars(), IsEmpty());
}

TEST_F(ScreenTopBarsTest, AreGoneWhenTheyWereSwitchedOffWhileTheyWereMade) {
    launchAndSettle();
    duringNextPause([this] { set(preference::EnableScreenTop, false); });
    plug(3);
    EXPECT_THAT(bars(), IsEmpty());
    set(preference::EnableScreenTop, true);
    EXPECT_THAT(bars(), SizeIs(2));
}

TEST_F(ScreenTopBarsTest, ShowTheApplicationThatCameToTheFrontWhileTheyWereMade) {
    launchAndSettle();
    const FakeApplication notes = fake.addApplication("Notes");
    notes.menu("Note").item("Pin");
    duringNextPause([&] { fake.switchTo(notes); });
    plug(3);
    EXPECT_THAT(bar(0).titles(), ElementsAre("Note", "Tarragon "));
    EXPECT_THAT(bar(1).titles(), ElementsAre("Note", "Tarragon "));
}

TEST_F(ScreenTopBarsTest, AreNotFinishedWhenTheProgramEndsWhileTheyAreMade) {
    launchAndSettle();
    duringNextPause([this] { controller().clearAll(); });
    plug(3);
    EXPECT_EQ(panelToolkit.livingWindows(), 0U);
}

// Operations that the controller has besides.

TEST_F(ScreenTopBarsTest, ShowTheMenusAsTheyAreNowWithTheirGradient) {
    launchAndSettle();
    mail.menu("Late").item("Item");
    controller().addGradientScreenTop();
    EXPECT_THAT(bar(0).titles(), ElementsAre("File", "Edit", "Late"));
}

TEST_F(ScreenTopBarsTest, AreLeftAloneByWhatTheyDoByThemselves) {
    launchAndSettle();
    const int drawn = bar(0).timesDisplayed;
    const std::size_t framesSet = bar(0).frames.size();
    controller().addButtonsToScreentopTarragonPanel();
    controller().updateTarragonSTWindowPositionWithPoint({1500, 200});
    controller().setSpacingBetweenSTPanelButtons(5);
    controller().slideOutScreenTopMenubar();
    controller().slideInScreenTopMenubar();
    controller().resetLevels();
    settle();
    EXPECT_EQ(bar(0).timesDisplayed, drawn);
    EXPECT_EQ(bar(0).frames.size(), framesSet);
    EXPECT_EQ(bar(0).level, PanelLevel::Dock);
}

} // namespace
} // namespace tarragon
