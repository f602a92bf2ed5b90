#include "recorder/control/SRRecorderControl.h"

#include "fake/FakeKeyRecorder.h"
#include "fake/FakeKeyboard.h"
#include "mirror/Menu.h"
#include "platform/ModifierFlags.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/control/SRRecorderButton.h"
#include "recorder/control/SRRecorderField.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

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

class RecordingDelegate : public SRRecorderControlDelegate {
public:
    bool shortcutRecorderIsKeyCodeAndFlagsTaken(
        SRRecorderControl&, std::int16_t keyCode, std::uint32_t flags, std::string& reason) override {
        asked.push_back({keyCode, flags});
        reason = because;
        return !because.empty();
    }
    void shortcutRecorderKeyComboDidChange(SRRecorderControl& recorder, const KeyCombo& combination) override {
        EXPECT_EQ(recorder.keyCombo(), combination);
        EXPECT_FALSE(recorder.isRecording());
        told.push_back(combination);
    }
    std::string because;
    std::vector<KeyCombo> asked;
    std::vector<KeyCombo> told;
};

// Counts how often the desktop is asked for its combinations.
class CountingKeyboard : public FakeKeyboard {
public:
    std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() override {
        ++timesAsked;
        return FakeKeyboard::copySymbolicHotKeys();
    }
    int timesAsked = 0;
};

class SRRecorderControlTest : public testing::Test {
protected:
    SRRecorderControlTest() {
        control.setServices({&keyboard, &keys, &transformer, [this] { return menu; }});
        control.setDelegate(&delegate);
        control.setKeyCombo(OptionSpace);
        QObject::connect(&control, &SRRecorderControl::refused,
            [this](const SRValidationError& error) { refusals.push_back(error); });
        auto* const column = new QVBoxLayout(&host);
        column->addWidget(&before);
        column->addWidget(&control);
        column->addWidget(&after);
        host.show();
        QApplication::setActiveWindow(&host);
        before.setFocus();
    }
    ~SRRecorderControlTest() override {
        for (QWidget* child :
            {static_cast<QWidget*>(&before), static_cast<QWidget*>(&control), static_cast<QWidget*>(&after)})
            child->setParent(nullptr);
    }

    SRRecorderField& field() { return *control.findChild<SRRecorderField*>(); }
    SRRecorderButton& button() { return *control.findChild<SRRecorderButton*>(); }
    QLabel& message() { return *control.findChild<QLabel*>(); }
    std::string shown() { return field().text().toStdString(); }
    std::string said() { return message().isVisibleTo(&control) ? message().text().toStdString() : std::string(); }
    void press(std::uint16_t keyCode, std::uint32_t flags) { keys.send({keyCode, flags, true, false}); }
    void release(std::uint16_t keyCode) { keys.send({keyCode, 0, false, false}); }
    void hold(std::uint32_t flags) { keys.send({std::nullopt, flags, true, true}); }

    CountingKeyboard keyboard;
    SRKeyCodeTransformer transformer{keyboard};
    FakeKeyRecorder keys;
    std::shared_ptr<Menu> menu = std::make_shared<Menu>("Main");
    RecordingDelegate delegate;
    std::vector<SRValidationError> refusals;
    QWidget host;
    QLineEdit before;
    SRRecorderControl control;
    QLineEdit after;
};

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

TEST_F(SRRecorderControlTest, HasItsButtonBesideTheFieldAndNoRoomForAMessageThatItDoesNotHave) {
    EXPECT_TRUE(message().isHidden());
    EXPECT_FALSE(field().geometry().intersects(button().geometry()));
    EXPECT_EQ(field().geometry().topLeft(), QPoint(0, 0));
}

TEST_F(SRRecorderControlTest, ReadsItselfToAScreenReader) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&field());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::HotkeyField);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Key combination: Option+Space");
    EXPECT_EQ(accessible->text(QAccessible::Value), "Option+Space");
    EXPECT_THAT(accessible->text(QAccessible::Description).toStdString(), HasSubstr("Escape leaves it"));
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_FALSE(accessible->state().pressed);
    control.setAccessibleName("Hot key");
    control.setAccessibleDescription("Opens the menus");
    EXPECT_EQ(accessible->text(QAccessible::Name), "Hot key: Option+Space");
    EXPECT_EQ(accessible->text(QAccessible::Description), "Opens the menus");
    control.startRecording();
    EXPECT_EQ(accessible->text(QAccessible::Name), "Hot key: Press the keys");
    EXPECT_TRUE(accessible->state().pressed);
}

TEST_F(SRRecorderControlTest, BeginsToRecordOnAScreenReadersRequest) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&field());
    ASSERT_NE(accessible, nullptr);
    ASSERT_NE(accessible->actionInterface(), nullptr);
    EXPECT_TRUE(accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control.isRecording());
}

TEST_F(SRRecorderControlTest, HasRoomForTheLongestCombinationInEveryFontSize) {
    for (int size = 9; size <= 24; ++size) {
        QFont font = host.font();
        font.setPointSize(size);
        host.setFont(font);
        control.setKeyCombo({121, Command | Option | Control | Shift});
        QCoreApplication::processEvents();
        host.adjustSize();
        QCoreApplication::processEvents();
        EXPECT_EQ(shown(), "Command+Option+Control+Shift+Page Down");
        EXPECT_GE(field().width(), QFontMetrics(font).horizontalAdvance(field().text()) + 8) << size;
        EXPECT_GE(field().height(), QFontMetrics(font).height()) << size;
    }
}

TEST_F(SRRecorderControlTest, GrowsDownwardsForItsMessage) {
    const int height = control.sizeHint().height();
    const int width = control.sizeHint().width();
    keys.setAvailable(false);
    control.startRecording();
    EXPECT_EQ(control.sizeHint().width(), width);
    EXPECT_GT(control.heightForWidth(width), height);
}

} // namespace
} // namespace tarragon
