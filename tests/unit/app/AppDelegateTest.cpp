#include "AppFixture.h"

#include "app/TarragonMenu.h"

#include <gmock/gmock.h>

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

TEST_F(AppDelegateTest, ShowsTheSettingsWhenItIsStartedAgainAndKeepsItsController) {
    launch();
    const AppController* first = delegate.appController();
    EXPECT_FALSE(delegate.applicationShouldHandleReopen());
    EXPECT_THAT(fake.workspace.openedURLs(), ElementsAre("file:///settings.plist"));
    EXPECT_EQ(delegate.appController(), first);
}

TEST_F(AppDelegateTest, SaysSoWhenNothingOpensTheSettings) {
    fake.workspace.setOpensURLs(false);
    delegate.showPreferencePanel();
    ASSERT_EQ(panels.shown.size(), 1U);
    EXPECT_THAT(panels.shown.front(), testing::HasSubstr("file:///settings.plist"));
}

TEST_F(AppDelegateTest, AsksForAccessWhenTheInterfaceIsNeitherEnabledNorTrusted) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    launch();
    EXPECT_THAT(panels.shown, ElementsAre("alert"));
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.runLoop.pauses(), IsEmpty());
}

TEST_F(AppDelegateTest, AsksNothingWhenTheInterfaceIsEnabledOrTrusted) {
    fake.accessibility.setEnabled(false);
    delegate.accessibilityCheck();
    fake.accessibility.setEnabled(true);
    fake.accessibility.setTrusted(false);
    delegate.accessibilityCheck();
    EXPECT_THAT(panels.shown, IsEmpty());
    EXPECT_THAT(fake.workspace.openedURLs(), IsEmpty());
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
    panels.answerAlert(AccessibilityAlertAnswer::Quit);
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
    EXPECT_THAT(fake.accessibility.callsOf(FakeCall::Operation::OpenSettings), IsEmpty());
}

TEST_F(AccessibilityAlertTest, OpensTheSystemSettingsAndEndsTheProgram) {
    fake.accessibility.setSettings(true, true);
    panels.answerAlert(AccessibilityAlertAnswer::OpenSystemPreferences);
    EXPECT_EQ(fake.accessibility.callsOf(FakeCall::Operation::OpenSettings).size(), 1U);
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

TEST_F(AccessibilityAlertTest, KeepsRunningWhereTheDesktopHasNoSuchSettings) {
    fake.accessibility.setSettings(false, false);
    panels.answerAlert(AccessibilityAlertAnswer::OpenSystemPreferences);
    EXPECT_EQ(fake.runLoop.exitStatus(), std::nullopt);
}

TEST_F(AccessibilityAlertTest, DoesNothingOnAnyOtherAnswer) {
    panels.answerAlert(AccessibilityAlertAnswer::None);
    EXPECT_EQ(fake.runLoop.exitStatus(), std::nullopt);
    EXPECT_THAT(fake.accessibility.callsOf(FakeCall::Operation::OpenSettings), IsEmpty());
}

TEST_F(AppDelegateTest, DropsTheReaderAndOpenMenusWhenItEnds) {
    launch();
    controller().popUpMenuAtMouseLocation();
    ASSERT_FALSE(fake.menuPresenter.openMenus().empty());
    EXPECT_TRUE(delegate.applicationShouldTerminate());
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
}

TEST_F(AppDelegateTest, EndsBeforeItEverStarted) {
    delegate.terminate();
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
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

TEST_F(OwnMenuTest, AsksForAccessInPlaceOfHelpWhenItIsMissing) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    choose("Help...");
    EXPECT_THAT(panels.shown, ElementsAre("alert"));
}

TEST_F(OwnMenuTest, IsBuiltAfreshOnEveryRequest) {
    launch();
    EXPECT_NE(controller().addTarragonMenuToMenu(), controller().addTarragonMenuToMenu());
}

TEST_F(OwnMenuTest, CarriesEachItemOut) {
    choose("About Tarragon...");
    choose("Check for Updates");
    choose("Help...");
    EXPECT_THAT(panels.shown, ElementsAre("about", "updates", "help"));
    choose("Preferences...");
    EXPECT_THAT(fake.workspace.openedURLs(), ElementsAre("file:///settings.plist"));
    choose("Quit");
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

} // namespace
} // namespace tarragon
