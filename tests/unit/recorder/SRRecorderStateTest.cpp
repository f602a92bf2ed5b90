#include "recorder/SRRecorderState.h"

#include "platform/ModifierFlags.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace tarragon {
namespace {

using modifier::Command;
using modifier::Control;
using modifier::Option;
using modifier::Shift;
using testing::ElementsAre;
using testing::IsEmpty;

using Notice = SRRecorderNotice;
using Result = SRRecorderResult;

constexpr std::uint16_t K = 40;
constexpr std::uint16_t Space = 49;
constexpr std::uint16_t Tab = 48;
constexpr std::uint16_t Backspace = 51;
constexpr std::uint16_t ForwardDelete = 117;
constexpr std::uint16_t Escape = 53;
constexpr std::uint16_t F5 = 96;
constexpr std::uint16_t Return = 36;

constexpr KeyCombo OptionSpace{49, Option};

RecordedKey press(std::uint16_t keyCode, std::uint32_t flags = 0) {
    return {keyCode, flags, true, false};
}
RecordedKey release(std::uint16_t keyCode, std::uint32_t flags = 0) {
    return {keyCode, flags, false, false};
}
// flags are those that are held afterwards.
RecordedKey modifierChange(std::uint32_t flags, bool isPressed = true) {
    return {std::nullopt, flags, isPressed, true};
}

class SRRecorderStateTest : public testing::Test {
protected:
    SRRecorderStateTest() { state.setKeyCombo(OptionSpace); }

    bool isTaken = false;
    std::vector<KeyCombo> asked;
    SRRecorderState state{[this](const KeyCombo& combination, SRValidationError& error) {
        asked.push_back(combination);
        if (isTaken)
            error.recoverySuggestion = "taken";
        return isTaken;
    }};
};

TEST_F(SRRecorderStateTest, IsEmptyAndIdleAtFirst) {
    const SRRecorderState fresh([](const KeyCombo&, SRValidationError&) { return false; });
    EXPECT_TRUE(fresh.keyCombo().isEmpty());
    EXPECT_FALSE(fresh.isRecording());
    EXPECT_FALSE(fresh.needsKeys());
    EXPECT_EQ(fresh.notice(), Notice::None);
}

TEST_F(SRRecorderStateTest, HeedsNoKeysUnlessItRecords) {
    EXPECT_EQ(state.take(press(K, Command)), Result::None);
    EXPECT_EQ(state.keyCombo(), OptionSpace);
    EXPECT_EQ(state.heldFlags(), 0U);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SRRecorderStateTest, RecordsTheNextKeyWithTheModifiersThatAreHeld) {
    state.start();
    EXPECT_TRUE(state.isRecording());
    EXPECT_TRUE(state.needsKeys());
    EXPECT_EQ(state.take(modifierChange(Command)), Result::None);
    EXPECT_EQ(state.take(modifierChange(Command | Shift)), Result::None);
    EXPECT_EQ(state.take(press(K, Command | Shift)), Result::Recorded);
    EXPECT_EQ(state.keyCombo(), (KeyCombo{40, Command | Shift}));
    EXPECT_FALSE(state.isRecording());
    EXPECT_EQ(state.heldFlags(), 0U);
    EXPECT_EQ(state.notice(), Notice::None);
    EXPECT_THAT(asked, ElementsAre(KeyCombo{40, Command | Shift}));
}

TEST_F(SRRecorderStateTest, TellsTheModifiersThatAreHeldAndGoesBackAsTheyAreReleased) {
    state.start();
    state.take(modifierChange(Option));
    EXPECT_EQ(state.heldFlags(), Option);
    state.take(modifierChange(Option | Shift));
    EXPECT_EQ(state.heldFlags(), Option | Shift);
    state.take(modifierChange(Shift, false));
    EXPECT_EQ(state.heldFlags(), Shift);
    state.take(modifierChange(0, false));
    EXPECT_EQ(state.heldFlags(), 0U);
    EXPECT_TRUE(state.isRecording());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SRRecorderStateTest, TellsNoneHeldAfterARecordingWasEndedWhileSomeWere) {
    state.start();
    state.take(modifierChange(Option));
    state.cancel();
    EXPECT_EQ(state.heldFlags(), 0U);
}

// The key with which the recording was asked for may still be held.
TEST_F(SRRecorderStateTest, RecordsNoRelease) {
    state.start();
    EXPECT_EQ(state.take(release(Space)), Result::None);
    EXPECT_TRUE(state.isRecording());
    EXPECT_EQ(state.keyCombo(), OptionSpace);
}

TEST_F(SRRecorderStateTest, KeepsTheFiveModifiersOfARecorderAndNoOtherFlag) {
    state.start();
    state.take(press(K, 0xFFFFFFFF));
    EXPECT_EQ(state.keyCombo().flags, 0x9E0000U);
}

TEST_F(SRRecorderStateTest, NeedsNoModifier) {
    for (const std::uint16_t key : {F5, K, Tab, Return, ForwardDelete}) {
        state.start();
        EXPECT_EQ(state.take(press(key)), Result::Recorded);
        EXPECT_EQ(state.keyCombo(), (KeyCombo{static_cast<std::int16_t>(key), 0}));
    }
}

TEST_F(SRRecorderStateTest, IsLeftAsItWasByEscapeAlone) {
    state.start();
    EXPECT_EQ(state.take(press(Escape)), Result::Cancelled);
    EXPECT_FALSE(state.isRecording());
    EXPECT_EQ(state.keyCombo(), OptionSpace);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SRRecorderStateTest, IsEmptiedByBackspaceAlone) {
    state.start();
    EXPECT_EQ(state.take(press(Backspace)), Result::Cleared);
    EXPECT_FALSE(state.isRecording());
    EXPECT_TRUE(state.keyCombo().isEmpty());
    EXPECT_EQ(state.keyCombo(), KeyCombo());
    state.start();
    EXPECT_EQ(state.take(press(Backspace)), Result::None) << "there was nothing to clear";
    EXPECT_FALSE(state.isRecording());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SRRecorderStateTest, RecordsEscapeAndBackspaceWithAnyModifier) {
    for (const std::uint32_t flags : {Shift, Control, Option, Command}) {
        for (const std::uint16_t key : {Escape, Backspace}) {
            state.start();
            EXPECT_EQ(state.take(press(key, flags)), Result::Recorded);
            EXPECT_EQ(state.keyCombo(), (KeyCombo{static_cast<std::int16_t>(key), flags}));
        }
    }
}

// The function key is no modifier that anybody holds for a combination.
TEST_F(SRRecorderStateTest, TakesEscapeWithTheFunctionFlagForEscapeAlone) {
    state.start();
    EXPECT_EQ(state.take(press(Escape, modifier::Function)), Result::Cancelled);
}

TEST_F(SRRecorderStateTest, DoesNotTakeOverWhatIsTaken) {
    isTaken = true;
    state.start();
    EXPECT_EQ(state.take(press(K, Command)), Result::Refused);
    EXPECT_EQ(state.keyCombo(), OptionSpace);
    EXPECT_FALSE(state.isRecording());
    EXPECT_EQ(state.notice(), Notice::Refused);
    EXPECT_EQ(state.refusal().recoverySuggestion, "taken");
    EXPECT_EQ(asked.size(), 1U);
}

TEST_F(SRRecorderStateTest, SaysWhyItHasRefusedUntilTheNextThingHappens) {
    isTaken = true;
    const auto refuse = [this] {
        state.start();
        state.take(press(K, Command));
        EXPECT_EQ(state.notice(), Notice::Refused);
    };
    refuse();
    state.take(release(K, Command));
    EXPECT_EQ(state.cancel(), Result::None) << "there is nothing to cancel";
    EXPECT_EQ(state.notice(), Notice::Refused);
    state.start();
    EXPECT_EQ(state.notice(), Notice::None);
    refuse();
    state.setKeyCombo(OptionSpace);
    EXPECT_EQ(state.notice(), Notice::None);
    refuse();
    state.clear();
    EXPECT_EQ(state.notice(), Notice::None);
}

TEST_F(SRRecorderStateTest, KeepsTheKeysUntilTheOneThatEndedTheRecordingIsReleased) {
    state.start();
    state.take(modifierChange(Option));
    state.take(press(Space, Option));
    EXPECT_TRUE(state.needsKeys());
    state.take(modifierChange(0, false));
    EXPECT_TRUE(state.needsKeys()) << "a modifier was released";
    state.take(release(K));
    EXPECT_TRUE(state.needsKeys()) << "another key was released";
    EXPECT_EQ(state.take(release(Space)), Result::None);
    EXPECT_FALSE(state.needsKeys());
}

TEST_F(SRRecorderStateTest, KeepsTheKeysForEveryKeyThatEndsARecording) {
    isTaken = true;
    for (const std::uint16_t key : {Escape, Backspace, K}) {
        state.start();
        state.take(press(key));
        EXPECT_TRUE(state.needsKeys());
        state.take(release(key));
        EXPECT_FALSE(state.needsKeys());
    }
}

TEST_F(SRRecorderStateTest, GivesTheKeysBackAtTheNextPress) {
    state.start();
    state.take(press(Space, Option));
    EXPECT_EQ(state.take(press(K, Command)), Result::None);
    EXPECT_FALSE(state.needsKeys());
    EXPECT_EQ(state.keyCombo(), OptionSpace);
}

TEST_F(SRRecorderStateTest, GivesTheKeysBackWhenItIsCancelled) {
    state.start();
    state.take(press(Space, Option));
    EXPECT_EQ(state.cancel(), Result::None) << "the combination stands";
    EXPECT_FALSE(state.needsKeys());
    state.start();
    EXPECT_EQ(state.cancel(), Result::Cancelled);
    EXPECT_FALSE(state.needsKeys());
}

TEST_F(SRRecorderStateTest, GoesOnAfterAKeyThatHasNoCode) {
    state.start();
    EXPECT_EQ(state.take({std::nullopt, Option, true, false}), Result::None);
    EXPECT_TRUE(state.isRecording());
    EXPECT_EQ(state.notice(), Notice::UnusableKey);
    state.take({std::nullopt, Option, false, false});
    EXPECT_EQ(state.notice(), Notice::UnusableKey) << "it is read after the key was released";
    EXPECT_EQ(state.take(press(K, Option)), Result::Recorded);
    EXPECT_EQ(state.notice(), Notice::None);
}

TEST_F(SRRecorderStateTest, SaysWhenTheKeysCannotBeHad) {
    state.failToStart();
    EXPECT_FALSE(state.isRecording());
    EXPECT_FALSE(state.needsKeys());
    EXPECT_EQ(state.notice(), Notice::KeysUnavailable);
    state.start();
    EXPECT_EQ(state.notice(), Notice::None);
}

TEST_F(SRRecorderStateTest, SaysWhenTheKeysWereTakenAway) {
    state.start();
    state.take(modifierChange(Option));
    state.keysWereTakenAway();
    EXPECT_FALSE(state.isRecording());
    EXPECT_FALSE(state.needsKeys());
    EXPECT_EQ(state.heldFlags(), 0U);
    EXPECT_EQ(state.keyCombo(), OptionSpace);
    EXPECT_EQ(state.notice(), Notice::KeysTakenAway);
}

TEST_F(SRRecorderStateTest, SaysNothingOfKeysTakenAwayAfterTheRecording) {
    state.start();
    state.take(press(K, Option));
    state.keysWereTakenAway();
    EXPECT_FALSE(state.needsKeys());
    EXPECT_EQ(state.notice(), Notice::None);
}

TEST_F(SRRecorderStateTest, MayBeClearedAtAnyTime) {
    EXPECT_EQ(state.clear(), Result::Cleared);
    EXPECT_TRUE(state.keyCombo().isEmpty());
    EXPECT_EQ(state.clear(), Result::None);
    state.setKeyCombo(OptionSpace);
    state.start();
    EXPECT_EQ(state.clear(), Result::Cleared);
    EXPECT_FALSE(state.isRecording());
}

TEST_F(SRRecorderStateTest, GoesOnRecordingWhenItIsGivenAnotherCombination) {
    state.start();
    state.setKeyCombo({96, Command});
    EXPECT_TRUE(state.isRecording());
    state.cancel();
    EXPECT_EQ(state.keyCombo(), (KeyCombo{96, Command}));
}

TEST_F(SRRecorderStateTest, WarnsOfAKeyThatIsNeededForTyping) {
    for (const std::uint32_t flags : {0U, Shift, static_cast<std::uint32_t>(modifier::Function)}) {
        state.setKeyCombo({40, flags});
        EXPECT_EQ(state.notice(), Notice::TypingKey);
    }
    for (const std::uint32_t flags : {Control, Option, Command, Command | Shift}) {
        state.setKeyCombo({40, flags});
        EXPECT_EQ(state.notice(), Notice::None);
    }
    state.start();
    state.take(press(Space, Shift));
    EXPECT_EQ(state.notice(), Notice::TypingKey);
    state.start();
    EXPECT_EQ(state.notice(), Notice::None) << "while another one is chosen";
}

TEST_F(SRRecorderStateTest, DoesNotWarnOfFunctionKeysNorOfNoKey) {
    for (const std::int16_t key :
        {122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111, 105, 107, 113, 106, 64, 79, 80}) {
        state.setKeyCombo({key, 0});
        EXPECT_EQ(state.notice(), Notice::None) << key;
    }
    state.setKeyCombo({});
    EXPECT_EQ(state.notice(), Notice::None);
}

} // namespace
} // namespace tarragon
