#include "AppFixture.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class StatusItemTest : public AppTest {
protected:
    static std::vector<std::string> titlesOf(const std::vector<StatusMenuItem>& menu) {
        std::vector<std::string> titles;
        for (const StatusMenuItem& item : menu)
            titles.push_back(item.title);
        return titles;
    }
    const StatusItemDescription& item() { return fake.statusItems.items().front(); }
};

TEST_F(StatusItemTest, IsThereFromTheStart) {
    launch();
    ASSERT_THAT(fake.statusItems.items(), SizeIs(1));
    EXPECT_EQ(item().imageName, "statusItemIcon");
    EXPECT_EQ(item().alternateImageName, "statusItemIconInverse");
}

TEST_F(StatusItemTest, IsThereBeforeTheMenusAreRead) {
    bool isThere = false;
    fake.runLoop.setPauseHook([&](double) { isThere = !fake.statusItems.items().empty(); });
    launch();
    EXPECT_TRUE(isThere);
}

TEST_F(StatusItemTest, StaysAwayWhenItIsSwitchedOff) {
    set(preference::ShowStatusBarIcon, false);
    launch();
    EXPECT_EQ(fake.statusItems.addedCount(), 0);
    controller().setupStatusItem();
    EXPECT_EQ(fake.statusItems.addedCount(), 0);
}

TEST_F(StatusItemTest, WaitsForTheMenuReader) {
    fake.accessibility.setTrusted(false);
    launch();
    EXPECT_EQ(fake.statusItems.addedCount(), 0);
    fake.accessibility.setTrusted(true);
    controller().popUpMenuAtMouseLocation();
    EXPECT_EQ(fake.statusItems.addedCount(), 1);
}

TEST_F(StatusItemTest, ComesAndGoesWithItsSetting) {
    launch();
    set(preference::ShowStatusBarIcon, false);
    EXPECT_THAT(fake.statusItems.items(), IsEmpty());
    set(preference::ShowStatusBarIcon, true);
    EXPECT_THAT(fake.statusItems.items(), SizeIs(1));
    EXPECT_EQ(fake.statusItems.addedCount(), 2);
}

TEST_F(StatusItemTest, IsMadeOnceHoweverOftenItIsSwitchedOn) {
    launch();
    controller().observeValueForKeyPath(keyPath(preference::ShowStatusBarIcon));
    controller().setupStatusItem();
    EXPECT_EQ(fake.statusItems.addedCount(), 1);
    EXPECT_THAT(fake.statusItems.items(), SizeIs(1));
}

TEST_F(StatusItemTest, IsLeftAloneByOtherSettings) {
    launch();
    controller().removeStatusItem();
    for (const std::string_view key : {preference::ShowTarragonMenu, preference::EnableButton})
        set(key, false);
    EXPECT_THAT(fake.statusItems.items(), IsEmpty());
}

TEST_F(StatusItemTest, CanBeRemovedTwice) {
    launch();
    controller().removeStatusItem();
    controller().removeStatusItem();
    EXPECT_THAT(fake.statusItems.items(), IsEmpty());
    controller().setupStatusItem();
    EXPECT_THAT(fake.statusItems.items(), SizeIs(1));
}

TEST_F(StatusItemTest, HasTheItemsOfTheOwnMenu) {
    launch();
    EXPECT_THAT(titlesOf(item().menu),
        ElementsAre("About Tarragon...", "Preferences...", "Check for Updates", "Help...", "Quit"));
}

TEST_F(StatusItemTest, DoesWhatItsItemsSay) {
    launch();
    const std::vector<StatusMenuItem> menu = item().menu;
    ASSERT_THAT(menu, SizeIs(5));
    panels.shown.clear();
    menu[0].action();
    EXPECT_THAT(panels.shown, ElementsAre("about"));
    menu[1].action();
    EXPECT_EQ(preferences.window.pane, PreferencePane::General);
    menu[2].action();
    menu[3].action();
    EXPECT_THAT(panels.shown, ElementsAre("about", "updates"));
    EXPECT_EQ(preferences.window.pane, PreferencePane::Help);
    EXPECT_EQ(preferences.timesLoaded, 1);
    EXPECT_FALSE(fake.runLoop.exitStatus());
    menu[4].action();
    EXPECT_EQ(fake.runLoop.exitStatus(), 0);
}

TEST_F(StatusItemTest, DoesWithoutAPlaceForIt) {
    platform.statusItems = nullptr;
    AppDelegate another(
        platform, {fake.menuPresenter, panelToolkit, panels, preferences}, updateChecker, {}, standardError);
    const RecordingLog log(LogCategory::Panel);
    another.applicationWillFinishLaunching();
    EXPECT_THAT(log.lines(), Contains(HasSubstr("no status item")));
    another.appController()->removeStatusItem();
}

} // namespace
} // namespace tarragon
