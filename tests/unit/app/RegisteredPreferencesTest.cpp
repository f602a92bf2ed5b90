#include "app/RegisteredPreferences.h"
#include "app/AppDelegate.h"
#include "fake/FakePlatform.h"
#include "ignore/KeyedArchiver.h"
#include "platform/PreferenceKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

struct Row {
    const char* key;
    DefaultsValue value;
};

const std::vector<Row>& table() {
    static const std::vector<Row> rows = {
        {"EnableHotkey", true},
        {"NewTrigger", std::string("\xCB\x84\x5A")},
        {"TriggerCharacterUInt", std::int64_t(49)},
        {"TriggerModifiers", std::int64_t(524288)},
        {"FoldAlternate", true},
        {"ShowKeyEquivalents", true},
        {"ShowAppleMenu", true},
        {"ShowStatusBarIcon", true},
        {"ShowTarragonMenu", true},
        {"LaunchOnLogin", false},
        {"TarragonAlwaysVisible", true},
        {"TarragonAlwaysRight", false},
        {"ShowOnPrimaryScreen", true},
        {"EnableButton", true},
        {"EnableSmartIgnore", true},
        {"ButtonHasShadow", false},
        {"ButtonHasTexture", false},
        {"ButtonHasBorder", true},
        {"ButtonRound", true},
        {"ButtonLabel", std::string("Menu")},
        {"Horizontal", true},
        {"FontSizeSmall", std::int64_t(12)},
        {"ButtonStyle", std::int64_t(0)},
        {"TitleFontSizeSmall", std::int64_t(0)},
        {"ShowApplicationMenu", true},
        {"EnableScreenTop", true},
        {"ScreenTopAutoHide", false},
        {"ScreenTopTransparency", false},
        {"ScreenTopHalfHotZone", false},
        {"HideOnPrimaryTopEdge", false},
        {"IgnoreWindowList", archiveOfEmptyMutableDictionary()},
        {"EnableMouseButton", false},
        {"MouseButton", std::int64_t(2)},
    };
    return rows;
}

TEST(RegisteredPreferences, AreTheThirtyThreeKeysWithTheirDefaultsInOrder) {
    const DefaultsDictionary& registered = registeredPreferences();
    ASSERT_EQ(registered.size(), 33U);
    for (std::size_t index = 0; index < registered.size(); ++index) {
        EXPECT_EQ(registered[index].first, table()[index].key);
        EXPECT_EQ(registered[index].second, table()[index].value) << registered[index].first;
    }
}

TEST(RegisteredPreferences, AreGivenToTheStoreAndToItsResetAlike) {
    FakeDefaults defaults;
    AppDelegate::setupPreferenceDefaults(defaults);
    EXPECT_EQ(defaults.registeredDefaults(), registeredPreferences());
    EXPECT_EQ(defaults.initialValues(), registeredPreferences());
}

TEST(RegisteredPreferences, AreNeverWrittenToTheStoreByRegistering) {
    FakeDefaults defaults;
    AppDelegate::setupPreferenceDefaults(defaults);
    EXPECT_TRUE(defaults.changedKeys().empty());
    for (const Row& row : table())
        EXPECT_FALSE(defaults.storedValue(row.key).has_value()) << row.key;
}

TEST(RegisteredPreferences, AreAllRestoredByAResetTogetherWithAnEmptyIgnoreList) {
    FakeDefaults defaults;
    AppDelegate::setupPreferenceDefaults(defaults);
    for (const Row& row : table())
        defaults.setValue(row.key, std::string("something else"));
    defaults.revertToInitialValues();
    for (const Row& row : table())
        EXPECT_EQ(defaults.value(row.key), row.value) << row.key;
}

TEST(ObservedPreferences, AreTwentySevenKeysInOrder) {
    EXPECT_THAT(observedPreferences(),
        testing::ElementsAre("EnableHotkey", "NewTrigger", "FoldAlternate", "ShowKeyEquivalents", "ShowAppleMenu",
            "ShowTarragonMenu", "ShowStatusBarIcon", "TarragonAlwaysVisible", "TarragonAlwaysRight",
            "ShowOnPrimaryScreen", "HideOnPrimaryTopEdge", "EnableButton", "ButtonHasShadow", "ButtonHasTexture",
            "ButtonHasBorder", "ButtonRound", "ButtonLabel", "Horizontal", "FontSizeSmall", "ButtonStyle",
            "TitleFontSizeSmall", "ShowApplicationMenu", "EnableScreenTop", "ScreenTopAutoHide",
            "ScreenTopTransparency", "EnableMouseButton", "ScreenTopHalfHotZone"));
}

TEST(ObservedPreferences, AreWatchedUnderValuesAndTheKey) {
    EXPECT_EQ(keyPathOfPreference("EnableHotkey"), "values.EnableHotkey");
    EXPECT_EQ(keyPathOfPreference(preference::ShowTarragonMenu), "values.ShowTarragonMenu");
}

TEST(ButtonStyle, OfFourStandsForFiveAndEveryOtherIsKept) {
    EXPECT_EQ(buttonStyleForStoredValue(4), 5);
    for (const std::int64_t style : {-1, 0, 1, 2, 3, 5, 6, 400})
        EXPECT_EQ(buttonStyleForStoredValue(style), style);
}

} // namespace
} // namespace tarragon
