#include "panels/widgets/MessagePanels.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    for (const char* part :
        {"MIT License", "Qt", "libdbus", "XCB", "libxkbcommon", "libplist", "pugixml", "libappstream", "JSON"})
        EXPECT_TRUE(details.contains(part)) << part;
}

class UpdatePanel : public testing::Test {
protected:
    void show(const UpdateOutcome& outcome) {
        panels.showUpdateOutcome(outcome, [this] { ++opened; });
    }
    static QStringList buttonTexts() {
        QStringList texts;
        for (const QAbstractButton* button : shownBox()->buttons())
            texts.append(button->text());
        texts.sort();
        return texts;
    }
    static void click(const QString& text) {
        for (QAbstractButton* button : shownBox()->buttons()) {
            if (button->text() == text)
                return button->click();
        }
        FAIL() << "no button " << text.toStdString();
    }

    MessagePanels panels{"1.2.3"};
    int opened = 0;
};

TEST_F(UpdatePanel, SaysInASentenceWhatCameOfIt) {
    const struct {
        UpdateOutcome outcome;
        const char* text;
        const char* inDetails;
    } rows[] = {
        {UpdateFeedMissing{}, "No address is configured where new versions are listed.", "\"UpdateFeed\""},
        {UpdateUnderWay{}, "Looking for a newer version...", "1.2.3"},
        {UpToDate{}, "Tarragon is up to date.", "1.2.3"},
        {NewerVersion{"2.0", "Better.", "https://example.org/2.0"}, "Tarragon 2.0 is available.",
            "You have version 1.2.3.\n\nBetter.\n\nhttps://example.org/2.0"},
        {NewerVersion{"2.0", "", ""}, "Tarragon 2.0 is available.", "You have version 1.2.3."},
    };
    for (const auto& row : rows) {
        show(row.outcome);
        EXPECT_EQ(shownBox()->text(), row.text);
        EXPECT_TRUE(shownBox()->informativeText().contains(row.inDetails))
            << shownBox()->informativeText().toStdString();
        EXPECT_EQ(shownBox()->icon(), QMessageBox::Information);
    }
}

TEST_F(UpdatePanel, SaysWhyItCannotTell) {
    const std::pair<UpdateProblem, const char*> rows[] = {
        {UpdateProblem::AddressUnusable, "The address of the release list is no https, http or file address: DETAIL"},
        {UpdateProblem::Unreachable, "The release list cannot be reached: DETAIL"},
        {UpdateProblem::UnsafeRedirect, "The address of the release list leads on to one that is less safe."},
        {UpdateProblem::HttpStatus, "The server of the release list answered: DETAIL"},
        {UpdateProblem::TimedOut, "The release list did not arrive in time."},
        {UpdateProblem::TooLarge, "What arrived is too large for a release list."},
        {UpdateProblem::NotAReleaseList, "What arrived is no release list."},
        {UpdateProblem::NoRelease, "The release list names no release."},
        {UpdateProblem::Failed, "The program that asks for updates did not do its work."},
    };
    for (const auto& [problem, details] : rows) {
        show(UpdateUnknown{problem, "DETAIL"});
        EXPECT_EQ(shownBox()->text(), "It could not be told whether there is a newer version.");
        EXPECT_EQ(shownBox()->informativeText(), details);
        EXPECT_EQ(shownBox()->icon(), QMessageBox::Warning);
    }
}

TEST_F(UpdatePanel, IsOneBoxWhoseWordsChange) {
    show(UpdateUnderWay{});
    const QMessageBox* first = shownBox();
    EXPECT_EQ(buttonTexts(), QStringList{"Close"});
    show(NewerVersion{"2.0", "", "https://example.org"});
    EXPECT_EQ(shownBox(), first);
    EXPECT_EQ(buttonTexts(), QStringList({"Close", "Open Web Page"}));
    show(UpToDate{});
    EXPECT_EQ(buttonTexts(), QStringList{"Close"});
}

TEST_F(UpdatePanel, OffersThePageFirst) {
    show(UpdateUnderWay{});
    show(NewerVersion{"2.0", "", "https://example.org"});
    EXPECT_EQ(shownBox()->defaultButton()->text(), "Open Web Page");
    EXPECT_EQ(shownBox()->escapeButton()->text(), "Close");
    show(UpToDate{});
    EXPECT_EQ(shownBox()->defaultButton()->text(), "Close");
}

TEST_F(UpdatePanel, OpensThePageOnceOnRequest) {
    show(NewerVersion{"1.9", "", "https://example.org"});
    show(NewerVersion{"2.0", "", "https://example.org"});
    EXPECT_EQ(opened, 0);
    click("Open Web Page");
    EXPECT_EQ(opened, 1);
}

TEST_F(UpdatePanel, OpensNothingWhenItIsClosed) {
    show(NewerVersion{"2.0", "", "https://example.org"});
    click("Close");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    show(NewerVersion{"2.0", "", "https://example.org"});
    shownBox()->reject();
    EXPECT_EQ(opened, 0);
}

TEST_F(UpdatePanel, HasNoButtonForAPageThatThereIsNot) {
    show(NewerVersion{"2.0", "", ""});
    EXPECT_EQ(buttonTexts(), QStringList{"Close"});
}

TEST_F(UpdatePanel, ShowsMarkupOfOthersAsItStands) {
    show(NewerVersion{"<b>2</b>", "<b>Better</b> <img src='x'>", ""});
    const auto labels = shownBox()->findChildren<QLabel*>();
    int checked = 0;
    for (const QLabel* label : labels) {
        if (label->text().isEmpty())
            continue;
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
        ++checked;
    }
    EXPECT_EQ(checked, 2);
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
