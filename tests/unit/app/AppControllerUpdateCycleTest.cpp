#include "AppFixture.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t SpaceBar = 49;

class ApplicationSwitchTest : public AppTest {
protected:
    ApplicationSwitchTest()
        : notes(fake.addApplication("Notes")) {
        notes.menu("Note").item("Pin");
        launch();
    }

    std::size_t menuBarReads(const FakeApplication& application) {
        std::size_t reads = 0;
        for (const FakeCall& call : fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue)) {
            if (call.element == application.element() && call.name == "AXMenuBar")
                ++reads;
        }
        return reads;
    }

    // How often the mirror is rebuilt: each time the application in front is asked for.
    std::size_t readsDuringSwitchTo(const FakeApplication& application) {
        fake.accessibility.clearCalls();
        fake.switchTo(application);
        const auto calls = fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue);
        return static_cast<std::size_t>(
            std::ranges::count(calls, std::string("AXFocusedApplication"), &FakeCall::name));
    }

    FakeApplication notes;
};

TEST_F(ApplicationSwitchTest, RebuildsTheMirrorWithTheOwnMenuAtItsEnd) {
    fake.switchTo(notes);
    EXPECT_THAT(rootTitles(), ElementsAre("Note", "-", "Tarragon"));
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5));
    fake.switchTo(mail);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, IsHeardOfFromItsOwnNotifierAlone) {
    fake.activate(notes);
    const int anotherSender = 0;
    for (const void* sender : {static_cast<const void*>(&anotherSender), static_cast<const void*>(nullptr)}) {
        fake.notificationCenter.postNotification({.name = "ZDAppChanged", .object = sender, .userInformation = {}});
        EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
        EXPECT_THAT(pausesSinceLaunch(), IsEmpty());
    }
    fake.workspace.fireFrontSwitched();
    EXPECT_THAT(rootTitles(), ElementsAre("Note", "-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, TellsTheLogWhatItReadAndWhatItWaitedFor) {
    const RecordingLog log(LogCategory::Front);
    fake.switchTo(notes);
    fake.switchTo(fake.addApplication("Slow"));
    EXPECT_THAT(log.lines(),
        ElementsAre("front: waiting 500 ms for the menu bar", "front: switch: 'Notes' is in front, menus read: 1",
            "front: waiting 500 ms for the menu bar", "front: waiting 2000 ms for the menu bar",
            "front: switch: 'Slow' is in front, menus read: 0"));
}

TEST_F(ApplicationSwitchTest, TellsTheLogWhyNothingIsRebuilt) {
    const RecordingLog log(LogCategory::Front);
    fake.switchTo(fake.addApplication("Tarragon"));
    EXPECT_THAT(log.lines(), ElementsAre("front: switch: nothing is rebuilt, a window of Tarragon is in front"));
}

TEST_F(ApplicationSwitchTest, DoesNotWaitWhenThePanelIsNotHorizontal) {
    set(preference::Horizontal, false);
    fake.switchTo(notes);
    EXPECT_THAT(pausesSinceLaunch(), IsEmpty());
    EXPECT_THAT(rootTitles(), ElementsAre("Note", "-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, LeavesTheMirrorInPlaceWhenAnOwnWindowComesToTheFront) {
    const FakeApplication ourselves = fake.addApplication("Tarragon");
    ourselves.menu("Ours").item("Item");
    fake.switchTo(ourselves);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    EXPECT_THAT(pausesSinceLaunch(), IsEmpty());
}

TEST_F(ApplicationSwitchTest, LeavesTheMirrorInPlaceWhenAnOwnWindowComesToTheFrontMeanwhile) {
    const FakeApplication ourselves = fake.addApplication("Tarragon");
    ourselves.menu("Ours").item("Item");
    fake.runLoop.setPauseHook([&](double) { fake.activate(ourselves); });
    fake.switchTo(notes);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5));
}

TEST_F(ApplicationSwitchTest, MirrorsNoOwnWindowThatComesToTheFrontDuringTheLongWait) {
    const FakeApplication ourselves = fake.addApplication("Tarragon");
    ourselves.menu("Ours").item("Item");
    fake.runLoop.setPauseHook([&](double seconds) {
        if (seconds == 2.0)
            fake.activate(ourselves);
    });
    fake.switchTo(fake.addApplication("Slow"));
    EXPECT_EQ(reader().currentAppName(), "Slow");
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, WaitsTwoSecondsAndReadsOnceMoreWhenTheMenuBarIsEmpty) {
    const FakeApplication slow = fake.addApplication("Slow");
    fake.switchTo(slow);
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5, 2.0));
    EXPECT_EQ(menuBarReads(slow), 0U); // not listed, so never asked for
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, FollowsTwoFurtherReadsForFirefox) {
    EXPECT_EQ(readsDuringSwitchTo(fake.addApplication("Firefox")), 4U);
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5, 2.0));
}

TEST_F(ApplicationSwitchTest, ReadsAnEmptyMenuBarOfAnyOtherApplicationTwice) {
    for (const char* name : {"Slow", "Camino", "Thunderbird", "firefox"})
        EXPECT_EQ(readsDuringSwitchTo(fake.addApplication(name)), 2U) << name;
}

TEST_F(ApplicationSwitchTest, ReadsTheMenusAfterTheWaitForThem) {
    fake.runLoop.setPauseHook([&](double) { notes.menu("Late").item("Item"); });
    fake.switchTo(notes);
    EXPECT_THAT(rootTitles(), ElementsAre("Note", "Late", "-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, MirrorsAMenuBarThatIsPublishedDuringTheLongWait) {
    const FakeApplication slow = fake.addApplication("Slow");
    fake.runLoop.setPauseHook([&](double seconds) {
        if (seconds == 2.0)
            slow.menu("File").item("New");
    });
    fake.switchTo(slow);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, ReadsFirefoxOnceWhenItsMenusAreThere) {
    const FakeApplication firefox = fake.addApplication("Firefox");
    firefox.menu("File").item("New");
    fake.accessibility.clearCalls();
    fake.switchTo(firefox);
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5));
    EXPECT_EQ(menuBarReads(firefox), 1U);
}

TEST_F(ApplicationSwitchTest, AppendsNoOwnMenuWhenItsSettingIsOff) {
    set(preference::ShowTarragonMenu, false);
    fake.switchTo(notes);
    EXPECT_THAT(rootTitles(), ElementsAre("Note"));
}

TEST_F(ApplicationSwitchTest, ShowsTheApplicationsOwnMenuInBold) {
    notes.menu("Notes").item("About");
    fake.switchTo(notes);
    const auto item = reader().menu()->itemWithTitle("Notes");
    ASSERT_NE(item, nullptr);
    ASSERT_TRUE(item->attributedTitle());
    EXPECT_EQ(*item->attributedTitle(), (AttributedTitle{"Notes", {12, true}, 0}));
    EXPECT_FALSE(reader().menu()->itemWithTitle("Note")->attributedTitle());
}

TEST_F(ApplicationSwitchTest, KnowsTheOneApplicationWhoseMenuHasAShorterName) {
    const FakeApplication browser = fake.addApplication("Google Chrome");
    browser.menu("Chrome").item("About");
    browser.menu("Google Chrome").item("Decoy");
    fake.switchTo(browser);
    EXPECT_TRUE(reader().menu()->itemWithTitle("Chrome")->attributedTitle());
    EXPECT_FALSE(reader().menu()->itemWithTitle("Google Chrome")->attributedTitle());
}

TEST_F(ApplicationSwitchTest, TakesANewFontSizeWithTheNextSwitch) {
    set(preference::FontSizeSmall, std::int64_t(18));
    fake.switchTo(notes);
    EXPECT_EQ(reader().menu()->font(), (MenuFont{18, false}));
}

class NobodyInFrontTest : public AppTest {
protected:
    NobodyInFrontTest() { launch(); }

    void leaveTheDesktopEmpty() {
        fake.deactivate();
        fake.workspace.fireFrontSwitched();
    }
};

TEST_F(NobodyInFrontTest, EmptiesTheMirrorDownToTheOwnMenu) {
    const RecordingLog log(LogCategory::Front);
    leaveTheDesktopEmpty();
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
    EXPECT_EQ(reader().currentAppName(), std::nullopt);
    EXPECT_THAT(log.lines(), testing::Contains("front: switch: no application is in front, menus read: 0"));
}

TEST_F(NobodyInFrontTest, EmptiesTheMirrorAltogetherWhenTheOwnMenuIsOff) {
    set(preference::ShowTarragonMenu, false);
    leaveTheDesktopEmpty();
    EXPECT_THAT(rootTitles(), IsEmpty());
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
}

TEST_F(NobodyInFrontTest, IsNoReasonToWaitForALateMenuBar) {
    leaveTheDesktopEmpty();
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5));
    set(preference::Horizontal, false);
    leaveTheDesktopEmpty();
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5));
}

TEST_F(NobodyInFrontTest, IsOverWhenAnApplicationComesDuringTheFirstPause) {
    const FakeApplication slow = fake.addApplication("Slow");
    fake.runLoop.setPauseHook([&](double seconds) {
        fake.activate(slow);
        if (seconds == 2.0)
            slow.menu("File").item("New");
    });
    leaveTheDesktopEmpty();
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5, 2.0));
    EXPECT_THAT(rootTitles(), ElementsAre("File", "-", "Tarragon"));
}

TEST_F(NobodyInFrontTest, LeavesTheHotKeyTheOwnMenuAlone) {
    leaveTheDesktopEmpty();
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    ASSERT_EQ(fake.menuPresenter.popUps().size(), 1U);
    EXPECT_TRUE(fake.menuPresenter.popUps()[0].shown);
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
}

TEST_F(NobodyInFrontTest, ShowsNothingStaleEvenBeforeTheWordOfIt) {
    fake.deactivate();
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
}

TEST_F(NobodyInFrontTest, IsForgottenWhenTheSameApplicationIsBackWithoutAnyWordOfIt) {
    fake.deactivate();
    controller().popUpMenuAtMouseLocation();
    fake.activate(mail);
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
}

TEST_F(NobodyInFrontTest, LastsWhileAWindowOfOurOwnIsInFront) {
    const FakeApplication own = fake.addApplication("Tarragon");
    own.menu("Own");
    leaveTheDesktopEmpty();
    fake.switchTo(own);
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
}

TEST_F(NobodyInFrontTest, EndsWithTheNextApplication) {
    leaveTheDesktopEmpty();
    fake.switchTo(mail);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
}

} // namespace
} // namespace tarragon
