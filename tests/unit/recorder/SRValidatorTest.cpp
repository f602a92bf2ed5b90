#include "recorder/SRValidator.h"

#include "fake/FakeKeyboard.h"
#include "mirror/Menu.h"
#include "platform/HotKeys.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <gmock/gmock.h>

#include <string>

namespace tarragon {
namespace {

using hotkey::CommandKey;
using hotkey::ControlKey;
using hotkey::OptionKey;
using hotkey::ShiftKey;
using testing::ElementsAre;

constexpr std::int16_t K = 40;
constexpr std::int16_t F1 = 122;

class Refusal : public SRValidatorDelegate {
public:
    bool answer = true;
    std::string because;
    std::int16_t askedKeyCode = 0;
    std::uint32_t askedFlags = 0;

    bool shortcutValidatorIsKeyCodeAndFlagsTaken(
        SRValidator&, std::int16_t keyCode, std::uint32_t flags, std::string& reason) override {
        askedKeyCode = keyCode;
        askedFlags = flags;
        reason = because;
        return answer;
    }
};

class SRValidatorTest : public testing::Test {
protected:
    MenuItem& add(Menu& parent, const std::string& title, const std::string& keyEquivalent, std::uint32_t mask) {
        auto item = std::make_shared<MenuItem>(title, "", keyEquivalent);
        item->setKeyEquivalentModifierMask(mask);
        parent.addItem(item);
        return *item;
    }
    std::shared_ptr<Menu> addSubmenu(Menu& parent, const std::string& title) {
        auto submenu = std::make_shared<Menu>(title);
        add(parent, title, "", 0).setSubmenu(submenu);
        return submenu;
    }
    bool isTaken(std::int16_t keyCode, std::uint32_t flags) {
        return validator.isKeyCodeAndFlagsTaken(keyCode, flags, &error);
    }

    FakeKeyboard keyboard;
    SRKeyCodeTransformer transformer{keyboard};
    std::shared_ptr<Menu> menu = std::make_shared<Menu>("Main");
    SRValidator validator{nullptr, keyboard, transformer, [this] { return menu; }};
    SRValidationError error;
    const SRValidationError noError{};
};

TEST_F(SRValidatorTest, AllowsACombinationThatNobodyUses) {
    EXPECT_FALSE(isTaken(K, CommandKey));
    EXPECT_EQ(error, noError);
    menu = nullptr;
    EXPECT_FALSE(isTaken(K, CommandKey));
}

TEST_F(SRValidatorTest, RefusesOnTheDelegatesWordWithItsReason) {
    Refusal refusal;
    refusal.because = "it is Tuesday";
    SRValidator refusing(&refusal, keyboard, transformer, [this] { return menu; });
    EXPECT_TRUE(refusing.isKeyCodeAndFlagsTaken(K, CommandKey | ShiftKey, &error));
    EXPECT_EQ(refusal.askedKeyCode, K);
    EXPECT_EQ(refusal.askedFlags, CommandKey | ShiftKey);
    EXPECT_EQ(error.description, "The key combination Command + Shift + K can't be used!");
    EXPECT_EQ(
        error.recoverySuggestion, "The key combination \"Command + Shift + K\" can't be used because it is Tuesday.");
    EXPECT_THAT(error.recoveryOptions, ElementsAre("OK"));
    EXPECT_TRUE(refusing.isKeyCodeAndFlagsTaken(K, CommandKey, nullptr));
}

TEST_F(SRValidatorTest, GivesAReasonWhenTheDelegateHasNone) {
    Refusal refusal;
    SRValidator refusing(&refusal, keyboard, transformer, [this] { return menu; });
    EXPECT_TRUE(refusing.isKeyCodeAndFlagsTaken(K, CommandKey, &error));
    EXPECT_EQ(error.recoverySuggestion, "The key combination \"Command + K\" can't be used because it's already used.");
}

TEST_F(SRValidatorTest, GoesOnWhenTheDelegateAllows) {
    Refusal refusal;
    refusal.answer = false;
    SRValidator asking(&refusal, keyboard, transformer, [this] { return menu; });
    EXPECT_FALSE(asking.isKeyCodeAndFlagsTaken(K, CommandKey, &error));
    SRValidatorDelegate silent;
    SRValidator unanswered(&silent, keyboard, transformer, [this] { return menu; });
    EXPECT_FALSE(unanswered.isKeyCodeAndFlagsTaken(K, CommandKey, &error));
    EXPECT_EQ(error, noError);
}

TEST_F(SRValidatorTest, AsksTheDelegateFirst) {
    keyboard.setSymbolicHotKeys(std::nullopt);
    Refusal refusal;
    SRValidator refusing(&refusal, keyboard, transformer, [this] { return menu; });
    EXPECT_TRUE(refusing.isKeyCodeAndFlagsTaken(K, CommandKey, &error));
    EXPECT_NE(error, noError);
}

TEST_F(SRValidatorTest, RefusesEverythingWhenTheDesktopDoesNotTellItsCombinations) {
    keyboard.setSymbolicHotKeys(std::nullopt);
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_EQ(error, noError);
}

TEST_F(SRValidatorTest, RefusesACombinationOfTheDesktop) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{true, F1, 0}, {true, K, OptionKey | ControlKey}});
    EXPECT_TRUE(isTaken(K, OptionKey | ControlKey));
    EXPECT_EQ(error.description, "The key combination Option + Control + K can't be used!");
    EXPECT_EQ(error.recoverySuggestion,
        "The key combination \"Option + Control + K\" can't be used because it's already used by a system-wide "
        "keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the "
        "Keyboard & Mouse panel in System Preferences.)");
    EXPECT_THAT(error.recoveryOptions, ElementsAre("OK"));
    EXPECT_TRUE(validator.isKeyCodeAndFlagsTaken(K, OptionKey | ControlKey, nullptr));
}

TEST_F(SRValidatorTest, SaysWhoHasACombinationOfTheDesktop) {
    keyboard.setSymbolicHotKeys(
        std::vector<SymbolicHotKey>{{true, K, OptionKey, "Desktop: Close window"}, {true, F1, OptionKey, "Another"}});
    EXPECT_TRUE(isTaken(K, OptionKey));
    EXPECT_EQ(error.description, "The key combination Option + K can't be used!");
    EXPECT_EQ(error.recoverySuggestion,
        "The key combination \"Option + K\" can't be used because it's already used by a system-wide keyboard "
        "shortcut, Desktop: Close window. (If you really want to use this key combination, most shortcuts can be "
        "changed in the Keyboard & Mouse panel in System Preferences.)");
    EXPECT_THAT(error.recoveryOptions, ElementsAre("OK"));
}

TEST_F(SRValidatorTest, FindsTheOwnerOfACombinationThatTheDesktopListsTwice) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{true, K, OptionKey}, {true, K, 0, "No"},
        {false, K, OptionKey, "Off"}, {true, K, OptionKey, "Desktop: Close"}});
    EXPECT_TRUE(isTaken(K, OptionKey));
    EXPECT_THAT(error.recoverySuggestion, testing::HasSubstr("shortcut, Desktop: Close. ("));
}

TEST_F(SRValidatorTest, ComparesEachOfTheFourModifiersWithTheDesktopsAndNoOther) {
    for (const std::uint32_t modifier : {CommandKey, OptionKey, ControlKey, ShiftKey}) {
        keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{true, K, modifier}});
        for (const std::uint32_t flags : {CommandKey, OptionKey, ControlKey, ShiftKey, 0U}) {
            EXPECT_EQ(isTaken(K, flags), flags == modifier);
            EXPECT_EQ(isTaken(K, flags | 0x800000U), flags == modifier);
        }
        EXPECT_FALSE(isTaken(F1, modifier));
    }
}

TEST_F(SRValidatorTest, PassesOverCombinationsThatTheDesktopHasDisabled) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{false, K, CommandKey}});
    EXPECT_FALSE(isTaken(K, CommandKey));
}

TEST_F(SRValidatorTest, RefusesAKeyWithoutNameWhenTheDesktopHasAnyCombination) {
    keyboard.setTyped(K, std::nullopt);
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{true, F1, 0}});
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_EQ(error, noError);
    EXPECT_TRUE(isTaken(-1, 0));
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{false, F1, 0}});
    EXPECT_FALSE(isTaken(K, CommandKey));
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{});
    EXPECT_FALSE(isTaken(K, CommandKey));
}

TEST_F(SRValidatorTest, RefusesTheKeyEquivalentOfAMenuItem) {
    add(*menu, "Look for…", "k", modifier::Command | modifier::Shift);
    EXPECT_TRUE(isTaken(K, CommandKey | ShiftKey));
    EXPECT_EQ(error.description, "The key combination Command + Shift + K can't be used!");
    EXPECT_EQ(error.recoverySuggestion,
        "The key combination \"Command + Shift + K\" can't be used because it's already used by the menu item "
        "\"Look for…\".");
    EXPECT_THAT(error.recoveryOptions, ElementsAre("OK"));
    EXPECT_TRUE(validator.isKeyCodeAndFlagsTaken(K, CommandKey | ShiftKey, nullptr));
    EXPECT_TRUE(validator.isKeyCodeAndFlagsTakenInMenu(K, CommandKey | ShiftKey, *menu, nullptr));
}

TEST_F(SRValidatorTest, ComparesEachOfTheFourModifiersWithTheMenusAndNoOther) {
    const std::vector<std::pair<std::uint32_t, std::uint32_t>> modifiers{{modifier::Command, CommandKey},
        {modifier::Option, OptionKey}, {modifier::Control, ControlKey}, {modifier::Shift, ShiftKey}, {0, 0}};
    for (const auto& item : modifiers) {
        menu->removeAllItems();
        add(*menu, "Item", "k", item.first | 0x800000U);
        for (const auto& asked : modifiers)
            EXPECT_EQ(validator.isKeyCodeAndFlagsTakenInMenu(K, asked.second, *menu, nullptr), asked == item);
    }
}

TEST_F(SRValidatorTest, ComparesKeyEquivalentsInUpperCaseWithTheKeysName) {
    keyboard.setTyped(41, "ö");
    add(*menu, "Open", "ö", modifier::Command);
    add(*menu, "Space", "space", modifier::Command);
    EXPECT_TRUE(isTaken(41, CommandKey));
    // The name "Space" is not in upper case.
    EXPECT_FALSE(isTaken(49, CommandKey));
}

TEST_F(SRValidatorTest, PassesOverItemsWithoutKeyEquivalent) {
    keyboard.setTyped(K, std::nullopt);
    add(*menu, "Plain", "", modifier::Command);
    menu->addItem(MenuItem::separatorItem());
    EXPECT_FALSE(isTaken(K, CommandKey));
    EXPECT_FALSE(isTaken(-1, CommandKey));
}

TEST_F(SRValidatorTest, SearchesASubmenuBeforeTheItemThatHoldsIt) {
    auto file = addSubmenu(*menu, "File");
    menu->itemAtIndex(0)->setKeyEquivalent("k");
    menu->itemAtIndex(0)->setKeyEquivalentModifierMask(modifier::Command);
    auto recent = addSubmenu(*file, "Recent");
    add(*recent, "Deep", "k", modifier::Command);
    add(*file, "Shallow", "k", modifier::Command);
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_THAT(error.recoverySuggestion, testing::HasSubstr("menu item \"Deep\"."));
    recent->removeAllItems();
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_THAT(error.recoverySuggestion, testing::HasSubstr("menu item \"Shallow\"."));
    file->removeItemAtIndex(1);
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_THAT(error.recoverySuggestion, testing::HasSubstr("menu item \"File\"."));
}

TEST_F(SRValidatorTest, NamesTheFirstItemThatUsesTheCombination) {
    add(*menu, "Other", "j", modifier::Command);
    add(*menu, "First", "k", modifier::Command);
    add(*menu, "Second", "K", modifier::Command);
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_THAT(error.recoverySuggestion, testing::HasSubstr("\"First\""));
}

TEST_F(SRValidatorTest, AsksTheDesktopBeforeTheMenu) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{true, K, CommandKey}});
    add(*menu, "Item", "k", modifier::Command);
    EXPECT_TRUE(isTaken(K, CommandKey));
    EXPECT_THAT(error.recoverySuggestion, testing::HasSubstr("system-wide"));
}

} // namespace
} // namespace tarragon
