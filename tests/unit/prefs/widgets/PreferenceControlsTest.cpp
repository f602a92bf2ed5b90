#include "PreferencesWindowFixture.h"
#include "prefs/widgets/AccessibilityAlert.h"
#include "prefs/widgets/HelpLine.h"
#include "prefs/widgets/NoticeView.h"
#include "prefs/widgets/ZDMouseButtonIdentifier.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <optional>
#include <set>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Counts the mouse buttons that the widget in it leaves.
class Host : public QWidget {
public:
    int buttons = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++buttons; }
    void mouseReleaseEvent(QMouseEvent*) override { ++buttons; }
};

TEST(MouseButtonField, KeepsItsLettersAtTwelvePointsWhateverTheMenusHave) {
    const QFont menus = QApplication::font("QMenu");
    ZDMouseButtonIdentifier field;
    QFont large = menus;
    large.setPixelSize(12);
    QApplication::setFont(large, "QMenu");
    field.resize(300, 60);
    const QSize room = field.sizeHint();
    const QImage picture = field.grab().toImage();
    large.setPixelSize(40);
    QApplication::setFont(large, "QMenu");
    EXPECT_EQ(field.sizeHint(), room);
    EXPECT_EQ(field.grab().toImage(), picture);
    QFont own = field.font();
    own.setPixelSize(40);
    field.setFont(own);
    EXPECT_EQ(field.grab().toImage(), picture);
    QApplication::setFont(menus, "QMenu");
}

TEST(MouseButtonField, WritesInTheColourOfText) {
    ZDMouseButtonIdentifier field;
    field.resize(field.sizeHint());
    QPalette palette = field.palette();
    palette.setColor(field.foregroundRole(), Qt::red);
    palette.setColor(field.backgroundRole(), Qt::white);
    field.setPalette(palette);
    const QImage picture = field.grab().toImage();
    bool isRed = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            isRed = isRed || picture.pixelColor(x, y).red() > picture.pixelColor(x, y).green() + 100;
    }
    EXPECT_TRUE(isRed);
}

TEST(MouseButtonField, ReadsItselfBeforeAndAfterANewLanguage) {
    ZDMouseButtonIdentifier field;
    EXPECT_EQ(field.accessibleName(), "Button Number: 0");
    EXPECT_EQ(field.toolTip(), field.accessibleDescription());
    field.setAccessibleName("of the language before");
    QEvent translated(QEvent::LanguageChange);
    QApplication::sendEvent(&field, &translated);
    EXPECT_EQ(field.accessibleName(), "Button Number: 0");
}

TEST(MouseButtonField, KeepsTheButtonsThatArePressedOnIt) {
    Host host;
    auto* field = new ZDMouseButtonIdentifier(&host);
    field->resize(field->sizeHint());
    QTest::mouseClick(field, Qt::MiddleButton);
    EXPECT_EQ(host.buttons, 0);
}

TEST(MouseButtonField, MakesRoomForALongerNumber) {
    QWidget host;
    auto* column = new QVBoxLayout(&host);
    auto* field = new ZDMouseButtonIdentifier;
    column->addWidget(field);
    host.show();
    const int before = column->minimumSize().width();
    field->setButtonNumber(1000000000);
    EXPECT_GT(column->minimumSize().width(), before);
    host.resize(600, 600);
    EXPECT_TRUE(QTest::qWaitFor([&] { return field->height() == field->sizeHint().height(); }));
}

TEST(HelpLineTest, IsPalerThanTheTextAround) {
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::Window, Qt::white);
    QApplication::setPalette(palette);
    QWidget host;
    auto* line = new HelpLine(&host);
    line->setText("<b>plain</b>");
    host.show();
    EXPECT_EQ(line->textFormat(), Qt::PlainText);
    const auto ink = [line] { return line->palette().color(QPalette::Active, QPalette::WindowText).lightness(); };
    EXPECT_GT(ink(), 40);
    EXPECT_LT(ink(), 120);
    // Under another theme as well.
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Window, Qt::black);
    QApplication::setPalette(palette);
    QCoreApplication::processEvents();
    EXPECT_GT(ink(), 135);
    EXPECT_LT(ink(), 215);
    QApplication::setPalette(before);
}

TEST(HelpLineTest, StandsBelowTheWordsOfItsCheckBox) {
    QWidget host;
    auto* line = new HelpLine(&host);
    host.show();
    EXPECT_EQ(line->contentsMargins(), QMargins());
    line->setProperty("indented", true);
    EXPECT_GT(line->contentsMargins().left(), 10);
    EXPECT_EQ(line->contentsMargins().right(), 0);
    line->setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(line->contentsMargins().left(), 0);
    EXPECT_GT(line->contentsMargins().right(), 10);
}

TEST(HelpLineTest, MayStandAlone) {
    HelpLine line;
    line.setText("alone");
    line.show();
    EXPECT_TRUE(line.isVisible());
}

TEST(NoticeViewTest, IsABoxWithAFrameAndRoundCorners) {
    NoticeView notice;
    notice.resize(100, 40);
    const QImage picture = notice.grab().toImage();
    const QColor ground = notice.palette().color(QPalette::Window);
    EXPECT_EQ(picture.pixelColor(0, 0), ground);
    EXPECT_NE(picture.pixelColor(50, 20), ground);
    EXPECT_NE(picture.pixelColor(50, 0), picture.pixelColor(50, 20));
    EXPECT_EQ(picture.pixelColor(50, 0), picture.pixelColor(50, 39));
    std::set<QRgb> cornerColours;
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 5; ++x)
            cornerColours.insert(picture.pixel(x, y));
    }
    EXPECT_GT(cornerColours.size(), 3U) << "smooth, beside the ground, the frame and the inside";
    // Amber.
    EXPECT_GT(picture.pixelColor(50, 0).red(), picture.pixelColor(50, 0).blue());
    EXPECT_GT(picture.pixelColor(50, 0).red(), picture.pixelColor(50, 0).green());
}

TEST(AccessibilityAlertSheet, IsASheetWithANameThatGoesWhenItIsClosed) {
    QWidget window;
    window.show();
    std::optional<AccessibilityAlertAnswer> answer;
    openAccessibilityAlert(window, [&answer](AccessibilityAlertAnswer given) { answer = given; });
    auto* alert = window.findChild<QMessageBox*>("accessibilityAlert");
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->windowType(), Qt::Sheet);
    EXPECT_EQ(alert->windowTitle(), "Tarragon");
    QTest::keyClick(alert, Qt::Key_F5);
    EXPECT_FALSE(answer);
    QTest::keyClick(alert, Qt::Key_Escape);
    EXPECT_EQ(answer, AccessibilityAlertAnswer::None);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.findChild<QMessageBox*>("accessibilityAlert"), nullptr);
}

class PreferenceControlsTest : public PreferencesWindowTest { };

TEST_F(PreferenceControlsTest, LetTheKeysMoveThroughAListOfChoices) {
    controller().displayWindow();
    selectPane(PreferencePane::WindowTop);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    auto& list = control<QComboBox>("buttonStyle");
    list.setFocus();
    list.showPopup();
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(list.view(), Qt::Key_Down);
    EXPECT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(list.view()->currentIndex().row(), 1);
    list.hidePopup();
}

TEST_F(PreferenceControlsTest, AskForACombinationInTheHelpWhereThereIsNone) {
    changeFromOutside(preference::TriggerCharacterUInt, std::int64_t{70000});
    EXPECT_THAT(
        control<QLabel>("popUpHelpText").text().toStdString(), HasSubstr("once you have chosen one that is free"));
}

TEST_F(PreferenceControlsTest, OpenBothPagesOfTheMakerAndNameTheProgram) {
    webPages.twitter = "https://one.example.org";
    webPages.facebook = "https://two.example.org";
    selectPane(PreferencePane::About);
    EXPECT_EQ(control<QLabel>("aboutName").text(), "Tarragon");
    EXPECT_TRUE(control("productWebPageButton").isHidden());
    control<QPushButton>("twitterWebPageButton").click();
    control<QPushButton>("facebookWebPageButton").click();
    EXPECT_THAT(fake.workspace.openedURLs(), ElementsAre("https://one.example.org", "https://two.example.org"));
}

TEST_F(PreferenceControlsTest, LeaveOutThePageThatThereIsNot) {
    webPages.twitter = "https://one.example.org";
    EXPECT_TRUE(control("facebookWebPageButton").isHidden());
    EXPECT_FALSE(control("twitterWebPageButton").isHidden());
}

} // namespace
} // namespace tarragon
