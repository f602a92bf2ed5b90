#include "SRRecorderControlFixture.h"

#include <QAccessible>

namespace tarragon {
namespace {

using modifier::Command;
using modifier::Control;
using modifier::Option;
using modifier::Shift;
using testing::HasSubstr;

// How the recorder looks, and what a screen reader says of it.
class SRRecorderLookTest : public SRRecorderControlFixture { };

TEST_F(SRRecorderLookTest, HasItsButtonBesideTheFieldAndNoRoomForAMessageThatItDoesNotHave) {
    EXPECT_TRUE(message().isHidden());
    EXPECT_FALSE(field().geometry().intersects(button().geometry()));
    EXPECT_EQ(field().geometry().topLeft(), QPoint(0, 0));
}

TEST_F(SRRecorderLookTest, ReadsItselfToAScreenReader) {
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

TEST_F(SRRecorderLookTest, BeginsToRecordOnAScreenReadersRequest) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&field());
    ASSERT_NE(accessible, nullptr);
    ASSERT_NE(accessible->actionInterface(), nullptr);
    EXPECT_TRUE(accessible->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(control.isRecording());
}

TEST_F(SRRecorderLookTest, HasRoomForTheLongestCombinationInEveryFontSize) {
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

TEST_F(SRRecorderLookTest, GrowsDownwardsForItsMessage) {
    const int height = control.sizeHint().height();
    const int width = control.sizeHint().width();
    keys.setAvailable(false);
    control.startRecording();
    EXPECT_EQ(control.sizeHint().width(), width);
    EXPECT_GT(control.heightForWidth(width), height);
}

TEST_F(SRRecorderLookTest, ShowsWordsOfOthersAsTheyAre) {
    EXPECT_EQ(message().textFormat(), Qt::PlainText);
}

TEST_F(SRRecorderLookTest, TakesTheKeyboardOnAScreenReadersRequest) {
    ASSERT_FALSE(field().hasFocus());
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&field());
    accessible->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(field().hasFocus());
    EXPECT_FALSE(control.isRecording());
}

TEST_F(SRRecorderLookTest, KeepsItsSizeInAWideAndHighWindow) {
    QFont large = host.font();
    large.setPointSize(40);
    host.setFont(large);
    host.resize(3000, 600);
    control.setFixedHeight(300);
    QCoreApplication::processEvents();
    EXPECT_EQ(field().size(), field().sizeHint());
    EXPECT_LT(button().x() - field().geometry().right(), 30);
}

TEST_F(SRRecorderLookTest, IsNotMadeWiderByItsMessages) {
    const int width = control.minimumSizeHint().width();
    // A word that cannot be broken.
    delegate.because = std::string(300, 'M');
    control.startRecording();
    press(40, Command);
    ASSERT_NE(said(), "");
    EXPECT_EQ(control.minimumSizeHint().width(), width);
}

} // namespace
} // namespace tarragon
