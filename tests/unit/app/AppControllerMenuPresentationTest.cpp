#include "AppFixture.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PopUpTest : public AppTest { };

TEST_F(PopUpTest, OpensTheMirrorAtThePointer) {
    launch();
    fake.displays.setMouseLocationNS({300, 400});
    controller().popUpMenuAtMouseLocation();
    ASSERT_EQ(fake.menuPresenter.popUps().size(), 1U);
    EXPECT_EQ(fake.menuPresenter.popUps()[0].menu, reader().menu());
    EXPECT_EQ(fake.menuPresenter.popUps()[0].locationNS, (Point{300, 400}));
    EXPECT_TRUE(fake.menuPresenter.popUps()[0].shown);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
}

TEST_F(PopUpTest, ShowsTheOwnMenuAloneForAnApplicationWithoutMenus) {
    launch();
    fake.switchTo(fake.addApplication("Terminal"));
    // However often it opens, it holds the own menu once.
    for (int time = 0; time < 3; ++time) {
        controller().popUpMenuAtMouseLocation();
        ASSERT_FALSE(fake.menuPresenter.popUps().empty());
        EXPECT_TRUE(fake.menuPresenter.popUps().back().shown);
        EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
    }
    Menu* own = fake.menuPresenter.openSubmenu(*reader().menu(), "Tarragon");
    ASSERT_NE(own, nullptr);
    EXPECT_TRUE(fake.menuPresenter.choose(*own->itemWithTitle("Quit")));
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

TEST_F(PopUpTest, HoldsTheOwnMenuOnceAfterEverySwitchBackAndForth) {
    launch();
    const FakeApplication terminal = fake.addApplication("Terminal");
    for (int time = 0; time < 2; ++time) {
        fake.switchTo(terminal);
        controller().popUpMenuAtMouseLocation();
        EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
        fake.switchTo(mail);
        controller().popUpMenuAtMouseLocation();
        controller().popUpMenuAtMouseLocation();
        EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit", "-", "Tarragon"));
    }
}

TEST_F(PopUpTest, ShowsNothingForAnApplicationWithoutMenusWhenTheOwnMenuIsOff) {
    set(preference::ShowTarragonMenu, false);
    launch();
    fake.switchTo(fake.addApplication("Terminal"));
    const RecordingLog log(LogCategory::Menus);
    controller().popUpMenuAtMouseLocation();
    ASSERT_EQ(fake.menuPresenter.popUps().size(), 1U);
    EXPECT_FALSE(fake.menuPresenter.popUps()[0].shown);
    EXPECT_THAT(fake.menuPresenter.openMenus(), IsEmpty());
    EXPECT_THAT(
        log.lines(), ElementsAre("menus: pop-up: nothing to show for 'Terminal', and the own menu is switched off"));
}

TEST_F(PopUpTest, TellsTheLogWhatItShowsOrWhyItCannot) {
    const RecordingLog log(LogCategory::Menus);
    fake.deactivate();
    launch();
    controller().popUpMenuAtMouseLocation();
    fake.switchTo(mail);
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(
        log.lines(), ElementsAre("menus: pop-up: there is no menu reader", "menus: pop-up: 4 items for 'Mail'"));
}

TEST_F(PopUpTest, BuildsTheReaderFirstWhenThereIsNone) {
    fake.deactivate();
    launch();
    fake.activate(mail);
    controller().popUpMenuAtMouseLocation();
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(PopUpTest, ReadsTheMenusOfLatePublishersFirst) {
    launch();
    for (const char* name : {"Firefox", "Camino"}) {
        const FakeApplication browser = fake.addApplication(name);
        browser.menu("File").item("New");
        fake.switchTo(browser);
        browser.menu("History").item("Back");
        controller().popUpMenuAtMouseLocation();
        EXPECT_THAT(rootTitles(), ElementsAre("File", "History", "-", "Tarragon")) << name;
    }
}

TEST_F(PopUpTest, ReadsNothingAnewForOtherApplications) {
    launch();
    // Names count in full and with case.
    for (const char* name : {"Notes", "Thunderbird", "Photoshop", "firefox", "Firefox ESR"}) {
        const FakeApplication other = fake.addApplication(name);
        other.menu("File").item("New");
        fake.switchTo(other);
        other.menu("Late").item("Item");
        controller().popUpMenuAtMouseLocation();
        EXPECT_THAT(rootTitles(), ElementsAre("File", "-", "Tarragon")) << name;
    }
}

TEST_F(PopUpTest, PressesTheRealItemThatIsChosen) {
    launch();
    controller().popUpMenuAtMouseLocation();
    Menu* edit = fake.menuPresenter.openSubmenu(*reader().menu(), "Edit");
    ASSERT_NE(edit, nullptr);
    const auto paste = edit->itemWithTitle("Paste");
    ASSERT_NE(paste, nullptr);
    EXPECT_TRUE(fake.menuPresenter.choose(*paste));
    const auto performed = fake.accessibility.performedActions();
    ASSERT_EQ(performed.size(), 1U);
    EXPECT_EQ(fake.accessibility.label(performed[0].first), "Paste");
    EXPECT_EQ(performed[0].second, "AXPress");
}

} // namespace
} // namespace tarragon
