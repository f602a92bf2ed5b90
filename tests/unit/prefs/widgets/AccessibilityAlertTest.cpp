#include "prefs/widgets/AccessibilityAlert.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace tarragon {
namespace {

class AccessibilityAlertTest : public testing::Test {
protected:
    AccessibilityAlertTest() {
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            ADD_FAILURE() << "the window cannot be seen";
        openAccessibilityAlert(window, [this](AccessibilityAlertAnswer given) { answer = given; });
        box = window.findChild<QMessageBox*>();
    }
    void click(const QString& text) {
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == text)
                button->click();
        }
    }

    QWidget window;
    QMessageBox* box = nullptr;
    std::optional<AccessibilityAlertAnswer> answer;
};

TEST_F(AccessibilityAlertTest, AsksInItsOwnWordsWithTwoButtons) {
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(box->text(), "Tarragon requires that Apple's Accessibility API be enabled.");
    EXPECT_EQ(box->informativeText(),
        "Would you like to launch System Preferences so that you can turn on \"Enable access for assistive devices\"? "
        "(Please relaunch Tarragon after turning on this setting)");
    QStringList texts;
    for (const QAbstractButton* button : box->buttons())
        texts.append(button->text());
    texts.sort();
    EXPECT_EQ(texts, QStringList({"Open System Preferences", "Quit Tarragon"}));
}

TEST_F(AccessibilityAlertTest, IsASheetOnItsWindow) {
    EXPECT_EQ(box->parentWidget(), &window);
    EXPECT_EQ(box->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(box->isVisible());
    EXPECT_FALSE(answer);
}

TEST_F(AccessibilityAlertTest, WaitsForAWindowThatHasNoPlaceYet) {
    QWidget later;
    later.winId();
    openAccessibilityAlert(later, [](AccessibilityAlertAnswer) {});
    const auto* sheet = later.findChild<QMessageBox*>();
    EXPECT_FALSE(sheet->isVisible());
    later.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&later));
    EXPECT_TRUE(sheet->isVisible());
}

TEST_F(AccessibilityAlertTest, TellsThatTheSystemSettingsWereChosen) {
    click("Open System Preferences");
    EXPECT_EQ(answer, AccessibilityAlertAnswer::OpenSystemPreferences);
}

TEST_F(AccessibilityAlertTest, OpensTheSystemSettingsWithEnter) {
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(answer, AccessibilityAlertAnswer::OpenSystemPreferences);
}

TEST_F(AccessibilityAlertTest, TellsThatQuittingWasChosen) {
    click("Quit Tarragon");
    EXPECT_EQ(answer, AccessibilityAlertAnswer::Quit);
}

TEST_F(AccessibilityAlertTest, AnswersNothingWhenItIsClosed) {
    box->close();
    EXPECT_EQ(answer, AccessibilityAlertAnswer::None);
    EXPECT_FALSE(box->isVisible());
}

TEST_F(AccessibilityAlertTest, AnswersNothingWithEscape) {
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(answer, AccessibilityAlertAnswer::None);
}

} // namespace
} // namespace tarragon
