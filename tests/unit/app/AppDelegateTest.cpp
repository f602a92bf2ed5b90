#include "AppFixture.h"

#include "app/TarragonMenu.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AppDelegateTest : public AppTest { };

TEST_F(AppDelegateTest, RegistersTheDefaultsBeforeAnythingReadsASetting) {
    EXPECT_EQ(fake.defaults.registeredDefaults().size(), 33U);
    EXPECT_EQ(delegate.appController(), nullptr);
}

TEST_F(AppDelegateTest, CreatesOneControllerHoweverOftenItIsLaunched) {
    launch();
    const AppController* first = delegate.appController();
    launch();
    EXPECT_EQ(delegate.appController(), first);
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
}

TEST_F(AppDelegateTest, ShowsThePreferencesWhenItIsStartedAgainAndKeepsItsController) {
    launch();
    const AppController* first = delegate.appController();
    EXPECT_FALSE(delegate.applicationShouldHandleReopen());
    EXPECT_TRUE(preferences.window.isVisible);
    EXPECT_EQ(preferences.window.pane, PreferencePane::General);
    EXPECT_EQ(delegate.appController(), first);
}

TEST_F(AppDelegateTest, LoadsThePreferencesOnFirstUseAndKeepsThem) {
    launch();
    EXPECT_EQ(preferences.timesLoaded, 0);
    delegate.showPreferencePanel();
    preferences.window.controller->fadeOutWindow();
    delegate.showPreferencePanelAction();
    delegate.showPreferencePanelWithHelpAsInitial();
    EXPECT_EQ(preferences.timesLoaded, 1);
    EXPECT_TRUE(preferences.window.isVisible);
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    EXPECT_EQ(preferences.window.selectedItem, HelpItemIndex);
}

TEST_F(AppDelegateTest, AsksForAccessWhenTheInterfaceIsNeitherEnabledNorTrusted) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    launch();
    EXPECT_EQ(alerts(), 1);
    EXPECT_TRUE(preferences.window.isVisible);
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.runLoop.pauses(), IsEmpty());
}

TEST_F(AppDelegateTest, NoLongerSaysThatAccessIsMissingOnceTheMenusCanBeRead) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    launch();
    EXPECT_EQ(preferences.window.borderNotice, BorderNotice::AccessIsMissing);
    fake.accessibility.setEnabled(true);
    fake.accessibility.setTrusted(true);
    controller().accessibilityCreation();
    ASSERT_NE(controller().reader(), nullptr);
    EXPECT_EQ(preferences.window.borderNotice, BorderNotice::None);
}

TEST_F(AppDelegateTest, AsksNothingWhenTheInterfaceIsEnabledOrTrusted) {
    fake.accessibility.setEnabled(false);
    delegate.accessibilityCheck();
    fake.accessibility.setEnabled(true);
    fake.accessibility.setTrusted(false);
    delegate.accessibilityCheck();
    EXPECT_EQ(preferences.timesLoaded, 0);
}

class AccessibilityAlertTest : public AppTest {
protected:
    AccessibilityAlertTest() {
        fake.accessibility.setEnabled(false);
        fake.accessibility.setTrusted(false);
        launch();
    }
};

TEST_F(AccessibilityAlertTest, EndsTheProgramWhenTheUserQuits) {
    preferences.window.answerAlert(AccessibilityAlertAnswer::Quit);
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
    EXPECT_THAT(fake.accessibility.callsOf(FakeCall::Operation::OpenSettings), IsEmpty());
}

TEST_F(AccessibilityAlertTest, OpensTheSystemSettingsAndEndsTheProgram) {
    fake.accessibility.setSettings(true, true);
    preferences.window.answerAlert(AccessibilityAlertAnswer::OpenSystemPreferences);
    EXPECT_EQ(fake.accessibility.callsOf(FakeCall::Operation::OpenSettings).size(), 1U);
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

TEST_F(AccessibilityAlertTest, KeepsRunningOnAnyOtherAnswer) {
    preferences.window.answerAlert(AccessibilityAlertAnswer::None);
    EXPECT_EQ(fake.runLoop.exitStatus(), std::nullopt);
}

TEST_F(AppDelegateTest, StartsAnewWithTheSettingsWritten) {
    launch();
    delegate.showPreferencePanel();
    preferences.window.controller->applyChanges();
    EXPECT_EQ(fake.defaults.synchronizeCount(), 1);
    EXPECT_THAT(fake.process.relaunches(), ElementsAre("/opt/Tarragon"));
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

TEST_F(AppDelegateTest, OpensThePageWithTheFilm) {
    delegate.showPreferencePanel();
    preferences.window.controller->openScreencastWebpage();
    EXPECT_THAT(fake.workspace.openedURLs(), ElementsAre("https://example.org/film"));
    fake.workspace.setOpensURLs(false);
    delegate.openScreencastWebpage();
    EXPECT_THAT(
        panels.shown, ElementsAre("failure: No program could be found to open the page: https://example.org/film"));
}

class RefusedHotKeyTest : public AppTest {
protected:
    void chooseCombination(std::int64_t keyCode) {
        set(preference::TriggerCharacterUInt, keyCode);
        set(preference::NewTrigger, std::string("another"));
    }
    std::vector<UserNotification> notifications() const { return fake.userNotifications.shown(); }
};

TEST_F(RefusedHotKeyTest, IsToldWithAWayOut) {
    fake.hotKeys.setRefuses(true);
    launch();
    ASSERT_EQ(notifications().size(), 1U);
    EXPECT_THAT(notifications()[0].title, testing::HasSubstr("does not open the menus"));
    EXPECT_NE(notifications()[0].text, "");
    EXPECT_NE(notifications()[0].actionTitle, "");
    notifications()[0].action();
    EXPECT_TRUE(preferences.window.isVisible);
    EXPECT_EQ(preferences.window.pane, PreferencePane::HotKey);
    EXPECT_TRUE(preferences.window.isRecording);
}

TEST_F(RefusedHotKeyTest, IsToldOnceForEachCombination) {
    fake.hotKeys.setRefuses(true);
    launch();
    set(preference::NewTrigger, std::string("again"));
    EXPECT_EQ(notifications().size(), 1U);
    chooseCombination(7);
    EXPECT_EQ(notifications().size(), 2U);
    chooseCombination(49);
    EXPECT_EQ(notifications().size(), 2U);
    set(preference::TriggerModifiers, std::int64_t{modifier::Command});
    set(preference::NewTrigger, std::string("other flags"));
    EXPECT_EQ(notifications().size(), 3U);
}

TEST_F(RefusedHotKeyTest, IsNotToldWhileTheHotKeyWorksOrIsSwitchedOffOrEmpty) {
    launch();
    EXPECT_THAT(notifications(), IsEmpty());
    fake.hotKeys.setRefuses(true);
    chooseCombination(-1);
    EXPECT_THAT(notifications(), IsEmpty());
    set(preference::EnableHotkey, false);
    chooseCombination(7);
    EXPECT_THAT(notifications(), IsEmpty());
}

TEST_F(RefusedHotKeyTest, IsShownInThePreferencesForAsLongAsItIsRefused) {
    launch();
    delegate.showPreferencePanel();
    EXPECT_FALSE(preferences.window.refusal);
    fake.hotKeys.setRefuses(true);
    chooseCombination(7);
    EXPECT_TRUE(preferences.window.refusal);
    set(preference::EnableHotkey, false);
    EXPECT_FALSE(preferences.window.refusal);
    fake.hotKeys.setRefuses(false);
    set(preference::EnableHotkey, true);
    EXPECT_FALSE(preferences.window.refusal);
}

TEST_F(RefusedHotKeyTest, IsToldNowhereOnADesktopWithoutNotifications) {
    FakePlatform desktop;
    desktop.hotKeys.setRefuses(true);
    Platform without = desktop.platform();
    without.userNotifications = nullptr;
    AppDelegate other(
        without, {desktop.menuPresenter, panelToolkit, panels, preferences}, updateChecker, {}, standardError);
    HotKeyReference reference = 0;
    EXPECT_FALSE(desktop.hotKeys.registerHotKey(49, 0, {}, reference));
    other.hotKeyRegistrationDidChange();
    EXPECT_THAT(desktop.userNotifications.shown(), IsEmpty());
}

TEST_F(RefusedHotKeyTest, SaysInTheLogThatNoNotificationIsShown) {
    fake.hotKeys.setRefuses(true);
    fake.userNotifications.setAvailable(false);
    const RecordingLog log(LogCategory::Triggers);
    launch();
    EXPECT_THAT(log.lines(), testing::Contains(testing::HasSubstr("shows no notification")));
}

TEST_F(AppDelegateTest, DropsTheReaderAndOpenMenusWhenItEnds) {
    launch();
    controller().popUpMenuAtMouseLocation();
    ASSERT_FALSE(fake.menuPresenter.openMenus().empty());
    EXPECT_TRUE(delegate.applicationShouldTerminate());
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
}

class FirstLaunchTest : public AppTest {
protected:
    void takeAccessAway() {
        fake.accessibility.setEnabled(false);
        fake.accessibility.setTrusted(false);
    }
    void launchWhole() {
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
    }
    int writesOfFirstRun() const {
        const auto& keys = fake.defaults.changedKeys();
        return static_cast<int>(std::count(keys.begin(), keys.end(), preference::FirstRun));
    }
};

TEST_F(FirstLaunchTest, OpensTheHelpAndIsRemembered) {
    launchWhole();
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    EXPECT_TRUE(preferences.window.isVisible);
    EXPECT_EQ(fake.defaults.storedValue("FirstRun"), DefaultsValue(true));
    EXPECT_EQ(writesOfFirstRun(), 1);
}

TEST_F(FirstLaunchTest, IsNoneWhenTheProgramWasStartedBefore) {
    set(preference::FirstRun, true);
    launchWhole();
    EXPECT_EQ(preferences.timesLoaded, 0);
    EXPECT_EQ(writesOfFirstRun(), 1);
}

TEST_F(FirstLaunchTest, IsReadAsABoolean) {
    const std::pair<DefaultsValue, bool> rows[] = {
        {false, false},
        {std::int64_t{0}, false},
        {std::int64_t{1}, true},
        {0.0, false},
        {2.0, true},
        {std::string("YES"), true},
        {std::string("NO"), false},
        {std::string(), false},
        {Data{1}, false},
    };
    for (const auto& [stored, wasLaunched] : rows) {
        set(preference::FirstRun, stored);
        preferences.window.told.clear();
        delegate.applicationDidFinishLaunching();
        EXPECT_EQ(preferences.window.told.empty(), wasLaunched) << "value " << stored.index();
        EXPECT_EQ(fake.defaults.storedValue("FirstRun"), wasLaunched ? stored : DefaultsValue(true));
    }
}

TEST_F(FirstLaunchTest, RepeatsUntilAccessIsGranted) {
    takeAccessAway();
    for (int launches = 1; launches <= 2; ++launches) {
        delegate.applicationDidFinishLaunching();
        // By the preferences, and by their help.
        EXPECT_EQ(alerts(), 2 * launches);
        EXPECT_EQ(fake.defaults.storedValue("FirstRun"), DefaultsValue(false));
        // Written before access was looked at, and taken back.
        EXPECT_EQ(writesOfFirstRun(), 2 * launches);
    }
    fake.accessibility.setEnabled(true);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(alerts(), 4);
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    EXPECT_EQ(fake.defaults.storedValue("FirstRun"), DefaultsValue(true));
}

TEST_F(FirstLaunchTest, CountsWithEitherKindOfAccess) {
    fake.accessibility.setEnabled(false);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(fake.defaults.storedValue("FirstRun"), DefaultsValue(true));
    set(preference::FirstRun, false);
    fake.accessibility.setEnabled(true);
    fake.accessibility.setTrusted(false);
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(fake.defaults.storedValue("FirstRun"), DefaultsValue(true));
}

TEST_F(FirstLaunchTest, TakesTheMarkBackBeforeItAsksForAccess) {
    takeAccessAway();
    std::optional<DefaultsValue> whenAsked;
    preferences.window.whenAlertIsShown = [&] { whenAsked = fake.defaults.storedValue("FirstRun"); };
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(whenAsked, DefaultsValue(false));
}

TEST_F(FirstLaunchTest, ComesAfterTheControllerHasStarted) {
    fake.runLoop.setPauseHook([this](double) {
        EXPECT_EQ(preferences.timesLoaded, 0);
        EXPECT_EQ(fake.defaults.storedValue("FirstRun"), std::nullopt);
    });
    launchWhole();
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
}

TEST_F(FirstLaunchTest, LeavesNoMarkWithoutAccess) {
    takeAccessAway();
    launchWhole();
    EXPECT_EQ(controller().reader(), nullptr);
    // At the start, and twice by the help.
    EXPECT_EQ(alerts(), 3);
    EXPECT_EQ(preferences.timesLoaded, 1);
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
    EXPECT_EQ(fake.defaults.storedValue("FirstRun"), DefaultsValue(false));
}

TEST_F(FirstLaunchTest, SaysInTheLogThatItCannotBeStored) {
    fake.defaults.setWritable(false);
    const RecordingLog log;
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    EXPECT_THAT(log.lines(), ElementsAre("settings: that this was the first launch cannot be stored"));
}

TEST_F(AppDelegateTest, HasNoRegisteredValueForTheFirstLaunch) {
    EXPECT_EQ(fake.defaults.value(preference::FirstRun), std::nullopt);
}

TEST_F(AppDelegateTest, DoesNothingMoreOnASecondStartBeforeTheFirstHasComeUp) {
    EXPECT_FALSE(delegate.applicationShouldHandleReopen());
    EXPECT_EQ(delegate.appController(), nullptr);
}

TEST_F(AppDelegateTest, KnowsHowMuchMemoryTheProgramOccupies) {
    fake.process.setResidentSize(180'000'001);
    EXPECT_EQ(delegate.memoryUsed(), 180'000'001U);
}

class RestartTest : public AppTest { };

TEST_F(RestartTest, StartsTheProgramAnewOnceItHasEnded) {
    launch();
    delegate.restartAppUsingSUUpdater();
    EXPECT_THAT(fake.process.relaunches(), ElementsAre("/opt/Tarragon"));
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
    EXPECT_EQ(controller().reader(), nullptr);
}

TEST_F(RestartTest, EndsAlsoWhenTheToolCannotBeStarted) {
    fake.process.setRefusesRelaunch(true);
    const RecordingLog log;
    delegate.restartAppUsingSUUpdater();
    EXPECT_EQ(fake.process.relaunches().size(), 1U);
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
    EXPECT_THAT(log.lines(), ElementsAre("settings error: the program ends and cannot be started anew"));
}

TEST_F(RestartTest, StartsOneCopyHoweverOftenItIsAskedFor) {
    delegate.restartAppUsingSUUpdater();
    delegate.restartAppUsingSUUpdater();
    EXPECT_EQ(fake.process.relaunches().size(), 1U);
}

TEST_F(RestartTest, EndsOnADesktopThatTellsNothingOfProcesses) {
    FakePlatform desktop;
    Platform without = desktop.platform();
    without.process = nullptr;
    AppDelegate other(
        without, {desktop.menuPresenter, panelToolkit, panels, preferences}, updateChecker, {}, standardError);
    EXPECT_EQ(other.memoryUsed(), 0U);
    other.restartAppUsingSUUpdater();
    EXPECT_EQ(desktop.runLoop.exitStatus(), 0);
}

TEST_F(AppDelegateTest, EndsBeforeItEverStarted) {
    delegate.terminate();
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

class CheckForUpdatesTest : public AppTest {
protected:
    static constexpr const char* Feed = "https://example.org/releases.xml";
};

TEST_F(CheckForUpdatesTest, SaysSoWhenNoAddressIsKnown) {
    delegate.checkForUpdates();
    EXPECT_THAT(panels.updateOutcomes, ElementsAre(UpdateFeedMissing{}));
    EXPECT_THAT(updateChecker.addresses(), IsEmpty());
}

TEST_F(CheckForUpdatesTest, AsksWhereTheProgramWasBuiltToAsk) {
    updateChecker.setBuiltInFeed(Feed);
    delegate.checkForUpdates();
    EXPECT_THAT(updateChecker.addresses(), ElementsAre(Feed));
    EXPECT_THAT(panels.updateOutcomes, ElementsAre(UpdateUnderWay{}));
    updateChecker.answer(UpToDate{});
    EXPECT_THAT(panels.updateOutcomes, ElementsAre(UpdateUnderWay{}, UpToDate{}));
}

TEST_F(CheckForUpdatesTest, AsksWhereTheUserWantsItTo) {
    updateChecker.setBuiltInFeed("https://example.org/built-in.xml");
    set(preference::UpdateFeed, std::string(Feed));
    delegate.checkForUpdates();
    EXPECT_THAT(updateChecker.addresses(), ElementsAre(Feed));
}

TEST_F(CheckForUpdatesTest, AsksNowhereWhenTheUserWantsThat) {
    updateChecker.setBuiltInFeed(Feed);
    set(preference::UpdateFeed, std::string());
    delegate.checkForUpdates();
    EXPECT_THAT(panels.updateOutcomes, ElementsAre(UpdateFeedMissing{}));
    EXPECT_THAT(updateChecker.addresses(), IsEmpty());
}

TEST_F(CheckForUpdatesTest, TakesOnlyATextForAnAddress) {
    updateChecker.setBuiltInFeed(Feed);
    set(preference::UpdateFeed, std::int64_t{1});
    delegate.checkForUpdates();
    EXPECT_THAT(updateChecker.addresses(), ElementsAre(Feed));
}

TEST_F(CheckForUpdatesTest, AsksOnceAtATime) {
    updateChecker.setBuiltInFeed(Feed);
    delegate.checkForUpdates();
    delegate.checkForUpdates();
    EXPECT_EQ(updateChecker.addresses().size(), 1U);
    EXPECT_THAT(panels.updateOutcomes, ElementsAre(UpdateUnderWay{}, UpdateUnderWay{}));
    updateChecker.answer(UpToDate{});
    delegate.checkForUpdates();
    EXPECT_EQ(updateChecker.addresses().size(), 2U);
}

TEST_F(CheckForUpdatesTest, OpensThePageOfANewerVersion) {
    updateChecker.setBuiltInFeed(Feed);
    delegate.checkForUpdates();
    updateChecker.answer(NewerVersion{"2.0", "", "https://example.org/2.0"});
    panels.openLink();
    EXPECT_THAT(fake.workspace.openedURLs(), ElementsAre("https://example.org/2.0"));
    fake.workspace.setOpensURLs(false);
    panels.openLink();
    EXPECT_EQ(panels.shown.back(), "failure: No program could be found to open the page: https://example.org/2.0");
}

TEST_F(AppDelegateTest, HasNoRegisteredAddressOfAReleaseList) {
    EXPECT_EQ(fake.defaults.value(preference::UpdateFeed), std::nullopt);
}

struct OwnMenuRow {
    const char* title;
    const char* action;
};

class OwnMenuTest : public AppTest {
protected:
    void choose(const std::string& title) {
        const auto menu = makeTarragonMenu(delegate);
        const auto item = menu->itemWithTitle(title);
        ASSERT_NE(item, nullptr) << title;
        item->target()->performAction(item->action(), *item);
    }
};

TEST_F(OwnMenuTest, HoldsFiveItemsWithoutKeyEquivalents) {
    static constexpr OwnMenuRow rows[] = {
        {"About Tarragon...", "displayAboutPanel"},
        {"Preferences...", "showPreferencePanel"},
        {"Check for Updates", "checkForUpdates"},
        {"Help...", "showPreferencePanelWithHelpAsInitial"},
        {"Quit", "terminate:"},
    };
    const auto menu = makeTarragonMenu(delegate);
    EXPECT_EQ(menu->title(), "Tarragon");
    ASSERT_EQ(menu->numberOfItems(), 5U);
    for (std::ptrdiff_t index = 0; index < 5; ++index) {
        EXPECT_EQ(menu->itemAtIndex(index)->title(), rows[index].title);
        EXPECT_EQ(menu->itemAtIndex(index)->action(), rows[index].action);
        EXPECT_EQ(menu->itemAtIndex(index)->keyEquivalent(), "");
        EXPECT_TRUE(menu->itemAtIndex(index)->isEnabled());
    }
}

TEST_F(OwnMenuTest, ShowsTheHelpAndAsksForAccessWhenItIsMissing) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    choose("Help...");
    EXPECT_EQ(alerts(), 2);
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
}

TEST_F(OwnMenuTest, IsBuiltAfreshOnEveryRequest) {
    launch();
    EXPECT_NE(controller().addTarragonMenuToMenu(), controller().addTarragonMenuToMenu());
}

TEST_F(OwnMenuTest, CarriesEachItemOut) {
    choose("About Tarragon...");
    choose("Check for Updates");
    choose("Help...");
    EXPECT_THAT(panels.shown, ElementsAre("about", "updates"));
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    choose("Preferences...");
    EXPECT_EQ(preferences.window.pane, PreferencePane::General);
    EXPECT_EQ(preferences.timesLoaded, 1);
    choose("Quit");
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

} // namespace
} // namespace tarragon
