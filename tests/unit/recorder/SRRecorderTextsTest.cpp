#include "recorder/SRRecorderTexts.h"

#include "fake/FakeKeyboard.h"
#include "platform/ModifierFlags.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/SRRecorderState.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace tarragon {
namespace {

using testing::Contains;
using testing::HasSubstr;

class SRRecorderTextsTest : public testing::Test {
protected:
    SRRecorderText text() const { return recorderText(state, transformer); }
    std::string notice() const { return recorderNoticeText(state); }

    FakeKeyboard keyboard;
    SRKeyCodeTransformer transformer{keyboard};
    bool isTaken = false;
    SRRecorderState state{[this](const KeyCombo&, SRValidationError& error) {
        error.recoverySuggestion = "because of this and that.";
        return isTaken;
    }};
};

TEST_F(SRRecorderTextsTest, AreTheCombinationOrWhatToDo) {
    EXPECT_EQ(text(), (SRRecorderText{"Record a combination", true}));
    state.setKeyCombo({49, modifier::Option});
    EXPECT_EQ(text(), (SRRecorderText{"Option+Space", false}));
    state.start();
    EXPECT_EQ(text(), (SRRecorderText{"Press the keys", true}));
}

TEST_F(SRRecorderTextsTest, AreTheModifiersAsTheyAreHeld) {
    state.start();
    state.take({std::nullopt, modifier::Option, true, true});
    EXPECT_EQ(text(), (SRRecorderText{"Option+…", false}));
    state.take({std::nullopt, modifier::Option | modifier::Shift, true, true});
    EXPECT_EQ(text(), (SRRecorderText{"Option+Shift+…", false}));
    state.take({std::nullopt, 0, false, true});
    EXPECT_EQ(text(), (SRRecorderText{"Press the keys", true}));
}

TEST_F(SRRecorderTextsTest, HaveASentenceForEveryNotice) {
    EXPECT_EQ(notice(), "");
    state.failToStart();
    EXPECT_THAT(notice(), HasSubstr("Another program is using the keyboard"));
    state.start();
    EXPECT_EQ(notice(), "");
    state.take({std::nullopt, 0, true, false});
    EXPECT_THAT(notice(), HasSubstr("cannot be used"));
    state.keysWereTakenAway();
    EXPECT_THAT(notice(), HasSubstr("taken the keyboard back"));
    state.setKeyCombo({40, 0});
    EXPECT_THAT(notice(), HasSubstr("opens the menus even where you want to type"));
}

TEST_F(SRRecorderTextsTest, GiveTheValidatorsReason) {
    isTaken = true;
    state.start();
    state.take({40, modifier::Command, true, false});
    EXPECT_EQ(notice(), "because of this and that.");
}

TEST_F(SRRecorderTextsTest, TellWhichAreTheLongest) {
    EXPECT_THAT(longRecorderTexts(), Contains("Command+Option+Control+Shift+Page Down"));
    EXPECT_THAT(longRecorderTexts(), Contains("Record a combination"));
    EXPECT_THAT(longRecorderTexts(), Contains("Press the keys"));
}

TEST_F(SRRecorderTextsTest, ExplainARefusalWithoutWords) {
    const SRValidationError spoken{"What", "Why", {"OK"}};
    EXPECT_EQ(explainedRefusal(spoken, {40, 0}, transformer), spoken);
    const SRValidationError untold = explainedRefusal({}, {40, 0}, transformer);
    EXPECT_THAT(untold.recoverySuggestion, HasSubstr("does not tell which"));
    EXPECT_NE(untold.description, "");
    EXPECT_THAT(untold.recoveryOptions, testing::ElementsAre("OK"));
    EXPECT_THAT(explainedRefusal({}, {10, 0}, transformer).recoverySuggestion, HasSubstr("has no name"));
}

} // namespace
} // namespace tarragon
