#include "recorder/FreeKeyCombination.h"

#include "fake/FakeKeyboard.h"
#include "platform/ModifierFlags.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace tarragon {
namespace {

constexpr std::uint32_t AllModifiers = modifier::Command | modifier::Option | modifier::Control | modifier::Shift;

class FreeKeyCombinationTest : public testing::Test {
protected:
    std::optional<KeyCombo> freeOne() { return freeKeyCombination(keyboard, transformer); }
    void take(const KeyCombo& combination) {
        taken.push_back({true, combination.code, cocoaToCarbonFlags(combination.flags), "somebody"});
        keyboard.setSymbolicHotKeys(taken);
    }
    // In the order in which they are offered while the former ones are taken.
    std::vector<KeyCombo> offers() {
        std::vector<KeyCombo> offered;
        for (auto offer = freeOne(); offer && offered.size() < 100; offer = freeOne()) {
            offered.push_back(*offer);
            take(*offer);
        }
        return offered;
    }

    FakeKeyboard keyboard;
    SRKeyCodeTransformer transformer{keyboard};
    std::vector<SymbolicHotKey> taken;
};

TEST_F(FreeKeyCombinationTest, OffersTheCombinationOfAFreshInstallationWhereItIsFree) {
    EXPECT_EQ(freeOne(), (KeyCombo{49, modifier::Option}));
}

TEST_F(FreeKeyCombinationTest, OffersTheNextOneWhereThatIsTaken) {
    take({49, modifier::Option});
    EXPECT_EQ(freeOne(), (KeyCombo{49, modifier::Control}));
}

TEST_F(FreeKeyCombinationTest, OffersSeveralAndThenNone) {
    const std::vector<KeyCombo> all = offers();
    EXPECT_GE(all.size(), 6U);
    EXPECT_LE(all.size(), 20U);
    EXPECT_EQ(freeOne(), std::nullopt);
}

TEST_F(FreeKeyCombinationTest, OffersNothingThatApplicationsOrInputMethodsUse) {
    for (const KeyCombo& offer : offers()) {
        EXPECT_NE(offer.flags & ~modifier::Shift & AllModifiers, 0U) << "would be missed in typing";
        EXPECT_NE(offer.flags & ~modifier::Shift & AllModifiers, modifier::Command) << "applications' own";
    }
}

TEST_F(FreeKeyCombinationTest, PassesOverNoCombinationThatTheDesktopHasDisabledOrThatDiffersInAModifier) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{false, 49, hotkey::OptionKey},
        {true, 49, hotkey::OptionKey | hotkey::ShiftKey}, {true, 48, hotkey::OptionKey}});
    EXPECT_EQ(freeOne(), (KeyCombo{49, modifier::Option}));
}

TEST_F(FreeKeyCombinationTest, PassesOverKeysThatTypeNothing) {
    keyboard.setTyped(46, std::nullopt);
    for (const KeyCombo& offer : offers())
        EXPECT_NE(offer.code, 46);
}

TEST_F(FreeKeyCombinationTest, OffersNothingWhereTheDesktopDoesNotTell) {
    keyboard.setSymbolicHotKeys(std::nullopt);
    EXPECT_EQ(freeOne(), std::nullopt);
}

} // namespace
} // namespace tarragon
