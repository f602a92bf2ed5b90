#include "AppFixture.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t SpaceBar = 49;

class StartUpTest : public AppTest { };

TEST_F(StartUpTest, ReadsTheMenusAndThenWaitsASecondForThemToSettle) {
    launch();
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit"));
    EXPECT_THAT(fake.runLoop.pauses(), ElementsAre(1.0));
}

TEST_F(StartUpTest, ReadsTheMenusBeforeItWaits) {
    std::size_t itemsAtPause = 0;
    fake.runLoop.setPauseHook([&](double) { itemsAtPause = reader().menu()->numberOfItems(); });
    launch();
    EXPECT_EQ(itemsAtPause, 2U);
}

TEST_F(StartUpTest, ObservesTheSettingsBeforeItChecksForAccess) {
    fake.accessibility.setEnabled(false);
    fake.accessibility.setTrusted(false);
    launch();
    set(preference::NewTrigger, std::string("M"));
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
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

class LoadDefaultsTest : public AppTest { };

TEST_F(LoadDefaultsTest, FillsEveryFieldOfAFreshStore) {
    launch();
    const ControllerPreferences& fields = controller().preferences();
    EXPECT_TRUE(fields._enableHotkey);
    EXPECT_TRUE(fields._foldAlternate);
    EXPECT_TRUE(fields._keyEquivalents);
    EXPECT_TRUE(fields._showAppleMenu);
    EXPECT_TRUE(fields._showTarragonMenu);
    EXPECT_TRUE(fields._tarragonAlwaysVisible);
    EXPECT_FALSE(fields._tarragonAlwaysRight);
    EXPECT_TRUE(fields._showOnPrimaryScreen);
    EXPECT_TRUE(fields._enableButton);
    EXPECT_TRUE(fields._horizontal);
    EXPECT_TRUE(fields._smartIgnore);
    EXPECT_EQ(fields._fontSizeSmall, 12);
    EXPECT_EQ(fields._titleFontSizeSmall, 0);
    EXPECT_EQ(fields._buttonStyle, 0);
    EXPECT_TRUE(fields._showApplicationMenu);
    EXPECT_TRUE(fields._screenTopEnabled);
    EXPECT_FALSE(fields._screenTopAutoHide);
    EXPECT_FALSE(fields._screenTopTransparency);
    EXPECT_FALSE(fields._mouseButtonEnabled);
    EXPECT_FALSE(fields._screenTopHalfHotZone);
    EXPECT_FALSE(fields._hideOnPrimaryTopEdge);
}

TEST_F(LoadDefaultsTest, TakesTheUsersValueOfEveryField) {
    set(preference::EnableHotkey, false);
    for (const std::string_view key : {preference::FoldAlternate, preference::ShowKeyEquivalents,
             preference::ShowAppleMenu, preference::ShowTarragonMenu, preference::TarragonAlwaysVisible,
             preference::ShowOnPrimaryScreen, preference::EnableButton, preference::Horizontal,
             preference::ShowApplicationMenu, preference::EnableScreenTop})
        set(key, false);
    for (const std::string_view key :
        {preference::TarragonAlwaysRight, preference::ScreenTopAutoHide, preference::ScreenTopTransparency,
            preference::EnableMouseButton, preference::ScreenTopHalfHotZone, preference::HideOnPrimaryTopEdge})
        set(key, true);
    set(preference::FontSizeSmall, std::int64_t(300));
    set(preference::TitleFontSizeSmall, std::int64_t(200));
    set(preference::ButtonStyle, std::int64_t(4));
    launch();
    const ControllerPreferences& fields = controller().preferences();
    EXPECT_FALSE(fields._enableHotkey);
    EXPECT_FALSE(fields._foldAlternate);
    EXPECT_FALSE(fields._keyEquivalents);
    EXPECT_FALSE(fields._showAppleMenu);
    EXPECT_FALSE(fields._showTarragonMenu);
    EXPECT_FALSE(fields._tarragonAlwaysVisible);
    EXPECT_TRUE(fields._tarragonAlwaysRight);
    EXPECT_FALSE(fields._showOnPrimaryScreen);
    EXPECT_FALSE(fields._enableButton);
    EXPECT_FALSE(fields._horizontal);
    EXPECT_EQ(fields._fontSizeSmall, 44);
    EXPECT_EQ(fields._titleFontSizeSmall, -56);
    EXPECT_EQ(fields._buttonStyle, 5);
    EXPECT_FALSE(fields._showApplicationMenu);
    EXPECT_FALSE(fields._screenTopEnabled);
    EXPECT_TRUE(fields._screenTopAutoHide);
    EXPECT_TRUE(fields._screenTopTransparency);
    EXPECT_TRUE(fields._mouseButtonEnabled);
    EXPECT_TRUE(fields._screenTopHalfHotZone);
    EXPECT_TRUE(fields._hideOnPrimaryTopEdge);
}

TEST_F(LoadDefaultsTest, GivesTheReaderItsOptions) {
    launch();
    EXPECT_TRUE(reader().foldAlternateItems());
    EXPECT_TRUE(reader().keyEquivalents());
    EXPECT_TRUE(reader().showAppleMenu());
    EXPECT_TRUE(reader().showApplicationMenu());
    ASSERT_NE(reader().auxiliaryMenu(), nullptr);
    EXPECT_EQ(reader().auxiliaryMenu()->title(), "Tarragon");
}

TEST_F(LoadDefaultsTest, GivesTheReaderEveryOptionSwitchedOff) {
    for (const std::string_view key : {preference::FoldAlternate, preference::ShowKeyEquivalents,
             preference::ShowAppleMenu, preference::ShowTarragonMenu, preference::ShowApplicationMenu})
        set(key, false);
    launch();
    EXPECT_FALSE(reader().foldAlternateItems());
    EXPECT_FALSE(reader().keyEquivalents());
    EXPECT_FALSE(reader().showAppleMenu());
    EXPECT_FALSE(reader().showApplicationMenu());
    EXPECT_EQ(reader().auxiliaryMenu(), nullptr);
}

TEST_F(LoadDefaultsTest, KeepsSmartIgnoringOnWhateverItsSettingSays) {
    set(preference::EnableSmartIgnore, false);
    launch();
    EXPECT_TRUE(controller().preferences()._smartIgnore);
}

TEST_F(LoadDefaultsTest, TurnsAStoredFontSizeIntoTheMenuFont) {
    set(preference::FontSizeSmall, std::int64_t(15));
    launch();
    EXPECT_EQ(reader().menu()->font(), (MenuFont{15, false}));
}

TEST_F(LoadDefaultsTest, BringsTheLoginItemsInLineWithTheirSetting) {
    loginItems.add("Tarragon", "/elsewhere/Tarragon");
    loginItems.add("Mail", "/opt/Mail");
    launch();
    ASSERT_EQ(loginItems.items().size(), 1U);
    EXPECT_EQ(loginItems.items()[0].displayName, "Mail");
}

TEST_F(LoadDefaultsTest, AddsTheProgramToTheLoginItemsWhenToldTo) {
    set(preference::LaunchOnLogin, true);
    launch();
    ASSERT_EQ(loginItems.items().size(), 1U);
    EXPECT_EQ(loginItems.items()[0].path, "/opt/Tarragon");
    EXPECT_FALSE(loginItems.items()[0].isHidden);
}

TEST_F(LoadDefaultsTest, ReadsTheButtonStyleAsA32BitNumber) {
    set(preference::ButtonStyle, std::int64_t(0x100000004));
    launch();
    EXPECT_EQ(controller().preferences()._buttonStyle, 5);
}

class ApplicationSwitchTest : public AppTest {
protected:
    ApplicationSwitchTest()
        : notes(fake.addApplication("Notes")) {
        notes.menu("Note").item("Pin");
        launch();
    }

    std::vector<double> pausesSinceLaunch() {
        const auto& pauses = fake.runLoop.pauses();
        return {pauses.begin() + 1, pauses.end()};
    }

    std::size_t menuBarReads(const FakeApplication& application) {
        std::size_t reads = 0;
        for (const FakeCall& call : fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue)) {
            if (call.element == application.element() && call.name == "AXMenuBar")
                ++reads;
        }
        return reads;
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
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit"));
    EXPECT_THAT(pausesSinceLaunch(), IsEmpty());
}

TEST_F(ApplicationSwitchTest, WaitsTwoSecondsAndReadsOnceMoreWhenTheMenuBarIsEmpty) {
    const FakeApplication slow = fake.addApplication("Slow");
    fake.switchTo(slow);
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5, 2.0));
    EXPECT_EQ(menuBarReads(slow), 0U); // not listed, so never asked for
    EXPECT_THAT(rootTitles(), ElementsAre("-", "Tarragon"));
}

TEST_F(ApplicationSwitchTest, FollowsTwoFurtherReadsForFirefox) {
    const FakeApplication firefox = fake.addApplication("Firefox");
    std::size_t focusQuestions = 0;
    fake.accessibility.clearCalls();
    fake.switchTo(firefox);
    for (const FakeCall& call : fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue)) {
        if (call.name == "AXFocusedApplication")
            ++focusQuestions;
    }
    EXPECT_EQ(focusQuestions, 4U);
    EXPECT_THAT(pausesSinceLaunch(), ElementsAre(0.5, 2.0));
}

TEST_F(ApplicationSwitchTest, ReadsAnEmptyMenuBarOfAnotherApplicationTwice) {
    const FakeApplication slow = fake.addApplication("Slow");
    std::size_t focusQuestions = 0;
    fake.accessibility.clearCalls();
    fake.switchTo(slow);
    for (const FakeCall& call : fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue)) {
        if (call.name == "AXFocusedApplication")
            ++focusQuestions;
    }
    EXPECT_EQ(focusQuestions, 2U);
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

TEST_F(PopUpTest, ShowsNothingForAnApplicationWithoutMenus) {
    launch();
    const FakeApplication terminal = fake.addApplication("Terminal");
    fake.switchTo(terminal);
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(fake.menuPresenter.popUps(), IsEmpty());
}

TEST_F(PopUpTest, ShowsNothingForSuchAnApplicationWhateverHappensToTheOwnMenu) {
    launch();
    fake.switchTo(fake.addApplication("Terminal"));
    set(preference::ShowTarragonMenu, false);
    controller().popUpMenuAtMouseLocation();
    set(preference::ShowTarragonMenu, true);
    controller().popUpMenuAtMouseLocation();
    EXPECT_THAT(fake.menuPresenter.popUps(), IsEmpty());
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
        EXPECT_NE(reader().menu()->itemWithTitle("History"), nullptr) << name;
    }
}

TEST_F(PopUpTest, ReadsNothingAnewForOtherApplications) {
    launch();
    mail.menu("Late").item("Item");
    controller().popUpMenuAtMouseLocation();
    EXPECT_EQ(reader().menu()->itemWithTitle("Late"), nullptr);
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

class HotKeyTest : public AppTest { };

TEST_F(HotKeyTest, IsOptionSpaceOnAFreshStoreAndOpensTheMenus) {
    launch();
    ASSERT_EQ(fake.hotKeys.requested().size(), 1U);
    EXPECT_EQ(fake.hotKeys.requested()[0], (FakeHotKeys::Registration{SpaceBar, hotkey::OptionKey, {0x6D686B31, 1}}));
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(HotKeyTest, IsNotRegisteredAtStartWhenItsSettingIsOff) {
    set(preference::EnableHotkey, false);
    launch();
    EXPECT_THAT(fake.hotKeys.requested(), IsEmpty());
}

TEST_F(HotKeyTest, IsUnregisteredTwiceWhenItIsSwitchedOffAndOnAgain) {
    launch();
    const HotKeyReference first = fake.hotKeys.registrations().begin()->first;
    set(preference::EnableHotkey, false);
    EXPECT_THAT(fake.hotKeys.unregistered(), ElementsAre(first));
    EXPECT_THAT(fake.hotKeys.registrations(), IsEmpty());
    EXPECT_FALSE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    set(preference::EnableHotkey, true);
    EXPECT_THAT(fake.hotKeys.unregistered(), ElementsAre(first, first));
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
}

TEST_F(HotKeyTest, TakesANewCombinationAtOnce) {
    launch();
    set(preference::TriggerCharacterUInt, std::int64_t(46));
    set(preference::TriggerModifiers, std::int64_t(0x100000 | 0x20000));
    EXPECT_EQ(fake.hotKeys.requested().size(), 1U);
    set(preference::NewTrigger, std::string("M"));
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
    EXPECT_FALSE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
    EXPECT_TRUE(fake.hotKeys.press(46, hotkey::CommandKey | hotkey::ShiftKey));
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(HotKeyTest, IsRegisteredByANewCombinationEvenWhileItIsOffWhenItNeverWasBefore) {
    set(preference::EnableHotkey, false);
    launch();
    set(preference::NewTrigger, std::string("M"));
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
}

TEST_F(HotKeyTest, IsRegisteredByItsOwnSettingWhenItNeverWasBefore) {
    set(preference::EnableHotkey, false);
    launch();
    set(preference::EnableHotkey, false);
    EXPECT_EQ(fake.hotKeys.registrations().size(), 1U);
}

TEST_F(HotKeyTest, StaysRegisteredWhenTheProgramEnds) {
    launch();
    delegate.terminate();
    EXPECT_THAT(fake.hotKeys.unregistered(), IsEmpty());
}

TEST_F(HotKeyTest, TakesTheLow32BitsOfItsKeyCodeAndDropsOtherModifiers) {
    set(preference::TriggerCharacterUInt, std::int64_t(0x100000031));
    set(preference::TriggerModifiers, std::int64_t(0x10000 | 0x40000));
    launch();
    EXPECT_EQ(fake.hotKeys.requested()[0].keyCode, SpaceBar);
    EXPECT_EQ(fake.hotKeys.requested()[0].modifiers, hotkey::ControlKey);
}

TEST_F(HotKeyTest, StaysOffWhenTheCombinationChangesAfterItWasSwitchedOff) {
    launch();
    set(preference::EnableHotkey, false);
    set(preference::NewTrigger, std::string("M"));
    EXPECT_THAT(fake.hotKeys.registrations(), IsEmpty());
}

TEST_F(HotKeyTest, OpensOneMenuHoweverManyHandlersAreInstalled) {
    launch();
    set(preference::NewTrigger, std::string("A"));
    set(preference::NewTrigger, std::string("B"));
    EXPECT_EQ(fake.hotKeys.handlerCount(), 3U);
    fake.hotKeys.press(SpaceBar, hotkey::OptionKey);
    EXPECT_EQ(fake.menuPresenter.popUps().size(), 1U);
}

TEST_F(HotKeyTest, ThatTheDesktopRefusesLeavesEverythingElseWorking) {
    fake.hotKeys.setRefuses(true);
    launch();
    EXPECT_TRUE(fake.hotKeys.isRefused());
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit"));
    fake.hotKeys.setRefuses(false);
    set(preference::NewTrigger, std::string("M"));
    EXPECT_TRUE(fake.hotKeys.press(SpaceBar, hotkey::OptionKey));
}

class SettingChangeTest : public AppTest { };

TEST_F(SettingChangeTest, ReachesEveryFieldThatFollowsItsSetting) {
    launch();
    const ControllerPreferences& fields = controller().preferences();
    struct Row {
        std::string_view key;
        bool ControllerPreferences::*field;
    };
    const Row rows[] = {
        {preference::FoldAlternate, &ControllerPreferences::_foldAlternate},
        {preference::ShowKeyEquivalents, &ControllerPreferences::_keyEquivalents},
        {preference::ShowAppleMenu, &ControllerPreferences::_showAppleMenu},
        {preference::ShowTarragonMenu, &ControllerPreferences::_showTarragonMenu},
        {preference::TarragonAlwaysVisible, &ControllerPreferences::_tarragonAlwaysVisible},
        {preference::TarragonAlwaysRight, &ControllerPreferences::_tarragonAlwaysRight},
        {preference::HideOnPrimaryTopEdge, &ControllerPreferences::_hideOnPrimaryTopEdge},
        {preference::ShowOnPrimaryScreen, &ControllerPreferences::_showOnPrimaryScreen},
        {preference::EnableButton, &ControllerPreferences::_enableButton},
        {preference::Horizontal, &ControllerPreferences::_horizontal},
        {preference::ShowApplicationMenu, &ControllerPreferences::_showApplicationMenu},
        {preference::EnableScreenTop, &ControllerPreferences::_screenTopEnabled},
        {preference::EnableMouseButton, &ControllerPreferences::_mouseButtonEnabled},
    };
    for (const Row& row : rows) {
        const bool before = fields.*row.field;
        set(row.key, !before);
        EXPECT_EQ(fields.*row.field, !before) << row.key;
        set(row.key, before);
        EXPECT_EQ(fields.*row.field, before) << row.key;
    }
    set(preference::FontSizeSmall, std::int64_t(130));
    EXPECT_EQ(fields._fontSizeSmall, -126);
    set(preference::TitleFontSizeSmall, std::int64_t(9));
    EXPECT_EQ(fields._titleFontSizeSmall, 9);
    set(preference::ButtonStyle, std::int64_t(4));
    EXPECT_EQ(fields._buttonStyle, 5);
    set(preference::ButtonStyle, std::int64_t(6));
    EXPECT_EQ(fields._buttonStyle, 6);
}

TEST_F(SettingChangeTest, LeavesTheStartUpCopiesOfTheScreenTopSettingsAlone) {
    launch();
    set(preference::ScreenTopAutoHide, true);
    set(preference::ScreenTopTransparency, true);
    set(preference::ScreenTopHalfHotZone, true);
    EXPECT_FALSE(controller().preferences()._screenTopAutoHide);
    EXPECT_FALSE(controller().preferences()._screenTopTransparency);
    EXPECT_FALSE(controller().preferences()._screenTopHalfHotZone);
}

TEST_F(SettingChangeTest, ReachesTheReaderOptions) {
    launch();
    set(preference::FoldAlternate, false);
    EXPECT_FALSE(reader().foldAlternateItems());
    set(preference::ShowKeyEquivalents, false);
    EXPECT_FALSE(reader().keyEquivalents());
    set(preference::ShowApplicationMenu, false);
    EXPECT_FALSE(reader().showApplicationMenu());
    set(preference::ShowTarragonMenu, false);
    EXPECT_EQ(reader().auxiliaryMenu(), nullptr);
    set(preference::ShowTarragonMenu, true);
    EXPECT_NE(reader().auxiliaryMenu(), nullptr);
}

TEST_F(SettingChangeTest, OfTheFirstMenuAloneReadsTheMenusAtOnce) {
    mail.menu("Apple").item("About");
    launch();
    EXPECT_NE(reader().menu()->itemWithTitle("\uF8FF"), nullptr);
    set(preference::ShowAppleMenu, false);
    EXPECT_FALSE(reader().showAppleMenu());
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit"));
    mail.menu("Late").item("Item");
    for (const std::string_view key :
        {preference::FoldAlternate, preference::ShowKeyEquivalents, preference::ShowApplicationMenu})
        set(key, false);
    EXPECT_THAT(rootTitles(), ElementsAre("File", "Edit"));
}

TEST_F(SettingChangeTest, BeforeTheReaderExistsIsTakenOverWhenItIsBuilt) {
    fake.deactivate();
    launch();
    set(preference::ShowKeyEquivalents, false);
    set(preference::ShowAppleMenu, false);
    fake.switchTo(mail);
    EXPECT_FALSE(reader().keyEquivalents());
    EXPECT_FALSE(reader().showAppleMenu());
}

} // namespace
} // namespace tarragon
