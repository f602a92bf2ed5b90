#include "recorder/control/SRRecorderField.h"

#include "recorder/control/SRRecorderButton.h"
#include "unit/EventCounter.h"

#include <gtest/gtest.h>

#include <set>

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStyleOption>
#include <QTest>

namespace tarragon {
namespace {

// Takes what the widgets in it leave.
class Host : public QWidget {
public:
    int keysPressed = 0;
    int keysReleased = 0;
    int buttonsPressed = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keysPressed; }
    void keyReleaseEvent(QKeyEvent*) override { ++keysReleased; }
    void mousePressEvent(QMouseEvent*) override { ++buttonsPressed; }
};

// A style that frames fields widely, and keeps what it was told to draw.
class FramingStyle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_DefaultFrameWidth ? 20 : QProxyStyle::pixelMetric(metric, option, widget);
    }
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override {
        if (element == PE_PanelLineEdit)
            isSunken = option->state.testFlag(State_Sunken);
        panels += element == PE_PanelButtonTool ? 1 : 0;
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    mutable bool isSunken = false;
    mutable int panels = 0; // of buttons
};

class SRRecorderFieldTest : public testing::Test {
protected:
    SRRecorderFieldTest() {
        auto* row = new QHBoxLayout(&host);
        row->addWidget(field);
        row->addWidget(button);
        row->addWidget(other);
        field->setLongTexts({"Command+Option+Space"});
        field->display({"Option+Space", false}, false);
        host.show();
        QApplication::setActiveWindow(&host);
        other->setFocus();
        QCoreApplication::processEvents();
    }

    static QImage picture(QWidget* widget) { return widget->grab().toImage(); }

    Host host;
    SRRecorderField* field = new SRRecorderField;
    SRRecorderButton* button = new SRRecorderButton;
    QLineEdit* other = new QLineEdit;
};

TEST_F(SRRecorderFieldTest, DrawsItsTextInAFrame) {
    const QImage words = picture(field);
    field->display({"", false}, false);
    const QImage frame = picture(field);
    EXPECT_NE(words, frame);
    EXPECT_NE(frame.pixel(frame.width() / 2, 0), frame.pixel(frame.width() / 2, frame.height() / 2));
    EXPECT_EQ(frame.pixelColor(frame.width() / 2, frame.height() / 2), field->palette().color(QPalette::Base));
}

TEST_F(SRRecorderFieldTest, DrawsAPromptPalerThanACombination) {
    const QImage combination = picture(field);
    field->display({"Option+Space", true}, false);
    EXPECT_NE(picture(field), combination);
}

TEST_F(SRRecorderFieldTest, IsTintedWhileItRecords) {
    field->display({"", false}, true);
    const QImage recording = picture(field);
    EXPECT_NE(recording.pixelColor(recording.rect().center()), field->palette().color(QPalette::Base));
}

TEST_F(SRRecorderFieldTest, IsDrawnAnewOnlyWhenWhatItShowsChanges) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    const EventCounter paints(*field, QEvent::Paint);
    field->display({"Option+K", false}, false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 1; }));
    field->display({"Option+K", false}, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }));
    field->display({"Option+K", false}, true);
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 2);
}

TEST_F(SRRecorderFieldTest, IsDrawnAnewUnderThePointerAndWithTheFocus) {
    EXPECT_TRUE(field->testAttribute(Qt::WA_Hover));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    EventCounter paints(*field, QEvent::Paint);
    field->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
    QCoreApplication::processEvents();
    paints.count = 0;
    other->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
}

TEST_F(SRRecorderFieldTest, IsReachedByTab) {
    QWidget::setTabOrder(other, field);
    QTest::keyClick(other, Qt::Key_Tab);
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(SRRecorderFieldTest, HasTheFrameOfItsStyle) {
    const int before = field->sizeHint().height();
    FramingStyle style;
    field->setStyle(&style);
    EXPECT_GE(field->sizeHint().height(), before + 20);
    picture(field);
    EXPECT_TRUE(style.isSunken);
    field->setStyle(nullptr);
}

TEST_F(SRRecorderFieldTest, MakesRoomForLongerTexts) {
    const int before = field->width();
    field->setLongTexts({"Command+Option+Control+Shift+Page Down"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return field->width() > before; }));
}

TEST_F(SRRecorderFieldTest, GrowsWithItsFont) {
    const int before = field->height();
    QFont large = field->font();
    large.setPointSize(large.pointSize() * 2);
    field->setFont(large);
    EXPECT_TRUE(QTest::qWaitFor([&] { return field->height() > before; }));
}

TEST_F(SRRecorderFieldTest, LeavesKeysAndButtonsOfOthersToThoseAround) {
    field->setFocus();
    QTest::keyPress(field, Qt::Key_F5);
    EXPECT_EQ(host.keysPressed, 1);
    QTest::keyRelease(field, Qt::Key_F5);
    EXPECT_EQ(host.keysReleased, 1);
    QTest::mousePress(field, Qt::RightButton);
    EXPECT_EQ(host.buttonsPressed, 1);
    QTest::mousePress(field, Qt::LeftButton);
    EXPECT_EQ(host.buttonsPressed, 1);
}

TEST_F(SRRecorderFieldTest, IsPressedOnceByTheKeyThatGoesDownAndUp) {
    const QSignalSpy pressed(field, &SRRecorderField::pressed);
    field->setFocus();
    QTest::keyPress(field, Qt::Key_Space);
    QTest::keyRelease(field, Qt::Key_Return);
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, " ", true);
    QApplication::sendEvent(field, &repeated);
    EXPECT_EQ(pressed.count(), 0);
    QTest::keyRelease(field, Qt::Key_Space);
    EXPECT_EQ(pressed.count(), 1);
    QTest::keyRelease(field, Qt::Key_Space);
    EXPECT_EQ(pressed.count(), 1);
}

TEST_F(SRRecorderFieldTest, IsNotPressedByAKeyWithoutAName) {
    const QSignalSpy pressed(field, &SRRecorderField::pressed);
    QKeyEvent nameless(QEvent::KeyRelease, 0, Qt::NoModifier);
    QApplication::sendEvent(field, &nameless);
    EXPECT_EQ(pressed.count(), 0);
}

TEST_F(SRRecorderFieldTest, HasAButtonWithASignForEachThingThatItDoes) {
    button->setSign(SRRecorderButton::Sign::Clear, "Clear");
    const QImage cross = picture(button);
    EXPECT_EQ(button->toolTip(), "Clear");
    button->setSign(SRRecorderButton::Sign::SnapBack, "Leave");
    EXPECT_EQ(button->toolTip(), "Leave");
    const QImage arrow = picture(button);
    EXPECT_NE(arrow, cross);
    button->setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(picture(button), arrow) << "back is on the other side";
    button->setSign(SRRecorderButton::Sign::Clear, "Clear");
    EXPECT_EQ(cross.mirrored(true, true), cross) << "the cross is in the middle";
    EXPECT_EQ(cross.mirrored(true, false), cross) << "both of its lines";
    const QColor ground = cross.pixelColor(cross.width() / 2, 1);
    EXPECT_NE(cross.pixelColor(cross.rect().center()), ground);
}

TEST_F(SRRecorderFieldTest, HasAButtonWithASmoothArrowThatBendsBack) {
    SRRecorderButton large;
    large.resize(100, 100);
    large.setSign(SRRecorderButton::Sign::SnapBack, "Leave");
    const QImage arrow = picture(&large);
    const QRgb ground = arrow.pixel(1, 1);
    // The sign is six tenths of the button, in its middle.
    const auto isInk = [&](double x, double y) {
        return arrow.pixel(20 + static_cast<int>(x * 60), 20 + static_cast<int>(y * 60)) != ground;
    };
    EXPECT_TRUE(isInk(0.45, 0.85)) << "the way";
    EXPECT_TRUE(isInk(0.88, 0.6)) << "the bend";
    EXPECT_TRUE(isInk(0.45, 0.35)) << "back";
    EXPECT_TRUE(isInk(0.255, 0.245)) << "the head";
    EXPECT_TRUE(isInk(0.255, 0.455));
    EXPECT_FALSE(isInk(0.45, 0.64)) << "between";
    EXPECT_FALSE(isInk(0.15, 0.85)) << "where it begins";
    std::set<QRgb> colours;
    for (int y = 0; y < arrow.height(); ++y) {
        for (int x = 0; x < arrow.width(); ++x)
            colours.insert(arrow.pixel(x, y));
    }
    EXPECT_GT(colours.size(), 10U) << "smooth";
}

TEST_F(SRRecorderFieldTest, HasAButtonThatIsDrawnAnewUnderThePointer) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    // Not every style asks for it.
    button->setAttribute(Qt::WA_Hover, false);
    const EventCounter paints(*button, QEvent::Paint);
    QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
    QApplication::sendEvent(button, &enter);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
}

TEST_F(SRRecorderFieldTest, HasAButtonThatIsDrawnAnewWithItsSign) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    const EventCounter paints(*button, QEvent::Paint);
    button->setSign(SRRecorderButton::Sign::SnapBack, "Leave");
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 1; }));
}

TEST_F(SRRecorderFieldTest, HasAButtonThatShowsItsFocusItsPressAndThatItIsOfNoUse) {
    const QImage resting = picture(button);
    button->setFocus();
    const QImage focused = picture(button);
    EXPECT_NE(focused, resting);
    button->setDown(true);
    const QImage down = picture(button);
    EXPECT_NE(down, focused);
    button->setDown(false);
    other->setFocus();
    button->setEnabled(false);
    EXPECT_NE(picture(button), resting);
}

TEST_F(SRRecorderFieldTest, HasAButtonThatIsRaisedOnlyWhileItIsOfUse) {
    FramingStyle style;
    button->setStyle(&style);
    picture(button);
    EXPECT_EQ(style.panels, 0);
    button->setDown(true);
    picture(button);
    EXPECT_EQ(style.panels, 1);
    button->setEnabled(false);
    button->setDown(true);
    picture(button);
    EXPECT_EQ(style.panels, 1);
    button->setStyle(nullptr);
}

} // namespace
} // namespace tarragon
