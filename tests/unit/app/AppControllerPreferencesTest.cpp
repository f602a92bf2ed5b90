#include "AppFixture.h"
#include "fake/RecordingLog.h"

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(LoadDefaultsTest, ReadsEverySettingInItsOrder) {
    launch();
    EXPECT_THAT(fake.defaults.readKeys(),
        ElementsAre("ShowStatusBarIcon", "EnableHotkey",
            // The hot key is registered before anything else is read.
            "EnableHotkey", "TriggerModifiers", "TriggerCharacterUInt",
            // The options of the reader.
            "FoldAlternate", "ShowKeyEquivalents", "ShowAppleMenu", "ShowTarragonMenu",
            // The panel.
            "TarragonAlwaysVisible", "TarragonAlwaysRight", "ShowOnPrimaryScreen", "EnableButton", "Horizontal",
            "FontSizeSmall", "TitleFontSizeSmall", "ButtonStyle",
            // Start at login, and the last option of the reader.
            "LaunchOnLogin", "ShowApplicationMenu",
            // The bars at the top of screens, and the mouse button among them.
            "EnableScreenTop", "ScreenTopAutoHide", "ScreenTopTransparency", "EnableMouseButton",
            "ScreenTopHalfHotZone", "HideOnPrimaryTopEdge",
            // Whether the panel is to stay away, once for its titles and once for its place.
            "IgnoreWindowList", "IgnoreWindowList"));
}

TEST_F(LoadDefaultsTest, ReadsNoneOfTheHotKeysSettingsWhenItIsOff) {
    set(preference::EnableHotkey, false);
    launch();
    EXPECT_EQ(fake.defaults.readKeys()[2], "FoldAlternate");
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

TEST_F(SettingChangeTest, OfTheHotKeyLeavesItsStartUpCopyAlone) {
    launch();
    set(preference::EnableHotkey, false);
    EXPECT_TRUE(controller().preferences()._enableHotkey);
    EXPECT_THAT(fake.hotKeys.registrations(), IsEmpty());
}

TEST_F(SettingChangeTest, IsHeardOfForEveryObservedSettingOnceAndInOrder) {
    launch();
    const std::vector<std::string> expected = {"values.EnableHotkey", "values.NewTrigger", "values.FoldAlternate",
        "values.ShowKeyEquivalents", "values.ShowAppleMenu", "values.ShowTarragonMenu", "values.ShowStatusBarIcon",
        "values.TarragonAlwaysVisible", "values.TarragonAlwaysRight", "values.ShowOnPrimaryScreen",
        "values.HideOnPrimaryTopEdge", "values.EnableButton", "values.ButtonHasShadow", "values.ButtonHasTexture",
        "values.ButtonHasBorder", "values.ButtonRound", "values.ButtonLabel", "values.Horizontal",
        "values.FontSizeSmall", "values.ButtonStyle", "values.TitleFontSizeSmall", "values.ShowApplicationMenu",
        "values.EnableScreenTop", "values.ScreenTopAutoHide", "values.ScreenTopTransparency",
        "values.EnableMouseButton", "values.ScreenTopHalfHotZone"};
    EXPECT_EQ(fake.defaults.observedKeyPaths(), expected);
    // Each observer takes the change of its own setting to the controller.
    for (const std::string& path : expected) {
        const std::string key = path.substr(std::string("values.").size());
        const RecordingLog log(LogCategory::Settings);
        set(key, *fake.defaults.value(key));
        EXPECT_THAT(log.lines(), ElementsAre("settings: " + path + " has changed"));
    }
}

TEST_F(SettingChangeTest, OfAnyOtherSettingIsNotHeardOf) {
    launch();
    const RecordingLog log(LogCategory::Settings);
    for (const std::string_view key : {preference::TriggerCharacterUInt, preference::TriggerModifiers,
             preference::LaunchOnLogin, preference::EnableSmartIgnore, preference::MouseButton})
        set(key, std::int64_t(1));
    set(preference::IgnoreWindowList, Data());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(SettingChangeTest, OfTheOwnMenuBuildsItAnew) {
    launch();
    const auto former = reader().auxiliaryMenu();
    set(preference::ShowTarragonMenu, true);
    EXPECT_NE(reader().auxiliaryMenu(), nullptr);
    EXPECT_NE(reader().auxiliaryMenu(), former);
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
