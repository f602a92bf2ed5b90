#include "AppFixture.h"

#include "ignore/IgnoreDictionary.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

// Mail with a window in front, whose bundle identifier is "org.example.Mail".
class IgnoringTest : public AppTest {
protected:
    void launchWithWindow(const FakeWindowOptions& options) {
        mail.window(options);
        launch();
    }
    std::optional<TarragonBlacklist> listed() {
        const auto dictionary = IgnoreDictionary::load(fake.defaults);
        return dictionary ? dictionary->entry("org.example.Mail") : std::nullopt;
    }
    void choose(const std::string& title) {
        const auto item = controller().contextMenu()->itemWithTitle(title);
        ASSERT_NE(item, nullptr) << title;
        item->target()->performAction(item->action(), *item);
    }
};

TEST_F(IgnoringTest, IgnoresNothingOfAFreshStore) {
    launchWithWindow({.title = "Inbox"});
    EXPECT_FALSE(controller().windowIsIgnored());
}

TEST_F(IgnoringTest, IgnoresAFullScreenWindowWithAnEmptyList) {
    launchWithWindow({.title = "Film", .fullScreen = true});
    EXPECT_TRUE(controller().windowIsIgnored());
}

TEST_F(IgnoringTest, IgnoresWindowsOfTheTitleThatWasInFront) {
    launchWithWindow({.title = "Inbox"});
    controller().ignoreTitle();
    EXPECT_TRUE(controller().windowIsIgnored());
    mail.window({.title = "Outbox"});
    EXPECT_FALSE(controller().windowIsIgnored());
    ASSERT_TRUE(listed());
    EXPECT_THAT(listed()->appName(), Optional(std::string("Mail")));
    EXPECT_THAT(listed()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Inbox")));
}

TEST_F(IgnoringTest, IgnoresEveryWindowOfTheApplicationInFrontAndOfNoOther) {
    launchWithWindow({.title = "Inbox"});
    controller().ignoreApp();
    mail.window({.title = "Outbox"});
    EXPECT_TRUE(controller().windowIsIgnored());
    const FakeApplication notes = fake.addApplication("Notes");
    notes.window({.title = "Inbox"});
    fake.switchTo(notes);
    EXPECT_FALSE(controller().windowIsIgnored());
}

TEST_F(IgnoringTest, ListsAnApplicationThatIgnoresNothing) {
    launchWithWindow({.title = "Inbox"});
    controller().ignoreRole();
    EXPECT_TRUE(listed());
    EXPECT_FALSE(controller().windowIsIgnored());
}

TEST_F(IgnoringTest, TakesTheCodeOfAnAction) {
    launchWithWindow({.title = "Inbox"});
    controller().ignoreCurrentWindow(static_cast<IgnoreCode>(2));
    EXPECT_THAT(listed()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Inbox")));
    controller().ignoreCurrentWindow(static_cast<IgnoreCode>(1));
    EXPECT_THAT(listed()->ignoreAllAppWindows(), Optional(false));
    controller().ignoreCurrentWindow(static_cast<IgnoreCode>(0));
    EXPECT_THAT(listed()->ignoreAllAppWindows(), Optional(true));
}

TEST_F(IgnoringTest, IgnoresNothingAnyMoreOnceTheSettingsAreReset) {
    launchWithWindow({.title = "Inbox"});
    controller().ignoreApp();
    ASSERT_TRUE(controller().windowIsIgnored());
    fake.defaults.revertToInitialValues();
    EXPECT_FALSE(controller().windowIsIgnored());
    ASSERT_TRUE(IgnoreDictionary::load(fake.defaults));
    EXPECT_THAT(IgnoreDictionary::load(fake.defaults)->allKeys(), IsEmpty());
}

TEST_F(IgnoringTest, KnowsOnlyTheApplicationWithoutAReader) {
    fake.deactivate();
    launch();
    ASSERT_EQ(controller().reader(), nullptr);
    EXPECT_FALSE(controller().windowIsIgnored());
    fake.workspace.setActiveApplication(mail.description());
    controller().ignoreTitle();
    EXPECT_THAT(listed()->windowsWithTitlesToIgnore(), Optional(IsEmpty()));
    EXPECT_FALSE(controller().windowIsIgnored());
    controller().ignoreApp();
    EXPECT_TRUE(controller().windowIsIgnored());
}

TEST_F(IgnoringTest, OffersToIgnoreTheApplicationInFrontAndItsWindow) {
    launch();
    const auto menu = controller().contextMenu();
    EXPECT_EQ(menu->title(), "Ignore");
    EXPECT_TRUE(menu->autoenablesItems());
    ASSERT_EQ(menu->numberOfItems(), 2U);
    EXPECT_EQ(menu->itemAtIndex(0)->title(), "Ignore all Mail windows");
    EXPECT_EQ(menu->itemAtIndex(0)->action(), "ignoreApp");
    EXPECT_EQ(menu->itemAtIndex(1)->title(), "Ignore all Mail windows with current title");
    EXPECT_EQ(menu->itemAtIndex(1)->action(), "ignoreTitle");
    for (const auto& item : menu->items())
        EXPECT_EQ(item->keyEquivalent(), "");
}

TEST_F(IgnoringTest, OffersNothingWithNobodyInFront) {
    launch();
    fake.deactivate();
    EXPECT_EQ(controller().contextMenu()->title(), "Ignore");
    EXPECT_EQ(controller().contextMenu()->numberOfItems(), 0U);
}

TEST_F(IgnoringTest, BuildsTheMenuAnewForTheApplicationThatIsInFrontThen) {
    launch();
    const auto menu = controller().contextMenu();
    fake.switchTo(fake.addApplication("Notes"));
    EXPECT_NE(controller().contextMenu(), menu);
    EXPECT_EQ(controller().contextMenu()->itemAtIndex(0)->title(), "Ignore all Notes windows");
}

TEST_F(IgnoringTest, DoesWhatIsChosenInTheMenu) {
    launchWithWindow({.title = "Inbox"});
    choose("Ignore all Mail windows with current title");
    ASSERT_TRUE(listed());
    EXPECT_THAT(listed()->windowsWithTitlesToIgnore(), Optional(ElementsAre("Inbox")));
    EXPECT_THAT(listed()->ignoreAllAppWindows(), Optional(false));
    choose("Ignore all Mail windows");
    EXPECT_THAT(listed()->ignoreAllAppWindows(), Optional(true));
}

} // namespace
} // namespace tarragon
