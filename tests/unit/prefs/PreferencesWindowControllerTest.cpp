#include "PreferencesWindowControllerFixture.h"

#include "fake/RecordingLog.h"

#include <algorithm>
#include <memory>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PreferencesWindowControllerTest, LoadsAWindowThatIsOnEveryDesktopAndHidesBothWarnings) {
    EXPECT_EQ(interface.timesLoaded, 1);
    EXPECT_TRUE(window().joinsAllSpaces);
    EXPECT_TRUE(controller().hideHotKeyWarning());
    EXPECT_TRUE(controller().hideButtonWarning());
    EXPECT_TRUE(window().hotKeyWarningIsHidden);
    EXPECT_TRUE(window().buttonWarningIsHidden);
    EXPECT_FALSE(window().isVisible);
}

TEST_F(PreferencesWindowControllerTest, ShowsTheGeneralPaneWithItsHelpAndThenActivatesTheProgram) {
    set(preference::MouseButton, std::int64_t{4});
    controller().displayWindow();
    EXPECT_THAT(window().told,
        ElementsAre("item 0", "empty", "frame, animated", "pane 0", "title General", "help text, animated",
            "mouse button 4", "tap on", "front", "activate"));
    EXPECT_EQ(window().pane, PreferencePane::General);
    EXPECT_EQ(window().helpText, PreferenceHelpText::General);
}

TEST_F(PreferencesWindowControllerTest, AsksForAccessBetweenShowingTheWindowAndActivatingTheProgram) {
    takeAccessAway();
    controller().displayWindow();
    const auto& told = window().told;
    ASSERT_GE(told.size(), 3U);
    EXPECT_THAT(std::vector<std::string>(told.end() - 3, told.end()), ElementsAre("front", "alert", "activate"));
    EXPECT_EQ(window().borderNotice, BorderNotice::AccessIsMissing);
}

TEST_F(PreferencesWindowControllerTest, AsksForAccessEachTimeThatItShowsTheWindow) {
    takeAccessAway();
    controller().displayWindow();
    controller().displayWindow();
    EXPECT_EQ(std::count(window().told.begin(), window().told.end(), "alert"), 2);
    accessibility.setEnabled(true);
    controller().displayWindow();
    EXPECT_EQ(std::count(window().told.begin(), window().told.end(), "alert"), 2);
    EXPECT_EQ(window().borderNotice, BorderNotice::None);
}

TEST_F(PreferencesWindowControllerTest, AsksForNothingWithEitherKindOfAccess) {
    accessibility.setEnabled(false);
    controller().displayWindow();
    accessibility.setEnabled(true);
    accessibility.setTrusted(false);
    controller().displayWindow();
    EXPECT_FALSE(window().answerAlert);
}

TEST_F(PreferencesWindowControllerTest, ShowsTheHelpPaneOnTopOfEverythingElse) {
    controller().displayWindowWithHelpAsInitial();
    EXPECT_EQ(window().selectedItem, HelpItemIndex);
    EXPECT_EQ(window().pane, PreferencePane::Help);
    EXPECT_EQ(window().title, "Help");
    EXPECT_TRUE(window().tapIsOn);
    const auto& told = window().told;
    EXPECT_THAT(std::vector<std::string>(told.end() - 6, told.end()),
        ElementsAre("activate", "item 6", "empty", "frame", "pane 6", "title Help"));
}

TEST_F(PreferencesWindowControllerTest, CanWaitForACombinationAtOnce) {
    controller().displayWindowForRecording();
    EXPECT_TRUE(window().isVisible);
    EXPECT_TRUE(window().tapIsOn);
    EXPECT_EQ(window().pane, PreferencePane::HotKey);
    EXPECT_EQ(window().told.back(), "record");
}

TEST_F(PreferencesWindowControllerTest, ShowsEachPaneUnderItsLabel) {
    for (const PreferenceItem& each : FakePreferencesWindow(window()).toolbarItems()) {
        controller().changePreferencePane(each);
        EXPECT_EQ(window().pane, preferencePaneForTag(each.tag));
        EXPECT_EQ(window().title, each.label);
    }
}

TEST_F(PreferencesWindowControllerTest, MovesToAPaneAnimatedOnlyWhenAsked) {
    controller().changePreferencePane(item(300));
    EXPECT_THAT(window().told, testing::Contains("frame, animated"));
    window().told.clear();
    controller().selectPreferencesForItem(item(300), false);
    EXPECT_THAT(window().told, testing::Contains("frame"));
}

TEST_F(PreferencesWindowControllerTest, KeepsTheTopEdgeWhereItIsWhileItGrowsDownwards) {
    controller().selectPreferencesForItem(item(100), false);
    const Rect lowNS = window().frameNS;
    controller().selectPreferencesForItem(item(800), false);
    const Rect highNS = window().frameNS;
    EXPECT_EQ(highNS.size.height, lowNS.size.height + 120);
    EXPECT_EQ(highNS.origin.y, lowNS.origin.y - 120);
    EXPECT_EQ(window().paneSize, (Size{640, 220}));
    controller().selectPreferencesForItem(item(100), false);
    EXPECT_EQ(window().frameNS, lowNS);
}

TEST_F(PreferencesWindowControllerTest, LoadsTheRecorderBeforeItShowsTheHotKeyPaneAndNoOther) {
    set(preference::TriggerCharacterUInt, std::int64_t{7});
    controller().changePreferencePane(item(200));
    EXPECT_EQ(window().told.front(), "recorder");
    EXPECT_EQ(window().recorder, (ShortcutRecorderValue{7, modifier::Option}));
    for (const std::int64_t tag : {100, 300, 400, 500, 700, 800}) {
        window().told.clear();
        controller().changePreferencePane(item(tag));
        EXPECT_THAT(window().told, testing::Not(testing::Contains("recorder"))) << tag;
    }
}

TEST_F(PreferencesWindowControllerTest, LetsEveryItemOfTheToolbarBeSelected) {
    EXPECT_THAT(controller().toolbarSelectableItemIdentifiers(),
        ElementsAre("general", "hotkey", "windowtop", "screentop", "ignorelist", "about", "help"));
}

TEST_F(PreferencesWindowControllerTest, ChangesTheHelpTextForTheControlThatAsks) {
    controller().changeHelpText(400);
    EXPECT_EQ(window().helpText, PreferenceHelpText::ScreenTop);
    EXPECT_EQ(window().told.back(), "help text, animated");
    controller().selectHelpTextForButton(200, false);
    EXPECT_EQ(window().helpText, PreferenceHelpText::PopUp);
    EXPECT_EQ(window().told.back(), "help text");
}

TEST_F(PreferencesWindowControllerTest, StoresANewCombinationFlagsFirstAndItsTextLast) {
    std::optional<DefaultsValue> flagsWhenTold;
    std::optional<DefaultsValue> codeWhenTold;
    defaults.addObserver(keyPathOfPreference(preference::NewTrigger), [&](const std::string&) {
        flagsWhenTold = defaults.value(preference::TriggerModifiers);
        codeWhenTold = defaults.value(preference::TriggerCharacterUInt);
        window().told.emplace_back("registered");
    });
    controller().shortcutRecorderKeyComboDidChange({46, modifier::Command | modifier::Shift}, "\u21E7\u2318M");
    EXPECT_THAT(defaults.changedKeys(), ElementsAre("TriggerModifiers", "TriggerCharacterUInt", "NewTrigger"));
    EXPECT_EQ(flagsWhenTold, DefaultsValue(std::int64_t{modifier::Command | modifier::Shift}));
    EXPECT_EQ(codeWhenTold, DefaultsValue(std::int64_t{46}));
    EXPECT_EQ(defaults.storedValue("NewTrigger"), DefaultsValue(std::string("\u21E7\u2318M")));
    EXPECT_THAT(window().told,
        ElementsAre("will change TriggerModifiers", "will change TriggerCharacterUInt", "registered",
            "did change TriggerCharacterUInt", "did change TriggerModifiers"));
}

TEST_F(PreferencesWindowControllerTest, StoresThatThereIsNoCombination) {
    set(preference::NewTrigger, std::string("M"));
    controller().shortcutRecorderKeyComboDidChange({}, std::nullopt);
    EXPECT_EQ(defaults.storedValue("TriggerCharacterUInt"), DefaultsValue(std::int64_t{-1}));
    EXPECT_EQ(defaults.storedValue("TriggerModifiers"), DefaultsValue(std::int64_t{0}));
    EXPECT_EQ(defaults.storedValue("NewTrigger"), std::nullopt);
}

TEST_F(PreferencesWindowControllerTest, RegistersAnewAlsoWhereTheWordsStayTheSame) {
    int registrations = 0;
    defaults.addObserver(keyPathOfPreference(preference::NewTrigger), [&](const std::string&) { ++registrations; });
    // Nothing has been stored so far.
    controller().shortcutRecorderKeyComboDidChange({}, std::nullopt);
    EXPECT_EQ(registrations, 1);
    EXPECT_EQ(defaults.storedValue("NewTrigger"), std::nullopt);
    controller().shortcutRecorderKeyComboDidChange({16, modifier::Command}, "\u2318Y");
    registrations = 0;
    controller().shortcutRecorderKeyComboDidChange({6, modifier::Command}, "\u2318Y");
    EXPECT_EQ(registrations, 1);
    EXPECT_EQ(defaults.storedValue("NewTrigger"), DefaultsValue(std::string("\u2318Y")));
    registrations = 0;
    controller().shortcutRecorderKeyComboDidChange({7, modifier::Command}, "\u2318X");
    EXPECT_EQ(registrations, 1);
}

TEST_F(PreferencesWindowControllerTest, RefusesNoCombination) {
    std::string reason;
    EXPECT_FALSE(PreferencesWindowController::shortcutRecorderIsKeyCodeAndFlagsTaken(49, modifier::Option, reason));
    EXPECT_EQ(reason, "");
}

TEST_F(PreferencesWindowControllerTest, StartsAtLoginAsTheCheckBoxSays) {
    window().launchCheckBoxIsOn = true;
    controller().startAtLogin();
    controller().startAtLogin();
    EXPECT_EQ(loginItems.items().size(), 1U);
    EXPECT_EQ(loginItems.items().front().path, "/opt/Tarragon");
    EXPECT_FALSE(loginItems.items().front().isHidden);
    EXPECT_EQ(defaults.storedValue("LaunchOnLogin"), DefaultsValue(true));
    window().launchCheckBoxIsOn = false;
    controller().startAtLogin();
    EXPECT_THAT(loginItems.items(), IsEmpty());
    EXPECT_EQ(defaults.storedValue("LaunchOnLogin"), DefaultsValue(false));
}

TEST_F(PreferencesWindowControllerTest, ChangesTheLoginItemsBeforeTheSettingAndAnnouncesBoth) {
    window().launchCheckBoxIsOn = true;
    std::size_t itemsWhenStored = 0;
    defaults.addObserver(keyPathOfPreference(preference::LaunchOnLogin), [&](const std::string&) {
        itemsWhenStored = loginItems.items().size();
        window().told.emplace_back("stored");
    });
    controller().startAtLogin();
    EXPECT_EQ(itemsWhenStored, 1U);
    EXPECT_THAT(window().told, ElementsAre("will change LaunchOnLogin", "stored", "did change LaunchOnLogin"));
}

TEST_F(PreferencesWindowControllerTest, StoresTheButtonThatTheUserHasPressed) {
    window().mouseButtonNumber = 8;
    controller().mouseButtonChanged();
    EXPECT_EQ(defaults.storedValue("MouseButton"), DefaultsValue(std::int64_t{8}));
}

TEST_F(PreferencesWindowControllerTest, ListensToTheMouseWhileTheWindowIsShown) {
    controller().displayWindow();
    EXPECT_TRUE(window().tapIsOn);
    controller().fadeOutWindow();
    EXPECT_FALSE(window().isVisible);
    EXPECT_FALSE(window().tapIsOn);
    controller().displayWindow();
    EXPECT_TRUE(window().tapIsOn);
    EXPECT_EQ(interface.timesLoaded, 1);
}

class WarningsTest : public PreferencesWindowControllerTest {
protected:
    void switchAllOff() {
        for (const std::string_view key :
            {preference::EnableHotkey, preference::EnableButton, preference::EnableScreenTop})
            set(key, false);
    }
};

TEST_F(WarningsTest, ShowTheOneOfTheHotKeyWhenItsCheckBoxWasTheLast) {
    switchAllOff();
    controller().checkIfBothOptionsAreNotOff("Enable hotkey");
    EXPECT_FALSE(controller().hideHotKeyWarning());
    EXPECT_TRUE(controller().hideButtonWarning());
    EXPECT_FALSE(window().hotKeyWarningIsHidden);
    EXPECT_TRUE(window().buttonWarningIsHidden);
}

TEST_F(WarningsTest, ShowTheOneOfThePanelWhenAnyOtherCheckBoxWasTheLast) {
    switchAllOff();
    for (const std::string_view title : {"Enable button", "Enable screen top", "", "enable hotkey"}) {
        controller().checkIfBothOptionsAreNotOff(title);
        EXPECT_TRUE(controller().hideHotKeyWarning()) << title;
        EXPECT_FALSE(controller().hideButtonWarning()) << title;
    }
}

TEST_F(WarningsTest, GoAwayWithAnyOfTheThree) {
    for (const std::string_view key :
        {preference::EnableHotkey, preference::EnableButton, preference::EnableScreenTop}) {
        switchAllOff();
        controller().checkIfBothOptionsAreNotOff("Enable hotkey");
        controller().checkIfBothOptionsAreNotOff("Enable button");
        set(key, true);
        controller().checkIfBothOptionsAreNotOff("Enable button");
        EXPECT_TRUE(controller().hideHotKeyWarning()) << key;
        EXPECT_TRUE(controller().hideButtonWarning()) << key;
        EXPECT_TRUE(window().hotKeyWarningIsHidden);
        EXPECT_TRUE(window().buttonWarningIsHidden);
    }
}

TEST_F(WarningsTest, GoAwayWhenSomethingElseBringsAnyOfTheThreeBack) {
    for (const std::string_view key :
        {preference::EnableHotkey, preference::EnableButton, preference::EnableScreenTop}) {
        switchAllOff();
        controller().checkIfBothOptionsAreNotOff("Enable hotkey");
        controller().checkIfBothOptionsAreNotOff("Enable button");
        set(preference::ShowKeyEquivalents, true);
        set(preference::EnableHotkey, false);
        EXPECT_FALSE(window().hotKeyWarningIsHidden);
        EXPECT_FALSE(window().buttonWarningIsHidden);
        set(key, true);
        EXPECT_TRUE(window().hotKeyWarningIsHidden) << key;
        EXPECT_TRUE(window().buttonWarningIsHidden) << key;
    }
}

TEST_F(WarningsTest, GoAwayWithAReset) {
    switchAllOff();
    controller().checkIfBothOptionsAreNotOff("Enable hotkey");
    controller().resetButton();
    EXPECT_TRUE(window().hotKeyWarningIsHidden);
}

TEST_F(WarningsTest, ChangeNoSettingBack) {
    switchAllOff();
    const auto changed = defaults.changedKeys();
    controller().checkIfBothOptionsAreNotOff("Enable hotkey");
    EXPECT_EQ(defaults.changedKeys(), changed);
}

class ResetTest : public PreferencesWindowControllerTest { };

TEST_F(ResetTest, RestoresTheSettingsTheRecorderAndTheLoginItem) {
    window().launchCheckBoxIsOn = true;
    controller().startAtLogin();
    controller().shortcutRecorderKeyComboDidChange({46, modifier::Command}, "M");
    // As the check box does, which is bound to its setting.
    defaults.addObserver(keyPathOfPreference(preference::LaunchOnLogin), [&](const std::string&) {
        window().launchCheckBoxIsOn = boolValue(defaults.value(preference::LaunchOnLogin));
        window().told.emplace_back("reverted");
    });
    window().told.clear();
    controller().resetButton();
    EXPECT_EQ(window().recorder, (ShortcutRecorderValue{SpaceBar, modifier::Option}));
    EXPECT_THAT(loginItems.items(), IsEmpty());
    EXPECT_EQ(defaults.value(preference::LaunchOnLogin), DefaultsValue(false));
    EXPECT_THAT(window().told,
        ElementsAre("reverted", "recorder", "will change LaunchOnLogin", "reverted", "did change LaunchOnLogin"));
}

TEST_F(PreferencesWindowControllerTest, WritesTheSettingsBeforeItStartsTheProgramAnew) {
    const int before = defaults.synchronizeCount();
    int whenRestarted = 0;
    delegate.whenRestarted = [&] { whenRestarted = defaults.synchronizeCount(); };
    controller().applyChanges();
    EXPECT_EQ(whenRestarted, before + 1);
    EXPECT_THAT(delegate.told, ElementsAre("restart"));
}

TEST_F(PreferencesWindowControllerTest, StartsTheProgramAnewAlsoWhenTheSettingsCannotBeWritten) {
    defaults.setWritable(false);
    const RecordingLog log;
    controller().applyChanges();
    EXPECT_THAT(delegate.told, ElementsAre("restart"));
    EXPECT_THAT(log.lines(), ElementsAre("settings error: the settings cannot be written to disk"));
}

TEST_F(PreferencesWindowControllerTest, QuitsTheProgram) {
    controller().quitFennick();
    EXPECT_THAT(delegate.told, ElementsAre("terminate"));
}

TEST_F(PreferencesWindowControllerTest, OpensTheWebPagesThatThereAre) {
    controller().openTwitterWebpage();
    controller().openFacebookWebpage();
    controller().openProductWebpage();
    controller().openScreencastWebpage();
    EXPECT_THAT(workspace.openedURLs(), ElementsAre("https://t", "https://f", "https://p"));
    EXPECT_THAT(delegate.told, ElementsAre("screencast"));
}

TEST_F(PreferencesWindowControllerTest, OpensNoPageWithoutAnAddress) {
    PreferencesWindowController without(
        {accessibility, defaults, workspace, hotKeys, nullptr, nullptr, "", {}}, interface, nullptr);
    without.openTwitterWebpage();
    without.openFacebookWebpage();
    without.openProductWebpage();
    without.openScreencastWebpage();
    EXPECT_THAT(workspace.openedURLs(), IsEmpty());
}

TEST_F(PreferencesWindowControllerTest, SaysSoWhenNothingOpensAPage) {
    workspace.setOpensURLs(false);
    const RecordingLog log;
    controller().openTwitterWebpage();
    EXPECT_THAT(log.lines(), ElementsAre("settings error: no program could be found to open https://t"));
}

class RefusalTest : public PreferencesWindowControllerTest {
protected:
    RefusalTest() {
        hotKeys.setRefuses(true);
        keyboard.setSymbolicHotKeys({{SymbolicHotKey{true, SpaceBar, hotkey::OptionKey}}});
        HotKeyReference reference = 0;
        EXPECT_FALSE(hotKeys.registerHotKey(SpaceBar, hotkey::OptionKey, {}, reference));
    }
};

TEST_F(RefusalTest, IsShownWithACombinationThatIsFree) {
    controller().displayWindow();
    ASSERT_TRUE(window().refusal);
    EXPECT_THAT(window().refusal->combination, testing::StartsWith("Option+"));
    EXPECT_NE(window().refusal->proposal, "");
}

TEST_F(RefusalTest, IsShownWithoutOneWhereTheDesktopDoesNotTell) {
    keyboard.setSymbolicHotKeys(std::nullopt);
    controller().hotKeyRegistrationDidChange();
    ASSERT_TRUE(window().refusal);
    EXPECT_EQ(window().refusal->proposal, "");
}

TEST_F(RefusalTest, IsNotShownForAHotKeyThatIsSwitchedOffOrHasNoKey) {
    set(preference::EnableHotkey, false);
    controller().hotKeyRegistrationDidChange();
    EXPECT_FALSE(window().refusal);
    set(preference::EnableHotkey, true);
    set(preference::TriggerCharacterUInt, std::int64_t{-1});
    controller().hotKeyRegistrationDidChange();
    EXPECT_FALSE(window().refusal);
}

TEST_F(RefusalTest, IsNoReasonToProposeTheSameCombination) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>());
    controller().hotKeyRegistrationDidChange();
    ASSERT_TRUE(window().refusal);
    EXPECT_EQ(window().refusal->proposal, "");
}

TEST_F(RefusalTest, EndsWithTheCombinationThatIsFree) {
    controller().tryAnotherCombination();
    EXPECT_THAT(defaults.changedKeys(), ElementsAre("TriggerModifiers", "TriggerCharacterUInt", "NewTrigger"));
    EXPECT_NE(controller().shortcutRecorderValue(), (ShortcutRecorderValue{SpaceBar, modifier::Option}));
    EXPECT_EQ(window().recorder, controller().shortcutRecorderValue());
    EXPECT_FALSE(window().isRecording);
}

TEST_F(RefusalTest, HasTheUserPressOneWhereNoneIsKnownToBeFree) {
    keyboard.setSymbolicHotKeys(std::nullopt);
    controller().tryAnotherCombination();
    EXPECT_THAT(defaults.changedKeys(), IsEmpty());
    EXPECT_EQ(window().pane, PreferencePane::HotKey);
    EXPECT_EQ(window().selectedItem, 1U);
    EXPECT_TRUE(window().isRecording);
}

} // namespace
} // namespace tarragon
