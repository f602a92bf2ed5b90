#include "AppFixture.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StartUpTest : public AppTest { };

TEST_F(StartUpTest, ReadsTheMenusAndThenWaitsASecondForThemToSettle) {
    launch();
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
}

TEST_F(StartUpTest, ReadsTheMenusBeforeItWaits) {
    std::size_t itemsAtPause = 0;
    fake.runLoop.setPauseHook([&](double) { itemsAtPause = reader().menu()->numberOfItems(); });
    launch();
    EXPECT_EQ(itemsAtPause, 2U);
}

TEST_F(StartUpTest, ChecksForAccessAfterItObservesTheSettingsAndBeforeItBuildsTheReader) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    std::set<std::string> observed;
    bool readerWasTried = true;
    preferences.window.whenAlertIsShown = [&] {
        for (const std::string& keyPath : fake.defaults.observedKeyPaths()) {
            if (keyPath.starts_with("values."))
                observed.insert(keyPath);
        }
        readerWasTried = !fake.accessibility.callsOf(FakeCall::Operation::SystemWideElement).empty();
    };
    launch();
    EXPECT_EQ(alerts(), 1);
    EXPECT_EQ(observed.size(), 27U);
    EXPECT_FALSE(readerWasTried);
    EXPECT_EQ(fake.accessibility.callsOf(FakeCall::Operation::SystemWideElement).size(), 1U);
}

TEST_F(StartUpTest, TakesTheSettingsOverBeforeItReadsTheMenus) {
    mail.menu("Apple").item("About");
    launch();
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "\uF8FF", "-", "Tarragon"));
}

TEST_F(StartUpTest, GivesTheReaderItsOwnerAndTheMenuFont) {
    launch();
    EXPECT_EQ(reader().appController(), &controller());
    EXPECT_EQ(reader().menu()->font(), (MenuFont{12, false}));
}

TEST_F(StartUpTest, LeavesTheControllerIdleWithoutWordOfApplicationSwitches) {
    fake.workspace.setEventsAvailable(false);
    launch();
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.hotKeys.requested(), IsEmpty());
    set(preference::NewTrigger, std::string("X"));
    EXPECT_THAT(fake.hotKeys.requested(), IsEmpty());
    fake.switchTo(mail);
    EXPECT_EQ(controller().reader(), nullptr);
}

TEST_F(StartUpTest, BuildsTheReaderLateWhenNoApplicationIsInFrontYet) {
    fake.deactivate();
    launch();
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.runLoop.pauses(), IsEmpty());
    EXPECT_THAT(fake.hotKeys.requested(), IsEmpty());

    fake.switchTo(mail);
    ASSERT_NE(controller().reader(), nullptr);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
}

TEST_F(StartUpTest, HasNothingToDoOnASwitchWhileTheReaderIsStillMissing) {
    fake.deactivate();
    launch();
    fake.workspace.fireFrontSwitched();
    EXPECT_EQ(controller().reader(), nullptr);
    EXPECT_THAT(fake.runLoop.pauses(), IsEmpty());
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(fake.menuPresenter.popUps(), IsEmpty());
}

} // namespace
} // namespace tarragon
