// What the preferences tell below their panes, and the question for access.
#include "PreferencesWindowControllerFixture.h"

#include <algorithm>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UnwrittenSettingsTest : public PreferencesWindowControllerTest { };

TEST_F(UnwrittenSettingsTest, AreToldOfForAsLongAsTheyCannotBeWritten) {
    EXPECT_EQ(window().borderNotice, BorderNotice::None);
    defaults.setWritable(false);
    controller().resetButton();
    EXPECT_EQ(window().borderNotice, BorderNotice::SettingsAreUnwritten);
    takeAccessAway();
    controller().displayWindow();
    EXPECT_EQ(window().borderNotice, BorderNotice::SettingsAreUnwritten);
    defaults.setWritable(true);
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessIsMissing);
}

TEST_F(UnwrittenSettingsTest, TakeTheLoginItemWithThemOnceTheyAreWritten) {
    defaults.setWritable(false);
    loginItems.setWritable(false);
    window().launchCheckBoxIsOn = true;
    controller().startAtLogin();
    EXPECT_THAT(loginItems.items(), IsEmpty());
    loginItems.setWritable(true);
    defaults.setWritable(true);
    EXPECT_EQ(loginItems.items().size(), 1U);
    // Once, and never when something else could not be written: the user may have changed the list otherwise.
    window().launchCheckBoxIsOn = false;
    controller().startAtLogin();
    EXPECT_THAT(loginItems.items(), IsEmpty());
    loginItems.add("Tarragon", "/elsewhere");
    defaults.setWritable(false);
    controller().mouseButtonChanged();
    defaults.setWritable(true);
    EXPECT_EQ(loginItems.items().size(), 1U);
}

TEST_F(UnwrittenSettingsTest, AreToldOfByAWindowThatComesLater) {
    defaults.setWritable(false);
    EXPECT_FALSE(defaults.setValue(preference::EnableButton, false));
    window().borderNotice = BorderNotice::None;
    const PreferencesWindowController later(
        {accessibility, defaults, workspace, hotKeys, &keyboard, &loginItems, "/opt/Tarragon", {}}, interface, nullptr);
    EXPECT_EQ(window().borderNotice, BorderNotice::SettingsAreUnwritten);
}

class AccessTest : public PreferencesWindowControllerTest {
protected:
    AccessTest() {
        takeAccessAway();
        controller().displayWindow();
    }
};

TEST_F(AccessTest, EndsTheProgramWhenTheUserQuits) {
    window().answerAlert(AccessibilityAlertAnswer::Quit);
    EXPECT_THAT(delegate.told, ElementsAre("terminate"));
    EXPECT_THAT(accessibility.callsOf(FakeCall::Operation::OpenSettings), IsEmpty());
}

TEST_F(AccessTest, OpensTheSystemSettingsAndThenEndsTheProgram) {
    accessibility.setSettings(true, true);
    window().answerAlert(AccessibilityAlertAnswer::OpenSystemPreferences);
    EXPECT_EQ(accessibility.callsOf(FakeCall::Operation::OpenSettings).size(), 1U);
    EXPECT_THAT(delegate.told, ElementsAre("terminate"));
}

TEST_F(AccessTest, KeepsRunningWhereTheDesktopHasNoSuchSettings) {
    accessibility.setSettings(false, false);
    window().answerAlert(AccessibilityAlertAnswer::OpenSystemPreferences);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(AccessTest, DoesNothingOnAnyOtherAnswer) {
    window().answerAlert(AccessibilityAlertAnswer::None);
    EXPECT_THAT(delegate.told, IsEmpty());
    EXPECT_THAT(accessibility.callsOf(FakeCall::Operation::OpenSettings), IsEmpty());
}

TEST_F(AccessTest, CanBeSwitchedOnFromTheWindowWhichKeepsTheProgramRunning) {
    accessibility.setSettings(true, true);
    controller().switchAccessOn();
    EXPECT_EQ(accessibility.callsOf(FakeCall::Operation::OpenSettings).size(), 1U);
    EXPECT_EQ(window().borderNotice, BorderNotice::None);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(AccessTest, IsSaidToStayMissingWhereItCannotBeSwitchedOn) {
    accessibility.setSettings(false, false);
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessIsMissing);
    controller().switchAccessOn();
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessCannotBeSwitchedOn);
    // It may have become possible.
    controller().displayWindow();
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessIsMissing);
    window().answerAlert(AccessibilityAlertAnswer::OpenSystemPreferences);
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessCannotBeSwitchedOn);
    accessibility.setSettings(true, true);
    controller().switchAccessOn();
    EXPECT_EQ(window().borderNotice, BorderNotice::None);
}

TEST_F(AccessTest, MayBeGivenWhileTheWindowIsOpen) {
    controller().accessDidChange();
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessIsMissing);
    accessibility.setEnabled(true);
    controller().accessDidChange();
    EXPECT_EQ(window().borderNotice, BorderNotice::None);
    EXPECT_EQ(std::count(window().told.begin(), window().told.end(), "alert"), 1);
}

TEST_F(AccessTest, MayBeGivenElsewhereWhereItsSettingsOpen) {
    accessibility.setSettings(true, false);
    controller().switchAccessOn();
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessIsMissing);
}

TEST_F(AccessTest, MayHaveBeenGivenThoughItCannotBeSwitchedOn) {
    accessibility.setSettings(false, false);
    accessibility.setTrusted(true);
    controller().switchAccessOn();
    EXPECT_EQ(window().borderNotice, BorderNotice::None);
}

TEST_F(AccessTest, HasTheResultsOfTheAlertsButtons) {
    EXPECT_EQ(static_cast<int>(AccessibilityAlertAnswer::OpenSystemPreferences), 1000);
    EXPECT_EQ(static_cast<int>(AccessibilityAlertAnswer::Quit), 1001);
}

} // namespace
} // namespace tarragon
