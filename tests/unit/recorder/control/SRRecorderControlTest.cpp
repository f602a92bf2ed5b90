#include "recorder/control/SRRecorderControl.h"

#include "SRRecorderControlFixture.h"

namespace tarragon {
namespace {

using modifier::Command;
using modifier::Control;
using modifier::Option;
using modifier::Shift;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint16_t K = 40;
constexpr std::uint16_t Space = 49;
constexpr KeyCombo OptionSpace{49, Option};

class SRRecorderControlTest : public SRRecorderControlFixture { };

TEST_F(SRRecorderControlTest, ShowsTheCombinationInWordsAndTellsItInGlyphs) {
    EXPECT_EQ(shown(), "Option+Space");
    EXPECT_EQ(control.keyComboString(), "\u2325Space");
    EXPECT_THAT(delegate.told, IsEmpty()) << "it was not the user who has chosen it";
    control.setKeyCombo({});
    EXPECT_EQ(shown(), "Record a combination");
    EXPECT_EQ(control.keyComboString(), std::nullopt);
}

TEST_F(SRRecorderControlTest, RecordsAfterAClick) {
    QTest::mouseClick(&field(), Qt::LeftButton);
    EXPECT_TRUE(control.isRecording());
    EXPECT_TRUE(keys.isRecording());
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(shown(), "Press the keys");
    press(K, Command | Shift);
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(shown(), "Command+Shift+K");
    EXPECT_THAT(delegate.told, ElementsAre(KeyCombo{40, Command | Shift}));
    EXPECT_EQ(said(), "");
}

TEST_F(SRRecorderControlTest, DoesNotRecordAfterAPressThatIsLetGoElsewhereOrWithAnotherButton) {
    QTest::mousePress(&field(), Qt::LeftButton);
    EXPECT_FALSE(control.isRecording());
    QTest::mouseRelease(&field(), Qt::LeftButton, {}, QPoint(-5, -5));
    EXPECT_FALSE(control.isRecording());
    QTest::mouseClick(&field(), Qt::RightButton);
    EXPECT_FALSE(control.isRecording());
}

TEST_F(SRRecorderControlTest, RecordsAfterSpaceAndEnter) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        control.setFocus();
        QTest::keyPress(&field(), key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        EXPECT_FALSE(control.isRecording()) << "the key is still held";
        QTest::keyRelease(&field(), key);
        EXPECT_TRUE(control.isRecording());
        QTest::mouseClick(&button(), Qt::LeftButton);
        EXPECT_FALSE(control.isRecording());
    }
}

TEST_F(SRRecorderControlTest, DoesNotRecordAfterOtherKeysOrHalfAPress) {
    control.setFocus();
    for (const Qt::Key key : {Qt::Key_K, Qt::Key_Escape, Qt::Key_Backspace})
        QTest::keyClick(&field(), key);
    QTest::keyClick(&field(), Qt::Key_Space, Qt::ControlModifier);
    QTest::keyRelease(&field(), Qt::Key_Space);
    EXPECT_FALSE(control.isRecording());
    QTest::keyPress(&field(), Qt::Key_Space);
    before.setFocus();
    control.setFocus();
    QTest::keyRelease(&field(), Qt::Key_Space);
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(control.keyCombo(), OptionSpace);
}

// The key that ended a recording and is still held repeats itself in whatever gets the keys.
TEST_F(SRRecorderControlTest, DoesNotRecordAfterAKeyThatOnlyRepeatsItself) {
    control.setFocus();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
    QApplication::sendEvent(&field(), &repeated);
    QTest::keyRelease(&field(), Qt::Key_Space);
    EXPECT_FALSE(control.isRecording());
}

TEST_F(SRRecorderControlTest, ShowsTheModifiersAsTheyAreHeld) {
    control.startRecording();
    hold(Option);
    EXPECT_EQ(shown(), "Option+…");
    hold(Option | Shift);
    EXPECT_EQ(shown(), "Option+Shift+…");
    keys.send({std::nullopt, 0, false, true});
    EXPECT_EQ(shown(), "Press the keys");
}

TEST_F(SRRecorderControlTest, GivesTheKeysBackOnceTheLastOneIsReleased) {
    control.startRecording();
    press(Space, Control);
    EXPECT_TRUE(keys.isRecording());
    release(Space);
    EXPECT_FALSE(keys.isRecording());
}

TEST_F(SRRecorderControlTest, RecordsAnewWhileTheLastKeyIsStillHeld) {
    control.startRecording();
    press(Space, Control);
    control.startRecording();
    EXPECT_TRUE(control.isRecording());
    press(K, Control);
    EXPECT_EQ(control.keyCombo(), (KeyCombo{40, Control}));
}

TEST_F(SRRecorderControlTest, IsLeftAsItWasByEscape) {
    control.startRecording();
    press(53, 0);
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(shown(), "Option+Space");
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(SRRecorderControlTest, IsEmptiedByBackspaceAndTellsTheDelegate) {
    control.startRecording();
    press(51, 0);
    EXPECT_FALSE(control.isRecording());
    EXPECT_TRUE(control.keyCombo().isEmpty());
    EXPECT_THAT(delegate.told, ElementsAre(KeyCombo{}));
}

TEST_F(SRRecorderControlTest, HasAButtonThatClearsAndThatLeavesEverythingAsItWas) {
    EXPECT_EQ(button().sign(), SRRecorderButton::Sign::Clear);
    control.startRecording();
    EXPECT_EQ(button().sign(), SRRecorderButton::Sign::SnapBack);
    EXPECT_EQ(button().accessibleName(), "Leave it as it was");
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording());
    EXPECT_EQ(control.keyCombo(), OptionSpace);
    EXPECT_THAT(delegate.told, IsEmpty());

    EXPECT_EQ(button().accessibleName(), "Clear the combination");
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_TRUE(control.keyCombo().isEmpty());
    EXPECT_THAT(delegate.told, ElementsAre(KeyCombo{}));
    EXPECT_FALSE(button().isEnabled()) << "there is nothing to clear";
    control.startRecording();
    EXPECT_TRUE(button().isEnabled());
}

TEST_F(SRRecorderControlTest, IsWalkedByTab) {
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(field().hasFocus());
    QTest::keyClick(&field(), Qt::Key_Tab);
    EXPECT_TRUE(button().hasFocus());
    QTest::keyClick(&button(), Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    QTest::keyClick(&after, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(button().hasFocus());
    QTest::keyClick(&button(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(field().hasFocus());
    QTest::keyClick(&field(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    EXPECT_FALSE(control.isRecording());
}

TEST_F(SRRecorderControlTest, IsReachedByTheKeyOfItsLabel) {
    QLabel label("&Hot key", &host);
    label.setBuddy(&control);
    label.show();
    QTest::keyClick(&before, Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_FALSE(control.isRecording());
}

TEST_F(SRRecorderControlTest, KeepsTheFocusWhenItIsClearedByTheKeyboard) {
    button().setFocus();
    QTest::keyClick(&button(), Qt::Key_Space);
    EXPECT_TRUE(control.keyCombo().isEmpty());
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(SRRecorderControlTest, EndsTheRecordingWhenItLosesTheFocus) {
    control.startRecording();
    hold(Option);
    after.setFocus();
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording());
    EXPECT_EQ(shown(), "Option+Space");
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(SRRecorderControlTest, GivesTheKeysBackWhenItLosesTheFocusBeforeTheLastOneIsReleased) {
    control.startRecording();
    press(Space, Control);
    after.setFocus();
    EXPECT_FALSE(keys.isRecording());
    EXPECT_EQ(control.keyCombo(), (KeyCombo{49, Control}));
}

TEST_F(SRRecorderControlTest, EndsTheRecordingWhenItIsHiddenOrDisabled) {
    control.startRecording();
    host.hide();
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording());
    host.show();
    QApplication::setActiveWindow(&host);
    control.startRecording();
    EXPECT_TRUE(control.isRecording());
    control.setEnabled(false);
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording());
}

TEST_F(SRRecorderControlTest, WaitsForTheFocusBeforeItRecords) {
    QWidget inFront;
    inFront.show();
    QApplication::setActiveWindow(&inFront);
    control.startRecording();
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording()) << "they belong to the window in front";
    QApplication::setActiveWindow(&host);
    EXPECT_TRUE(control.isRecording());
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_FALSE(control.isRecording());
    after.setFocus();
    field().setFocus();
    EXPECT_FALSE(control.isRecording()) << "once is enough";
}

TEST_F(SRRecorderControlTest, DoesNotRecordInAWindowThatWasClosedMeanwhile) {
    QWidget inFront;
    inFront.show();
    QApplication::setActiveWindow(&inFront);
    control.startRecording();
    host.hide();
    host.show();
    QApplication::setActiveWindow(&host);
    EXPECT_FALSE(control.isRecording());
}

TEST_F(SRRecorderControlTest, MayGoWhileItRecords) {
    auto* gone = new SRRecorderControl(&host);
    gone->setServices({&keyboard, &keys, &transformer, nullptr});
    gone->show();
    gone->startRecording();
    EXPECT_TRUE(keys.isRecording());
    delete gone;
    EXPECT_FALSE(keys.isRecording());
}

TEST_F(SRRecorderControlTest, DoesNotTakeOverACombinationOfTheDesktopAndSaysWhoHasIt) {
    keyboard.setSymbolicHotKeys(std::vector<SymbolicHotKey>{{true, K, hotkey::OptionKey, "Desktop: Close window"}});
    control.startRecording();
    press(K, Option);
    EXPECT_FALSE(control.isRecording());
    EXPECT_EQ(control.keyCombo(), OptionSpace);
    EXPECT_EQ(shown(), "Option+Space");
    EXPECT_THAT(delegate.told, IsEmpty());
    ASSERT_EQ(refusals.size(), 1U);
    EXPECT_EQ(refusals[0].description, "The key combination Option + K can't be used!");
    EXPECT_THAT(said(), HasSubstr("already used by a system-wide keyboard shortcut, Desktop: Close window."));
    EXPECT_EQ(said(), refusals[0].recoverySuggestion);
    release(K);
    EXPECT_NE(said(), "") << "it is read after the keys were released";
    control.startRecording();
    EXPECT_EQ(said(), "");
}

TEST_F(SRRecorderControlTest, DoesNotTakeOverAKeyEquivalentOfTheMainMenu) {
    auto item = std::make_shared<MenuItem>("Quit", "", "k");
    item->setKeyEquivalentModifierMask(Command);
    menu->addItem(item);
    control.startRecording();
    press(K, Command);
    EXPECT_THAT(said(), HasSubstr("already used by the menu item \"Quit\"."));
}

TEST_F(SRRecorderControlTest, AsksTheDelegateInCocoaFlags) {
    delegate.because = "it is Tuesday";
    control.startRecording();
    press(K, Command | Control);
    EXPECT_THAT(delegate.asked, ElementsAre(KeyCombo{40, Command | Control}));
    EXPECT_THAT(said(), HasSubstr("can't be used because it is Tuesday."));
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(SRRecorderControlTest, SaysWhyWhereTheValidatorHasNoWords) {
    keyboard.setSymbolicHotKeys(std::nullopt);
    control.startRecording();
    press(K, Command);
    EXPECT_THAT(said(), HasSubstr("does not tell which"));
    EXPECT_EQ(refusals.size(), 1U);
    EXPECT_NE(refusals[0].description, "");
}

// Asking takes the desktop some time.
TEST_F(SRRecorderControlTest, AsksForTheDesktopsCombinationsOnceForARecording) {
    control.startRecording();
    hold(Option);
    EXPECT_EQ(keyboard.timesAsked, 0);
    press(K, Option);
    release(K);
    EXPECT_EQ(keyboard.timesAsked, 1);
    control.startRecording();
    press(53, 0);
    EXPECT_EQ(keyboard.timesAsked, 1);
}

TEST_F(SRRecorderControlTest, NeedsNoDelegate) {
    control.setDelegate(nullptr);
    control.startRecording();
    press(K, Option);
    EXPECT_EQ(control.keyCombo(), (KeyCombo{40, Option}));
}

TEST_F(SRRecorderControlTest, SaysSoWhenTheKeysCannotBeHad) {
    keys.setAvailable(false);
    control.startRecording();
    EXPECT_FALSE(control.isRecording());
    EXPECT_THAT(said(), HasSubstr("Another program is using the keyboard"));
    EXPECT_EQ(shown(), "Option+Space");
    keys.setAvailable(true);
    control.startRecording();
    EXPECT_TRUE(control.isRecording());
    EXPECT_EQ(said(), "");
}

TEST_F(SRRecorderControlTest, SaysSoOnADesktopThatLendsNoKeys) {
    control.setServices({&keyboard, nullptr, &transformer, nullptr});
    control.startRecording();
    EXPECT_FALSE(control.isRecording());
    EXPECT_NE(said(), "");
}

TEST_F(SRRecorderControlTest, RecordsNothingBeforeItKnowsTheDesktop) {
    SRRecorderControl lonely;
    lonely.setKeyCombo(OptionSpace);
    lonely.startRecording();
    EXPECT_FALSE(lonely.isRecording());
    EXPECT_EQ(lonely.keyComboString(), std::nullopt);
}

TEST_F(SRRecorderControlTest, SaysSoWhenTheKeysWereTakenAway) {
    control.startRecording();
    keys.end();
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording());
    EXPECT_THAT(said(), HasSubstr("taken the keyboard back"));
    EXPECT_EQ(shown(), "Option+Space");
}

TEST_F(SRRecorderControlTest, WarnsOfAKeyThatIsNeededForTypingAndTakesItOver) {
    control.startRecording();
    press(K, Shift);
    EXPECT_THAT(delegate.told, ElementsAre(KeyCombo{40, Shift}));
    EXPECT_THAT(said(), HasSubstr("even where you want to type"));
    release(K);
    control.startRecording();
    press(96, 0);
    EXPECT_THAT(delegate.told, ElementsAre(KeyCombo{40, Shift}, KeyCombo{96, 0}));
    EXPECT_EQ(said(), "");
}

TEST_F(SRRecorderControlTest, NamesTheKeyAnewOnceAnotherLayoutWasSwitchedOn) {
    control.setKeyCombo({6, Option});
    EXPECT_EQ(shown(), "Option+Z");
    keyboard.setTyped(6, "y");
    QEvent activated(QEvent::ActivationChange);
    QApplication::sendEvent(&control, &activated);
    EXPECT_EQ(shown(), "Option+Y");
    keyboard.setTyped(6, "x");
    QEvent translated(QEvent::LanguageChange);
    QApplication::sendEvent(&control, &translated);
    EXPECT_EQ(shown(), "Option+X");
    control.hide();
    keyboard.setTyped(6, "w");
    control.show();
    EXPECT_EQ(shown(), "Option+W");
}

TEST_F(SRRecorderControlTest, EndsTheRecordingAndShowsItselfAnewWithOtherServices) {
    control.setKeyCombo({6, Option});
    control.startRecording();
    FakeKeyboard otherKeyboard;
    otherKeyboard.setTyped(6, "y");
    const SRKeyCodeTransformer otherTransformer(otherKeyboard);
    control.setServices({&otherKeyboard, &keys, &otherTransformer, nullptr});
    EXPECT_FALSE(control.isRecording());
    EXPECT_FALSE(keys.isRecording());
    EXPECT_EQ(shown(), "Option+Y");
    control.setServices({&keyboard, &keys, &transformer, nullptr});
}

} // namespace
} // namespace tarragon
