#include "prefs/widgets/ZDMouseButtonIdentifier.h"

#include "fake/FakeInputEvents.h"
#include "fake/FakeRunLoop.h"
#include "unit/EventCounter.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <sstream>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPicture>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <QVBoxLayout>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr InputEventMask OtherDownMask = 0x2000000;

InputEvent press(std::uint32_t button) {
    return {InputEventType::OtherMouseDown, button};
}

constexpr double TimeForTap = 0.05; // seconds

class ZDMouseButtonIdentifierTest : public testing::Test {
protected:
    ZDMouseButtonIdentifierTest() { control.setServices(&input, runLoop, standardError); }
    // The number that the tap told last stays in the process.
    void forget() {
        control.setupTap();
        input.send(press(0));
        control.disableAndReleaseTap();
    }
    void click(Qt::MouseButton button) {
        QTest::mouseClick(&control, button);
        runLoop.advance(TimeForTap);
    }

    FakeInputEvents input;
    FakeRunLoop runLoop;
    std::ostringstream standardError;
    ZDMouseButtonIdentifier control;
};

TEST_F(ZDMouseButtonIdentifierTest, ListensToPressesOfOtherButtonsOnceItIsSetUp) {
    EXPECT_EQ(input.tapCount(), 0U);
    control.setupTap();
    EXPECT_THAT(input.enabledTapMasks(), ElementsAre(OtherDownMask));
    EXPECT_THAT(input.monitorMasks(), IsEmpty());
    EXPECT_EQ(standardError.str(), "");
    EXPECT_EQ(runLoop.exitStatus(), std::nullopt);
}

TEST_F(ZDMouseButtonIdentifierTest, GivesTheTapBackHoweverOftenItIsTold) {
    control.disableAndReleaseTap();
    control.setupTap();
    control.disableAndReleaseTap();
    EXPECT_EQ(input.tapCount(), 0U);
    control.disableAndReleaseTap();
    control.setupMouseUpEventTap();
    EXPECT_THAT(input.enabledTapMasks(), ElementsAre(OtherDownMask));
}

TEST_F(ZDMouseButtonIdentifierTest, HasOneTapHoweverOftenItIsSetUp) {
    control.setupTap();
    control.setupTap();
    EXPECT_EQ(input.tapCount(), 1U);
}

TEST_F(ZDMouseButtonIdentifierTest, TakesTheNumberFromTheTapWhateverButtonIsReleased) {
    control.setupTap();
    const QSignalSpy actions(&control, &ZDMouseButtonIdentifier::actionSent);
    EXPECT_TRUE(input.sendToUs(press(7)));
    EXPECT_EQ(control.buttonNumber(), 0U) << "not before the release";
    click(Qt::MiddleButton);
    EXPECT_EQ(control.buttonNumber(), 7U);
    EXPECT_EQ(actions.count(), 1);
}

TEST_F(ZDMouseButtonIdentifierTest, HearsPressesThatGoElsewhere) {
    control.setupTap();
    EXPECT_TRUE(input.send(press(4)));
    control.otherMouseUp();
    EXPECT_EQ(control.buttonNumber(), 4U);
}

// The trigger does not act on the left and the right button. Here every number counts.
TEST_F(ZDMouseButtonIdentifierTest, TakesAnyNumber) {
    control.setupTap();
    for (const std::uint32_t button : {31U, 1U, 0U}) {
        EXPECT_TRUE(input.send(press(button)));
        control.otherMouseUp();
        EXPECT_EQ(control.buttonNumber(), button);
    }
}

TEST_F(ZDMouseButtonIdentifierTest, ActsOnTheReleaseOfAnyButtonButTheLeftAndTheRightOne) {
    const QSignalSpy actions(&control, &ZDMouseButtonIdentifier::actionSent);
    click(Qt::LeftButton);
    click(Qt::RightButton);
    EXPECT_EQ(actions.count(), 0);
    for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton, Qt::ExtraButton5})
        click(button);
    EXPECT_EQ(actions.count(), 4);
}

TEST_F(ZDMouseButtonIdentifierTest, DoesNothingOnThePress) {
    const QSignalSpy actions(&control, &ZDMouseButtonIdentifier::actionSent);
    QTest::mousePress(&control, Qt::MiddleButton);
    runLoop.advance(TimeForTap);
    EXPECT_EQ(actions.count(), 0);
    QTest::mouseRelease(&control, Qt::MiddleButton);
    runLoop.advance(TimeForTap);
    EXPECT_EQ(actions.count(), 1);
}

// The tap hears over a way of its own, and may hear later than the control does.
TEST_F(ZDMouseButtonIdentifierTest, WaitsForThePressThatTheTapHasNotHeardYet) {
    forget();
    control.setupTap();
    QTest::mouseClick(&control, Qt::MiddleButton);
    // Everything that waits is done before the tap is heard.
    runLoop.runPending();
    EXPECT_EQ(control.buttonNumber(), 0U);
    input.sendToUs(press(2));
    runLoop.advance(TimeForTap);
    EXPECT_EQ(control.buttonNumber(), 2U);
}

TEST_F(ZDMouseButtonIdentifierTest, MayGoBeforeItsReleaseIsSeenTo) {
    auto* gone = new ZDMouseButtonIdentifier;
    gone->setServices(&input, runLoop, standardError);
    gone->setupTap();
    QTest::mouseClick(gone, Qt::MiddleButton);
    delete gone;
    EXPECT_EQ(input.tapCount(), 0U);
    runLoop.advance(TimeForTap);
}

TEST_F(ZDMouseButtonIdentifierTest, SharesTapAndNumberWithTheOtherControlsOfTheProcess) {
    ZDMouseButtonIdentifier other;
    other.setServices(&input, runLoop, standardError);
    control.setupTap();
    input.send(press(9));
    other.otherMouseUp();
    EXPECT_EQ(other.buttonNumber(), 9U);
    other.setupTap();
    EXPECT_EQ(input.tapCount(), 1U);
    { const ZDMouseButtonIdentifier third; }
    EXPECT_EQ(input.tapCount(), 1U) << "a control leaves the tap of another one alone";
    control.disableAndReleaseTap();
    EXPECT_EQ(input.tapCount(), 0U);
}

TEST_F(ZDMouseButtonIdentifierTest, StaysDeafOnceItsTapWasDisabled) {
    control.setupTap();
    input.send(press(6));
    EXPECT_TRUE(input.disableTaps(InputEventType::TapDisabledByTimeout)) << "the notice goes on";
    EXPECT_THAT(input.enabledTapMasks(), IsEmpty());
    input.send(press(5));
    control.otherMouseUp();
    EXPECT_EQ(control.buttonNumber(), 0U) << "the notice counts as an event of button 0";
    control.setupTap();
    input.send(press(5));
    control.otherMouseUp();
    EXPECT_EQ(control.buttonNumber(), 5U);
}

TEST_F(ZDMouseButtonIdentifierTest, EndsTheProgramWithAMessageWherePressesCannotBeHad) {
    input.setRefuses(true);
    control.setupTap();
    EXPECT_EQ(standardError.str(), "failed to create event tap\n");
    EXPECT_EQ(runLoop.exitStatus(), 1);
    control.disableAndReleaseTap();
}

TEST_F(ZDMouseButtonIdentifierTest, EndsTheProgramOnADesktopThatTellsNothingOfInput) {
    control.setServices(nullptr, runLoop, standardError);
    control.setupTap();
    EXPECT_EQ(standardError.str(), "failed to create event tap\n");
    EXPECT_EQ(runLoop.exitStatus(), 1);
}

TEST_F(ZDMouseButtonIdentifierTest, DoesNothingBeforeItKnowsTheDesktop) {
    ZDMouseButtonIdentifier lonely;
    const QSignalSpy actions(&lonely, &ZDMouseButtonIdentifier::actionSent);
    lonely.setupTap();
    lonely.disableAndReleaseTap();
    QTest::mouseClick(&lonely, Qt::MiddleButton);
    EXPECT_EQ(actions.count(), 0);
}

TEST_F(ZDMouseButtonIdentifierTest, KeepsWhatItIsGivenAndSendsNoActionForIt) {
    const QSignalSpy actions(&control, &ZDMouseButtonIdentifier::actionSent);
    EXPECT_EQ(control.tag(), 0);
    control.setTag(-300);
    EXPECT_EQ(control.tag(), -300);
    control.setButtonNumber(5);
    control.resetButtonNumber();
    EXPECT_EQ(control.buttonNumber(), 5U);
    EXPECT_EQ(actions.count(), 0);
}

TEST_F(ZDMouseButtonIdentifierTest, ReadsItsNumberAndWhatToDoToAScreenReader) {
    control.setButtonNumber(3);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&control);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::HotkeyField);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Button Number: 3");
    EXPECT_EQ(
        accessible->text(QAccessible::Description), "Click here with the mouse button that is to open the menus.");
    control.setButtonNumber(0xFFFFFFFF);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Button Number: -1");
}

// What it draws, in black on white.
class PaintedIdentifier : public ZDMouseButtonIdentifierTest {
protected:
    PaintedIdentifier() {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::WindowText, Qt::black);
        palette.setColor(QPalette::Highlight, Qt::red);
        host.setPalette(palette);
        control.setParent(&host);
        other.setParent(&host);
        host.resize(300, 100);
        other.setGeometry(0, 60, 300, 30);
        control.setButtonNumber(2);
        control.setGeometry(0, 0, 200, 40);
        host.show();
        QApplication::setActiveWindow(&host);
        other.setFocus();
    }
    ~PaintedIdentifier() override { control.setParent(nullptr); }

    QImage picture() { return control.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    static bool isDark(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)) < 128; }
    // The rectangle around everything dark.
    static QRect ink(const QImage& image) {
        QRect found;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                found |= isDark(image, x, y) ? QRect(x, y, 1, 1) : QRect();
        }
        return found;
    }

    QWidget host;
    QLineEdit other;
};

TEST_F(PaintedIdentifier, StartsItsText32PointsFromTheEdgeAndTenBelowTheTop) {
    const QRect text = ink(picture());
    EXPECT_GE(text.left(), 32);
    EXPECT_LE(text.left(), 35);
    EXPECT_GE(text.top(), 10);
    EXPECT_LE(text.top(), 16);
}

TEST_F(PaintedIdentifier, DrawsInTheMenuFontWithTwelvePoints) {
    QFont font = QApplication::font("QMenu");
    font.setPixelSize(12);
    QImage expected(200, 40, QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRect(32, 10, 232, 30), Qt::AlignLeft | Qt::AlignTop, "Button Number: 2");
    painter.end();
    EXPECT_EQ(picture(), expected);
}

TEST_F(PaintedIdentifier, LetsALongNumberRunOnPastTheIndent) {
    control.setButtonNumber(2000000000);
    control.resize(control.sizeHint().width() - 32, 40);
    const QRect text = ink(picture());
    EXPECT_GT(text.right(), control.width() - 6);
    EXPECT_LT(text.right(), control.width());
}

TEST_F(PaintedIdentifier, AsksForRoomForItsWholeText) {
    for (const std::uint32_t number : {2U, 2000000000U}) {
        control.setButtonNumber(number);
        control.resize(control.sizeHint());
        const QRect text = ink(picture());
        EXPECT_LT(text.right(), control.width() - 16);
        EXPECT_LT(text.bottom(), control.height() - 5);
    }
}

TEST_F(PaintedIdentifier, StartsFromTheRightWhereReadingDoes) {
    control.setLayoutDirection(Qt::RightToLeft);
    const QRect text = ink(picture());
    EXPECT_LE(text.right(), 200 - 32);
    EXPECT_GE(text.right(), 200 - 36);
}

TEST_F(PaintedIdentifier, HasARingWhileItIsTheOneThatKeysGoTo) {
    const QImage without = picture();
    control.setFocus();
    const QImage with = picture();
    EXPECT_NE(with.copy(0, 10, 2, 20), without.copy(0, 10, 2, 20)) << "at the left";
    EXPECT_NE(with.copy(198, 10, 2, 20), without.copy(198, 10, 2, 20)) << "at the right";
    EXPECT_NE(with.copy(50, 38, 100, 2), without.copy(50, 38, 100, 2)) << "at the bottom";
    EXPECT_EQ(with.copy(2, 2, 196, 36), without.copy(2, 2, 196, 36)) << "the ring only";
    other.setFocus();
    EXPECT_EQ(picture(), without);
}

TEST_F(PaintedIdentifier, HasARingThatIsSeenOnDarkGround) {
    // This style draws the ring in black or white, whichever stands out.
    const std::unique_ptr<QStyle> style(QStyleFactory::create("Windows"));
    control.setStyle(style.get());
    QPalette dark = control.palette();
    dark.setColor(QPalette::Window, Qt::black);
    control.setPalette(dark);
    control.setFocus();
    const QImage bottom = picture().copy(50, 38, 100, 2);
    bool isSeen = false;
    for (int x = 0; x < bottom.width(); ++x)
        isSeen = isSeen || !isDark(bottom, x, 0) || !isDark(bottom, x, 1);
    EXPECT_TRUE(isSeen);
    control.setStyle(nullptr);
}

TEST_F(PaintedIdentifier, IsPaintedAnewWhenWhatItShowsChanges) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    const EventCounter paints(control, QEvent::Paint);
    control.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 1; }));
    other.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }));
    control.setButtonNumber(4);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 3; }));
    control.setEnabled(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 4; }));
}

TEST_F(PaintedIdentifier, HasNoRingOnPaper) {
    const auto drawn = [this] {
        QPicture paper;
        control.render(&paper, QPoint(), QRegion(), QWidget::RenderFlags());
        return paper.size();
    };
    const uint without = drawn();
    control.setFocus();
    EXPECT_EQ(drawn(), without);
}

TEST_F(PaintedIdentifier, IsReachedByTab) {
    QWidget::setTabOrder(&other, &control);
    QTest::keyClick(&other, Qt::Key_Tab);
    EXPECT_TRUE(control.hasFocus());
}

} // namespace
} // namespace tarragon
