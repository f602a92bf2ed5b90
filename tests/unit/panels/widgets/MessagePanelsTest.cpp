#include "panels/widgets/MessagePanels.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace tarragon {
namespace {

QMessageBox* shownBox() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* box = qobject_cast<QMessageBox*>(widget);
        if (box && box->isVisible())
            return box;
    }
    return nullptr;
}

class AccessibilityAlert : public testing::Test {
protected:
    void show() {
        panels.showAccessibilityAlert([this](AccessibilityAlertAnswer given) { answer = given; });
    }

    MessagePanels panels{"1.2.3"};
    std::optional<AccessibilityAlertAnswer> answer;
};

TEST_F(AccessibilityAlert, AsksInItsOwnWordsWithTwoButtons) {
    show();
    const QMessageBox* box = shownBox();
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

TEST_F(AccessibilityAlert, TellsWhichButtonWasChosen) {
    const std::pair<const char*, AccessibilityAlertAnswer> rows[] = {
        {"Open System Preferences", AccessibilityAlertAnswer::OpenSystemPreferences},
        {"Quit Tarragon", AccessibilityAlertAnswer::Quit},
    };
    for (const auto& [text, expected] : rows) {
        show();
        for (QAbstractButton* button : shownBox()->buttons()) {
            if (button->text() == text)
                button->click();
        }
        EXPECT_EQ(answer, expected) << text;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(AccessibilityAlert, AnswersNothingWhenItIsClosed) {
    show();
    shownBox()->reject();
    EXPECT_EQ(answer, AccessibilityAlertAnswer::None);
}

TEST_F(AccessibilityAlert, IsShownOnceAtATime) {
    show();
    const QMessageBox* first = shownBox();
    show();
    EXPECT_EQ(shownBox(), first);
}

TEST(MessagePanels, TellTheVersion) {
    MessagePanels panels("1.2.3");
    panels.showAboutPanel();
    ASSERT_NE(shownBox(), nullptr);
    EXPECT_TRUE(shownBox()->text().contains("1.2.3"));
    EXPECT_TRUE(shownBox()->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST(MessagePanels, TellWhatTheProgramIsAndWhatItIsMadeOf) {
    MessagePanels panels("1.2.3");
    panels.showAboutPanel();
    ASSERT_NE(shownBox(), nullptr);
    EXPECT_EQ(shownBox()->text(), "Tarragon 1.2.3");
    const QString details = shownBox()->informativeText();
    EXPECT_TRUE(details.startsWith("Shows the menu bar of the application in front"));
    for (const char* part : {"MIT License", "Qt", "libdbus", "XCB", "libxkbcommon", "libplist", "pugixml", "JSON"})
        EXPECT_TRUE(details.contains(part)) << part;
}

TEST(MessagePanels, BringTheAboutPanelThatIsOpenToTheFront) {
    MessagePanels panels("1.2.3");
    panels.showAboutPanel();
    const QMessageBox* first = shownBox();
    panels.showAboutPanel();
    EXPECT_EQ(shownBox(), first);
    EXPECT_FALSE(first->isModal());
}

} // namespace
} // namespace tarragon
